#include "service/Verifier.h"

#include <algorithm>

#include "service/address/CityName.h"
#include "service/address/LastLine.h"
#include "service/address/Standardiser.h"
#include "service/text/AsciiText.h"

namespace postwright::service {
namespace {

// The fields of a request in the letters that addresses are written in.
struct FoldedAddress {
  std::string firmName;
  DeliveryLines lines;
  LastLine lastLine;
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

// A ZIP corrected, B city or state corrected, N address standardised; in this order, run together.
std::string Footnotes(const PlacedLine& placed, bool standardised) {
  return std::string(placed.zipCorrected ? "A" : "") + (placed.cityCorrected ? "B" : "") +
         (standardised ? "N" : "");
}

}  // namespace

ReplyAddress Verifier::Verify(const RequestAddress& asked) const {
  return {asked.id, Decide(asked)};
}

void Verifier::Find(const RequestAddress& asked, const std::string&, Done done) {
  std::variant<ReplyFields, Rejection> decided = Decide(asked);
  auto* const fields = std::get_if<ReplyFields>(&decided);
  done(fields != nullptr ? AddressAnswer(std::move(*fields)) : std::get<Rejection>(decided));
}

std::variant<ReplyFields, Rejection> Verifier::Decide(const RequestAddress& asked) const {
  const std::optional<FoldedAddress> folded = Fold(asked);
  if (!folded || asked.cutShort) {
    return Rejection::InvalidAddress;
  }
  if (SplitLine(folded->lines.address1).empty() && SplitLine(folded->lines.address2).empty()) {
    return Rejection::InvalidAddress;
  }
  const auto checked = LastLineChecker(base_).Check(folded->lastLine);
  if (const auto* rejection = std::get_if<Rejection>(&checked)) {
    return *rejection;
  }
  const PlacedLine& placed = std::get<PlacedLine>(checked);
  const std::optional<DeliveryLines> lines = Standardiser::Standardise(folded->lines, placed.state);
  if (!lines) {
    return Rejection::NotFound;
  }
  ReplyFields fields;
  fields.firmName = StandardFirm(folded->firmName);
  fields.address1 = lines->address1;
  fields.address2 = lines->address2;
  fields.urbanization = lines->urbanization;
  fields.city = placed.city;
  fields.cityAbbreviation = AbbreviateCity(placed.city);
  fields.state = placed.state;
  fields.zip5 = placed.zip5;
  fields.footnotes = Footnotes(placed, *lines != folded->lines);
  // What a base without streets can say: not confirmed, and no flag set.
  fields.dpvConfirmation = "N";
  fields.dpvFalse = "N";
  fields.centralDeliveryPoint = "N";
  return fields;
}

}  // namespace postwright::service
