#include "postal/base/CandidateFinder.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "postal/base/CandidateSpans.h"

namespace postwright::postal {
namespace {

constexpr size_t kMostStreets = 10;
constexpr uint64_t kElsewhere = std::numeric_limits<uint64_t>::max();

// How far a number is from the nearest one of a span.
uint64_t DistanceTo(const HouseSpan& span, const std::optional<HouseNumber>& asked) {
  if (!asked || asked->prefix != span.prefix) {
    return kElsewhere;
  }
  return static_cast<uint64_t>(
      std::max({span.low - asked->value, asked->value - span.high, int64_t{0}}));
}

auto OrderOf(const StreetName& street) {
  return std::tie(street.name, street.suffix, street.predirectional, street.postdirectional,
                  street.urbanization);
}

}  // namespace

void CandidateFinder::AddAddresses(const StandardLines& asked, const PlacedLine& placed,
                                   const StreetMatch& match) {
  for (const KnownStreet& street : match.Streets()) {
    Add(street.street, placed, *asked.street, {}, 0);
  }
}

void CandidateFinder::AddNumbers(const StandardLines& asked, const PlacedLine& placed,
                                 const StreetMatch& match) {
  const auto wanted = HouseNumber::Read(JoinWords(asked.street->number));
  const std::vector<KnownStreet> streets = match.Streets();
  for (size_t i = 0; i < std::min(streets.size(), kMostStreets); ++i) {
    const std::vector<HouseSpan> spans =
        SpansOfHouses(reader_.RangesOf(streets[i].id), reader_.NumbersOf(streets[i].id));
    for (const HouseSpan& span : spans) {
      StreetLine line = *asked.street;
      line.number.clear();
      Candidate facts;
      if (span.span.low == span.span.high) {
        line.number = SplitLine(span.span.low);
      } else {
        facts.primary = span.span;
      }
      Add(streets[i].street, placed, std::move(line), std::move(facts), DistanceTo(span, wanted));
    }
  }
}

void CandidateFinder::AddUnits(const StandardLines& asked, const PlacedLine& placed,
                               const StreetMatch& match) {
  for (const UnitSpan& span : SpansOfUnits(match.facts.units)) {
    StreetLine line = *asked.street;
    line.units = SplitLine(span.designator);
    Candidate facts;
    facts.recordType = 'H';
    if (span.span.low == span.span.high && !span.span.low.empty()) {
      line.units.push_back(span.span.low);
    } else {
      facts.secondary = span.span;
    }
    Add(match.street.street, placed, std::move(line), std::move(facts), 0);
  }
}

void CandidateFinder::Add(const StreetName& street, const PlacedLine& placed, StreetLine line,
                          Candidate facts, uint64_t distance) {
  line.predirectional = street.predirectional;
  line.name = SplitLine(street.name);
  line.suffix = street.suffix;
  line.postdirectional = street.postdirectional;
  facts.street = JoinWords(line.Compose());
  facts.urbanization = street.urbanization;
  facts.city = placed.city;
  facts.state = placed.state;
  facts.zip5 = placed.zip5;
  found_.push_back({std::move(facts), street, distance, found_.size()});
}

std::vector<Candidate> CandidateFinder::Take() {
  if (found_.size() > most_) {
    std::stable_sort(found_.begin(), found_.end(),
                     [](const Found& a, const Found& b) { return a.distance < b.distance; });
    found_.resize(most_);
  }
  std::sort(found_.begin(), found_.end(), [](const Found& a, const Found& b) {
    const auto order = [](const Found& found) {
      return std::tuple_cat(OrderOf(found.street), std::tie(found.candidate.zip5, found.place));
    };
    return order(a) < order(b);
  });
  std::vector<Candidate> candidates;
  for (Found& found : found_) {
    if (candidates.empty() || candidates.back() != found.candidate) {
      candidates.push_back(std::move(found.candidate));
    }
  }
  found_.clear();
  return candidates;
}

}  // namespace postwright::postal
