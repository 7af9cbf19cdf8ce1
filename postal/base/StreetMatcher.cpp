#include "postal/base/StreetMatcher.h"

#include <algorithm>
#include <limits>

#include "postal/places/CityName.h"

namespace postwright::postal {
namespace {

constexpr size_t kFurthestSpelling = 2;  // letters, as NearDistance has it

// What tells two streets of one name apart.
struct Differences {
  int missing = 0;  // not asked for, and there
  int wrong = 0;    // asked for, and another or none there

  bool operator<(const Differences& other) const {
    return wrong != other.wrong ? wrong < other.wrong : missing < other.missing;
  }
  bool operator==(const Differences&) const = default;
};

Differences Compare(const StreetName& asked, const StreetName& known) {
  const std::pair<const std::string&, const std::string&> elements[] = {
      {asked.predirectional, known.predirectional},
      {asked.suffix, known.suffix},
      {asked.postdirectional, known.postdirectional},
      {asked.urbanization, known.urbanization},
  };
  Differences differences;
  for (const auto& [given, there] : elements) {
    if (given != there) {
      ++(given.empty() ? differences.missing : differences.wrong);
    }
  }
  return differences;
}

std::string Digits(const std::string& key) {
  std::string digits;
  std::copy_if(key.begin(), key.end(), std::back_inserter(digits), IsDigit);
  return digits;
}

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

}  // namespace

struct StreetMatcher::Candidate {
  const KnownStreet* street = nullptr;
  NumberFacts facts;
  Differences differences;
};

StreetMatch StreetMatcher::Match(const std::string& zip, const StreetName& asked,
                                 const std::string& number) {
  StreetMatch exact = MatchExactly(zip, asked, number);
  if (exact.kind != StreetMatch::Kind::NoStreet) {
    return exact;
  }
  const std::vector<KnownStreet> streets = reader_.FindStreets(zip, StreetKey(asked.name));
  if (streets.empty()) {
    return MatchNearName(zip, asked, number);
  }
  StreetMatch match = Choose(streets, asked, number, true);
  if (match.kind == StreetMatch::Kind::NoStreet) {
    // The name is known, but not which of its streets is meant: it stays as it was asked for.
    match = {StreetMatch::Kind::NoNumber, {0, asked}, {}, false, false};
  }
  return match;
}

StreetMatch StreetMatcher::MatchExactly(const std::string& zip, const StreetName& asked,
                                        const std::string& number) {
  StreetMatch match;
  if (const auto id = reader_.FindStreet(zip, asked)) {
    match.facts = reader_.FindNumber(*id, number);
    match.kind = match.facts.IsKnown() ? StreetMatch::Kind::Found : StreetMatch::Kind::NoNumber;
    match.street = {*id, asked};
    Explain(explanation_, zip, ": ", Quote(asked), " is there, and ", number, " ",
            Describe(match.facts), " on it");
  }
  return match;
}

StreetMatch StreetMatcher::Choose(const std::vector<KnownStreet>& streets, const StreetName& asked,
                                  const std::string& number, bool mayBeWrong) {
  std::vector<Candidate> best;
  for (const KnownStreet& street : streets) {
    Candidate candidate{&street, reader_.FindNumber(street.id, number),
                        Compare(asked, street.street)};
    Explain(explanation_, "there is ", Quote(street.street), "; ", number, " ",
            Describe(candidate.facts), " on it");
    if (!candidate.facts.IsKnown() || candidate.differences.wrong > (mayBeWrong ? 1 : 0)) {
      continue;
    }
    if (!best.empty() && candidate.differences < best.front().differences) {
      best.clear();
    }
    if (best.empty() || candidate.differences == best.front().differences) {
      best.push_back(std::move(candidate));
    }
  }
  StreetMatch match;
  if (best.size() > 1) {
    Explain(explanation_, "several of them fit equally well");
    match.kind = StreetMatch::Kind::Several;
  } else if (best.size() == 1) {
    Explain(explanation_, "only ", Quote(best[0].street->street), " fits");
    match = {StreetMatch::Kind::Found, *best[0].street, std::move(best[0].facts),
             best[0].street->street.name != asked.name, best[0].differences != Differences()};
  } else {
    Explain(explanation_, "none of them fits");
  }
  return match;
}

StreetMatch StreetMatcher::MatchNearName(const std::string& zip, const StreetName& asked,
                                         const std::string& number) {
  const std::string nearest = NearestKey(zip, StreetKey(asked.name));
  if (nearest.empty()) {
    Explain(explanation_, zip, ": no street is called '", asked.name,
            "', and not just one is spelt nearly so");
    return {};
  }
  Explain(explanation_, zip, ": no street is called '", asked.name,
          "'; one name alone is spelt nearly so");
  return Choose(reader_.FindStreets(zip, nearest), asked, number, false);
}

// Returns the one key at the least distance. Numbers are no misspellings of one another: 5TH ST is
// not 6TH ST.
std::string StreetMatcher::NearestKey(const std::string& zip, const std::string& key) {
  const size_t shortest = key.size() > kFurthestSpelling ? key.size() - kFurthestSpelling : 0;
  const std::string digits = Digits(key);
  std::string nearest;
  size_t least = std::numeric_limits<size_t>::max();
  for (std::string& known : reader_.StreetKeys(zip, shortest, key.size() + kFurthestSpelling)) {
    const auto distance = NearDistance(key, known);
    if (!distance || *distance > least || Digits(known) != digits) {
      continue;
    }
    nearest = *distance < least ? std::move(known) : std::string();
    least = *distance;
  }
  return nearest;
}

}  // namespace postwright::postal
