#include "core/parser/PostalWords.h"

namespace postwright {

PostalWords::PostalWords(const Table& directions, const Table& suffixes, const Table& states,
                         const Table& numberedUnits, const Table& plainUnits)
    : numberedUnits_(ByInitial(numberedUnits)), plainUnits_(ByInitial(plainUnits)) {
  for (const auto& [word, abbreviation] : directions) {
    std::wstring dotted;
    for (const wchar_t letter : abbreviation) {
      dotted += letter;
      dotted += L'.';
    }
    directions_.insert(directions_.end(), {word, abbreviation, dotted});
    directionWords_.insert({word, abbreviation});
  }
  for (const auto& [written, standard] : suffixes) {
    suffixes_.insert({written, standard});
  }
  for (const auto& [name, code] : states) {
    // In the pattern a bare blank means nothing and "\ " is a blank.
    std::wstring plain;
    for (size_t i = 0; i < name.size(); ++i) {
      if (name[i] == L'\\') {
        plain += name[++i];
      } else if (name[i] != L' ') {
        plain += name[i];
      }
    }
    states_.Add(plain.back(), plain);
    states_.Add(code.back(), code);
  }
}

PostalWords::Units PostalWords::ByInitial(const Table& units) {
  Units lists;
  for (const auto& [pattern, standard] : units) {
    const DesignatorPattern designator(pattern);
    lists.Add(designator.Initial(), designator);
  }
  return lists;
}

void PostalWords::FindUnits(const Units& units, std::wstring_view text, int at,
                            std::vector<int>& ends) {
  ends.clear();
  for (const DesignatorPattern& unit : units[text[static_cast<size_t>(at)]]) {
    unit.FindEnds(text, at, ends);
  }
}

}  // namespace postwright
