#include "sql/sqlite/Labels.h"

#include "common/BaseFolders.h"

namespace postwright::sql {

namespace {

template <typename Last, typename Make>
const auto& Remember(Last& last, std::string_view label, Make make) {
  if (!last.result || last.label != label) {
    last.result.reset();
    last.label = label;
    last.result.emplace(make());
  }
  return *last.result;
}

}  // namespace

const std::optional<ParsedLabel>& Labels::Parse(std::string_view label) {
  return Remember(parsed_, label, [label] { return ParseLabel(label); });
}

const FixedLabel& Labels::Fix(std::string_view label) {
  if (!fixer_) {
    fixer_.emplace(FindBases());
  }
  return Remember(fixed_, label, [this, label] { return fixer_->Fix(label); });
}

void Labels::UseBases(const std::vector<std::filesystem::path>& bases) {
  fixer_ = LabelFixer(bases);
  fixed_ = {};
}

}  // namespace postwright::sql
