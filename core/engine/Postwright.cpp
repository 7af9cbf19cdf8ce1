#include <postwright/Postwright.h>

#include "core/engine/ReplyDocument.h"

#include <postwright/AddressParser.h>
#include <postwright/Deployment.h>

#include <tinyxml.h>

#include <cassert>
#include <optional>
#include <utility>
#include <vector>

namespace postwright {

std::unique_ptr<FixedAddress> Postwright::Fix(const std::wstring& text, bool flag,
                                              IPlatformServices* services) {
  if (services == nullptr) {
    throw PostwrightException(FixResultBadReply);  // there is nobody to ask, nor to tell the cause
  }
  return Postwright(text, flag, services).Fix();
}

std::unique_ptr<FixedAddress> Postwright::Fix(const AddressFields& address, bool flag,
                                              IPlatformServices* services) {
  return Fix(address.ComposeAddressBlock(), flag, services);
}

Postwright::Postwright(const std::wstring& text, bool flag, IPlatformServices* services)
    : info_(AddressParser::GetInstance()->Parse(text)), flag_(flag), services_(services) {}

std::unique_ptr<FixedAddress> Postwright::Fix() {
  const std::unique_ptr<TiXmlDocument> document = MakeRequestToServer();
  const TiXmlElement* address = document->RootElement()->FirstChildElement("Address");
  if (address == nullptr) {
    services_->LogWarning(L"Postwright::Fix(): unexpected server error");
    throw PostwrightException(FixResultBadReply);
  }
  if (const TiXmlElement* error = address->FirstChildElement("Error")) {
    services_->LogWarning(L"Postwright::Fix(): server error = '%s'",
                          GetChildValue(error, "Description").c_str());
    throw PostwrightException(FixResultInvalidAddress);
  }
  return ProcessMatch(address);
}

std::wstring Postwright::ComposeRequestUrl() {
  const Deployment& deployment = GetDeployment();
  TiXmlElement root("AddressValidateRequest");
  root.SetAttribute("USERID", deployment.userId.c_str());
  AddChildElement(&root, "Revision", "1");
  auto* address = new TiXmlElement("Address");
  root.LinkEndChild(address);  // and owned by the root from here on
  address->SetAttribute("ID", "0");
  AddChildElement(address, "Address1", "");
  AddChildElement(address, "Address2", services_->UCS2ToUTF8(info_.streetLine));
  AddChildElement(address, "City", services_->UCS2ToUTF8(info_.city));
  AddChildElement(address, "State", services_->UCS2ToUTF8(info_.state));
  AddChildElement(address, "Zip5", services_->UCS2ToUTF8(info_.zip));
  AddChildElement(address, "Zip4", "");

  TiXmlPrinter printer;
  printer.SetIndent("");
  printer.SetLineBreak("");
  root.Accept(&printer);

  const std::wstring host(deployment.verifyHost.begin(), deployment.verifyHost.end());
  return L"http://" + host + L"/ShippingAPI.dll?API=Verify&XML=" +
         services_->UrlEscape(services_->UTF8ToUCS2(printer.CStr()));
}

std::unique_ptr<TiXmlDocument> Postwright::MakeRequestToServer() {
  return MakeRequestToServer(ComposeRequestUrl());
}

std::unique_ptr<TiXmlDocument> Postwright::MakeRequestToServer(const std::wstring& url) {
  const std::unique_ptr<std::vector<std::uint8_t>> body = services_->ReadUrl(url.c_str());
  std::string reply = body == nullptr ? "" : std::string(body->begin(), body->end());
  auto document = std::make_unique<TiXmlDocument>();
  if (const std::optional<std::wstring> fault = ParseReply(std::move(reply), document.get())) {
    services_->LogError(
        L"Postwright::MakeRequestToServer(): unable to parse returned xml document: %s",
        fault->c_str());
    throw PostwrightException(FixResultBadReply);
  }
  if (document->RootElement() == nullptr) {
    services_->LogError(L"Postwright::MakeRequestToServer(): RootElement == NULL");
    throw PostwrightException(FixResultBadReply);
  }
  return document;
}

std::unique_ptr<FixedAddress> Postwright::ProcessMatch(const TiXmlElement* root) {
  assert(root && "root != NULL");
  const std::wstring city = GetChildValue(root, "City");
  const std::wstring state = GetChildValue(root, "State");
  std::wstring zip = GetChildValue(root, "Zip5");
  const std::wstring zip4 = GetChildValue(root, "Zip4");
  if (zip4.size() == 4) {
    zip += L"-" + zip4;
  }
  const std::wstring street = GetChildValue(root, "Address2");
  const std::wstring urbanization = GetChildValue(root, "Urbanization");
  const AddressFields exact(info_.prefix, street, urbanization, city, state, zip, info_.suffix);
  return std::make_unique<FixedAddress>(FixResultDefaultMatch, exact, std::vector<AddressMatch>());
}

std::wstring Postwright::GetChildValue(const TiXmlElement* parent, const char* name) {
  const TiXmlElement* child = parent->FirstChildElement(name);
  const char* text = child == nullptr ? nullptr : child->GetText();
  return text == nullptr ? std::wstring() : services_->UTF8ToUCS2(text);
}

std::int32_t Postwright::GetChildValueInt(const TiXmlElement* parent, const char* name) {
  assert(parent && "parent != NULL");
  const std::wstring value = GetChildValue(parent, name);
  if (value.empty()) {
    services_->LogError(L"Postwright::GetChildValueInt(): '%S' tag not found", name);
    throw PostwrightException(FixResultBadReply);
  }
  return services_->StringToInt(value.c_str());
}

TiXmlText* Postwright::AddChildElement(TiXmlElement* parent, const char* name,
                                       const std::string& text) {
  auto* element = new TiXmlElement(name);
  parent->LinkEndChild(element);
  auto* node = new TiXmlText(text.c_str());
  element->LinkEndChild(node);
  return node;
}

}  // namespace postwright
