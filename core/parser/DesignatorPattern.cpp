#include "core/parser/DesignatorPattern.h"

#include <algorithm>
#include <utility>

namespace postwright {

DesignatorPattern::DesignatorPattern(std::wstring_view pattern)
    : steps_(TakeApart(pattern)), initial_(steps_.front().choices.front().front()) {}

void DesignatorPattern::FindEnds(std::wstring_view text, int at, std::vector<int>& ends) const {
  Follow(0, text, at, [&ends](int end) {
    ends.push_back(end);
    return false;
  });
}

bool DesignatorPattern::IsIn(std::wstring_view text) const {
  for (size_t at = 0; (at = text.find(Initial(), at)) != text.npos; ++at) {
    if (Follow(0, text, static_cast<int>(at), [](int) { return true; })) {
      return true;
    }
  }
  return false;
}

std::vector<DesignatorPattern::Step> DesignatorPattern::TakeApart(std::wstring_view pattern) {
  std::vector<Step> steps;
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

// Goes on from a step at a place. `takeEnd` is given each end, and says whether to stop there;
// returns whether it did.
template <typename TakeEnd>
bool DesignatorPattern::Follow(size_t step, std::wstring_view text, int at,
                               const TakeEnd& takeEnd) const {
  if (step == steps_.size()) {
    return takeEnd(at);
  }
  const std::wstring_view rest = text.substr(static_cast<size_t>(at));
  const std::vector<std::wstring>& choices = steps_[step].choices;
  if (!steps_[step].repeated) {
    return std::ranges::any_of(choices, [&](const std::wstring& choice) {
      return rest.starts_with(choice) &&
             Follow(step + 1, text, at + static_cast<int>(choice.size()), takeEnd);
    });
  }
  const size_t run = std::min(rest.find_first_not_of(choices.front().front()), rest.size());
  for (int count = static_cast<int>(run); count >= 0; --count) {
    if (Follow(step + 1, text, at + count, takeEnd)) {
      return true;
    }
  }
  return false;
}

}  // namespace postwright
