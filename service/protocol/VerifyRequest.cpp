#include "service/protocol/VerifyRequest.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "service/protocol/XmlDocument.h"

namespace postwright::service {
namespace {

// Of an element that stands there twice the first one with a text counts.
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

std::variant<VerifyRequest, RequestFault> ReadRoot(const XmlDocument& document) {
  VerifyRequest request;
  request.userId = document.Root().attribute("USERID").value();
  for (const pugi::xml_node child : document.Root()) {
    const std::string_view name = child.name();
    if (name == "Revision") {
      request.revision1 = XmlDocument::TextOf(child) == "1";
    } else if (name == "Address") {
      if (request.addresses.size() == VerifyRequest::kMostAddresses) {
        return RequestFault::TooManyAddresses;
      }
      RequestAddress& address = request.addresses.emplace_back();
      ReadAddress(child, address);
      address.cutShort = document.IsCutWithin(child);
    }
  }
  return request;
}

}  // namespace

std::string RequestAddress::AddOn() const {
  constexpr size_t kZip = 5;
  constexpr size_t kAddOn = 4;
  const auto digits = [](const std::string& text) {
    std::string found;
    std::copy_if(text.begin(), text.end(), std::back_inserter(found), IsDigit);
    return found;
  };
  const std::string zip = digits(zip5);
  std::string addOn = digits(zip4);
  if (zip.size() == kZip + kAddOn && addOn.empty()) {
    addOn = zip.substr(kZip);
  }
  const bool whole = zip.size() == kZip || zip.size() == kZip + kAddOn;
  return whole && addOn.size() == kAddOn ? addOn : std::string();
}

std::optional<std::string> FoldField(std::string_view sent) {
  return sent.size() <= VerifyRequest::kLongestField ? FoldToAscii(sent) : std::nullopt;
}

std::variant<VerifyRequest, RequestFault> VerifyRequest::Read(std::string_view document) {
  if (document.size() > kLongestDocument) {
    return RequestFault::Syntax;
  }
  document.remove_prefix(std::min(document.find_first_not_of(" \t\r\n"), document.size()));
  const XmlDocument xml(document);
  if (xml.Root().name() != std::string_view("AddressValidateRequest") ||
      xml.IsDeeperThan(kDeepestElement)) {
    return RequestFault::Syntax;
  }
  auto read = ReadRoot(xml);
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
