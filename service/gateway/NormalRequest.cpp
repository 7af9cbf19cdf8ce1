#include "service/gateway/NormalRequest.h"

#include <algorithm>
#include <utility>

#include "common/AsciiText.h"
#include "postal/cut/LineCutter.h"
#include "postal/places/CityName.h"
#include "postal/words/Lexicon.h"

namespace postwright::service {
namespace {

// Folds every field. Returns false where one cannot be.
bool Fold(RequestAddress& address) {
  return std::all_of(std::begin(kRequestFields), std::end(kRequestFields), [&](const auto& field) {
    std::optional<std::string> folded = FoldField(address.*field.member);
    const bool isFolded = folded.has_value();
    address.*field.member = std::move(folded).value_or("");
    return isFolded;
  });
}

// Says whether a field has grown past what can be asked for, as & becomes AND.
bool HasGrown(const RequestAddress& address) {
  return std::any_of(std::begin(kRequestFields), std::end(kRequestFields), [&](const auto& field) {
    return (address.*field.member).size() > VerifyRequest::kLongestField;
  });
}

// Takes Zip5 and Zip4 apart again where one field holds both, and drops what is not whole.
void SplitZip(RequestAddress& address) {
  address.zip4 = address.AddOn();
  address.zip5 = address.Zip();
}

// Finds the state and says what is missing of the last line, where something is.
std::optional<postal::Rejection> CompleteLastLine(RequestAddress& address,
                                                  const postal::ZipList& zips) {
  const bool isZipGiven = !address.zip5.empty();
  const bool isStateGiven = !address.state.empty();
  address.state = postal::Lexicon::Get().State(address.state);
  SplitZip(address);
  if (isStateGiven && address.state.empty()) {
    return postal::Rejection::InvalidState;
  }
  if (!isStateGiven && !address.zip5.empty()) {
    const postal::ZipList::City* const city = zips.FindZip(address.zip5);
    address.state = city != nullptr ? city->state : "";
  }
  if (address.state.empty()) {
    return isZipGiven              ? postal::Rejection::InvalidZip
           : !address.city.empty() ? postal::Rejection::InvalidState
                                   : postal::Rejection::InvalidAddress;
  }
  if (address.city.empty() && address.zip5.empty()) {
    return isZipGiven ? postal::Rejection::InvalidZip : postal::Rejection::InvalidCity;
  }
  return std::nullopt;
}

// Of a ZIP code whose city is asked for there is nothing else.
std::variant<NormalRequest, postal::Rejection> NormaliseZip(const RequestAddress& asked) {
  NormalRequest normal;
  normal.address.call = asked.call;
  normal.address.zip5 = asked.Zip();
  if (normal.address.zip5.empty() || asked.cutShort) {
    return postal::Rejection::InvalidZip;
  }
  return normal;
}

}  // namespace

std::variant<NormalRequest, postal::Rejection> NormaliseRequest(const RequestAddress& asked,
                                                                const postal::ZipList& zips) {
  if (asked.call == AddressCall::City) {
    return NormaliseZip(asked);
  }
  NormalRequest normal{asked, {}};
  RequestAddress& address = normal.address;
  address.id.reset();
  if (asked.cutShort || !Fold(address)) {
    return postal::Rejection::InvalidAddress;
  }
  auto cut = postal::LineCutter(zips, nullptr)
                 .Cut({asked.address1, asked.address2, asked.city, asked.state, asked.zip5});
  if (!cut) {
    return postal::Rejection::InvalidAddress;
  }
  normal.above = std::move(cut->above);
  address.address2 = FoldToAscii(cut->address2).value_or("");
  address.city = FoldToAscii(cut->city).value_or("");
  address.firmName = SingleBlanks(address.firmName);
  address.address1 = TidyLine(address.address1);
  address.address2 = TidyLine(address.address2);
  address.city = postal::StandardCity(address.city);
  address.state = TidyLine(address.state);
  address.urbanization = TidyLine(address.urbanization);
  if (address.address2.empty()) {
    std::swap(address.address1, address.address2);
  }
  if (address.address2.empty() || HasGrown(address)) {
    return postal::Rejection::InvalidAddress;
  }
  if (const auto rejection = CompleteLastLine(address, zips)) {
    return *rejection;
  }
  return normal;
}

std::string KeyOf(const RequestAddress& normal) {
  constexpr char kSeparator = '\x1F';  // in no folded text
  std::string key;
  for (const RequestField& field : kRequestFields) {
    key += normal.*field.member;
    key += kSeparator;
  }
  if (normal.candidates > 0) {
    key += "candidates";
  }
  if (normal.call != AddressCall::Verify) {
    key += WordsOf(normal.call).api;
  }
  return key;
}

}  // namespace postwright::service
