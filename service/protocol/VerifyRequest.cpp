#include "service/protocol/VerifyRequest.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "common/SmallText.h"
#include "service/protocol/XmlDocument.h"

namespace postwright::service {
namespace {

constexpr size_t kZip = 5;
constexpr size_t kAddOn = 4;

std::string DigitsOf(const std::string& text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits), IsDigit);
  return digits;
}

// Of an element that is there twice the first one with a text counts.
void ReadAddress(pugi::xml_node element, RequestAddress& address) {
  if (const pugi::xml_attribute id = element.attribute("ID")) {
    address.id = id.value();
  }
  for (const pugi::xml_node child : element) {
    const std::string_view name = child.name();
    const auto* const field = std::find_if(std::begin(kRequestFields), std::end(kRequestFields),
                                           [&](const auto& each) { return each.element == name; });
    if (field != std::end(kRequestFields) && (address.*field->member).empty()) {
      address.*field->member = XmlDocument::TextOf(child, VerifyRequest::kLongestField + 1);
    }
  }
}

// The elements beside the addresses: what Verify's clients asked for before there was a revision,
// and since.
void ReadForm(std::string_view name, const std::string& text, ReplyForm& form) {
  if (name == "Revision") {
    form.isLong = text == "1";
  } else if (name == "IncludeOptionalElements") {
    form.hasDeliveryPoint = EqualsIgnoringCase(text, "true");
  } else if (name == "ReturnCarrierRoute") {
    form.hasCarrierRoute = EqualsIgnoringCase(text, "true");
  }
}

std::variant<VerifyRequest, RequestFault> ReadRoot(const XmlDocument& document, AddressCall call) {
  VerifyRequest request;
  request.form.call = call;
  request.userId = document.Root().attribute("USERID").value();
  for (const pugi::xml_node child : document.Root()) {
    const std::string_view name = child.name();
    if (name == WordsOf(call).item) {
      if (request.addresses.size() == VerifyRequest::kMostAddresses) {
        return RequestFault::TooManyAddresses;
      }
      RequestAddress& address = request.addresses.emplace_back();
      address.call = call;
      ReadAddress(child, address);
      address.cutShort = document.IsCutWithin(child);
    } else if (call == AddressCall::Verify) {  // the others have one form
      ReadForm(name, XmlDocument::TextOf(child, VerifyRequest::kLongestField), request.form);
    }
  }
  return request;
}

}  // namespace

std::string RequestAddress::Zip() const {
  const std::string zip = DigitsOf(zip5);
  return zip.size() == kZip || zip.size() == kZip + kAddOn ? zip.substr(0, kZip) : "";
}

std::string RequestAddress::AddOn() const {
  const std::string zip = DigitsOf(zip5);
  std::string addOn = DigitsOf(zip4);
  if (zip.size() == kZip + kAddOn && addOn.empty()) {
    addOn = zip.substr(kZip);
  }
  const bool whole = zip.size() == kZip || zip.size() == kZip + kAddOn;
  return whole && addOn.size() == kAddOn ? addOn : std::string();
}

std::optional<std::string> FoldField(std::string_view sent) {
  return sent.size() <= VerifyRequest::kLongestField ? FoldToAscii(sent) : std::nullopt;
}

std::variant<VerifyRequest, RequestFault> VerifyRequest::Read(std::string_view document,
                                                              AddressCall call) {
  if (document.size() > kLongestDocument) {
    return RequestFault::Syntax;
  }
  document.remove_prefix(std::min(document.find_first_not_of(" \t\r\n"), document.size()));
  const XmlDocument xml(document);
  if (xml.Root().name() != WordsOf(call).request || xml.IsDeeperThan(kDeepestElement)) {
    return RequestFault::Syntax;
  }
  auto read = ReadRoot(xml, call);
  if (const auto* request = std::get_if<VerifyRequest>(&read)) {
    if (xml.GetState() == XmlDocument::State::CutShort && request->addresses.empty()) {
      return RequestFault::Syntax;
    }
    if (request->userId.empty()) {
      return RequestFault::NoUser;
    }
  }
  return read;
}

}  // namespace postwright::service
