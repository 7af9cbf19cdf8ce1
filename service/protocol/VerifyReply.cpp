#include "service/protocol/VerifyReply.h"

#include <algorithm>

#include "common/SmallText.h"
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

void WriteRejection(std::string& xml, postal::Rejection rejection, AddressCall call) {
  const RejectionRow& row = RowOf(rejection);
  const bool isOfCity = call == AddressCall::City;
  xml += "<Error>";
  AppendElement(xml, "Number", row.number);
  AppendElement(xml, "Source", isOfCity ? "WebtoolsAMS;CityStateLookup" : "clsAMS");
  AppendElement(xml, "Description", isOfCity ? Trim(row.description) : row.description);
  xml += "<HelpFile/><HelpContext/></Error>";
}

// Says whether a field is in a form, where it is not empty.
bool IsOfForm(const ReplyField& field, const ReplyForm& form) {
  if (field.presence != ReplyPresence::LongForm) {
    return form.call == AddressCall::Verify || field.member != &ReplyFields::returnText;
  }
  return form.isLong || (form.hasDeliveryPoint && field.member == &ReplyFields::deliveryPoint) ||
         (form.hasCarrierRoute && field.member == &ReplyFields::carrierRoute);
}

void WriteCity(std::string& xml, const ReplyFields& fields) {
  AppendElement(xml, "Zip5", fields.zip5);
  AppendElement(xml, "City", fields.city);
  AppendElement(xml, "State", fields.state);
}

void WriteFields(std::string& xml, const ReplyFields& fields, const ReplyForm& form) {
  const bool shortCity = !form.isLong && !fields.cityAbbreviation.empty();
  for (const ReplyField& field : kReplyFields) {
    const bool isShortened = shortCity && field.member == &ReplyFields::city;
    const std::string& text = isShortened ? fields.cityAbbreviation : fields.*field.member;
    if (field.presence == ReplyPresence::Always || (!text.empty() && IsOfForm(field, form))) {
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

std::string VerifyReply::Compose(const std::vector<ReplyAddress>& addresses,
                                 const ReplyForm& form) {
  constexpr size_t kUsualLength = 400;  // of one address
  const auto fault =
      std::find_if(addresses.rbegin(), addresses.rend(), [](const ReplyAddress& address) {
        return std::holds_alternative<ServiceFault>(address.outcome);
      });
  if (fault != addresses.rend()) {
    const auto& told = std::get<ServiceFault>(fault->outcome);
    return RootError(told.number, told.description);
  }
  const CallWords& words = WordsOf(form.call);
  std::string xml;
  xml.reserve(kUsualLength * (addresses.size() + 1));
  xml += kDeclaration;
  xml.append("<").append(words.response).append(">");
  for (const ReplyAddress& address : addresses) {
    xml.append("<").append(words.item);
    if (address.id) {
      xml.append(" ID=\"").append(EscapeXml(*address.id)).append("\"");
    }
    xml += ">";
    if (const auto* rejection = std::get_if<postal::Rejection>(&address.outcome)) {
      WriteRejection(xml, *rejection, form.call);
    } else if (form.call == AddressCall::City) {
      WriteCity(xml, std::get<ReplyFields>(address.outcome));
    } else {
      WriteFields(xml, std::get<ReplyFields>(address.outcome), form);
    }
    address.outcome.source.Write(xml);
    CandidateXml::Write(xml, address.outcome.candidates);
    xml.append("</").append(words.item).append(">");
  }
  xml.append("</").append(words.response).append(">");
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
