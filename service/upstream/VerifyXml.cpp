#include "service/upstream/VerifyXml.h"

#include <algorithm>

#include "service/protocol/CandidateXml.h"
#include "service/protocol/Xml.h"
#include "service/protocol/XmlDocument.h"

namespace postwright::service {
namespace {

constexpr size_t kLongestDocument = 128 * 1024;
constexpr size_t kLongestValue = 400;  // ReturnText is the longest there is
constexpr size_t kLongestNumber = 11;

std::string ValueOf(pugi::xml_node element) {
  return XmlDocument::TextOf(element, kLongestValue);
}

UpstreamAnswer RootFault(const std::string& number) {
  const bool isOfUser = number == "80040B1A" || number == "80040b1a";
  const FaultKind kind = isOfUser               ? FaultKind::Unauthorised
                         : number == "80040B19" ? FaultKind::Refused
                                                : FaultKind::ServerError;
  return UpstreamFault{kind, {}, "root error " + number.substr(0, kLongestNumber)};
}

UpstreamAnswer ReadAddress(pugi::xml_node address, AddressCall call) {
  ReplyFields fields;
  for (const ReplyField& field : kReplyFields) {
    fields.*field.member = ValueOf(address.child(field.element));
  }
  if (fields.address1 == "-") {
    fields.address1.clear();
  }
  const bool hasLine = call == AddressCall::City || !fields.address2.empty();
  if (!hasLine || fields.city.empty() || fields.state.empty() || fields.zip5.empty()) {
    return UpstreamFault{FaultKind::BadReply, {}, "the reply holds no whole address"};
  }
  return fields;
}

}  // namespace

std::string VerifyXml::Compose(const RequestAddress& normal, std::string_view userId,
                               std::string_view password) {
  const CallWords& words = WordsOf(normal.call);
  const std::string request(words.request);
  const std::string item(words.item);
  std::string xml = "<" + request + " USERID=\"" + EscapeXml(userId) + '"';
  if (!password.empty()) {
    xml += " PASSWORD=\"" + EscapeXml(password) + '"';
  }
  xml += normal.call == AddressCall::Verify ? "><Revision>1</Revision>" : ">";
  xml += "<" + item + " ID=\"0\">";
  if (normal.call == AddressCall::City) {
    AppendElement(xml, "Zip5", normal.zip5);
  } else {
    for (const RequestField& field : kRequestFields) {
      AppendElement(xml, field.element, normal.*field.member);
    }
  }
  return xml + "</" + item + "></" + request + ">";
}

UpstreamAnswer VerifyXml::Read(std::string_view document,
                               std::vector<postal::Candidate>* candidates) {
  const XmlDocument reply(document.substr(0, kLongestDocument));
  if (document.size() > kLongestDocument || reply.GetState() != XmlDocument::State::Whole) {
    return UpstreamFault{FaultKind::BadReply, {}, "the reply is not XML"};
  }
  if (reply.Root().name() == std::string_view("Error")) {
    return RootFault(ValueOf(reply.Root().child("Number")));
  }
  const auto* const words =
      std::find_if(std::begin(kAddressCalls), std::end(kAddressCalls) - 1,
                   [&](const CallWords& each) { return each.response == reply.Root().name(); });
  const pugi::xml_node address = reply.Root().child(std::string(words->item).c_str());
  if (candidates != nullptr) {
    *candidates = CandidateXml::Read(address);
  }
  if (const pugi::xml_node error = address.child("Error")) {
    // What only the partner knows says no more than that the address is not right.
    return VerifyReply::RejectionOf(ValueOf(error.child("Number")))
        .value_or(postal::Rejection::InvalidAddress);
  }
  return ReadAddress(address, words->call);
}

}  // namespace postwright::service
