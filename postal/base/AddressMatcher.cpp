#include "postal/base/AddressMatcher.h"

#include <algorithm>

#include "postal/base/UnitMatch.h"
#include "postal/lines/StreetLine.h"
#include "postal/lines/UnitReader.h"
#include "postal/places/CityName.h"

namespace postwright::postal {
namespace {

// A bare unit in the line above: "4B", "A".
bool IsBareUnit(const Words& words) {
  return words.size() == 1 && (HasDigit(words[0]) || words[0].size() <= 2);
}

}  // namespace

// The delivery line of a question, read.
struct AddressMatcher::Subject {
  explicit Subject(const AddressQuestion& asked) : question(asked) {
    const std::optional<StreetLine>& line = asked.lines.street;
    if (line) {
      number = JoinWords(line->number);
      street = StreetNameOf(*line, asked.lines.urbanization);
      unit = JoinWords(line->units);
    }
    if (unit.empty()) {
      const Words above = SplitLine(asked.lines.address1);
      unitIsAbove = ReadUnitLine(above) || IsBareUnit(above);
      unit = unitIsAbove ? JoinWords(above) : unit;
    }
    if (unit.starts_with("PO BOX")) {
      unit.clear();  // a second address, no unit of this one
    }
  }

  bool HasStreet() const { return !number.empty(); }

  const AddressQuestion& question;
  std::string number;
  StreetName street;
  std::string unit;
  bool unitIsAbove = false;
};

AddressMatcher::Answer AddressMatcher::Match(const AddressQuestion& question) {
  MatchedAddress answer;
  answer.lines = question.lines.Lines();
  const std::optional<Rejection> rejection = Decide(Subject(question), answer);
  return rejection ? Answer(*rejection) : Answer(std::move(answer));
}

std::optional<Rejection> AddressMatcher::Decide(const Subject& subject, MatchedAddress& answer) {
  const AddressQuestion& question = subject.question;
  if (auto inNewZip = PlaceInNewZip(question)) {
    answer.placed = std::move(*inNewZip);
  } else if (const auto* rejection = std::get_if<Rejection>(&question.lastLine)) {
    return subject.HasStreet() ? MatchInCity(subject, *rejection, answer) : *rejection;
  } else {
    answer.placed = std::get<PlacedLine>(question.lastLine);
    KeepAcceptedCity(question.asked, answer.placed);
  }
  if (!subject.HasStreet()) {
    Explain(explanation_, "the delivery line names no street, so the base cannot confirm it");
    return std::nullopt;
  }
  if (!reader_.HoldsStreetsOf(answer.placed.zip5)) {
    Explain(explanation_, answer.placed.zip5,
            ": the base holds no streets, so nothing is confirmed");
    return std::nullopt;
  }
  return MatchInZip(subject, answer);
}

// A ZIP code that the list of them does not have yet, but a source of addresses does, for a city
// that is known.
std::optional<PlacedLine> AddressMatcher::PlaceInNewZip(const AddressQuestion& question) {
  const auto* const placed = std::get_if<PlacedLine>(&question.lastLine);
  if (placed != nullptr && !placed->zipCorrected) {
    return std::nullopt;
  }
  const std::string zip = LastLineChecker::Zip5Of(TidyLine(question.asked.zip));
  const std::string key = CityKey(StandardCity(question.asked.city));
  const ZipList::City* const city = zips_.FindCity(key, question.state);
  if (zip.empty() || city == nullptr || zips_.FindZip(zip) != nullptr ||
      reader_.CityName(zip, key).empty()) {
    return std::nullopt;
  }
  Explain(explanation_, zip, ": a source has addresses of ", city->name, " there");
  return PlacedLine{city->name, city->state, zip};
}

std::optional<Rejection> AddressMatcher::MatchInZip(const Subject& subject,
                                                    MatchedAddress& answer) {
  const StreetMatch match = streets_.Match(answer.placed.zip5, subject.street, subject.number);
  if (match.kind == StreetMatch::Kind::Several) {
    return Rejection::Multiple;
  }
  if (match.kind == StreetMatch::Kind::Found) {
    if (const auto rejection = CheckCity(subject, answer)) {
      return rejection;
    }
    Confirm(subject, match, answer);
    return std::nullopt;
  }
  std::vector<std::string> others = ZipsOf(answer.placed.city, answer.placed.state);
  std::erase(others, answer.placed.zip5);
  const auto found = FindElsewhere(subject, others);
  if (found.size() == 1) {
    Explain(explanation_, "of ", answer.placed.city, "'s other ZIP codes ", found[0].first,
            " alone has it: it is taken");
    answer.placed.zip5 = found[0].first;
    answer.placed.zipCorrected = true;
    Confirm(subject, found[0].second, answer);
    return std::nullopt;
  }
  if (found.size() > 1 && match.kind == StreetMatch::Kind::NoStreet) {
    Explain(explanation_, "several other ZIP codes of ", answer.placed.city, " have it");
    return Rejection::Multiple;
  }
  return LeaveUnconfirmed(match, answer);
}

// City, state and ZIP did not tell a place: the street may, where the city's ZIP codes are many.
std::optional<Rejection> AddressMatcher::MatchInCity(const Subject& subject, Rejection otherwise,
                                                     MatchedAddress& answer) {
  const std::string city = StandardCity(subject.question.asked.city);
  const ZipList::City* const known = zips_.FindCity(CityKey(city), subject.question.state);
  if (known == nullptr ||
      (otherwise != Rejection::Multiple && otherwise != Rejection::InvalidZip)) {
    return otherwise;
  }
  std::vector<std::string> zips = ZipsOf(known->name, known->state);
  const std::string askedZip = LastLineChecker::Zip5Of(TidyLine(subject.question.asked.zip));
  const ZipList::City* const elsewhere = zips_.FindZip(askedZip);
  if (elsewhere != nullptr) {
    zips.push_back(askedZip);
  }
  const auto found = FindElsewhere(subject, zips);
  if (found.size() != 1) {
    Explain(explanation_, found.empty() ? "no ZIP code of " : "several ZIP codes of ", city,
            found.empty() ? " is known to have it" : " have it");
    return found.empty() ? otherwise : Rejection::Multiple;
  }
  Explain(explanation_, found[0].first, " alone has it: it is taken");
  const bool isAsked = found[0].first == askedZip;
  const ZipList::City& place = isAsked ? *elsewhere : *known;
  answer.placed = {place.name, place.state, found[0].first, !isAsked, &place != known};
  Confirm(subject, found[0].second, answer);
  return std::nullopt;
}

std::vector<std::pair<std::string, StreetMatch>> AddressMatcher::FindElsewhere(
    const Subject& subject, const std::vector<std::string>& zips) {
  std::vector<std::pair<std::string, StreetMatch>> found;
  for (const std::string& zip : zips) {
    StreetMatch match = streets_.MatchExactly(zip, subject.street, subject.number);
    if (match.kind == StreetMatch::Kind::Found) {
      found.emplace_back(zip, std::move(match));
    }
  }
  return found;
}

std::vector<std::string> AddressMatcher::ZipsOf(const std::string& city, const std::string& state) {
  const std::string key = CityKey(city);
  std::vector<std::string> zips = reader_.ZipsOfCity(key);
  std::erase_if(zips, [&](const std::string& zip) {
    const ZipList::City* const place = zips_.FindZip(zip);
    return place == nullptr || place->state != state;
  });
  if (const ZipList::City* const known = zips_.FindCity(key, state)) {
    zips.insert(zips.end(), known->zips.begin(), known->zips.end());
  }
  std::sort(zips.begin(), zips.end());
  zips.erase(std::unique(zips.begin(), zips.end()), zips.end());
  return zips;
}

// A name that a source gives a place of the ZIP code is no misspelling of the usual one.
void AddressMatcher::KeepAcceptedCity(const LastLine& asked, PlacedLine& placed) {
  if (asked.city == placed.city) {
    return;  // nearly always
  }
  const std::string key = CityKey(StandardCity(asked.city));
  if (key.empty() || key == CityKey(placed.city)) {
    return;
  }
  const std::string accepted = reader_.CityName(placed.zip5, key);
  if (!accepted.empty()) {
    Explain(explanation_, placed.zip5, ": the name ", accepted, " is accepted");
    placed.city = accepted;
    placed.cityCorrected = false;
  }
}

// The ZIP code has the address. A city that is neither the ZIP code's nor accepted there is wrong,
// if the base would know the address in that city and does not.
std::optional<Rejection> AddressMatcher::CheckCity(const Subject& subject, MatchedAddress& answer) {
  PlacedLine& placed = answer.placed;
  const ZipList::City* const usual = zips_.FindZip(placed.zip5);
  if (usual != nullptr && usual->name == placed.city) {
    return std::nullopt;
  }
  const std::string key = CityKey(placed.city);
  if (usual == nullptr || usual->key == key || !reader_.CityName(placed.zip5, key).empty()) {
    return std::nullopt;
  }
  const std::vector<std::string> zips = ZipsOf(placed.city, placed.state);
  if (!FindElsewhere(subject, zips).empty()) {
    Explain(explanation_, placed.city, " has the same address in another ZIP code");
    return Rejection::Multiple;
  }
  if (std::any_of(zips.begin(), zips.end(),
                  [this](const std::string& zip) { return reader_.HoldsStreetsOf(zip); })) {
    Explain(explanation_, placed.city, " does not have the address: ", usual->name, " is right");
    placed.city = usual->name;
    placed.cityCorrected = true;
  }
  return std::nullopt;
}

// The street is not there, or the number is not known on it.
std::optional<Rejection> AddressMatcher::LeaveUnconfirmed(const StreetMatch& match,
                                                          MatchedAddress& answer) {
  const bool whole = reader_.HoldsAllStreetsOf(answer.placed.zip5);
  if (match.kind == StreetMatch::Kind::NoStreet) {
    Explain(explanation_, answer.placed.zip5,
            whole ? ": all its streets are known, and this is none of them"
                  : ": not all its streets are known, so this may be one of them");
    return whole ? std::optional(Rejection::NotFound) : std::nullopt;
  }
  const bool wrong = whole || match.facts.hasRanges;
  Explain(explanation_, wrong ? "the number is outside all that is known of the street"
                              : "not all numbers of the street are known");
  answer.dpvFootnotes = wrong ? "AAM3" : "AA";
  return std::nullopt;
}

void AddressMatcher::Confirm(const Subject& subject, const StreetMatch& match,
                             MatchedAddress& answer) {
  answer.nameChanged = match.nameChanged;
  answer.elementChanged = match.elementChanged;
  if (match.nameChanged || match.elementChanged) {
    StreetLine line = *subject.question.lines.street;
    const StreetName& street = match.street.street;
    line.predirectional = street.predirectional;
    line.name = SplitLine(street.name);
    line.suffix = street.suffix;
    line.postdirectional = street.postdirectional;
    answer.lines.urbanization = street.urbanization;
    answer.lines.address2 = JoinWords(line.Compose());
  }
  answer.zip4 = match.facts.zip4;
  if (match.facts.isPoint) {
    ConfirmUnit(subject, match, answer);
  } else {
    Explain(explanation_, "ranges say what is possible, not what is there: not confirmed");
    answer.dpvFootnotes = "AA";
  }
}

void AddressMatcher::ConfirmUnit(const Subject& subject, const StreetMatch& match,
                                 MatchedAddress& answer) {
  const std::vector<std::string>& units = match.facts.units;
  const std::string unit = subject.unit.empty() ? "" : FindUnit(units, subject.unit);
  if (subject.unit.empty() && units.empty()) {
    answer.confirmation = 'Y';
    answer.dpvFootnotes = "AABB";
  } else if (subject.unit.empty()) {
    Explain(explanation_, "the building has ", std::to_string(units.size()),
            " units that are known, and none is given");
    answer.confirmation = 'D';
    answer.dpvFootnotes = "AAN1";
    answer.unitIsMissing = true;
  } else if (unit.empty()) {
    Explain(explanation_, "the building is known, '", subject.unit, "' in it is not");
    answer.confirmation = 'S';
    answer.dpvFootnotes = "AACC";
  } else {
    answer.confirmation = 'Y';
    answer.dpvFootnotes = "AABB";
    answer.zip4 = reader_.UnitZip4(match.street.id, subject.number, unit);
    if (unit != subject.unit && subject.unit.starts_with("# ")) {
      Explain(explanation_, "'", subject.unit, "' is '", unit, "'");
      std::string& line = subject.unitIsAbove ? answer.lines.address1 : answer.lines.address2;
      line.replace(line.size() - subject.unit.size(), subject.unit.size(), unit);
      answer.elementChanged = true;
    }
  }
}

}  // namespace postwright::postal
