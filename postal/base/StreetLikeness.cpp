#include "postal/base/StreetLikeness.h"

#include <algorithm>

#include "postal/places/CityName.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

std::string Join(const Words& words) {
  std::string joined;
  for (const std::string& word : words) {
    joined += word;
  }
  return joined;
}

bool IsDirection(const std::string& word) {
  return !Lexicon::Get().Direction(word).empty();
}

Words WordsOf(const StreetName& street) {
  return SplitLine(ComposeStreet(street));
}

// The words in full, so that a letter that is wrong in FOREST is one letter, and not another word
// than FRST. ST is a street's type at its end, and a saint elsewhere.
Words SpellOut(Words words) {
  size_t end = words.size();
  while (end > 0 && IsDirection(words[end - 1])) {
    --end;
  }
  for (size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "ST" && i + 1 != end) {
      words[i] = "SAINT";
    } else if (Lexicon::Get().Suffix(words[i]) == words[i]) {
      words[i] = Lexicon::Get().SpelledSuffix(words[i]);
    }
  }
  return words;
}

// A known street in its elements, each joined from the short forms of its words.
struct ShortElements {
  explicit ShortElements(const StreetName& street)
      : predirectional(street.predirectional),
        name(Join(ShortStreetWords(SplitLine(street.name)))),
        suffix(street.suffix),
        postdirectional(street.postdirectional) {}

  const std::string& predirectional;
  std::string name;
  const std::string& suffix;
  const std::string& postdirectional;
};

// A numbered road: people call one of a state a highway, a route or a road, with the state or
// without, and leave away whose it is.
struct NumberedRoad {
  explicit NumberedRoad(const StreetName& street) : ends(street) {
    const Words words = SplitLine(street.name);
    if (words.size() < 2 || !IsDigit(words.back()[0])) {
      return;
    }
    const std::string called = JoinWords(words.begin(), words.end() - 1);
    const bool ofState = words.size() > 2 && words[0] != "US" && words[0].size() == 2 &&
                         !Lexicon::Get().State(words[0]).empty();
    const std::string kind = ofState ? JoinWords(words.begin() + 1, words.end() - 1) : called;
    isState = kind == "STATE ROUTE" || kind == "STATE ROAD" || kind == "STATE HIGHWAY" ||
              (ofState && kind == "HIGHWAY");
    isBare = !ofState && (kind == "HIGHWAY" || kind == "ROUTE");
    isFederal = called == "US HIGHWAY";
    number = words.back();
  }

  bool IsRoad() const { return isState || isBare || isFederal; }

  // Says whether this may be the road that `known` is.
  bool MayBe(const NumberedRoad& known) const {
    return number == known.number && ends.predirectional == known.ends.predirectional &&
           ends.suffix == known.ends.suffix && ends.postdirectional == known.ends.postdirectional &&
           ((isBare && known.IsRoad()) || (isState && (known.isState || known.isBare)) ||
            (isFederal && (known.isFederal || known.isBare)));
  }

  const StreetName& ends;
  std::string number;
  bool isState = false;
  bool isFederal = false;
  bool isBare = false;
};

}  // namespace

StreetLikeness::StreetLikeness(const StreetName& asked)
    : asked_(asked),
      urbanization_(asked.urbanization),
      words_(ShortStreetWords(WordsOf(asked))),
      joined_(Join(words_)),
      spelt_(SpellOut(WordsOf(asked))) {}

Likeness StreetLikeness::To(const StreetName& known) const {
  if (urbanization_ != known.urbanization && !urbanization_.empty()) {
    return Likeness::Different;
  }
  if (LacksElementsOf(known, 0) || NumberedRoad(asked_).MayBe(NumberedRoad(known))) {
    return Likeness::Same;
  }
  if (LacksElementsOf(known, 1)) {
    return Likeness::ElementMissing;
  }
  if (urbanization_ == known.urbanization && HasAnotherElement(known)) {
    return Likeness::ElementWrong;
  }
  if (urbanization_ == known.urbanization && IsMisspelt(known)) {
    return Likeness::OneLetter;
  }
  return LacksElementsOf(known, 4) ? Likeness::ElementsMissing : Likeness::Different;
}

// Says whether the street is the known one without up to `most` of its elements.
bool StreetLikeness::LacksElementsOf(const StreetName& known, int most) const {
  const ShortElements there(known);
  const size_t begin = joined_.find(there.name);
  if (begin == std::string::npos) {
    return false;  // nearly always
  }
  const std::string* const elements[] = {&there.predirectional, &there.suffix,
                                         &there.postdirectional};
  const int urbanization = urbanization_ == known.urbanization ? 0 : 1;
  for (unsigned left = 0; left < 8; ++left) {  // a bit for each element that is left out
    int missing = urbanization;
    std::string parts[3];
    for (unsigned i = 0; i < 3; ++i) {
      const bool isLeft = (left >> i & 1U) != 0;
      parts[i] = isLeft ? "" : *elements[i];
      missing += isLeft && !elements[i]->empty() ? 1 : 0;
    }
    if (missing <= most && joined_ == parts[0] + there.name + parts[1] + parts[2]) {
      return true;
    }
  }
  return false;
}

// Says whether the street is the known one with one element another, or one too many.
bool StreetLikeness::HasAnotherElement(const StreetName& known) const {
  const ShortElements there(known);
  const std::string_view joined = joined_;
  const auto between = [&](const std::string& front, const std::string& back) {
    return joined.size() > front.size() + back.size() && joined.starts_with(front) &&
                   joined.ends_with(back)
               ? std::string(
                     joined.substr(front.size(), joined.size() - front.size() - back.size()))
               : std::string();
  };
  const std::string street = there.name + there.suffix;
  const std::string first = between("", street + there.postdirectional);
  const std::string last = between(there.predirectional + street, "");
  const std::string suffix = between(there.predirectional + there.name, there.postdirectional);
  return (IsDirection(first) && words_.front() == first) ||
         (IsDirection(last) && words_.back() == last) ||
         (!Lexicon::Get().Suffix(suffix).empty() &&
          std::find(words_.begin(), words_.end(), suffix) != words_.end());
}

bool StreetLikeness::IsMisspelt(const StreetName& known) const {
  constexpr size_t kShortestName = 4;  // letters; too many shorter ones are alike
  const Words there = SpellOut(WordsOf(known));
  if (there.size() != spelt_.size() || known.name.size() < kShortestName) {
    return false;
  }
  const auto [asked, meant] = std::mismatch(spelt_.begin(), spelt_.end(), there.begin());
  return asked != spelt_.end() && std::equal(asked + 1, spelt_.end(), meant + 1) &&
         asked->size() > 1 && meant->size() > 1 && DiffersByOneLetter(*asked, *meant);
}

}  // namespace postwright::postal
