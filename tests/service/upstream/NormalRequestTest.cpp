#include "service/gateway/NormalRequest.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "service/protocol/VerifyReply.h"
#include "tests/postal/ShippedZips.h"

namespace postwright::service {
namespace {

RequestAddress Address(const char* address1, const std::string& address2, const char* city,
                       const char* state, const char* zip5, const char* zip4 = "") {
  RequestAddress address;
  address.id = "7";
  address.address1 = address1;
  address.address2 = address2;
  address.city = city;
  address.state = state;
  address.zip5 = zip5;
  address.zip4 = zip4;
  return address;
}

std::string Show(const RequestAddress& asked) {
  const auto normal = NormaliseRequest(asked, postal::ShippedZips());
  if (const auto* rejection = std::get_if<postal::Rejection>(&normal)) {
    return std::string(VerifyReply::NumberOf(*rejection));
  }
  std::string key = KeyOf(std::get<NormalRequest>(normal).address);
  std::replace(key.begin(), key.end(), '\x1F', '|');
  return key;
}

TEST(NormalRequestTest, BringsWritingsOfOneAddressTogether) {
  const std::string key = "||12 MAIN ST APT 4|AUSTIN|TX||78701|1234|";
  const struct {
    const char* name;
    RequestAddress asked;
    std::string result;
  } rows[] = {
      {"as it is sent", Address("", "12 MAIN ST APT 4", "AUSTIN", "TX", "78701", "1234"), key},
      {"case, blanks, punctuation",
       Address("", " 12  main St., apt\t4 ", "austin ", "Texas", "78701", "1234"), key},
      {"the line in Address1 alone", Address("12 Main St Apt 4", "", "Austin", "tx", "78701-1234"),
       key},
      {"nine digits", Address("", "12 Main St Apt 4", "Austin", "", "787011234"), key},
      {"cut again by the ZIP code's city",
       Address("", "3867 HILL AVE GLN", "BURNIE", "MD", "21060"),
       "||3867 HILL AVE|GLEN BURNIE|MD||21060||"},
      {"lines that are not the address's",
       Address("", "JANE DOE\nPSC 1 BOX 2", "APO", "AE", "09096"), "||PSC 1 BOX 2|APO|AE||09096||"},
      {"half an add-on", Address("", "12 A ST", "Austin", "TX", "78701", "12"),
       "||12 A ST|AUSTIN|TX||78701||"},
      {"the state follows from the ZIP", Address("", "12 A ST", "", "", "02134"),
       "||12 A ST||MA||02134||"},
      {"half a ZIP is none where the city is there", Address("", "12 A ST", "Hull", "MA", "204"),
       "||12 A ST|HULL|MA||||"},
      {"accents, signs",
       Address("Stw \xC2\xBD",
               "12 Pe\xC3\xB1"
               "a St #4",
               "O'Fallon", "IL", ""),
       "|STW 1/2|12 PENA ST # 4|O FALLON|IL||||"},
      {"no line", Address("", " ", "Austin", "TX", "78701"), "-2147219396"},
      {"no Latin letters", Address("", "12 \xD0\x9C ST", "Austin", "TX", "78701"), "-2147219396"},
      {"too long", Address("", std::string(201, 'a'), "Austin", "TX", ""), "-2147219396"},
      {"too long once & is AND", Address("", "12 " + std::string(190, '&'), "Austin", "TX", ""),
       "-2147219396"},
      {"no such state", Address("", "12 A ST", "Toronto", "Ontario", "78701"), "-2147219402"},
      {"no state and no ZIP", Address("", "12 A ST", "Austin", "", ""), "-2147219402"},
      {"no state and an unknown ZIP", Address("", "12 A ST", "Austin", "", "00000"), "-2147219399"},
      {"a state alone", Address("", "12 A ST", "", "TX", ""), "-2147219400"},
      {"a state and half a ZIP", Address("", "12 A ST", "", "TX", "7870"), "-2147219399"},
      {"a line alone", Address("", "12 A ST", "", "", ""), "-2147219396"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Show(row.asked), row.result) << row.name;
  }
  RequestAddress cut = Address("", "12 MAIN ST", "AUSTIN", "TX", "");
  cut.cutShort = true;
  EXPECT_EQ(Show(cut), "-2147219396");
  RequestAddress firm = Address("", "12 A ST", "AUSTIN", "TX", "");
  firm.firmName = "  Smith  & Sons,  Inc. ";
  EXPECT_EQ(Show(firm), "SMITH & SONS, INC.||12 A ST|AUSTIN|TX||||");
}

}  // namespace
}  // namespace postwright::service
