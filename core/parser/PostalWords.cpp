#include "core/parser/PostalWords.h"

#include <algorithm>

namespace postwright {

PostalWords::PostalWords(const Table& directions, const Table& suffixes, const Table& states,
                         const Table& numberedUnits, const Table& plainUnits)
    : numberedUnits_(TakeApart(numberedUnits)), plainUnits_(TakeApart(plainUnits)) {
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
    states_.insert(states_.end(), {plain, code});
  }
}

PostalWords::Steps PostalWords::TakeApart(std::wstring_view pattern) {
  Steps steps;
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == L'?') {
      steps.back().choices.emplace_back();
    } else if (pattern[i] == L'*') {
      steps.back().repeated = true;
    } else if (pattern[i] == L'(') {
      const size_t inner = i + 3;  // after "(?:"
      i = pattern.find(L')', inner);
      std::vector<std::wstring> texts = {L""};
      for (const Step& step : TakeApart(pattern.substr(inner, i - inner))) {
        std::vector<std::wstring> longer;
        for (const std::wstring& text : texts) {
          for (const std::wstring& choice : step.choices) {
            longer.push_back(text + choice);
          }
        }
        texts = std::move(longer);
      }
      steps.push_back({std::move(texts)});
    } else {
      steps.push_back({{std::wstring(1, pattern[i])}});
    }
  }
  return steps;
}

std::vector<PostalWords::Unit> PostalWords::TakeApart(const Table& units) {
  std::vector<Unit> all;
  for (const auto& [pattern, standard] : units) {
    Steps steps = TakeApart(pattern);
    const wchar_t initial = steps.front().choices.front().front();
    all.push_back({initial, std::move(steps)});
  }
  return all;
}

void PostalWords::FindUnits(const std::vector<Unit>& units, std::wstring_view text, int at,
                            std::vector<int>& ends) {
  ends.clear();
  for (const Unit& unit : units) {
    if (unit.initial == text[static_cast<size_t>(at)]) {
      Follow(unit.steps, 0, text, at, ends);
    }
  }
}

void PostalWords::Follow(const Steps& steps, size_t step, std::wstring_view text, int at,
                         std::vector<int>& ends) {
  if (step == steps.size()) {
    ends.push_back(at);
    return;
  }
  const std::wstring_view rest = text.substr(static_cast<size_t>(at));
  if (!steps[step].repeated) {
    for (const std::wstring& choice : steps[step].choices) {
      if (rest.starts_with(choice)) {
        Follow(steps, step + 1, text, at + static_cast<int>(choice.size()), ends);
      }
    }
    return;
  }
  const wchar_t letter = steps[step].choices.front().front();
  const size_t run = std::min(rest.find_first_not_of(letter), rest.size());
  for (int count = static_cast<int>(run); count >= 0; --count) {
    Follow(steps, step + 1, text, at + count, ends);
  }
}

}  // namespace postwright
