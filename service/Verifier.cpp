#include "service/Verifier.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "postal/lines/Standardiser.h"
#include "postal/places/CityName.h"
#include "postal/places/LastLine.h"

namespace postwright::service {
namespace {

// The fields of a request in the letters that addresses are written in.
struct FoldedAddress {
  std::string firmName;
  postal::DeliveryLines lines;
  postal::LastLine lastLine;
};

// Returns nullopt where a field is too long or has letters that no address is written in.
std::optional<FoldedAddress> Fold(const RequestAddress& asked) {
  FoldedAddress folded;
  const std::pair<const std::string&, std::string&> fields[] = {
      {asked.firmName, folded.firmName},       {asked.address1, folded.lines.address1},
      {asked.address2, folded.lines.address2}, {asked.urbanization, folded.lines.urbanization},
      {asked.city, folded.lastLine.city},      {asked.state, folded.lastLine.state},
      {asked.zip5, folded.lastLine.zip},
  };
  for (const auto& [from, to] : fields) {
    std::optional<std::string> text = FoldToAscii(from);
    if (!text || from.size() > VerifyRequest::kLongestField) {
      return std::nullopt;
    }
    to = std::move(*text);
  }
  return folded;
}

// A firm's name keeps its punctuation, but for blanks that mean nothing.
std::string StandardFirm(std::string_view folded) {
  std::string firm;
  for (const char c : folded) {
    if (c != ' ' || (!firm.empty() && firm.back() != ' ')) {
      firm += c;
    }
  }
  if (firm.ends_with(' ')) {
    firm.pop_back();
  }
  return firm;
}

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
  fields.returnText = match.confirmation == 'D' ? ReplyFields::kDefaultMatch : "";
  fields.dpvConfirmation = match.confirmation;
  fields.dpvFalse = match.confirmation == 'N' ? "N" : "";
  fields.dpvFootnotes = std::move(match.dpvFootnotes);
  fields.centralDeliveryPoint = "N";
}

}  // namespace

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

// Never a ServiceFault.
AddressAnswer Verifier::Decide(const RequestAddress& asked,
                               postal::Explanation* explanation) const {
  std::optional<FoldedAddress> folded = Fold(asked);
  if (!folded || asked.cutShort ||
      !(HasWords(folded->lines.address1) || HasWords(folded->lines.address2))) {
    return postal::Rejection::InvalidAddress;
  }
  postal::AddressQuestion question;
  question.asked = std::move(folded->lastLine);
  question.lastLine = postal::LastLineChecker(base_).Check(question.asked);
  const auto* const placed = std::get_if<postal::PlacedLine>(&question.lastLine);
  question.state =
      placed != nullptr ? placed->state : postal::LastLineChecker::StateOf(question.asked.state);
  std::optional<postal::StandardLines> lines =
      postal::Standardiser::Standardise(folded->lines, question.state);
  if (!lines) {
    return placed != nullptr ? postal::Rejection::NotFound
                             : std::get<postal::Rejection>(question.lastLine);
  }
  const bool standardised = *lines != folded->lines;
  question.lines = std::move(*lines);
  postal::AddressMatcher::Answer matched = MatchStreet(question, explanation);
  if (const auto* rejection = std::get_if<postal::Rejection>(&matched)) {
    return *rejection;
  }
  auto& match = std::get<postal::MatchedAddress>(matched);
  AddressAnswer answer(std::in_place_type<ReplyFields>);
  auto& fields = std::get<ReplyFields>(answer);
  fields.firmName = StandardFirm(folded->firmName);
  fields.footnotes = Footnotes(match, standardised);
  TakeMatch(match, fields);
  return answer;
}

postal::AddressMatcher::Answer Verifier::MatchStreet(const postal::AddressQuestion& question,
                                                     postal::Explanation* explanation) const {
  if (addresses_ != nullptr) {
    const postal::AddressBase::Lease reader = addresses_->Borrow();
    return postal::AddressMatcher(base_, *reader, explanation).Match(question);
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
