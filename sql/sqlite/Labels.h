#ifndef POSTWRIGHT_SQL_SQLITE_LABELS_H_
#define POSTWRIGHT_SQL_SQLITE_LABELS_H_

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sql/label/SqlLabel.h"

namespace postwright::sql {

// What the functions of one connection share: the bases that it answers from, and the last label,
// since a statement mostly asks for several parts of one. One thread at a time, as SQLite has it.
class Labels {
 public:
  // Nothing where the label holds no address. Throws as ParseLabel().
  const std::optional<ParsedLabel>& Parse(std::string_view label);

  // Reads the bases first where none have been: those that `postwright fix` finds. Throws as
  // LabelFixer.
  const FixedLabel& Fix(std::string_view label);

  // From now on these are answered from, none for the ZIP codes alone. Throws as LabelFixer; then
  // everything stays as it was.
  void UseBases(const std::vector<std::filesystem::path>& bases);

 private:
  template <typename Result>
  struct Last {
    std::string label = {};
    std::optional<Result> result = {};
  };

  Last<std::optional<ParsedLabel>> parsed_;
  Last<FixedLabel> fixed_;
  std::optional<LabelFixer> fixer_;
};

}  // namespace postwright::sql

#endif  // POSTWRIGHT_SQL_SQLITE_LABELS_H_
