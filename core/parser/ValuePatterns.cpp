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
    units_.emplace(key, CompiledPattern(key));
  }
}

std::wstring ValuePatterns::Clean(const std::wstring& value) const {
  return IsClean(value) ? value : boost::xpressive::regex_replace(value, cleanValue_, L"");
}

// Every text that a unit pattern fits begins with the pattern's first letter, so most patterns need
// not be searched for at all.
bool ValuePatterns::Finds(const std::wstring& key, const std::wstring& value) {
  const wchar_t initial = key[key.find_first_not_of(L"(?:")];
  return value.find(initial) != std::wstring::npos &&
         boost::xpressive::regex_search(value, found_, units_.at(key));
}

// Most values are clean: one or a few words with single blanks between them.
bool ValuePatterns::IsClean(const std::wstring& value) const {
  return !value.empty() && value.front() != L' ' && value.back() != L' ' &&
         std::all_of(value.begin(), value.end(), [this](wchar_t c) {
           return (classes_.Of(c) & CharacterClasses::kWord) != 0 ||
                  kKeptMarks.find(c) != kKeptMarks.npos;
         });
}

}  // namespace postwright
