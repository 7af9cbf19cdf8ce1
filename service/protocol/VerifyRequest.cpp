#include "service/protocol/VerifyRequest.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <new>
#include <random>

#include "service/text/Encoding.h"

namespace postwright::service {
namespace {

struct FieldRow {
  std::string_view element;
  std::string RequestAddress::*field;
};

constexpr FieldRow kFields[] = {
    {"FirmName", &RequestAddress::firmName}, {"Address1", &RequestAddress::address1},
    {"Address2", &RequestAddress::address2}, {"City", &RequestAddress::city},
    {"State", &RequestAddress::state},       {"Urbanization", &RequestAddress::urbanization},
    {"Zip5", &RequestAddress::zip5},         {"Zip4", &RequestAddress::zip4},
};

std::optional<std::string> Attribute(const XML_Char** attributes, std::string_view name) {
  for (; *attributes != nullptr; attributes += 2) {
    if (name == attributes[0]) {
      return std::string(attributes[1]);
    }
  }
  return std::nullopt;
}

// What keeps a client from choosing names that share a hash. Once for the process: the parser would
// ask the system for one with every document.
unsigned long HashSalt() {
  static const unsigned long salt = [] {
    std::random_device random;
    return (static_cast<unsigned long>(random()) << 32U) | random() | 1U;  // 0 stands for none
  }();
  return salt;
}

// The elements of one document, as the parser meets them.
class Reader {
 public:
  std::variant<VerifyRequest, RequestFault> Read(std::string_view document) {
    if (document.size() > VerifyRequest::kLongestDocument) {
      return RequestFault::Syntax;
    }
    document.remove_prefix(std::min(document.find_first_not_of(" \t\r\n"), document.size()));
    const bool utf16 = document.starts_with("\xFE\xFF") || document.starts_with("\xFF\xFE");
    const std::string text = utf16 ? std::string(document) : DecodeText(document);
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(
        XML_ParserCreate(utf16 ? nullptr : "UTF-8"), XML_ParserFree);
    if (!parser) {
      throw std::bad_alloc();
    }
    parser_ = parser.get();
    XML_SetHashSalt(parser_, HashSalt());
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, &Reader::OnStart, &Reader::OnEnd);
    XML_SetCharacterDataHandler(parser_, &Reader::OnText);
    XML_SetStartDoctypeDeclHandler(parser_, &Reader::OnDoctype);
    const bool whole =
        XML_Parse(parser_, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK;
    if (!fault_ && !whole && !(IsCut(XML_GetErrorCode(parser_)) && !request_.addresses.empty())) {
      fault_ = RequestFault::Syntax;
    }
    if (!fault_ && request_.userId.empty()) {
      fault_ = RequestFault::NoUser;
    }
    if (fault_) {
      return *fault_;
    }
    if (address_ != nullptr) {
      address_->cutShort = true;
    }
    return std::move(request_);
  }

 private:
  static bool IsCut(XML_Error error) {
    return error == XML_ERROR_NO_ELEMENTS || error == XML_ERROR_UNCLOSED_TOKEN ||
           error == XML_ERROR_PARTIAL_CHAR || error == XML_ERROR_UNCLOSED_CDATA_SECTION;
  }

  static void OnStart(void* self, const XML_Char* name, const XML_Char** attributes) {
    static_cast<Reader*>(self)->Start(name, attributes);
  }
  static void OnEnd(void* self, const XML_Char*) { static_cast<Reader*>(self)->End(); }
  static void OnText(void* self, const XML_Char* text, int length) {
    static_cast<Reader*>(self)->Text({text, static_cast<size_t>(length)});
  }
  static void OnDoctype(void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
    static_cast<Reader*>(self)->Stop(RequestFault::Syntax);
  }

  void Start(std::string_view name, const XML_Char** attributes) {
    ++depth_;
    if (depth_ > VerifyRequest::kDeepestElement) {
      Stop(RequestFault::Syntax);
    } else if (depth_ == 1) {
      if (name != "AddressValidateRequest") {
        Stop(RequestFault::Syntax);
      }
      request_.userId = Attribute(attributes, "USERID").value_or("");
    } else if (depth_ == 2 && name == "Address") {
      StartAddress(attributes);
    } else if (depth_ == 2 && name == "Revision") {
      text_ = &revision_;
    } else if (depth_ == 3 && address_ != nullptr) {
      StartField(name);
    }
  }

  void StartAddress(const XML_Char** attributes) {
    if (request_.addresses.size() == VerifyRequest::kMostAddresses) {
      Stop(RequestFault::TooManyAddresses);
      return;
    }
    address_ = &request_.addresses.emplace_back();
    address_->id = Attribute(attributes, "ID");
  }

  // Of an element that stands there twice the first one with a text counts.
  void StartField(std::string_view name) {
    for (const FieldRow& row : kFields) {
      if (row.element == name && (address_->*row.field).empty()) {
        text_ = &(address_->*row.field);
      }
    }
  }

  void Text(std::string_view text) {
    if (text_ != nullptr && text_->size() <= VerifyRequest::kLongestField) {
      text_->append(text.substr(0, VerifyRequest::kLongestField + 1 - text_->size()));
    }
  }

  void End() {
    if (depth_ == 2) {
      address_ = nullptr;
      request_.revision1 = revision_ == "1";
    }
    text_ = depth_ > 3 ? text_ : nullptr;
    --depth_;
  }

  void Stop(RequestFault fault) {
    if (!fault_) {
      fault_ = fault;
    }
    XML_StopParser(parser_, XML_FALSE);
  }

  XML_Parser parser_ = nullptr;
  VerifyRequest request_;
  RequestAddress* address_ = nullptr;  // the one that the parser is in
  std::string* text_ = nullptr;        // where text goes
  std::string revision_;
  size_t depth_ = 0;
  std::optional<RequestFault> fault_;
};

}  // namespace

std::variant<VerifyRequest, RequestFault> VerifyRequest::Read(std::string_view document) {
  return Reader().Read(document);
}

}  // namespace postwright::service
