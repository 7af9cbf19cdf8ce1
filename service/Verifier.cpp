#include "service/Verifier.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "postal/cut/LineCutter.h"
#include "postal/lines/Standardiser.h"
#include "postal/places/CityName.h"
#include "postal/places/LastLine.h"

namespace postwright::service {
namespace {

// A ZIP corrected, B city or state corrected, H unit missing, L a part of the address changed, M
// the street's name changed, N address standardised; in this order, run together.
std::string Footnotes(const postal::MatchedAddress& match, bool standardised) {
  const std::pair<bool, char> notes[] = {
      {match.placed.zipCorrected, 'A'}, {match.placed.cityCorrected, 'B'},
      {match.unitIsMissing, 'H'},       {match.elementChanged, 'L'},
      {match.nameChanged, 'M'},         {standardised, 'N'},
  };
  std::string footnotes;
  for (const auto& [applies, note] : notes) {
    if (applies) {
      footnotes += note;
    }
  }
  return footnotes;
}

// What a base that knows no more than house numbers can say: no flag is set.
void TakeMatch(postal::MatchedAddress& match, ReplyFields& fields) {
  fields.address1 = std::move(match.lines.address1);
  fields.address2 = std::move(match.lines.address2);
  fields.urbanization = std::move(match.lines.urbanization);
  fields.cityAbbreviation = postal::AbbreviateCity(match.placed.city);
  fields.city = std::move(match.placed.city);
  fields.state = std::move(match.placed.state);
  fields.zip5 = std::move(match.placed.zip5);
  fields.zip4 = std::move(match.zip4);
  fields.carrierRoute = std::move(match.delivery.route);
  fields.returnText = match.confirmation == 'D' ? ReplyFields::kDefaultMatch : "";
  fields.dpvConfirmation = match.confirmation;
  fields.dpvFalse = match.confirmation == 'N' ? "N" : "";
  fields.dpvFootnotes = std::move(match.dpvFootnotes);
  fields.centralDeliveryPoint = "N";
}

// Says whether a field has grown past what can be asked for, as & becomes AND: a client that asked
// for the answer again would be turned down.
bool HasGrown(const ReplyFields& fields) {
  return std::any_of(kReplyFields.begin(), kReplyFields.end(), [&](const ReplyField& field) {
    return (fields.*field.member).size() > VerifyRequest::kLongestField;
  });
}

// Says whether the street is another than was asked for, not only written differently.
bool IsStreetChanged(const postal::StandardLines& asked, const postal::MatchedAddress& match) {
  if (!match.elementChanged) {
    return match.nameChanged;
  }
  postal::StreetLine street = *asked.street;
  street.units.clear();
  const std::string line = JoinWords(street.Compose());
  return !(match.lines.address2 + ' ').starts_with(line + ' ');
}

// An add-on that no source contradicts stays: it was right where the user has it from. It belongs
// to a street and a ZIP code, and to a number that may be there.
bool KeepsAddOn(const postal::StandardLines& asked, const postal::MatchedAddress& match) {
  constexpr std::string_view kNumberIsWrong = "AAM3";
  return match.zip4.empty() && !match.placed.zipCorrected && match.dpvFootnotes != kNumberIsWrong &&
         !IsStreetChanged(asked, match);
}

}  // namespace

// The fields of a request in the letters that addresses are written in.
struct Verifier::FoldedAddress {
  // Returns nullopt where a field cannot be folded.
  static std::optional<FoldedAddress> Of(const RequestAddress& asked);

  // Takes what was cut again. Returns false where it cannot be folded.
  bool Take(const postal::CutAddress& cut);

  std::string firmName;
  postal::DeliveryLines lines;
  postal::LastLine lastLine;
};

std::optional<Verifier::FoldedAddress> Verifier::FoldedAddress::Of(const RequestAddress& asked) {
  FoldedAddress folded;
  const std::pair<const std::string&, std::string&> fields[] = {
      {asked.firmName, folded.firmName},       {asked.address1, folded.lines.address1},
      {asked.address2, folded.lines.address2}, {asked.urbanization, folded.lines.urbanization},
      {asked.city, folded.lastLine.city},      {asked.state, folded.lastLine.state},
      {asked.zip5, folded.lastLine.zip},
  };
  for (const auto& [from, to] : fields) {
    std::optional<std::string> text = FoldField(from);
    if (!text) {
      return std::nullopt;
    }
    to = std::move(*text);
  }
  return folded;
}

bool Verifier::FoldedAddress::Take(const postal::CutAddress& cut) {
  std::optional<std::string> line = FoldField(cut.address2);
  std::optional<std::string> city = FoldField(cut.city);
  if (!line || !city) {
    return false;
  }
  lines.address2 = std::move(*line);
  lastLine.city = std::move(*city);
  return true;
}

ReplyAddress Verifier::Verify(const RequestAddress& asked) const {
  return {asked.id, Decide(asked, nullptr)};
}

ReplyAddress Verifier::Explain(const RequestAddress& asked,
                               postal::Explanation& explanation) const {
  return {asked.id, Decide(asked, &explanation)};
}

void Verifier::Find(const RequestAddress& asked, const std::string&, Done done) {
  done(Decide(asked, nullptr));
}

// The city that mail to the ZIP code is addressed to.
AddressAnswer Verifier::DecideCity(const RequestAddress& asked) const {
  const postal::ZipList::City* const city = zips_.FindZip(asked.Zip());
  if (city == nullptr || asked.cutShort) {
    return postal::Rejection::InvalidZip;
  }
  AddressAnswer answer(std::in_place_type<ReplyFields>);
  auto& fields = std::get<ReplyFields>(answer);
  fields.city = city->name;
  fields.state = city->state;
  fields.zip5 = asked.Zip();
  answer.source = {ReplySource::Kind::ZipList};
  return answer;
}

// Never a ServiceFault.
AddressAnswer Verifier::Decide(const RequestAddress& sent, postal::Explanation* explanation) const {
  if (sent.call == AddressCall::City) {
    return DecideCity(sent);
  }
  std::optional<FoldedAddress> folded = FoldedAddress::Of(sent);
  if (!folded || sent.cutShort) {
    return postal::Rejection::InvalidAddress;
  }
  std::optional<postal::JoinedReader> bases;
  if (addresses_ != nullptr && addresses_->Size() > 0) {
    bases.emplace(*addresses_);
  }
  postal::JoinedReader* const reader = bases ? &*bases : nullptr;
  const auto cut = postal::LineCutter(zips_, reader)
                       .Cut({sent.address1, sent.address2, sent.city, sent.state, sent.zip5});
  if (!cut) {
    postal::Explain(explanation, "the lines could be those of several addresses");
    return postal::Rejection::InvalidAddress;
  }
  const postal::DeliveryLines sentLines = folded->lines;
  if (!folded->Take(*cut)) {
    return postal::Rejection::InvalidAddress;
  }
  std::optional<postal::CandidateFinder> candidates;
  if (reader != nullptr && sent.candidates > 0) {
    candidates.emplace(*reader, std::min(sent.candidates, postal::Candidate::kMost));
  }
  AddressAnswer answer = DecideWhole(sent, sentLines, *folded,
                                     {reader, explanation, candidates ? &*candidates : nullptr});
  if (candidates) {
    answer.candidates = candidates->Take();
  }
  answer.source = SourceOf(answer, folded->lastLine.zip, reader);
  answer.PutAbove(cut->above);
  return answer;
}

// The address base's, where a street was looked up in it; nobody's, where nothing was.
ReplySource Verifier::SourceOf(const AddressAnswer& answer, const std::string& zip,
                               const postal::JoinedReader* reader) {
  const auto* const fields = std::get_if<ReplyFields>(&answer);
  const auto* const rejection = std::get_if<postal::Rejection>(&answer);
  if (rejection != nullptr && *rejection == postal::Rejection::InvalidAddress) {
    return {};
  }
  const bool isOfBase =
      reader != nullptr && (fields != nullptr ? !fields->dpvFootnotes.empty()
                                              : *rejection == postal::Rejection::NotFound ||
                                                    *rejection == postal::Rejection::Multiple);
  if (!isOfBase) {
    return {ReplySource::Kind::ZipList};
  }
  const postal::AddressBase& base = reader->BaseOf(
      fields != nullptr ? fields->zip5 : postal::LastLineChecker::Zip5Of(TidyLine(zip)));
  return {ReplySource::Kind::Base, base.Name(), base.Date()};
}

// `sentLines` are those of the request, `asked` is what was cut again.
AddressAnswer Verifier::DecideWhole(const RequestAddress& sent,
                                    const postal::DeliveryLines& sentLines,
                                    const FoldedAddress& asked, const Help& help) const {
  if (!(HasWords(asked.lines.address1) || HasWords(asked.lines.address2))) {
    return postal::Rejection::InvalidAddress;
  }
  postal::AddressQuestion question;
  question.asked = asked.lastLine;
  question.lastLine = postal::LastLineChecker(zips_).Check(question.asked);
  const auto* const placed = std::get_if<postal::PlacedLine>(&question.lastLine);
  question.state =
      placed != nullptr ? placed->state : postal::LastLineChecker::StateOf(question.asked.state);
  std::optional<postal::StandardLines> lines =
      postal::Standardiser::Standardise(asked.lines, question.state);
  if (!lines) {
    return placed != nullptr ? postal::Rejection::NotFound
                             : std::get<postal::Rejection>(question.lastLine);
  }
  const bool standardised = *lines != sentLines;
  question.lines = std::move(*lines);
  question.firm = SingleBlanks(asked.firmName);
  postal::AddressMatcher::Answer matched = MatchStreet(question, help);
  if (const auto* rejection = std::get_if<postal::Rejection>(&matched)) {
    return *rejection;
  }
  auto& match = std::get<postal::MatchedAddress>(matched);
  AddressAnswer answer(std::in_place_type<ReplyFields>);
  auto& fields = std::get<ReplyFields>(answer);
  fields.firmName = question.firm;
  fields.footnotes = Footnotes(match, standardised);
  if (KeepsAddOn(question.lines, match)) {
    match.zip4 = sent.AddOn();
  }
  TakeMatch(match, fields);
  if (HasGrown(fields)) {
    return postal::Rejection::InvalidAddress;
  }
  return answer;
}

postal::AddressMatcher::Answer Verifier::MatchStreet(const postal::AddressQuestion& question,
                                                     const Help& help) const {
  if (help.reader != nullptr) {
    return postal::AddressMatcher(zips_, *help.reader, help.explanation, help.candidates)
        .Match(question);
  }
  if (const auto* rejection = std::get_if<postal::Rejection>(&question.lastLine)) {
    return *rejection;
  }
  postal::MatchedAddress match;
  match.placed = std::get<postal::PlacedLine>(question.lastLine);
  match.lines = question.lines.Lines();
  return match;
}

}  // namespace postwright::service
