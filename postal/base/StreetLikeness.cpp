#include "postal/base/StreetLikeness.h"

#include <algorithm>
#include <bit>
#include <utility>

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

// A bit for each letter and digit that is there.
uint64_t LettersOf(std::string_view text) {
  uint64_t letters = 0;
  for (const char c : text) {
    letters |= uint64_t{1} << (static_cast<unsigned char>(c) % 64U);
  }
  return letters;
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

// A numbered road: people call one of a state a highway, a route or a road, with the state or
// without, and leave out whose it is.
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

// Returns what is alike in all writings of a numbered road.
std::string RoadWriting(const StreetName& street) {
  return "ROAD " + street.predirectional + SplitLine(street.name).back() + street.suffix +
         street.postdirectional;
}

std::string Writing(const std::string& joined, const std::string& urbanization) {
  return joined + " " + urbanization;
}

}  // namespace

std::string ShortStreetName(const std::string& name) {
  return Join(ShortStreetWords(SplitLine(name)));
}

ComparableStreet::ComparableStreet(KnownStreet street)
    : known(std::move(street)),
      key(StreetKey(known.street.name)),
      shortName(ShortStreetName(known.street.name)),
      spelt(SpellOut(WordsOf(known.street))),
      traits{LettersOf(shortName), LettersOf(Join(spelt)), static_cast<uint32_t>(spelt.size()),
             NumberedRoad(known.street).IsRoad()} {}

StreetLikeness::StreetLikeness(const StreetName& asked)
    : asked_(asked),
      urbanization_(asked.urbanization),
      words_(ShortStreetWords(WordsOf(asked))),
      joined_(Join(words_)),
      spelt_(SpellOut(WordsOf(asked))),
      joinedLetters_(LettersOf(joined_)),
      speltLetters_(LettersOf(Join(spelt_))),
      isRoad_(NumberedRoad(asked).IsRoad()) {}

Likeness StreetLikeness::To(const ComparableStreet& there) const {
  if (!MayBeLike(there.traits)) {
    return Likeness::Different;  // nearly always
  }
  const StreetName& known = there.known.street;
  const bool isOfUrbanization = urbanization_ == known.urbanization;
  if (!isOfUrbanization && !urbanization_.empty()) {
    return Likeness::Different;
  }
  std::optional<int> missing = MissingOf(there);
  if (missing && !isOfUrbanization) {
    ++*missing;
  }
  if (missing == 0 || (isRoad_ && NumberedRoad(asked_).MayBe(NumberedRoad(known)))) {
    return Likeness::Same;
  }
  if (missing == 1) {
    return Likeness::ElementMissing;
  }
  if (isOfUrbanization && HasAnotherThan(there)) {
    return Likeness::ElementWrong;
  }
  if (isOfUrbanization && IsMisspelt(there)) {
    return Likeness::OneLetter;
  }
  return missing ? Likeness::ElementsMissing : Likeness::Different;
}

// A name that stands in what was asked for brings no letter of its own, and one letter that is
// another takes one away and brings one.
bool StreetLikeness::MayBeLike(const StreetTraits& there) const {
  return (there.shortLetters & ~joinedLetters_) == 0 ||
         (there.speltWords == spelt_.size() &&
          std::popcount(there.speltLetters ^ speltLetters_) <= 2) ||
         (isRoad_ && there.isRoad);
}

bool StreetLikeness::IsSameAs(const StreetName& known) const {
  const bool mayBe = joined_.starts_with(known.predirectional) &&
                     joined_.ends_with(known.suffix + known.postdirectional);
  return (mayBe || isRoad_) && To(known) == Likeness::Same;  // nearly never
}

Words StreetLikeness::Writings() const {
  StreetName bare = asked_;
  bare.suffix.clear();
  const std::string shortName = ShortStreetName(asked_.name);
  Words writings = WritingsOf(asked_, shortName);
  const Words others = WritingsOf(bare, shortName);
  writings.insert(writings.end(), others.begin(), others.end());
  writings.push_back(Writing(joined_, urbanization_));
  std::sort(writings.begin(), writings.end());
  writings.erase(std::unique(writings.begin(), writings.end()), writings.end());
  return writings;
}

Words StreetLikeness::WritingsOf(const StreetName& known, const std::string& shortName) {
  Words writings = {Writing(known.predirectional + shortName + known.suffix + known.postdirectional,
                            known.urbanization)};
  if (NumberedRoad(known).IsRoad()) {
    writings.push_back(RoadWriting(known));
  }
  return writings;
}

// Returns how many elements of the known street are missing, at least; nullopt where that does not
// make it the one that was asked for.
std::optional<int> StreetLikeness::MissingOf(const ComparableStreet& there) const {
  if (joined_.find(there.shortName) == std::string::npos) {
    return std::nullopt;
  }
  const StreetName& known = there.known.street;
  const std::string* const elements[] = {&known.predirectional, &known.suffix,
                                         &known.postdirectional};
  std::optional<int> fewest;
  for (unsigned left = 0; left < 8; ++left) {  // a bit for each element that is left out
    int missing = 0;
    std::string parts[3];
    for (unsigned i = 0; i < 3; ++i) {
      const bool isLeft = (left >> i & 1U) != 0;
      parts[i] = isLeft ? "" : *elements[i];
      missing += isLeft && !elements[i]->empty() ? 1 : 0;
    }
    if (joined_ == parts[0] + there.shortName + parts[1] + parts[2]) {
      fewest = std::min(missing, fewest.value_or(missing));
    }
  }
  return fewest;
}

// Says whether the street is the known one with one element another, or one too many.
bool StreetLikeness::HasAnotherThan(const ComparableStreet& there) const {
  if (joined_.find(there.shortName) == std::string::npos) {
    return false;
  }
  const StreetName& known = there.known.street;
  const std::string_view joined = joined_;
  const auto between = [&](const std::string& front, const std::string& back) {
    return joined.size() > front.size() + back.size() && joined.starts_with(front) &&
                   joined.ends_with(back)
               ? std::string(
                     joined.substr(front.size(), joined.size() - front.size() - back.size()))
               : std::string();
  };
  const std::string street = there.shortName + known.suffix;
  const std::string first = between("", street + known.postdirectional);
  const std::string last = between(known.predirectional + street, "");
  const std::string suffix = between(known.predirectional + there.shortName, known.postdirectional);
  return (IsDirection(first) && words_.front() == first) ||
         (IsDirection(last) && words_.back() == last) ||
         (!Lexicon::Get().Suffix(suffix).empty() &&
          std::find(words_.begin(), words_.end(), suffix) != words_.end());
}

bool StreetLikeness::IsMisspelt(const ComparableStreet& there) const {
  constexpr size_t kShortestName = 4;  // letters; too many shorter ones are alike
  if (there.spelt.size() != spelt_.size() || there.known.street.name.size() < kShortestName) {
    return false;
  }
  const auto [asked, meant] = std::mismatch(spelt_.begin(), spelt_.end(), there.spelt.begin());
  return asked != spelt_.end() && std::equal(asked + 1, spelt_.end(), meant + 1) &&
         asked->size() > 1 && meant->size() > 1 && DiffersByOneLetter(*asked, *meant);
}

}  // namespace postwright::postal
