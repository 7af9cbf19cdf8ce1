#include "core/parser/ValuePatterns.h"

#include <algorithm>
#include <string_view>

#include "core/parser/CompiledPattern.h"

namespace postwright {

namespace {

constexpr const wchar_t* kCleanValuePattern = LR"(^\s+|\s+$|[^\/\w\s\-\#\&])";
constexpr std::wstring_view kKeptMarks = L"/-#& ";

}  // namespace

ValuePatterns::ValuePatterns(const std::map<std::wstring, std::wstring>& units)
    : cleanValue_(CompiledPattern(kCleanValuePattern)) {
  for (const auto& [key, standard] : units) {
    units_.emplace_back(key, DesignatorPattern(key));
  }
}

// A plain value is one line, and its only white space are blanks: those at the ends go, and no
// others, whatever else is removed.
void ValuePatterns::Clean(std::wstring& value) const {
  if (!IsPlain(value)) {
    value = boost::xpressive::regex_replace(value, cleanValue_, L"");
    return;
  }
  value.erase(value.find_last_not_of(L' ') + 1);
  value.erase(0, value.find_first_not_of(L' '));
  std::erase_if(value, [this](wchar_t c) { return !IsKept(c); });
}

const std::wstring* ValuePatterns::UnitIn(const std::wstring& value) const {
  const auto unit =
      std::ranges::find_if(units_, [&value](const auto& row) { return row.second.IsIn(value); });
  return unit != units_.end() ? &unit->first : nullptr;
}

bool ValuePatterns::IsPlain(const std::wstring& value) const {
  return std::ranges::all_of(value, [this](wchar_t c) {
    return (c >= L' ' && c < 0x7F) || (classes_.Of(c) & CharacterClasses::kWord) != 0;
  });
}

bool ValuePatterns::IsKept(wchar_t c) const {
  return (classes_.Of(c) & CharacterClasses::kWord) != 0 || kKeptMarks.find(c) != kKeptMarks.npos;
}

}  // namespace postwright
