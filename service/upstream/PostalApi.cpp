#include "service/upstream/PostalApi.h"

#include <algorithm>

#include "common/AsciiText.h"
#include "common/SmallText.h"
#include "postal/places/CityName.h"
#include "service/upstream/Json.h"

namespace postwright::service {
namespace {

using nlohmann::json;

constexpr int kOk = 200;
constexpr size_t kLongestFirm = 50;    // of a query
constexpr size_t kLongestValue = 100;  // of a reply; the API's own limits are below it
constexpr size_t kLongestPrintedCity = 13;

struct RejectionRow {
  std::string_view text;
  postal::Rejection rejection;
};

// The codes of an error. The same six are the reasons of the Verify interface, in another order.
constexpr RejectionRow kErrorCodes[] = {
    {"010001", postal::Rejection::InvalidAddress}, {"010002", postal::Rejection::InvalidZip},
    {"010003", postal::Rejection::InvalidState},   {"010004", postal::Rejection::InvalidCity},
    {"010005", postal::Rejection::NotFound},       {"010006", postal::Rejection::Multiple},
};

// The codes given with an address: those of the API's matching software.
constexpr RejectionRow kMatchCodes[] = {
    {"10", postal::Rejection::InvalidAddress}, {"11", postal::Rejection::InvalidZip},
    {"12", postal::Rejection::InvalidState},   {"13", postal::Rejection::InvalidCity},
    {"21", postal::Rejection::NotFound},       {"22", postal::Rejection::Multiple},
};
constexpr std::string_view kDefaultMatchCode = "32";

// Parts of an error's text in upper case: the one family says them with codes, the other without.
constexpr RejectionRow kErrorTexts[] = {
    {"MULTIPLE ADDRESSES WERE FOUND", postal::Rejection::Multiple},
    {"MORE THAN ONE ADDRESS WAS FOUND", postal::Rejection::Multiple},
    {"ADDRESS NOT FOUND", postal::Rejection::NotFound},
    {"NO MATCH FOR THE ADDRESS", postal::Rejection::NotFound},
    {"INVALID ZIP", postal::Rejection::InvalidZip},
    {"INVALID STATE", postal::Rejection::InvalidState},
    {"STATE CODE IN THE REQUEST IS MISSING OR INVALID", postal::Rejection::InvalidState},
    {"INVALID CITY", postal::Rejection::InvalidCity},
    {"CITY IN THE REQUEST IS MISSING OR INVALID", postal::Rejection::InvalidCity},
    {"CITY AND STATE ARE MISSING OR TOGETHER UNVERIFIABLE", postal::Rejection::InvalidCity},
    {"INVALID ADDRESS", postal::Rejection::InvalidAddress},
    {"INSUFFICIENT TO MATCH", postal::Rejection::InvalidAddress},
    {"INVALID DELIVERY ADDRESS", postal::Rejection::InvalidAddress},
};

template <size_t size>
std::optional<postal::Rejection> FindCode(const RejectionRow (&rows)[size], std::string_view code) {
  for (const RejectionRow& row : rows) {
    if (row.text == code) {
      return row.rejection;
    }
  }
  return std::nullopt;
}

// A text of a reply as an address is written; empty where there is none.
std::string Value(const json& object, const char* key) {
  const std::string folded = FoldToAscii(JsonText(object, key)).value_or("");
  return std::string(Trim(std::string_view(folded).substr(0, kLongestValue)));
}

// A letter of a reply that may be one of `allowed`.
std::string Letter(const json& object, const char* key, std::string_view allowed) {
  const std::string value = Value(object, key);
  return value.size() == 1 && allowed.find(value) != std::string_view::npos ? value : "";
}

bool HasCode(const json& reply, std::string_view code) {
  for (const char* list : {"corrections", "matches"}) {
    for (const json& entry : JsonMember(reply, list)) {
      if (JsonText(entry, "code") == code) {
        return true;
      }
    }
  }
  return false;
}

// The API gives the abbreviation as the city too. The ZIP list's name is taken where it
// abbreviates to what the API said, and only then: it may be another of the names that a ZIP code
// has.
void RestoreCity(ReplyFields& fields, const postal::ZipList& base) {
  const postal::ZipList::City* const known = base.FindZip(fields.zip5);
  if (fields.city.empty() || fields.city == fields.cityAbbreviation) {
    fields.city = fields.cityAbbreviation;
    if (known != nullptr && known->name.size() > kLongestPrintedCity && !fields.city.empty()) {
      const postal::CityFit fit = postal::CompareCity(fields.city, known->name);
      if (fit == postal::CityFit::Abbreviation || fit == postal::CityFit::Same) {
        fields.city = known->name;
      }
    }
  }
  if (fields.cityAbbreviation == fields.city) {
    fields.cityAbbreviation.clear();
  }
}

// What the API does not say any more and what follows from what it says: of a match that is
// confirmed, or short of its unit, or with a wrong one, there is one footnote each; a number that
// is not confirmed has many possible ones.
std::string_view DpvFootnotes(std::string_view confirmation) {
  return confirmation == "Y"   ? "AABB"
         : confirmation == "D" ? "AAN1"
         : confirmation == "S" ? "AACC"
                               : "";
}

void ReadConfirmation(const json& reply, ReplyFields& fields) {
  const json& info = JsonMember(reply, "additionalInfo");
  fields.carrierRoute = Value(info, "carrierRoute");
  fields.dpvConfirmation = Letter(info, "DPVConfirmation", "YDSN");
  fields.dpvFootnotes = DpvFootnotes(fields.dpvConfirmation);
  fields.centralDeliveryPoint = Letter(info, "centralDeliveryPoint", "YN");
  if (fields.dpvConfirmation == "N") {
    fields.dpvFalse = 'N';
    return;
  }
  fields.deliveryPoint = Value(info, "deliveryPoint");
  fields.dpvCmra = Letter(info, "DPVCMRA", "YN");
  fields.business = Letter(info, "business", "YN");
  fields.vacant = Letter(info, "vacant", "YN");
  if (fields.dpvConfirmation == "D" || HasCode(reply, kDefaultMatchCode)) {
    fields.returnText = ReplyFields::kDefaultMatch;
  }
}

bool IsPlaced(const ReplyFields& fields) {
  return fields.state.size() == 2 && AllLetters(fields.state) && fields.zip5.size() == 5 &&
         AllDigits(fields.zip5) &&
         (fields.zip4.empty() || (fields.zip4.size() == 4 && AllDigits(fields.zip4)));
}

UpstreamAnswer ReadAddress(const json& reply, const RequestAddress& asked,
                           const postal::ZipList& base) {
  for (const RejectionRow& row : kMatchCodes) {
    if (HasCode(reply, row.text)) {
      return row.rejection;
    }
  }
  const json& address = JsonMember(reply, "address");
  ReplyFields fields;
  fields.address1 = Value(address, "secondaryAddress");
  fields.address2 = Value(address, "streetAddress");
  fields.address2Abbreviation = Value(address, "streetAddressAbbreviation");
  fields.city = Value(address, "city");
  fields.cityAbbreviation = Value(address, "cityAbbreviation");
  fields.state = Value(address, "state");
  fields.urbanization = Value(address, "urbanization");
  fields.zip5 = Value(address, "ZIPCode");
  fields.zip4 = Value(address, "ZIPPlus4");
  if (fields.address2Abbreviation == fields.address2) {
    fields.address2Abbreviation.clear();
  }
  RestoreCity(fields, base);
  if (fields.address2.empty() || fields.city.empty() || !IsPlaced(fields)) {
    return UpstreamFault{FaultKind::BadReply, {}, "the reply holds no whole address"};
  }
  // A firm that was not asked for must not get into a label.
  if (!asked.firmName.empty()) {
    const std::string firm = Value(reply, "firm");
    fields.firmName = firm.empty() ? asked.firmName : firm;
  }
  ReadConfirmation(reply, fields);
  return fields;
}

UpstreamAnswer ReadCity(const json& reply, const RequestAddress& asked) {
  ReplyFields fields;
  fields.city = Value(reply, "city");
  fields.state = Value(reply, "state");
  fields.zip5 = asked.zip5;
  if (fields.city.empty() || !IsPlaced(fields)) {
    return UpstreamFault{FaultKind::BadReply, {}, "the reply holds no city"};
  }
  return fields;
}

// Every text of an error in which a reason may be told, in upper case.
std::string TextsOf(const json& error) {
  std::string texts = JsonText(error, "message");
  for (const json& entry : JsonMember(error, "errors")) {
    for (const char* key : {"title", "detail", "text"}) {
      texts += '\n' + JsonText(entry, key);
    }
  }
  std::transform(texts.begin(), texts.end(), texts.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return texts;
}

// The validator in front of the API speaks of our query, not of the address: what it takes has
// changed.
bool IsOfValidator(std::string_view texts) {
  return texts.find("OASVALIDATION") != std::string_view::npos ||
         texts.find("OPENAPI_VALIDATION_ERROR") != std::string_view::npos;
}

std::optional<postal::Rejection> ReasonByCode(const json& error) {
  std::optional<postal::Rejection> reason = FindCode(kErrorCodes, JsonText(error, "code"));
  for (const json& entry : JsonMember(error, "errors")) {
    reason = reason ? reason : FindCode(kErrorCodes, JsonText(entry, "code"));
  }
  return reason;
}

std::optional<postal::Rejection> ReasonByText(std::string_view texts) {
  for (const RejectionRow& row : kErrorTexts) {
    if (texts.find(row.text) != std::string_view::npos) {
      return row.rejection;
    }
  }
  return std::nullopt;
}

// The code decides, then the text, then the status, and the status alone only where the error is
// the API's own: a proxy's or another host's says nothing about an address.
UpstreamAnswer ReadError(const HttpAnswer& answer, const json& reply) {
  constexpr int kBadRequest = 400;
  constexpr int kNotFound = 404;
  const json& error = JsonMember(reply, "error");
  UpstreamFault fault = FaultOfStatus(answer);
  if (const auto reason = ReasonByCode(error)) {
    return *reason;
  }
  const bool isOfCaller = fault.kind == FaultKind::Refused || fault.kind == FaultKind::BadReply;
  if (!error.is_object() || !isOfCaller) {
    return fault;
  }
  const std::string texts = TextsOf(error);
  if (IsOfValidator(texts)) {
    fault.detail += " from the API's validator";
    return fault;
  }
  if (const auto reason = ReasonByText(texts)) {
    return *reason;
  }
  return answer.status == kBadRequest ? UpstreamAnswer(postal::Rejection::InvalidAddress)
         : answer.status == kNotFound ? UpstreamAnswer(postal::Rejection::NotFound)
                                      : UpstreamAnswer(fault);
}

void AppendParameter(std::string& query, std::string_view name, const std::string& value) {
  if (!value.empty()) {
    query.append(query.empty() ? "" : "&").append(name).append("=").append(EscapeQuery(value));
  }
}

}  // namespace

std::string PostalApi::ResourceFor(const RequestAddress& normal) {
  std::string query;
  if (normal.call == AddressCall::City) {
    AppendParameter(query, "ZIPCode", normal.zip5);
    return "city-state?" + query;
  }
  AppendParameter(query, "firm", normal.firmName.size() > kLongestFirm ? "" : normal.firmName);
  AppendParameter(query, "streetAddress", normal.address2);
  AppendParameter(query, "secondaryAddress", normal.address1);
  AppendParameter(query, "city", normal.city);
  AppendParameter(query, "state", normal.state);
  AppendParameter(query, "urbanization", normal.urbanization);
  AppendParameter(query, "ZIPCode", normal.zip5);
  AppendParameter(query, "ZIPPlus4", normal.zip4);
  const bool isOfZip = normal.call == AddressCall::ZipCode && !normal.city.empty();
  return (isOfZip ? "zipcode?" : "address?") + query;
}

UpstreamAnswer PostalApi::Read(const HttpAnswer& answer, const RequestAddress& normal,
                               const postal::ZipList& base) {
  const std::optional<json> reply = ParseJsonObject(answer.body);
  if (answer.status == kOk && reply && !reply->contains("error")) {
    return normal.call == AddressCall::City ? ReadCity(*reply, normal)
                                            : ReadAddress(*reply, normal, base);
  }
  if (answer.status == kOk && !reply) {
    return UpstreamFault{FaultKind::BadReply, {}, "the reply is not JSON"};
  }
  UpstreamAnswer error = ReadError(answer, reply.value_or(json::object()));
  const bool isOfZip =
      normal.call == AddressCall::City && std::holds_alternative<postal::Rejection>(error);
  return isOfZip ? postal::Rejection::InvalidZip : error;
}

}  // namespace postwright::service
