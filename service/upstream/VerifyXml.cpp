#include "service/upstream/VerifyXml.h"

#include <expat.h>

#include <memory>
#include <new>

#include "service/text/Encoding.h"
#include "service/text/Xml.h"

namespace postwright::service {
namespace {

constexpr size_t kLongestDocument = 64 * 1024;
constexpr size_t kLongestValue = 400;  // ReturnText is the longest there is
constexpr size_t kLongestNumber = 11;
constexpr size_t kDeepestElement = 8;  // the interface has 4

struct FieldRow {
  std::string_view element;
  std::string ReplyFields::*field;
};

constexpr FieldRow kFields[] = {
    {"FirmName", &ReplyFields::firmName},
    {"Address1", &ReplyFields::address1},
    {"Address2", &ReplyFields::address2},
    {"Address2Abbreviation", &ReplyFields::address2Abbreviation},
    {"City", &ReplyFields::city},
    {"CityAbbreviation", &ReplyFields::cityAbbreviation},
    {"State", &ReplyFields::state},
    {"Urbanization", &ReplyFields::urbanization},
    {"Zip5", &ReplyFields::zip5},
    {"Zip4", &ReplyFields::zip4},
    {"DeliveryPoint", &ReplyFields::deliveryPoint},
    {"ReturnText", &ReplyFields::returnText},
    {"CarrierRoute", &ReplyFields::carrierRoute},
    {"Footnotes", &ReplyFields::footnotes},
    {"DPVConfirmation", &ReplyFields::dpvConfirmation},
    {"DPVCMRA", &ReplyFields::dpvCmra},
    {"DPVFalse", &ReplyFields::dpvFalse},
    {"DPVFootnotes", &ReplyFields::dpvFootnotes},
    {"Business", &ReplyFields::business},
    {"CentralDeliveryPoint", &ReplyFields::centralDeliveryPoint},
    {"Vacant", &ReplyFields::vacant},
};

constexpr Rejection kRejections[] = {
    Rejection::InvalidAddress, Rejection::InvalidZip, Rejection::InvalidState,
    Rejection::InvalidCity,    Rejection::NotFound,   Rejection::Multiple,
};

// The elements of one reply, as the parser meets them.
class Reader {
 public:
  UpstreamAnswer Read(std::string_view document) {
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate("UTF-8"),
                                                                         XML_ParserFree);
    if (!parser) {
      throw std::bad_alloc();
    }
    parser_ = parser.get();
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, &Reader::OnStart, &Reader::OnEnd);
    XML_SetCharacterDataHandler(parser_, &Reader::OnText);
    XML_SetStartDoctypeDeclHandler(parser_, &Reader::OnDoctype);
    const std::string text = DecodeText(document);
    if (document.size() > kLongestDocument ||
        XML_Parse(parser_, text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK) {
      return UpstreamFault{FaultKind::BadReply, {}, "the reply is not XML"};
    }
    return Conclude();
  }

 private:
  static void OnStart(void* self, const XML_Char* name, const XML_Char**) {
    static_cast<Reader*>(self)->Start(name);
  }
  static void OnEnd(void* self, const XML_Char*) { static_cast<Reader*>(self)->End(); }
  static void OnText(void* self, const XML_Char* text, int length) {
    static_cast<Reader*>(self)->Text({text, static_cast<size_t>(length)});
  }
  static void OnDoctype(void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
    XML_StopParser(static_cast<Reader*>(self)->parser_, XML_FALSE);
  }

  void Start(std::string_view name) {
    ++depth_;
    if (depth_ > kDeepestElement) {
      XML_StopParser(parser_, XML_FALSE);
    }
    isRootError_ = isRootError_ || (depth_ == 1 && name == "Error");
    addresses_ += depth_ == 2 && name == "Address" ? 1 : 0;
    isError_ = isError_ || (depth_ == 3 && name == "Error");
    text_ = nullptr;
    if (name == "Number" && depth_ == (isRootError_ ? 2U : 4U)) {
      text_ = &number_;
    }
    for (const FieldRow& row : kFields) {
      if (depth_ == 3 && addresses_ == 1 && row.element == name) {
        text_ = &(fields_.*row.field);
      }
    }
  }

  void End() {
    text_ = nullptr;
    --depth_;
  }

  void Text(std::string_view text) {
    if (text_ != nullptr && text_->size() < kLongestValue) {
      text_->append(text.substr(0, kLongestValue - text_->size()));
    }
  }

  UpstreamAnswer Conclude() {
    if (isRootError_) {
      return RootFault();
    }
    if (isError_) {
      for (const Rejection rejection : kRejections) {
        if (VerifyReply::NumberOf(rejection) == number_) {
          return rejection;
        }
      }
      return Rejection::InvalidAddress;  // of a kind that only the partner knows
    }
    if (fields_.address1 == "-") {
      fields_.address1.clear();
    }
    if (fields_.address2.empty() || fields_.city.empty() || fields_.state.empty() ||
        fields_.zip5.empty()) {
      return UpstreamFault{FaultKind::BadReply, {}, "the reply holds no whole address"};
    }
    return std::move(fields_);
  }

  UpstreamAnswer RootFault() const {
    const bool isOfUser = number_ == "80040B1A" || number_ == "80040b1a";
    const FaultKind kind = isOfUser                ? FaultKind::Unauthorised
                           : number_ == "80040B19" ? FaultKind::Refused
                                                   : FaultKind::ServerError;
    return UpstreamFault{kind, {}, "root error " + number_.substr(0, kLongestNumber)};
  }

  XML_Parser parser_ = nullptr;
  size_t depth_ = 0;
  size_t addresses_ = 0;
  bool isRootError_ = false;
  bool isError_ = false;
  std::string number_;
  ReplyFields fields_;
  std::string* text_ = nullptr;  // where text goes
};

}  // namespace

std::string VerifyXml::Compose(const RequestAddress& normal, std::string_view userId,
                               std::string_view password) {
  std::string xml = "<AddressValidateRequest USERID=\"" + EscapeXml(userId) + '"';
  if (!password.empty()) {
    xml += " PASSWORD=\"" + EscapeXml(password) + '"';
  }
  xml += "><Revision>1</Revision><Address ID=\"0\">";
  const std::pair<std::string_view, const std::string&> elements[] = {
      {"FirmName", normal.firmName}, {"Address1", normal.address1},
      {"Address2", normal.address2}, {"City", normal.city},
      {"State", normal.state},       {"Urbanization", normal.urbanization},
      {"Zip5", normal.zip5},         {"Zip4", normal.zip4},
  };
  for (const auto& [name, text] : elements) {
    AppendElement(xml, name, text);
  }
  return xml + "</Address></AddressValidateRequest>";
}

UpstreamAnswer VerifyXml::Read(std::string_view document) {
  return Reader().Read(document);
}

}  // namespace postwright::service
