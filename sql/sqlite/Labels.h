#ifndef POSTWRIGHT_SQL_SQLITE_LABELS_H_
#define POSTWRIGHT_SQL_SQLITE_LABELS_H_

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sql/label/SqlLabel.h"

namespace postwright::sql {

// What the functions of one connection share: the bases it answers from, and the last label, since
// a statement mostly asks for several parts of it. One thread at a time, which SQLite sees to.
class Labels {
 public:
  // Returns nullopt where the label holds no address. Throws as ParseLabel().
  const std::optional<ParsedLabel>& Parse(std::string_view label);

  // The first call reads the bases that `postwright fix` finds, unless UseBases() has named others.
  // Throws as LabelFixer.
  const FixedLabel& Fix(std::string_view label);

  // Answers from `bases` from now on; from the ZIP codes alone where it is empty. Throws as
  // LabelFixer, and then nothing has changed.
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
