#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_JSONRECORD_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_JSONRECORD_H_

#include <optional>
#include <string>
#include <string_view>

#include "core/label/FixStatus.h"

namespace postwright {

// Composes one JSON object on one line, member by member in the order of the calls.
//
//   JsonRecord record("17");          // the id as JSON text, or "" for none
//   record.Add("city", L"PEÑA");
//   output.Write(record.Line());      // {"id":17,"city":"PEÑA"} and a line feed
//
// Characters are written as UTF-8; only what JSON demands and the control characters are escaped,
// so no tab or line feed is ever inside a record. Written by hand because a tree of values built
// and printed for every label takes as long as reading the label does.
class JsonRecord {
 public:
  explicit JsonRecord(std::string_view id);

  // `key` is plain ASCII that needs no escapes. What is not a character (half a surrogate pair)
  // becomes U+FFFD.
  void Add(std::string_view key, std::wstring_view text);
  void Add(std::string_view key, int number);

  // `json` is a whole value as it is to be written.
  void AddJson(std::string_view key, std::string_view json);

  // The finished line; nothing may be added afterwards.
  const std::string& Line();

 private:
  void AddKey(std::string_view key);

  std::string line_;
};

// The number, as FixStatus has them, that `line` (with or without its line feed) ends with as the
// member "status"; none where it does not. Text inside a JSON string cannot look like one: its
// quotation marks are escaped.
std::optional<FixStatus> StatusOfRecord(std::string_view line);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_JSONRECORD_H_
