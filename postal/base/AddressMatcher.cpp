#include "postal/base/AddressMatcher.h"

#include <algorithm>

#include "postal/places/CityName.h"

namespace postwright::postal {

AddressMatcher::Answer AddressMatcher::Match(const AddressQuestion& question) {
  MatchedAddress answer;
  answer.lines = question.lines.Lines();
  const std::optional<Rejection> rejection = Decide(AskedAddress(question), answer);
  if (!rejection && reader_.KnowsPostal()) {
    PreferCity(question.asked, answer);
  }
  return rejection ? Answer(*rejection) : Answer(std::move(answer));
}

std::optional<Rejection> AddressMatcher::Decide(const AskedAddress& subject,
                                                MatchedAddress& answer) {
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
    confirmer_.ConfirmBox(answer);
    return std::nullopt;
  }
  if (reader_.HoldsStreetsOf(answer.placed.zip5)) {
    return MatchInZip(subject, answer);
  }
  Explain(explanation_, answer.placed.zip5, ": the base holds no streets");
  const Matches elsewhere =
      places_.IsNameOfPlace(answer.placed)
          ? Matches()
          : streets_.MatchAsWritten(places_.OtherZipsOf(answer.placed), subject.address);
  if (IsOnlyOne(elsewhere)) {
    TakeZip(subject, elsewhere[0], answer);
  } else {
    Explain(explanation_, "nothing is confirmed");
  }
  return std::nullopt;
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

// A street that goes by another name is found by that.
StreetMatch AddressMatcher::MatchStreet(const std::string& zip, const StreetQuestion& asked) {
  const auto alias = reader_.KnowsPostal() && !reader_.FindStreet(zip, asked.street)
                         ? reader_.FindAlias(zip, asked.street, asked.number)
                         : std::nullopt;
  if (alias) {
    StreetQuestion renamed = asked;
    renamed.street = alias->street;
    StreetMatch match = streets_.MatchAsWritten(zip, renamed);
    if (match.kind == StreetMatch::Kind::Found) {
      Explain(explanation_, "'", ComposeStreet(asked.street), "' is another name of '",
              ComposeStreet(alias->street), "'");
      match.nameChanged = !alias->isPreferred;
      match.elementChanged = false;
      return match;
    }
  }
  return streets_.Match(zip, asked);
}

// Of a name that must not be used in an address the postal service says which one does; and which
// of a ZIP code's names it prefers, or of this address alone, where none was given that counts.
void AddressMatcher::PreferCity(const LastLine& asked, MatchedAddress& answer) {
  PlacedLine& placed = answer.placed;
  const std::string key = CityKey(placed.city);
  const bool isGiven = !asked.city.empty() && !placed.cityCorrected;
  std::string preferred = reader_.PreferredCity(placed.zip5, key);
  if (preferred.empty() && !isGiven && reader_.CityName(placed.zip5, key).empty()) {
    preferred = reader_.PreferredCity(placed.zip5, "");
  }
  if (!preferred.empty() && !answer.delivery.place.empty()) {
    preferred = answer.delivery.place;
  }
  if (!preferred.empty() && preferred != placed.city) {
    Explain(explanation_, "the postal service writes ", preferred, " for ", placed.city);
    placed.city = std::move(preferred);
    placed.cityCorrected = placed.cityCorrected || isGiven;
  }
}

std::optional<Rejection> AddressMatcher::MatchInZip(const AskedAddress& subject,
                                                    MatchedAddress& answer) {
  const StreetMatch match = MatchStreet(answer.placed.zip5, subject.address);
  const bool isFound = match.kind == StreetMatch::Kind::Found;
  if (isFound && !match.guessed) {
    return Accept(subject, match, answer);
  }
  if (match.kind == StreetMatch::Kind::Several) {
    return LeaveOpen(subject, answer.placed, {{answer.placed.zip5, match}});
  }
  Matches elsewhere = streets_.MatchAsWritten(places_.OtherZipsOf(answer.placed), subject.address);
  if (match.kind == StreetMatch::Kind::NoNumber && match.street.id != 0) {
    std::erase_if(elsewhere, [&subject](const Matches::value_type& other) {
      return !other.second.IsWhole(subject.address.unit);
    });
  }
  if (isFound && elsewhere.empty()) {
    return Accept(subject, match, answer);
  }
  if (!isFound && IsOnlyOne(elsewhere)) {
    TakeZip(subject, elsewhere[0], answer);
    return std::nullopt;
  }
  if (!elsewhere.empty() && match.kind != StreetMatch::Kind::NoNumber) {
    Explain(explanation_, "other ZIP codes of ", answer.placed.city, " have it as it is written");
    if (isFound) {
      elsewhere.emplace_back(answer.placed.zip5, match);
    }
    return LeaveOpen(subject, answer.placed, elsewhere);
  }
  return LeaveUnconfirmed(subject, match, answer);
}

std::optional<Rejection> AddressMatcher::Accept(const AskedAddress& subject,
                                                const StreetMatch& match, MatchedAddress& answer) {
  if (const auto rejection = CheckCity(subject, match, answer)) {
    return rejection;
  }
  confirmer_.Confirm(subject, match, answer);
  return std::nullopt;
}

void AddressMatcher::TakeZip(const AskedAddress& subject, const Matches::value_type& found,
                             MatchedAddress& answer) {
  Explain(explanation_, "of ", answer.placed.city, "'s other ZIP codes ", found.first,
          " alone has it: it is taken");
  answer.placed.zip5 = found.first;
  answer.placed.zipCorrected = true;
  confirmer_.Confirm(subject, found.second, answer);
}

// City, state and ZIP did not tell a place: the street may, where the city's ZIP codes are many.
std::optional<Rejection> AddressMatcher::MatchInCity(const AskedAddress& subject,
                                                     Rejection otherwise, MatchedAddress& answer) {
  const std::string city = StandardCity(subject.question.asked.city);
  const ZipList::City* const known = zips_.FindCity(CityKey(city), subject.question.state);
  if (known == nullptr ||
      (otherwise != Rejection::Multiple && otherwise != Rejection::InvalidZip)) {
    return otherwise;
  }
  std::vector<std::string> zips = places_.ZipsOf(known->name, known->state);
  const std::string askedZip = LastLineChecker::Zip5Of(TidyLine(subject.question.asked.zip));
  const ZipList::City* const elsewhere = zips_.FindZip(askedZip);
  if (elsewhere != nullptr) {
    zips.push_back(askedZip);
  }
  const Matches found = streets_.MatchAsWritten(zips, subject.address);
  if (!IsOnlyOne(found)) {
    Explain(explanation_, found.empty() ? "no ZIP code of " : "several ZIP codes of ", city,
            found.empty() ? " is known to have it" : " have it");
    return found.empty() ? otherwise : LeaveOpen(subject, {known->name, known->state, {}}, found);
  }
  Explain(explanation_, found[0].first, " alone has it: it is taken");
  const bool isAsked = found[0].first == askedZip;
  const ZipList::City& place = isAsked ? *elsewhere : *known;
  answer.placed = {place.name, place.state, found[0].first, !isAsked, &place != known};
  confirmer_.Confirm(subject, found[0].second, answer);
  return std::nullopt;
}

bool AddressMatcher::IsOnlyOne(const Matches& matches) {
  return matches.size() == 1 && matches[0].second.kind == StreetMatch::Kind::Found;
}

// A name that a source gives a place of the ZIP code is not a misspelling of the usual one.
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

// The ZIP code has the address. A city that is not a name of it and lies somewhere else is wrong,
// unless it has the address as well.
std::optional<Rejection> AddressMatcher::CheckCity(const AskedAddress& subject,
                                                   const StreetMatch& match,
                                                   MatchedAddress& answer) {
  PlacedLine& placed = answer.placed;
  if (places_.IsNameOfPlace(placed)) {
    return std::nullopt;
  }
  const std::vector<std::string> zips = places_.ZipsOf(placed.city, placed.state);
  if (zips.empty()) {
    return std::nullopt;  // an unknown name may be an accepted one
  }
  Matches elsewhere = streets_.MatchAsWritten(zips, subject.address);
  if (match.guessed || !elsewhere.empty()) {
    Explain(explanation_, placed.city,
            match.guessed ? " may be right, and the street in it"
                          : " has the same address in another ZIP code");
    elsewhere.emplace_back(placed.zip5, match);
    return LeaveOpen(subject, placed, elsewhere);
  }
  placed.city = zips_.FindZip(placed.zip5)->name;
  placed.cityCorrected = true;
  Explain(explanation_, "the city is elsewhere: ", placed.city, " is right");
  return std::nullopt;
}

// Several addresses fit: those of the ZIP codes of `place`, and those of others, which have the
// usual city of theirs.
Rejection AddressMatcher::LeaveOpen(const AskedAddress& subject, const PlacedLine& place,
                                    const Matches& matches) {
  if (candidates_ == nullptr) {
    return Rejection::Multiple;
  }
  const std::vector<std::string> own = places_.ZipsOf(place.city, place.state);
  for (const auto& [zip, match] : matches) {
    const ZipList::City* const usual = zips_.FindZip(zip);
    const bool isOwn = usual == nullptr || std::binary_search(own.begin(), own.end(), zip);
    candidates_->AddAddresses(
        subject.question.lines,
        {isOwn ? place.city : usual->name, isOwn ? place.state : usual->state, zip}, match);
  }
  return Rejection::Multiple;
}

// The street is not there, or the number is not known on it.
std::optional<Rejection> AddressMatcher::LeaveUnconfirmed(const AskedAddress& subject,
                                                          const StreetMatch& match,
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
  if (candidates_ != nullptr) {
    candidates_->AddNumbers(subject.question.lines, answer.placed, match);
  }
  return std::nullopt;
}

}  // namespace postwright::postal
