#ifndef POSTWRIGHT_SQL_LABEL_SQLLABEL_H_
#define POSTWRIGHT_SQL_LABEL_SQLLABEL_H_

#include <postwright/LocalAnswers.h>

#include <array>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace postwright::sql {

// The columns of a label that was parsed, and of one that was fixed: as the records of the command
// name them.
inline constexpr std::array<const char*, 13> kParseColumns = {"prefix",         "number",
                                                              "predirectional", "street",
                                                              "street_suffix",  "postdirectional",
                                                              "secondary_unit", "secondary_number",
                                                              "street_line",    "city",
                                                              "state",          "zip",
                                                              "suffix"};
inline constexpr std::array<const char*, 12> kFixColumns = {
    "status",      "text",        "proposed",     "mended", "confirmation", "reason",
    "reason_text", "street_line", "urbanization", "city",   "state",        "zip"};

using ParsedLabel = std::array<std::string, kParseColumns.size()>;
using FixedLabel = std::array<std::string, kFixColumns.size()>;

// A label that is none: longer than 16 MiB, or no UTF-8. The text is for the user.
class LabelError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The address in `label`, UTF-8, in its parts; nothing where there is none. Any thread, one at a
// time. Throws LabelError, and std::runtime_error where the system has no UTF-8 locale.
std::optional<ParsedLabel> ParseLabel(std::string_view label);

// Fixes labels by what it is made of: the ZIP codes that come with it and address bases.
class LabelFixer {
 public:
  // Reads the bases, which may be none. Throws LocalServiceError for a file that cannot be used,
  // which it names.
  explicit LabelFixer(const std::vector<std::filesystem::path>& bases);

  // What becomes of `label`. Its `status` is one of unchanged, fixed, to-decide, turned-down and
  // not-answered, and `text` the text to go on with: as it was given, unless it is fixed. The
  // address, where it may be taken, is in the last five columns. Threads and faults as ParseLabel.
  FixedLabel Fix(std::string_view label) const;

 private:
  LocalAnswers answers_;
};

// Has the parser made, which takes a moment. Whoever does not call it has that moment with the
// first label. Throws std::runtime_error where the system has no UTF-8 locale.
void PrepareParser();

}  // namespace postwright::sql

#endif  // POSTWRIGHT_SQL_LABEL_SQLLABEL_H_
