#include "postal/base/StreetMatcher.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>

#include "postal/base/UnitMatch.h"
#include "postal/words/Lexicon.h"

namespace postwright::postal {
namespace {

auto Quote(const StreetName& street) {
  return [&street] {
    return "'" + ComposeStreet(street) + "'" +
           (street.urbanization.empty() ? "" : " in '" + street.urbanization + "'");
  };
}

// Says how the number is known.
std::string_view Describe(const NumberFacts& facts) {
  return facts.isPoint   ? "is an address of its own"
         : facts.inRange ? "lies in a range"
                         : "is not known";
}

// The names that the same words may have in a base: a suffix or a directional may belong to it.
std::vector<std::string> KeysOf(const StreetName& asked) {
  const Lexicon& lexicon = Lexicon::Get();
  std::vector<std::string> fronts = {""};
  if (!asked.predirectional.empty()) {
    fronts.push_back(asked.predirectional + " ");
    fronts.push_back(std::string(lexicon.SpelledDirection(asked.predirectional)) + " ");
  }
  std::vector<std::string> backs = {""};
  if (!asked.suffix.empty()) {
    backs.push_back(" " + asked.suffix);
    backs.push_back(" " + std::string(lexicon.SpelledSuffix(asked.suffix)));
  }
  std::vector<std::string> keys;
  for (const std::string& front : fronts) {
    for (const std::string& back : backs) {
      std::string name = front;
      name.append(asked.name).append(back);
      keys.push_back(StreetKey(name));
    }
  }
  std::sort(keys.begin(), keys.end());
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  return keys;
}

// Says whether two writings of one street have other words, and not only other forms of them.
bool HasOtherWords(const StreetName& asked, const StreetName& known) {
  const auto isElement = [](const std::string& word) {
    return !Lexicon::Get().Suffix(word).empty() || !Lexicon::Get().Direction(word).empty();
  };
  const Words a = SplitLine(ComposeStreet(asked));
  const Words b = SplitLine(ComposeStreet(known));
  return a.size() != b.size() ||
         !std::equal(a.begin(), a.end(), b.begin(),
                     [&](const std::string& given, const std::string& there) {
                       return given == there ||
                              (isElement(given) && isElement(there) &&
                               ShortStreetWords({given}) == ShortStreetWords({there}));
                     });
}

// Says whether a building is known just as it was asked for, with its unit or without one. A range
// knows of no units.
bool IsWhole(const NumberFacts& facts, const std::string& unit) {
  return unit.empty() ? facts.isBuilding || facts.units.empty()
                      : !facts.isPoint || HasUnit(facts.units, unit);
}

}  // namespace

std::vector<KnownStreet> StreetMatch::Streets() const {
  return !several.empty() || street.id == 0 ? several : std::vector<KnownStreet>{street};
}

bool StreetMatch::IsWhole(const std::string& unit) const {
  return postal::IsWhole(facts, unit);
}

struct StreetMatcher::Candidate {
  KnownStreet street;
  Likeness likeness = Likeness::Different;
  NumberFacts facts;
};

StreetMatch StreetMatcher::Match(const std::string& zip, const StreetQuestion& asked) {
  StreetMatch exact = MatchExactly(zip, asked);
  const bool isFound = exact.kind == StreetMatch::Kind::Found;
  const bool isConfirmed =
      isFound && (asked.unit.empty() || HasUnit(exact.facts.units, asked.unit));
  if (exact.kind == StreetMatch::Kind::NoStreet) {
    return Guess(zip, asked, Likeness::Same);
  }
  if (isConfirmed || !reader_.HoldsAllStreetsOf(zip)) {
    return exact;
  }
  // Number or unit are not known there: they may be on a street that differs by one mistake.
  StreetMatch guess = Guess(zip, asked, isFound ? Likeness::ElementMissing : Likeness::Same);
  if (guess.kind != StreetMatch::Kind::Found ||
      (isFound && !HasUnit(guess.facts.units, asked.unit))) {
    return exact;
  }
  if (isFound && !FindUnit(exact.facts.units, asked.unit).empty()) {
    Explain(explanation_, "either the street may be another, or what the unit is called");
    guess.kind = StreetMatch::Kind::Several;
    guess.several = {std::move(exact.street), guess.street};
  }
  return guess;
}

// How else a street may be written, found once for all ZIP codes.
struct StreetMatcher::Writings {
  Writings(const StreetName& asked, JoinedReader& reader)
      : likeness(asked), keys(KeysOf(asked)), written(reader.FindWritten(likeness.Writings())) {}

  bool IsSame(const StreetName& known) const {
    return likeness.IsSameAs(known) &&
           std::find(keys.begin(), keys.end(), StreetKey(known.name)) != keys.end();
  }

  StreetLikeness likeness;
  std::vector<std::string> keys;
  std::optional<StreetIndex::Written> written;
};

StreetMatch StreetMatcher::MatchAsWritten(const std::string& zip, const StreetQuestion& asked) {
  StreetMatch exact = MatchExactly(zip, asked);
  return exact.kind == StreetMatch::Kind::Found
             ? exact
             : MatchAsWritten(zip, asked, Writings(asked.street, reader_));
}

StreetMatcher::Matches StreetMatcher::MatchAsWritten(const std::vector<std::string>& zips,
                                                     const StreetQuestion& asked) {
  Matches matches;
  const Writings writings(asked.street, reader_);
  for (const std::string& zip : zips) {
    StreetMatch match = MatchAsWritten(zip, asked, writings);
    if (match.kind == StreetMatch::Kind::Found || match.kind == StreetMatch::Kind::Several) {
      matches.emplace_back(zip, std::move(match));
    }
  }
  return matches;
}

StreetMatch StreetMatcher::MatchAsWritten(const std::string& zip, const StreetQuestion& asked,
                                          const Writings& writings) {
  Streets streets;
  if (writings.written) {
    streets = reader_.FindStreets(zip, *writings.written);
  } else if (reader_.HoldsStreetsOf(zip)) {
    for (const std::string& key : writings.keys) {
      std::ranges::move(reader_.FindStreets(zip, key), std::back_inserter(streets));
    }
  }
  if (streets.empty()) {
    return {};  // nearly always
  }
  StreetMatch exact = MatchExactly(zip, asked, &streets);
  if (exact.kind == StreetMatch::Kind::Found) {
    return exact;
  }
  std::vector<Candidate> same;
  for (KnownStreet& street : streets) {
    if (street.id == exact.street.id || !writings.IsSame(street.street)) {
      continue;  // its numbers were looked through, or it cannot be meant
    }
    NumberFacts facts = reader_.FindNumber(street.id, asked.number);
    if (facts.IsKnown()) {
      same.push_back({std::move(street), Likeness::Same, std::move(facts)});
    }
  }
  StreetMatch match = Choose(std::move(same), asked);
  return match.kind == StreetMatch::Kind::NoStreet ? exact : match;
}

std::optional<int64_t> StreetMatcher::FindExactly(const std::string& zip, const StreetName& asked,
                                                  const Streets* among) {
  if (among == nullptr) {
    return reader_.FindStreet(zip, asked);
  }
  const auto found = std::find_if(among->begin(), among->end(), [&asked](const KnownStreet& known) {
    return known.street == asked;
  });
  return found == among->end() ? std::nullopt : std::optional(found->id);
}

StreetMatch StreetMatcher::MatchExactly(const std::string& zip, const StreetQuestion& asked,
                                        const Streets* among) {
  StreetMatch match;
  if (const auto id = FindExactly(zip, asked.street, among)) {
    match.facts = reader_.FindNumber(*id, asked.number);
    match.kind = match.facts.IsKnown() ? StreetMatch::Kind::Found : StreetMatch::Kind::NoNumber;
    match.street = {*id, asked.street};
    Explain(explanation_, zip, ": ", Quote(asked.street), " is there, and ", asked.number, " ",
            Describe(match.facts), " on it");
    if (match.kind == StreetMatch::Kind::NoNumber) {
      LookWithoutSuffix(zip, asked, among, match);
    }
  }
  return match;
}

std::string StreetMatcher::FindSwapped(const StreetMatch& match, const StreetQuestion& asked) {
  if (asked.unit.empty() || !match.facts.isPoint || !match.facts.units.empty()) {
    return {};  // nearly always
  }
  for (size_t i = 0; i + 1 < asked.number.size(); ++i) {
    std::string number = asked.number;
    std::swap(number[i], number[i + 1]);
    const bool areDigits = IsDigit(number[i]) && IsDigit(number[i + 1]);
    if (areDigits && number != asked.number &&
        HasUnit(reader_.FindNumber(match.street.id, number).units, asked.unit)) {
      Explain(explanation_, "no unit of ", asked.number, " is known, but ", number, " has '",
              asked.unit, "': two digits may have changed places");
      return number;
    }
  }
  return {};
}

// Some sources have a street with its suffix and without it, each with a part of the numbers.
void StreetMatcher::LookWithoutSuffix(const std::string& zip, const StreetQuestion& asked,
                                      const Streets* among, StreetMatch& match) {
  StreetName bare = asked.street;
  bare.suffix.clear();
  const auto id = asked.street.suffix.empty() ? std::nullopt : FindExactly(zip, bare, among);
  if (!id) {
    return;  // nearly always
  }
  NumberFacts facts = reader_.FindNumber(*id, asked.number);
  std::vector<KnownStreet> others = reader_.FindStreets(zip, StreetKey(bare.name));
  std::erase_if(others, [&](KnownStreet& other) {
    other.street.suffix.clear();
    return other.street != bare;
  });
  if (facts.IsKnown() && others.size() == 2) {  // with this suffix and with none
    Explain(explanation_, "it is there without its suffix, too, and ", asked.number, " ",
            Describe(facts));
    match.kind = StreetMatch::Kind::Found;
    match.facts = std::move(facts);
    match.street.id = *id;
  }
}

// Leaves out streets that are more like the one asked for than `most`: they have been tried.
StreetMatch StreetMatcher::Guess(const std::string& zip, const StreetQuestion& asked,
                                 Likeness most) {
  const StreetLikeness likeness(asked.street);
  const bool whole = reader_.HoldsAllStreetsOf(zip);
  const std::string key = StreetKey(asked.street.name);
  bool isThere = false;
  bool endsName = false;  // what could be a wrong suffix ends the name of a street that is there
  std::vector<KnownStreet> named;
  std::vector<Candidate> candidates[3];  // the same street, one mistake, more than one
  for (const ComparableStreet& there : reader_.StreetsOf(zip)->Near(likeness, key)) {
    const Likeness like = likeness.To(there);
    const bool hasName = there.key == key;
    if (like < most || (like == Likeness::Different && !hasName)) {
      continue;
    }
    const KnownStreet& street = there.known;
    isThere = isThere || like == Likeness::Same;
    if (hasName || like != Likeness::OneLetter) {
      named.push_back(street);
    }
    const bool canBeMeant =
        like != Likeness::Different && (whole || like != Likeness::ElementWrong);
    if (!canBeMeant && explanation_ == nullptr) {
      continue;
    }
    NumberFacts facts = reader_.FindNumber(street.id, asked.number);
    endsName = endsName || (like == Likeness::ElementMissing && !hasName && !facts.IsKnown());
    Explain(explanation_, "there is ", Quote(street.street), "; ", asked.number, " ",
            Describe(facts), " on it");
    if (facts.IsKnown() && canBeMeant) {
      const size_t level = like == Likeness::Same ? 0 : like == Likeness::ElementsMissing ? 2 : 1;
      candidates[level].push_back({street, like, std::move(facts)});
    }
  }
  for (std::vector<Candidate>& level : candidates) {
    // Where a street that is there can be meant, and not with this number, a guess must be right in
    // all else: its unit, and a last word that is not part of a name.
    std::erase_if(level, [&](const Candidate& candidate) {
      return (isThere && &level != candidates && !IsWhole(candidate.facts, asked.unit)) ||
             (endsName && candidate.likeness == Likeness::ElementWrong);
    });
    StreetMatch match = Choose(std::move(level), asked);
    if (match.kind != StreetMatch::Kind::NoStreet) {
      return match;
    }
  }
  Explain(explanation_, "none of the streets of ", zip, " that could be meant has ", asked.number);
  // Where the name is known, but not which of its streets is meant, it stays as it was asked for.
  StreetMatch match;
  match.kind = named.empty() ? StreetMatch::Kind::NoStreet : StreetMatch::Kind::NoNumber;
  match.street = {0, asked.street};
  match.several = std::move(named);
  return match;
}

StreetMatch StreetMatcher::Choose(std::vector<Candidate> candidates, const StreetQuestion& asked) {
  const auto isWhole = [&asked](const Candidate& candidate) {
    return IsWhole(candidate.facts, asked.unit);
  };
  if (candidates.size() > 1 && std::any_of(candidates.begin(), candidates.end(), isWhole)) {
    std::erase_if(candidates, std::not_fn(isWhole));
  }
  StreetMatch match;
  if (candidates.size() > 1) {
    Explain(explanation_, "several of them fit equally well");
    match.kind = StreetMatch::Kind::Several;
    for (Candidate& candidate : candidates) {
      match.several.push_back(std::move(candidate.street));
    }
  } else if (candidates.size() == 1) {
    Explain(explanation_, "only ", Quote(candidates[0].street.street), " fits");
    match = Take(std::move(candidates[0]), asked.street);
  }
  return match;
}

StreetMatch StreetMatcher::Take(Candidate candidate, const StreetName& asked) {
  const StreetName& known = candidate.street.street;
  const bool isSame = candidate.likeness == Likeness::Same;
  StreetMatch match;
  match.kind = StreetMatch::Kind::Found;
  match.guessed = !isSame;
  match.nameChanged =
      isSame ? HasOtherWords(asked, known) : candidate.likeness == Likeness::OneLetter;
  match.elementChanged =
      !match.nameChanged && !(isSame && ComposeStreet(asked) == ComposeStreet(known));
  match.facts = std::move(candidate.facts);
  match.street = std::move(candidate.street);
  return match;
}

}  // namespace postwright::postal
