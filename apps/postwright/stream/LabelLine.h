#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELLINE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELLINE_H_

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "apps/postwright/stream/LineReader.h"

namespace postwright {

// The members that a label in parts has, in the order of the label.
inline constexpr std::array<std::string_view, 6> kPartNames = {"name", "street", "unit",
                                                               "city", "state",  "zip"};
using LabelParts = std::array<std::wstring, kPartNames.size()>;

// One line of labels.jsonl: a JSON string, the label's text; or an object whose member `address`
// is that string, or that has the label in parts, and whose member `id`, any JSON value, is given
// back with the answer. Other members are ignored. Of members with the same name the last one
// counts, and of an address and its parts the address. A record is such a line too: its member
// `parts`, an object, says in which parts its label was given.
struct LabelLine {
  std::wstring address;             // composed of the parts, where there are any
  std::optional<LabelParts> parts;  // those that were not given are empty
  std::string id;       // as it was written; empty where there is none. Kept beside a problem too.
  std::string problem;  // "is not a JSON string"; empty where the line is a label
};

// Whether `unit` is a number or letter alone, with no word in front that says of what.
bool IsBareUnit(std::wstring_view unit);

// Reads such lines, to the letter of RFC 8259: text that is not UTF-8, half a surrogate pair or
// anything after the value makes a line that is not a label. So do numbers beyond the range of a
// double and more than 1,000 arrays and objects inside one another.
class LabelLineParser {
 public:
  LabelLineParser();
  ~LabelLineParser();

  // Reads the line at which `reader` stands; throws nothing but std::bad_alloc.
  LabelLine Parse(const LineReader& reader);

 private:
  struct Json;
  std::unique_ptr<Json> json_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_LABELLINE_H_
