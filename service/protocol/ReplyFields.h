#ifndef POSTWRIGHT_SERVICE_PROTOCOL_REPLYFIELDS_H_
#define POSTWRIGHT_SERVICE_PROTOCOL_REPLYFIELDS_H_

#include <array>
#include <string>
#include <string_view>

namespace postwright::service {

// What is known of an address that could be placed. Every member has a row in kReplyFields.
struct ReplyFields {
  // What a default match says; clients compare it.
  static constexpr std::string_view kDefaultMatch =
      "Default address: The address you entered was found but more information is needed (such as "
      "an apartment, suite, or box number) to match to a specific address.";

  std::string firmName;
  std::string address1;
  std::string address2;
  std::string address2Abbreviation;  // where it differs
  std::string city;
  std::string cityAbbreviation;  // at most 13 letters, where the city has more and it is known
  std::string state;
  std::string urbanization;
  std::string zip5;
  std::string zip4;
  std::string deliveryPoint;    // two digits
  std::string returnText;       // kDefaultMatch, of both forms of the answer
  std::string carrierRoute;     // "C012"
  std::string footnotes;        // letters run together, "BN"
  std::string dpvConfirmation;  // Y, D, S or N
  std::string dpvCmra;          // Y or N, as the four others without a remark
  std::string dpvFalse;
  std::string dpvFootnotes;  // pairs run together, "AABB"
  std::string business;
  std::string centralDeliveryPoint;
  std::string vacant;

  bool operator==(const ReplyFields&) const = default;

  // Puts lines that are not part of the address, separated by line feeds, in front of the delivery
  // line: there is no other place where clients look for them.
  void PutAbove(const std::string& lines);
};

// When a document has a field.
enum class ReplyPresence {
  Always,      // also where it is empty: a client always finds it
  WhereKnown,  // where it is not empty
  LongForm,    // where it is not empty, in the form of <Revision>1</Revision> alone
};

// What is left of a field where nobody has confirmed the address.
enum class Unconfirmed { Stays, Unknown, No };

struct ReplyField {
  const char* element;
  std::string ReplyFields::*member;
  ReplyPresence presence;
  Unconfirmed unconfirmed;
};

// The order is the interface's own: clients were written against recorded replies.
inline constexpr auto kReplyFields = [] {
  using F = ReplyFields;
  using enum ReplyPresence;
  using enum Unconfirmed;
  // clang-format off
  return std::to_array<ReplyField>({
      {"FirmName", &F::firmName, WhereKnown, Stays},
      {"Address1", &F::address1, WhereKnown, Stays},
      {"Address2", &F::address2, Always, Stays},
      {"Address2Abbreviation", &F::address2Abbreviation, LongForm, Stays},
      {"City", &F::city, Always, Stays},
      {"CityAbbreviation", &F::cityAbbreviation, LongForm, Stays},
      {"State", &F::state, Always, Stays},
      {"Urbanization", &F::urbanization, WhereKnown, Stays},
      {"Zip5", &F::zip5, Always, Stays},
      {"Zip4", &F::zip4, Always, Stays},
      {"DeliveryPoint", &F::deliveryPoint, LongForm, Unknown},
      {"ReturnText", &F::returnText, WhereKnown, Unknown},
      {"CarrierRoute", &F::carrierRoute, LongForm, Unknown},
      {"Footnotes", &F::footnotes, LongForm, Stays},
      {"DPVConfirmation", &F::dpvConfirmation, LongForm, No},
      {"DPVCMRA", &F::dpvCmra, LongForm, Unknown},
      {"DPVFalse", &F::dpvFalse, LongForm, No},
      {"DPVFootnotes", &F::dpvFootnotes, LongForm, Unknown},
      {"Business", &F::business, LongForm, Unknown},
      {"CentralDeliveryPoint", &F::centralDeliveryPoint, LongForm, No},
      {"Vacant", &F::vacant, LongForm, Unknown},
  });
  // clang-format on
}();

// A field without a row would be lost on its way to a client or through the cache, unseen.
static_assert(sizeof(ReplyFields) == kReplyFields.size() * sizeof(std::string));

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PROTOCOL_REPLYFIELDS_H_
