#ifndef POSTWRIGHT_SQL_LABEL_SQLLABEL_H_
#define POSTWRIGHT_SQL_LABEL_SQLLABEL_H_

#include <postwright/LocalAnswers.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/label/ParsedFields.h"

namespace postwright::sql {

// The columns of a parsed label and of a fixed one, named as in the command's records.
inline constexpr auto kParseColumns = [] {
  std::array<const char*, kParsedFields.size()> names{};
  std::transform(kParsedFields.begin(), kParsedFields.end(), names.begin(),
                 [](const ParsedField& field) { return field.name; });
  return names;
}();
inline constexpr std::array<const char*, 12> kFixColumns = {
    "status",      "text",        "proposed",     "mended", "confirmation", "reason",
    "reason_text", "street_line", "urbanization", "city",   "state",        "zip"};

using ParsedLabel = std::array<std::string, kParseColumns.size()>;
using FixedLabel = std::array<std::string, kFixColumns.size()>;

// A label that cannot be read: longer than 16 MiB, or not UTF-8. The text is for the user.
class LabelError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Returns the elements of the address in `label`, UTF-8; nullopt where there is none. Any thread,
// one at a time. Throws LabelError, and std::runtime_error where the system has no UTF-8 locale.
std::optional<ParsedLabel> ParseLabel(std::string_view label);

// Fixes labels from the installed ZIP codes and the address bases it is given.
class LabelFixer {
 public:
  // Reads the bases; there need not be any. Throws LocalServiceError, which names the file, for one
  // that cannot be used.
  explicit LabelFixer(const std::vector<std::filesystem::path>& bases);

  // Returns what became of `label`. `status` is unchanged, fixed, to-decide, turned-down or
  // not-answered; `text` is the text to use, as given unless it was fixed. The last five columns
  // hold the address where it can be relied on. Threads and failures as for ParseLabel.
  FixedLabel Fix(std::string_view label) const;

 private:
  LocalAnswers answers_;
};

// Makes the parser now rather than with the first label; it takes a moment. Throws
// std::runtime_error where the system has no UTF-8 locale.
void PrepareParser();

}  // namespace postwright::sql

#endif  // POSTWRIGHT_SQL_LABEL_SQLLABEL_H_
