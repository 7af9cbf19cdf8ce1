#include "service/protocol/VerifyReply.h"

#include <algorithm>

#include "service/protocol/CandidateXml.h"
#include "service/protocol/Xml.h"

namespace postwright::service {
namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

struct RejectionRow {
  postal::Rejection rejection;
  std::string_view number;
  std::string_view description;  // blanks at the end included: clients compare
};

constexpr RejectionRow kRejections[] = {
    {postal::Rejection::InvalidAddress, "-2147219396", "Invalid Address.  "},
    {postal::Rejection::InvalidZip, "-2147219399", "Invalid Zip Code.  "},
    {postal::Rejection::InvalidCity, "-2147219400", "Invalid City.  "},
    {postal::Rejection::NotFound, "-2147219401", "Address Not Found.  "},
    {postal::Rejection::InvalidState, "-2147219402", "Invalid State Code.  "},
    {postal::Rejection::Multiple, "-2147219403",
     "Multiple addresses were found for the information you entered, and no default exists."},
};

const RejectionRow& RowOf(postal::Rejection rejection) {
  for (const RejectionRow& row : kRejections) {
    if (row.rejection == rejection) {
      return row;
    }
  }
  return kRejections[0];
}

void WriteRejection(std::string& xml, postal::Rejection rejection) {
  const RejectionRow& row = RowOf(rejection);
  xml += "<Error>";
  AppendElement(xml, "Number", row.number);
  AppendElement(xml, "Source", "clsAMS");
  AppendElement(xml, "Description", row.description);
  xml += "<HelpFile/><HelpContext/></Error>";
}

void WriteFields(std::string& xml, const ReplyFields& fields, bool revision1) {
  const bool shortCity = !revision1 && !fields.cityAbbreviation.empty();
  for (const ReplyField& field : kReplyFields) {
    const bool isShortened = shortCity && field.member == &ReplyFields::city;
    const std::string& text = isShortened ? fields.cityAbbreviation : fields.*field.member;
    const bool isOfForm = revision1 || field.presence != ReplyPresence::LongForm;
    if (field.presence == ReplyPresence::Always || (isOfForm && !text.empty())) {
      AppendElement(xml, field.element, text);
    }
  }
}

// The root error has its elements in another order than that of an address.
std::string RootError(std::string_view number, std::string_view description) {
  std::string xml(kDeclaration);
  xml += "<Error>";
  AppendElement(xml, "Number", number);
  AppendElement(xml, "Description", description);
  AppendElement(xml, "Source", "USPSCOM::DoAuth");
  xml += "</Error>";
  return xml;
}

}  // namespace

void AddressAnswer::PutAbove(const std::string& lines) {
  if (auto* const fields = std::get_if<ReplyFields>(this)) {
    fields->PutAbove(lines);
  }
  for (postal::Candidate& candidate : candidates) {
    candidate.above = lines;
  }
}

std::string VerifyReply::Compose(const std::vector<ReplyAddress>& addresses, bool revision1) {
  constexpr size_t kUsualLength = 400;  // of one address
  const auto fault =
      std::find_if(addresses.rbegin(), addresses.rend(), [](const ReplyAddress& address) {
        return std::holds_alternative<ServiceFault>(address.outcome);
      });
  if (fault != addresses.rend()) {
    const auto& told = std::get<ServiceFault>(fault->outcome);
    return RootError(told.number, told.description);
  }
  std::string xml;
  xml.reserve(kUsualLength * (addresses.size() + 1));
  xml += kDeclaration;
  xml += "<AddressValidateResponse>";
  for (const ReplyAddress& address : addresses) {
    xml += "<Address";
    if (address.id) {
      xml.append(" ID=\"").append(EscapeXml(*address.id)).append("\"");
    }
    xml += ">";
    if (const auto* fields = std::get_if<ReplyFields>(&address.outcome)) {
      WriteFields(xml, *fields, revision1);
    } else {
      WriteRejection(xml, std::get<postal::Rejection>(address.outcome));
    }
    address.outcome.source.Write(xml);
    CandidateXml::Write(xml, address.outcome.candidates);
    xml += "</Address>";
  }
  xml += "</AddressValidateResponse>";
  return xml;
}

std::string VerifyReply::ComposeFault(RequestFault fault) {
  switch (fault) {
    case RequestFault::NoUser:
      return RootError("80040B1A",
                       "Authorization failure.  Perhaps username and/or password is incorrect.");
    case RequestFault::TooManyAddresses:
      return RootError("80040B18",
                       "A request may hold up to 5 addresses. Send the others in another.");
    case RequestFault::Syntax:
      break;
  }
  return RootError("80040B19",
                   "XML Syntax Error: Please check the XML request to see if it can be parsed.(B)");
}

std::string VerifyReply::ComposeUnknownApi(std::string_view api) {
  return RootError("80040B1A", "API Authorization failure. " + std::string(api) +
                                   " is not a valid API name for this protocol.");
}

std::string_view VerifyReply::NumberOf(postal::Rejection rejection) {
  return RowOf(rejection).number;
}

std::string_view VerifyReply::DescriptionOf(postal::Rejection rejection) {
  return RowOf(rejection).description;
}

std::optional<postal::Rejection> VerifyReply::RejectionOf(std::string_view number) {
  const auto* const row =
      std::find_if(std::begin(kRejections), std::end(kRejections),
                   [&](const RejectionRow& each) { return each.number == number; });
  return row == std::end(kRejections) ? std::nullopt : std::optional(row->rejection);
}

}  // namespace postwright::service
