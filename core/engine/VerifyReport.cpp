#include <postwright/VerifyReport.h>

#include "common/SmallText.h"
#include "core/engine/ReplyDocument.h"

#include <tinyxml.h>

#include <cstring>

namespace postwright {

namespace {

// The text of the first child of that name.
std::string ChildText(const TiXmlElement& parent, const char* name) {
  const TiXmlElement* const child = parent.FirstChildElement(name);
  const char* const text = child == nullptr ? nullptr : child->GetText();
  return std::string(Trim(text == nullptr ? "" : text));
}

}  // namespace

VerifyReport::VerifyReport(std::string_view reply, const FetchReport& fetch) : fetch_(fetch) {
  TiXmlDocument document;
  const TiXmlElement* const root =
      ParseReply(std::string(reply), &document) ? nullptr : document.RootElement();
  if (root == nullptr) {
    return;
  }
  const TiXmlElement* const address = root->FirstChildElement("Address");
  const TiXmlElement* const error = address != nullptr ? address->FirstChildElement("Error")
                                    : std::strcmp(root->Value(), "Error") == 0 ? root
                                                                               : nullptr;
  isAboutAddress_ = address != nullptr;
  isAnswer_ = address != nullptr || error != nullptr;
  if (error != nullptr) {
    errorNumber_ = ChildText(*error, "Number");
    errorSource_ = ChildText(*error, "Source");
    errorDescription_ = ChildText(*error, "Description");
  } else if (address != nullptr) {
    dpvConfirmation_ = ChildText(*address, "DPVConfirmation");
    dpvFootnotes_ = ChildText(*address, "DPVFootnotes");
    footnotes_ = ChildText(*address, "Footnotes");
    returnText_ = ChildText(*address, "ReturnText");
    zip4_ = ChildText(*address, "Zip4");
    carrierRoute_ = ChildText(*address, "CarrierRoute");
    deliveryPoint_ = ChildText(*address, "DeliveryPoint");
  }
}

}  // namespace postwright
