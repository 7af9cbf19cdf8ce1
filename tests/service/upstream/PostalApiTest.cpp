#include "service/upstream/PostalApi.h"

#include <gtest/gtest.h>

#include "service/upstream/VerifyXml.h"
#include "tests/postal/ShippedZips.h"
#include "tests/service/upstream/PostalStandIn.h"

namespace postwright::service {
namespace {

// The elements of an address in a client's reply, or the kind of a fault.
std::string Show(const UpstreamAnswer& answer) {
  if (const auto* fault = std::get_if<UpstreamFault>(&answer)) {
    return std::string(NameOf(fault->kind));
  }
  if (const auto* rejection = std::get_if<postal::Rejection>(&answer)) {
    return std::string(VerifyReply::NumberOf(*rejection));
  }
  const std::string xml =
      VerifyReply::Compose({{std::nullopt, std::get<ReplyFields>(answer)}}, {.isLong = true});
  const size_t begin = xml.find("<Address>") + 9;
  return xml.substr(begin, xml.rfind("</Address>") - begin);
}

struct AnswerCase {
  const char* name;
  std::string address;  // members of "address" in JSON
  std::string info;     // members of "additionalInfo"
  std::string more;     // further members of the reply
  std::string elements;
};

const std::string kPlace = R"(,"city":"SPRINGFIELD","state":"IL","ZIPCode":"62701")";
const std::string kPlaceElements = "<City>SPRINGFIELD</City><State>IL</State><Zip5>62701</Zip5>";
const std::string kYes = R"("deliveryPoint":"11","carrierRoute":"C003","DPVConfirmation":"Y",)"
                         R"("DPVCMRA":"N","business":"Y","centralDeliveryPoint":"N","vacant":"N")";
const std::string kDefault =
    "<ReturnText>Default address: The address you entered was found but more information is needed "
    "(such as an apartment, suite, or box number) to match to a specific address.</ReturnText>";

const AnswerCase kAnswers[] = {
    {"a clean hit",
     R"("streetAddress":"111 E MONROE ST","secondaryAddress":"","ZIPPlus4":"1103")" + kPlace, kYes,
     R"("corrections":[{"code":"","text":""}],"matches":[{"code":"31","text":null}])",
     "<Address2>111 E MONROE ST</Address2>" + kPlaceElements +
         "<Zip4>1103</Zip4><DeliveryPoint>11</DeliveryPoint><CarrierRoute>C003</CarrierRoute>"
         "<DPVConfirmation>Y</DPVConfirmation><DPVCMRA>N</DPVCMRA><DPVFootnotes>AABB</DPVFootnotes>"
         "<Business>Y</Business><CentralDeliveryPoint>N</CentralDeliveryPoint><Vacant>N</Vacant>"},
    {"lower case, a unit, a firm, an abbreviation",
     R"("streetAddress":"1 Long Winding Street","streetAddressAbbreviation":"1 LNG WNDNG ST",)"
     R"("secondaryAddress":"Ste 4","ZIPPlus4":"1103")" +
         kPlace,
     R"("DPVConfirmation":"S","DPVCMRA":null,"business":true)", R"("firm":"Smith & Sons")",
     "<FirmName>SMITH &amp; SONS</FirmName><Address1>STE 4</Address1>"
     "<Address2>1 LONG WINDING STREET</Address2>"
     "<Address2Abbreviation>1 LNG WNDNG ST</Address2Abbreviation>" +
         kPlaceElements +
         "<Zip4>1103</Zip4><DPVConfirmation>S</DPVConfirmation><DPVFootnotes>AACC</DPVFootnotes>"},
    {"a default match by its confirmation",
     R"("streetAddress":"841 VALLEJO ST","ZIPPlus4":"1103")" + kPlace,
     R"("deliveryPoint":"99","DPVConfirmation":"D")", R"("firm":"")",
     "<FirmName>ASKED</FirmName><Address2>841 VALLEJO ST</Address2>" + kPlaceElements +
         "<Zip4>1103</Zip4><DeliveryPoint>99</DeliveryPoint>" + kDefault +
         "<DPVConfirmation>D</DPVConfirmation><DPVFootnotes>AAN1</DPVFootnotes>"},
    {"a default match by its code",
     R"("streetAddress":"841 VALLEJO ST","ZIPPlus4":"1103")" + kPlace, "",
     R"("corrections":[{"code":"32","text":"More information is needed"}])",
     "<Address2>841 VALLEJO ST</Address2>" + kPlaceElements + "<Zip4>1103</Zip4>" + kDefault},
    {"not confirmed: no delivery point, an empty Zip4",
     R"("streetAddress":"99 MAIN ST","ZIPPlus4":null,"urbanization":"URB LAS FLORES")" + kPlace,
     R"("deliveryPoint":"","carrierRoute":"C069","DPVConfirmation":"N","DPVCMRA":"N",)"
     R"("business":"N","centralDeliveryPoint":"N","vacant":"N")",
     "",
     "<Address2>99 MAIN ST</Address2><City>SPRINGFIELD</City><State>IL</State>"
     "<Urbanization>URB LAS FLORES</Urbanization><Zip5>62701</Zip5><Zip4/>"
     "<CarrierRoute>C069</CarrierRoute><DPVConfirmation>N</DPVConfirmation><DPVFalse>N</DPVFalse>"
     "<CentralDeliveryPoint>N</CentralDeliveryPoint>"},
    {"the city comes abbreviated, as letters left out",
     R"("streetAddress":"1300 3RD ST","city":"CORP CHRISTI","cityAbbreviation":"CORP CHRISTI",)"
     R"("state":"TX","ZIPCode":"78404","ZIPPlus4":"2208")",
     "", "",
     "<Address2>1300 3RD ST</Address2><City>CORPUS CHRISTI</City>"
     "<CityAbbreviation>CORP CHRISTI</CityAbbreviation><State>TX</State><Zip5>78404</Zip5>"
     "<Zip4>2208</Zip4>"},
    {"as the usual words, and alone",
     R"("streetAddress":"9 MAIN ST","cityAbbreviation":"E STROUDSBURG","state":"PA",)"
     R"("ZIPCode":"18302")",
     "", "",
     "<Address2>9 MAIN ST</Address2><City>EAST STROUDSBURG</City>"
     "<CityAbbreviation>E "
     "STROUDSBURG</CityAbbreviation><State>PA</State><Zip5>18302</Zip5><Zip4/>"},
    {"another name of a short one stays",
     R"("streetAddress":"9 MAIN ST","city":"ROCKVILLE","cityAbbreviation":"ROCKVILLE",)"
     R"("state":"PA","ZIPCode":"18302")",
     "", "",
     "<Address2>9 MAIN ST</Address2><City>ROCKVILLE</City><State>PA</State><Zip5>18302</Zip5>"
     "<Zip4/>"},
    {"several addresses fit", R"("streetAddress":"12 MAIN ST")" + kPlace, "",
     R"("matches":[{"code":"22","text":"Multiple"}])", "-2147219403"},
    {"no street", R"("streetAddress":null)" + kPlace, kYes, "", "bad-reply"},
    {"half a ZIP code", R"("streetAddress":"1 A ST","city":"B","state":"TX","ZIPCode":787)", "", "",
     "bad-reply"},
};

TEST(PostalApiTest, ReadsAddresses) {
  for (const AnswerCase& row : kAnswers) {
    SCOPED_TRACE(row.name);
    RequestAddress asked;
    asked.firmName = row.more.find("firm") != std::string::npos ? "ASKED" : "";
    const std::string body = R"({"address":{)" + row.address + R"(},"additionalInfo":{)" +
                             row.info + "}" + (row.more.empty() ? "" : ",") + row.more + "}";
    EXPECT_EQ(Show(PostalApi::Read({200, body, {}}, asked, postal::ShippedZips())), row.elements);
  }
}

struct ErrorCase {
  int status;
  std::string body;
  const char* result;
};

std::string Coded(const std::string& code) {
  return PostalStandIn::Error(
      "400", "",
      R"({"status":"400","code":")" + code + R"(","title":"?","source":{"parameter":"city"}})");
}

std::string Told(const std::string& message) {
  return PostalStandIn::Error("404", message, "");
}

// The code decides, then the text of either family, then the status.
const ErrorCase kErrors[] = {
    {400, Coded("010001"), "-2147219396"},
    {400, Coded("010002"), "-2147219399"},
    {400, Coded("010003"), "-2147219402"},
    {400, Coded("010004"), "-2147219400"},
    {400, Coded("010005"), "-2147219401"},
    {400, Coded("010006"), "-2147219403"},
    {500, Coded("010005"), "-2147219401"},
    {404, Told("There is no match for the address requested."), "-2147219401"},
    {404, Told("The city in the request is missing or invalid."), "-2147219400"},
    {404, Told("The state code in the request is missing or invalid."), "-2147219402"},
    {400, Told("The city and state are missing or together unverifiable."), "-2147219400"},
    {404, Told("The address information in the request is insufficient to match."), "-2147219396"},
    {404, Told("The address requested is an invalid delivery address."), "-2147219396"},
    {404, Told("More than one address was found matching the requested address."), "-2147219403"},
    {400, PostalStandIn::Error("400", "", R"({"title":"Invalid ZIP Code","source":"API"})"),
     "-2147219399"},
    {400,
     PostalStandIn::Error("400", "x",
                          R"({"detail":"Multiple addresses were found for the )"
                          R"(information you entered, and no default exists."})"),
     "-2147219403"},
    {200, Told("Address Not Found"), "-2147219401"},
    {400, Told(""), "-2147219396"},
    {404, Told(""), "-2147219401"},
    {400,
     PostalStandIn::Error("400", "OASValidation ... Invalid City",
                          R"({"title":"openapi_validation_error","source":"API"})"),
     "refused"},
    {404, "<html>not found</html>", "refused"},
    {400, "", "refused"},
    {405, Told(""), "refused"},
    {401, Told("Missing or malformed access token."), "unauthorised"},
    {403, Told("The requested resource is forbidden"), "forbidden"},
    {429, Told("Too many requests for this address. Invalid address"), "quota"},
    {503, Told("Invalid Address"), "server-error"},
    {302, "", "bad-reply"},
    {200, "", "bad-reply"},
    {200, R"({"address":{"streetAddress":"1 A S)", "bad-reply"},
    {200, "[]", "bad-reply"},
    {200, R"({"address":"x","matches":"22","error":null})", "bad-reply"},
    {200, R"({"a":)" + std::string(20, '[') + std::string(20, ']') + "}", "bad-reply"},
    {200, std::string(100'000, '['), "bad-reply"},
    {200, "{\"address\":{\"streetAddress\":\"\xFF\"}}", "bad-reply"},
};

TEST(PostalApiTest, ReadsErrors) {
  for (const ErrorCase& row : kErrors) {
    EXPECT_EQ(Show(PostalApi::Read({row.status, row.body, {}}, {}, postal::ShippedZips())),
              row.result)
        << row.status << ' ' << row.body.substr(0, 200);
  }
}

TEST(PostalApiTest, LeavesOutWhatTheValidatorTurnsDown) {
  const RequestAddress sparse{{}, "", "", "12 A/B ST # 4", "", "TX", "", "78701", ""};
  EXPECT_EQ(PostalApi::ResourceFor(sparse),
            "address?streetAddress=12%20A%2FB%20ST%20%23%204&state=TX&ZIPCode=78701");
  RequestAddress full{{},   "A & B", "STE 1", "12 A/B ST # 4", "AUSTIN",
                      "TX", "URB A", "78701", "1234"};
  EXPECT_EQ(
      PostalApi::ResourceFor(full),
      "address?firm=A%20%26%20B&streetAddress=12%20A%2FB%20ST%20%23%204&secondaryAddress=STE%201"
      "&city=AUSTIN&state=TX&urbanization=URB%20A&ZIPCode=78701&ZIPPlus4=1234");
  full.firmName = std::string(51, 'A');
  EXPECT_TRUE(PostalApi::ResourceFor(full).starts_with("address?streetAddress"));
  full.call = AddressCall::ZipCode;
  EXPECT_TRUE(PostalApi::ResourceFor(full).starts_with("zipcode?streetAddress"));
  full.city.clear();
  EXPECT_TRUE(PostalApi::ResourceFor(full).starts_with("address?streetAddress"));
  full.call = AddressCall::City;
  EXPECT_EQ(PostalApi::ResourceFor(full), "city-state?ZIPCode=78701");
}

TEST(PostalApiTest, ReadsCities) {
  RequestAddress asked;
  asked.call = AddressCall::City;
  asked.zip5 = "78701";
  const struct {
    int status;
    const char* body;
    const char* result;
  } rows[] = {
      {200, R"({"city":"Austin","state":"TX","ZIPCode":"78701"})",
       "<Address2/><City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5><Zip4/>"},
      {200, R"({"city":"AUSTIN","state":"Texas"})", "bad-reply"},
      {200, R"({"state":"TX"})", "bad-reply"},
      {400, R"({"error":{"code":"400","message":"Bad Request"}})", "-2147219399"},
      {404, R"({"error":{"code":"010002"}})", "-2147219399"},
      {500, "{}", "server-error"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Show(PostalApi::Read({row.status, row.body, {}}, asked, postal::ShippedZips())),
              row.result)
        << row.body;
  }
}

const struct {
  const char* name;
  std::string document;
  const char* result;
} kReplies[] = {
    {"Latin-1, short form",
     "<AddressValidateResponse><Address ID=\"0\"><Address1>-</Address1><Address2>12 PE\xD1"
     "A ST</Address2><City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5><Zip4/></Address>"
     "</AddressValidateResponse>",
     "<Address2>12 PE\xC3\x91"
     "A ST</Address2><City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5><Zip4/>"},
    {"a rejection",
     "<AddressValidateResponse><Address><Error><Number>-2147219401</Number></Error></Address>"
     "</AddressValidateResponse>",
     "-2147219401"},
    {"a rejection of the partner's own",
     "<AddressValidateResponse><Address><Error><Number>7</Number></Error></Address>"
     "</AddressValidateResponse>",
     "-2147219396"},
    {"no authorisation", "<Error><Number>80040b1a</Number><Description/></Error>", "unauthorised"},
    {"no document to him", "<Error><Number>80040B19</Number></Error>", "refused"},
    {"something else", "<Error><Number>80040B18</Number></Error>", "server-error"},
    {"no address", "<AddressValidateResponse></AddressValidateResponse>", "bad-reply"},
    {"another document", "<html><body>Down for maintenance</body></html>", "bad-reply"},
    {"cut short", "<AddressValidateResponse><Address><Address2>12 MA", "bad-reply"},
    {"nothing", "", "bad-reply"},
    {"entities of its own", "<!DOCTYPE a [<!ENTITY b \"b\">]><Error>&b;</Error>", "bad-reply"},
};

TEST(VerifyXmlTest, ReadsReplies) {
  for (const auto& row : kReplies) {
    EXPECT_EQ(Show(VerifyXml::Read(row.document)), row.result) << row.name;
  }
}

}  // namespace
}  // namespace postwright::service
