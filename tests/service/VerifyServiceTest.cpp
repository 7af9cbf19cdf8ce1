#include "service/VerifyService.h"

#include <gtest/gtest.h>

#include "service/Verifier.h"
#include "tests/postal/ShippedZips.h"

namespace postwright::service {
namespace {

constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr const char* kNotConfirmed =
    "<DPVConfirmation>N</DPVConfirmation><DPVFalse>N</DPVFalse>"
    "<CentralDeliveryPoint>N</CentralDeliveryPoint>";
constexpr const char* kSyntax =
    "<Error><Number>80040B19</Number><Description>XML Syntax Error: Please check the XML request "
    "to "
    "see if it can be parsed.(B)</Description><Source>USPSCOM::DoAuth</Source></Error>";
constexpr const char* kNoUser =
    "<Error><Number>80040B1A</Number><Description>Authorization failure.  Perhaps username and/or "
    "password is incorrect.</Description><Source>USPSCOM::DoAuth</Source></Error>";

std::string Answer(const HttpRequest& request) {
  Verifier verifier(postal::ShippedZips());
  VerifyService service(verifier, nullptr, {"", false});
  HttpReply reply;
  service.Answer(request, [&](HttpReply answer) { reply = std::move(answer); });
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.contentType, "text/xml; charset=UTF-8");
  EXPECT_TRUE(reply.body.starts_with(kDeclaration)) << reply.body;
  return reply.body.substr(std::min(std::string(kDeclaration).size(), reply.body.size()));
}

// POST with the document as the body: nothing comes between the test's bytes and the reader.
std::string AnswerDocument(const std::string& document) {
  return Answer({"POST", "/ShippingAPI.dll", "API=Verify", document});
}

std::string Request(const std::string& content) {
  return "<AddressValidateRequest USERID=\"305KQVZ61948\">" + content + "</AddressValidateRequest>";
}

std::string Response(const std::string& content) {
  return "<AddressValidateResponse>" + content + "</AddressValidateResponse>";
}

// An element in an element in an element…
std::string Nested(int depth) {
  std::string nested;
  for (int i = 0; i < depth; ++i) {
    nested = "<a>" + nested + "</a>";
  }
  return nested;
}

std::string Utf16(const std::string& ascii) {
  std::string text = "\xFF\xFE";
  for (const char c : ascii) {
    text += {c, '\0'};
  }
  return text;
}

std::string Rejected(const std::string& number, const std::string& description) {
  return "<Error><Number>" + number + "</Number><Source>clsAMS</Source><Description>" +
         description + "</Description><HelpFile/><HelpContext/></Error>";
}

const std::string kMain = "<Address2>12 MAIN ST</Address2><City>AUSTIN</City><State>TX</State>";
const std::string kMainReply = kMain + "<Zip5>78701</Zip5><Zip4/>";
const std::string kAsked = kMain + "<Zip5>78701</Zip5>";
const std::string kInvalid = Rejected("-2147219396", "Invalid Address.  ");

// A&A&A&… of `bytes` bytes, which an address spells A AND A AND….
std::string Ampersands(int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) {
    text += i % 2 == 0 ? "A" : "&amp;";
  }
  return text;
}

struct DocumentCase {
  std::string name;
  std::string document;
  std::string reply;
};

const DocumentCase kDocuments[] = {
    {"all fields, long form",
     Request("<Revision>1</Revision><Address ID=\"0\"><FirmName>Smith &amp; Sons,  Inc.</FirmName>"
             "<Address1>Suite 5</Address1><Address2>12 Main Street</Address2>"
             "<City>East Stroudsburg</City><State>PA</State><Urbanization></Urbanization>"
             "<Zip5>18302</Zip5><Zip4>1234</Zip4></Address>"),
     Response("<Address ID=\"0\"><FirmName>SMITH &amp; SONS, INC.</FirmName>"
              "<Address1>STE 5</Address1><Address2>12 MAIN ST</Address2>"
              "<City>EAST STROUDSBURG</City><CityAbbreviation>E STROUDSBURG</CityAbbreviation>"
              "<State>PA</State><Zip5>18302</Zip5><Zip4>1234</Zip4><Footnotes>N</Footnotes>" +
              std::string(kNotConfirmed) + "</Address>")},
    {"short form has the short city",
     Request("<Address ID=\"0\"><Address2>12 MAIN ST</Address2><City>E STROUDSBURG</City>"
             "<State>PA</State><Zip5>18302</Zip5></Address>"),
     Response("<Address ID=\"0\"><Address2>12 MAIN ST</Address2><City>E STROUDSBURG</City>"
              "<State>PA</State><Zip5>18302</Zip5><Zip4/></Address>")},
    {"everything corrected",
     Request("<Revision>1</Revision><Address ID=\"0\"><Address2>12 Main St</Address2>"
             "<City>Huttoo</City><State>TX</State><Zip5>10001</Zip5></Address>"),
     Response("<Address ID=\"0\"><Address2>12 MAIN ST</Address2><City>HUTTO</City><State>TX</State>"
              "<Zip5>78634</Zip5><Zip4/><Footnotes>AB</Footnotes>" +
              std::string(kNotConfirmed) + "</Address>")},
    {"urbanization stands before the ZIP",
     Request("<Address><Address2>A17 CALLE 1</Address2><City>CAROLINA</City><State>PR</State>"
             "<Urbanization>URB Las Gladiolas</Urbanization><Zip5>00979</Zip5></Address>"),
     Response("<Address><Address2>A17 CALLE 1</Address2><City>CAROLINA</City><State>PR</State>"
              "<Urbanization>URB LAS GLADIOLAS</Urbanization><Zip5>00979</Zip5><Zip4/></Address>")},
    {"one failure spoils no other, order and IDs are kept",
     Request("<Address ID=\"b\">" + kAsked + "</Address><Address ID=\"&lt;a&gt;\"><Address2/>" +
             "</Address><Address>" + kAsked + "</Address>"),
     Response("<Address ID=\"b\">" + kMainReply + "</Address><Address ID=\"&lt;a&gt;\">" +
              kInvalid + "</Address><Address>" + kMainReply + "</Address>")},
    {"a street without a number",
     Request("<Address ID=\"0\"><Address2>MAIN ST</Address2><Zip5>78701</Zip5></Address>"),
     Response("<Address ID=\"0\">" + Rejected("-2147219401", "Address Not Found.  ") +
              "</Address>")},
    {"several places fit",
     Request("<Address ID=\"0\"><Address2>12 MAIN ST</Address2><City>AUSTIN</City><State>TX</State>"
             "</Address>"),
     Response("<Address ID=\"0\">" +
              Rejected("-2147219403",
                       "Multiple addresses were found for the information you entered, and no "
                       "default exists.") +
              "</Address>")},
    {"a field of 201 bytes",
     Request("<Address><Address2>12 " + std::string(198, 'A') + "</Address2></Address>"),
     Response("<Address>" + kInvalid + "</Address>")},
    {"a city and a line of 200 bytes that would be answered with more",
     Request("<Address><Address2>12 MAIN ST</Address2><City>" + Ampersands(200) +
             "</City><Zip5>78701</Zip5></Address><Address><Address2>12 " + Ampersands(194) +
             " ST</Address2><Zip5>78701</Zip5></Address>"),
     Response("<Address>" + kInvalid + "</Address><Address>" + kInvalid + "</Address>")},
    {"unit and street swapped",
     Request("<Address ID=\"0\"><Address1>12 Main St</Address1><Address2>Suite 700</Address2>"
             "<City/><State/><Zip5>78701</Zip5><Zip4/></Address>"),
     Response("<Address ID=\"0\"><Address1>STE 700</Address1>" + kMainReply + "</Address>")},
    {"a street alone in the unit's place",
     Request("<Address ID=\"0\"><Address1>12 Main St</Address1><Address2/><Zip5>78701</Zip5>"
             "</Address>"),
     Response("<Address ID=\"0\">" + kMainReply + "</Address>")},
    {"five addresses, the elements of before Revision, another order",
     Request("<IncludeOptionalElements>true</IncludeOptionalElements>"
             "<ReturnCarrierRoute>true</ReturnCarrierRoute><Address ID=\"4\"><Zip5>78701</Zip5>"
             "<Address2>12 Main St</Address2></Address><Address ID=\"3\"/><Address ID=\"2\">" +
             kAsked + "</Address><Address ID=\"\">" + kAsked + "</Address><Address ID=\"2\">" +
             kAsked + "</Address>"),
     Response("<Address ID=\"4\">" + kMainReply + "</Address><Address ID=\"3\">" + kInvalid +
              "</Address><Address ID=\"2\">" + kMainReply + "</Address><Address ID=\"\">" +
              kMainReply + "</Address><Address ID=\"2\">" + kMainReply + "</Address>")},
    {"no such state",
     Request("<Address ID=\"0\"><Address2>12 MAIN ST</Address2><City>Seoul</City>"
             "<State>Korea</State><Zip5>36100</Zip5></Address>"),
     Response("<Address ID=\"0\">" + Rejected("-2147219402", "Invalid State Code.  ") +
              "</Address>")},
    {"no such city",
     Request("<Address ID=\"0\"><Address2>12 MAIN ST</Address2><City>Qwxyzzy</City>"
             "<State>TX</State></Address>"),
     Response("<Address ID=\"0\">" + Rejected("-2147219400", "Invalid City.  ") + "</Address>")},
    {"no such ZIP",
     Request("<Address ID=\"0\"><Address2>12 MAIN ST</Address2><Zip5>00000</Zip5></Address>"),
     Response("<Address ID=\"0\">" + Rejected("-2147219399", "Invalid Zip Code.  ") +
              "</Address>")},
    {"UTF-16 with its mark", Utf16(Request("<Address>" + kAsked + "</Address>")),
     Response("<Address>" + kMainReply + "</Address>")},
    {"UTF-8 with its mark", "\xEF\xBB\xBF" + Request("<Address>" + kAsked + "</Address>"),
     Response("<Address>" + kMainReply + "</Address>")},
    {"no address at all", Request(""), Response("")},
    {"six addresses", Request("<Address/><Address/><Address/><Address/><Address/><Address/>"),
     "<Error><Number>80040B18</Number><Description>A request may hold up to 5 addresses. Send the "
     "others in another.</Description><Source>USPSCOM::DoAuth</Source></Error>"},
    {"no user", "<AddressValidateRequest><Address/></AddressValidateRequest>", kNoUser},
    {"empty user", "<AddressValidateRequest USERID=\"\"><Address/></AddressValidateRequest>",
     kNoUser},
    {"another document", "<ZipCodeLookupRequest USERID=\"1\"/>", kSyntax},
    {"a bare ampersand", Request("<Address><Address2>A & B</Address2></Address>"), kSyntax},
    {"a reference to nothing", Request("<Address><City>&b;</City></Address>"), kSyntax},
    {"a reference to no character", Request("<Address ID=\"&#0;\"/>"), kSyntax},
    {"ampersands that are none",
     Request("<!-- & --><Address><Address2><![CDATA[12 & ]]><b>MAIN</b> S&#x54;</Address2>"
             "<Zip5>78701</Zip5></Address>"),
     Response("<Address><Address2>12 AND MAIN ST</Address2><City>AUSTIN</City><State>TX</State>"
              "<Zip5>78701</Zip5><Zip4/></Address>")},
    {"text after the document", Request("") + "&amp;", kSyntax},
    {"two documents", Request("") + Request(""), kSyntax},
    {"tags that do not match", Request("<Address></Adress>"), kSyntax},
    {"a control character in a comment", Request("<!-- \x01 -->"), kSyntax},
    {"a zero byte", Request("<Address>" + std::string(1, '\0') + "</Address>"), kSyntax},
    {"entities of its own",
     "<!DOCTYPE a [<!ENTITY b \"bbbb\">]>" + Request("<Address><City>&b;</City></Address>"),
     kSyntax},
    {"sixteen elements deep", Request(Nested(15)), Response("")},
    {"seventeen", Request(Nested(16)), kSyntax},
    {"thousands", Request(Nested(9000)), kSyntax},
    {"more than 64 KiB", Request(std::string(70000, ' ')), kSyntax},
    // What our own engine sends for a label whose delivery line holds a line break.
    {"cut short within an address",
     "<AddressValidateRequest USERID=\"1\"><Address ID=\"0\"><Address1></Address1>"
     "<Address2>JANE DOE",
     Response("<Address ID=\"0\">" + kInvalid + "</Address>")},
    {"cut short within a ZIP",
     "<AddressValidateRequest USERID=\"1\"><Address>" + kMain + "<Zip5>78701",
     Response("<Address>" + kInvalid + "</Address>")},
    {"cut short after an address",
     "<AddressValidateRequest USERID=\"1\"><Address>" + kAsked + "</Address><Addr",
     Response("<Address>" + kMainReply + "</Address>")},
    {"cut short before the first address",
     "<AddressValidateRequest USERID=\"1\"><Revision>1</Revision><Addr", kSyntax},
    {"nothing", "", kSyntax},
    {"Latin-1 whatever the declaration says",
     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" +
         Request("<Address><Address2>12 PE\xD1"
                 "A ST</Address2><Zip5>78701</Zip5></Address>"),
     Response("<Address><Address2>12 PENA ST</Address2><City>AUSTIN</City><State>TX</State>"
              "<Zip5>78701</Zip5><Zip4/></Address>")},
    {"UTF-8 under a wrong declaration, with blanks in front",
     "\n <?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" +
         Request("<Address><Address2>12 PE\xC3\x91"
                 "A ST</Address2><Zip5>78701</Zip5></Address>"),
     Response("<Address><Address2>12 PENA ST</Address2><City>AUSTIN</City><State>TX</State>"
              "<Zip5>78701</Zip5><Zip4/></Address>")},
};

TEST(VerifyServiceTest, AnswersDocumentsByteForByte) {
  for (const DocumentCase& row : kDocuments) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(AnswerDocument(row.document), row.reply);
  }
}

// A source that always offers as many candidates as it is asked for.
class ChoiceSource final : public AnswerSource {
  void Find(const RequestAddress& asked, const std::string&, Done done) override {
    AddressAnswer answer = postal::Rejection::Multiple;
    const postal::Candidate street{
        "C/O A & B", "MAIN ST", "", "AUSTIN", "TX", "78701", {"100", "198", postal::Parity::Even},
        {},          'S'};
    answer.candidates.assign(asked.candidates, street);
    answer.source = {ReplySource::Kind::Base, "a&b.base", "2026-11-20"};
    done(std::move(answer));
  }
};

TEST(VerifyServiceTest, NamesCandidatesAndItsSourceToWhoAsksForThem) {
  ChoiceSource source;
  VerifyService service(source, nullptr, {});
  const auto ask = [&service](std::vector<std::pair<std::string, std::string>> extensions) {
    HttpReply reply;
    service.Answer({"POST",
                    "/ShippingAPI.dll",
                    "API=Verify",
                    Request("<Address ID=\"0\">" + kAsked + "</Address>"),
                    {},
                    {},
                    false,
                    std::move(extensions)},
                   [&](HttpReply answer) { reply = std::move(answer); });
    return reply.body;
  };
  const std::string candidate =
      "<Candidate><Above>C/O A &amp; B</Above><Address2>MAIN ST</Address2><City>AUSTIN</City>"
      "<State>TX</State><Zip5>78701</Zip5><PrimaryLow>100</PrimaryLow><PrimaryHigh>198"
      "</PrimaryHigh><PrimaryParity>E</PrimaryParity><RecordType>S</RecordType></Candidate>";
  const auto reply = [&candidate](int count) {
    std::string candidates;
    for (int i = 0; i < count; ++i) {
      candidates += candidate;
    }
    return kDeclaration +
           Response("<Address ID=\"0\">" +
                    Rejected("-2147219403",
                             "Multiple addresses were found for the information you entered, and "
                             "no default exists.") +
                    (count == 0 ? "" : "<Candidates>" + candidates + "</Candidates>") +
                    "</Address>");
  };
  EXPECT_EQ(ask({}), reply(0));
  const std::pair<const char*, int> rows[] = {
      {"1", 1},   {"50", 50}, {"51", 50}, {"99999999999999999999999", 50},
      {"0", 0},   {"", 0},    {"-1", 0},  {"5 ", 0},
      {"yes", 0}, {"5,5", 0}};
  for (const auto& [wanted, count] : rows) {
    EXPECT_EQ(ask({{"postwright-CANDIDATES", wanted}}), reply(count)) << wanted;
    EXPECT_EQ(ask({{"Postwright-Other", wanted}}), reply(0));
  }
  const std::string told =
      "<Source><Kind>base</Kind><Name>a&amp;b.base</Name><Date>2026-11-20</Date></Source>";
  for (const bool isAsked : {false, true}) {
    std::string expected = reply(1);
    expected.insert(expected.find("<Candidates>"), isAsked ? told : "");
    EXPECT_EQ(ask({{"postwright-source", isAsked ? "1" : "0"}, {"Postwright-Candidates", "1"}}),
              expected);
  }
}

// The two calls for ZIP codes, and what Verify's clients sent before revisions existed.
TEST(VerifyServiceTest, AnswersTheOtherCalls) {
  const auto zips = [](const std::string& items) {
    return "<CityStateLookupRequest USERID=\"1\">" + items + "</CityStateLookupRequest>";
  };
  const std::string noZip =
      "<Error><Number>-2147219399</Number><Source>WebtoolsAMS;CityStateLookup</Source>"
      "<Description>Invalid Zip Code.</Description><HelpFile/><HelpContext/></Error>";
  const struct {
    const char* api;
    std::string document;
    std::string reply;
  } rows[] = {
      {"CityStateLookup",
       zips("<ZipCode "
            "ID=\"0\"><Zip5>78701</Zip5></ZipCode><ZipCode><Zip5>02108-1234</Zip5></ZipCode>"
            "<ZipCode ID=\"2\"><Zip5>00000</Zip5></ZipCode><ZipCode ID=\"3\"/>"),
       "<CityStateLookupResponse><ZipCode ID=\"0\"><Zip5>78701</Zip5><City>AUSTIN</City><State>TX"
       "</State></ZipCode><ZipCode><Zip5>02108</Zip5><City>BOSTON</City><State>MA</State></ZipCode>"
       "<ZipCode ID=\"2\">" +
           noZip + "</ZipCode><ZipCode ID=\"3\">" + noZip +
           "</ZipCode>"
           "</CityStateLookupResponse>"},
      {"citystatelookup", zips("<ZipCode/><ZipCode/><ZipCode/><ZipCode/><ZipCode/><ZipCode/>"),
       "<Error><Number>80040B18</Number><Description>A request may hold up to 5 addresses. Send "
       "the others in another.</Description><Source>USPSCOM::DoAuth</Source></Error>"},
      {"CityStateLookup", Request("<Address>" + kAsked + "</Address>"), kSyntax},
      {"CityStateLookup", "<CityStateLookupRequest USERID=\"1\"><ZipCode><Zip5>78701",
       "<CityStateLookupResponse><ZipCode>" + noZip + "</ZipCode></CityStateLookupResponse>"},
      {"ZipCodeLookup",
       "<ZipCodeLookupRequest USERID=\"1\"><Revision>1</Revision><Address "
       "ID=\"7\"><FirmName>A</FirmName>"
       "<Address1/><Address2>12 main street</Address2><City>hutto</City><State>TX</State>"
       "<Zip5/><Zip4/></Address><Address ID=\"8\"/></ZipCodeLookupRequest>",
       "<ZipCodeLookupResponse><Address ID=\"7\"><FirmName>A</FirmName><Address2>12 MAIN "
       "ST</Address2>"
       "<City>HUTTO</City><State>TX</State><Zip5>78634</Zip5><Zip4/></Address>"
       "<Address ID=\"8\">" +
           kInvalid + "</Address></ZipCodeLookupResponse>"},
  };
  // Whatever the revision, a ZipCodeLookup reply has the short form with the city.
  const std::string revised = Answer(
      {"POST", "/ShippingAPI.dll", "API=ZipCodeLookup",
       "<ZipCodeLookupRequest USERID=\"1\"><Revision>1</Revision><Address><Address2>12 MAIN ST"
       "</Address2><City>East Stroudsburg</City><State>PA</State><Zip5>18302</Zip5></Address>"
       "</ZipCodeLookupRequest>"});
  EXPECT_NE(revised.find("<City>E STROUDSBURG</City>"), std::string::npos) << revised;
  for (const auto& row : rows) {
    EXPECT_EQ(Answer({"POST", "/shippingapi.DLL", std::string("API=") + row.api, row.document}),
              row.reply);
  }
}

TEST(VerifyServiceTest, ComposesEveryElementInItsPlace) {
  ReplyFields fields;
  fields.firmName = "F";
  fields.address1 = "STE 7";
  fields.address2 = "12 MAIN STREET";
  fields.address2Abbreviation = "12 MAIN ST";
  fields.city = "EAST STROUDSBURG";
  fields.cityAbbreviation = "E STROUDSBURG";
  fields.state = "PA";
  fields.urbanization = "U";
  fields.zip5 = "18302";
  fields.zip4 = "1234";
  fields.deliveryPoint = "99";
  fields.returnText = ReplyFields::kDefaultMatch;
  fields.carrierRoute = "C069";
  fields.footnotes = "HN";
  fields.dpvConfirmation = "D";
  fields.dpvCmra = fields.dpvFalse = fields.business = fields.centralDeliveryPoint = "N";
  fields.dpvFootnotes = "AAN1";
  fields.vacant = "Y";
  const std::string returnText =
      "<ReturnText>Default address: The address you entered was found but more information is "
      "needed (such as an apartment, suite, or box number) to match to a specific "
      "address.</ReturnText>";
  const std::string place = "<State>PA</State><Urbanization>U</Urbanization><Zip5>18302</Zip5>";
  EXPECT_EQ(VerifyReply::Compose({{"0", fields}}, {.isLong = true}),
            kDeclaration +
                Response("<Address ID=\"0\"><FirmName>F</FirmName><Address1>STE 7</Address1>"
                         "<Address2>12 MAIN STREET</Address2>"
                         "<Address2Abbreviation>12 MAIN ST</Address2Abbreviation>"
                         "<City>EAST STROUDSBURG</City>"
                         "<CityAbbreviation>E STROUDSBURG</CityAbbreviation>" +
                         place + "<Zip4>1234</Zip4><DeliveryPoint>99</DeliveryPoint>" + returnText +
                         "<CarrierRoute>C069</CarrierRoute><Footnotes>HN</Footnotes>"
                         "<DPVConfirmation>D</DPVConfirmation><DPVCMRA>N</DPVCMRA>"
                         "<DPVFalse>N</DPVFalse><DPVFootnotes>AAN1</DPVFootnotes>"
                         "<Business>N</Business><CentralDeliveryPoint>N</CentralDeliveryPoint>"
                         "<Vacant>Y</Vacant></Address>"));
  EXPECT_EQ(VerifyReply::Compose({{"0", fields}}, {}),
            kDeclaration + Response("<Address ID=\"0\"><FirmName>F</FirmName>"
                                    "<Address1>STE 7</Address1><Address2>12 MAIN STREET</Address2>"
                                    "<City>E STROUDSBURG</City>" +
                                    place + "<Zip4>1234</Zip4>" + returnText + "</Address>"));
  const std::string optional =
      VerifyReply::Compose({{"0", fields}}, {.hasDeliveryPoint = true, .hasCarrierRoute = true});
  EXPECT_TRUE(optional.ends_with("<Zip4>1234</Zip4><DeliveryPoint>99</DeliveryPoint>" + returnText +
                                 "<CarrierRoute>C069</CarrierRoute></Address>"
                                 "</AddressValidateResponse>"))
      << optional;
}

struct QueryCase {
  const char* name;
  HttpRequest request;
  std::string reply;
};

constexpr const char* kPath = "/ShippingAPI.dll";
const std::string kPlus =
    "%3CAddressValidateRequest+USERID=%221%22%3E%3CAddress%3E%3CAddress2%3E12+MAIN%20ST%3C/"
    "Address2%3E"
    "%3CZip5%3E78701%3C/Zip5%3E%3C/Address%3E%3C/AddressValidateRequest%3E";
const std::string kAnswered = Response("<Address>" + kMainReply + "</Address>");

const QueryCase kQueries[] = {
    {"XML", {"GET", kPath, "API=Verify&XML=" + kPlus, ""}, kAnswered},
    {"xml, other order", {"GET", kPath, "xml=" + kPlus + "&api=verify", ""}, kAnswered},
    {"form", {"POST", kPath, "", "API=Verify&XML=" + kPlus}, kAnswered},
    // The engine's own escaping: %26amp%3b for an ampersand, a bare one for &lt;.
    {"escaped ampersand",
     {"GET", kPath,
      "API=Verify&XML=%3CAddressValidateRequest%20USERID=%221%22%3E%3CAddress%20ID=%220%22%3E"
      "%3CAddress2%3E12%20A%20%26amp%3b%20B%20ST%3C/Address2%3E%3CZip5%3E78701%3C/Zip5%3E"
      "%3C/Address%3E%3C/AddressValidateRequest%3E",
      ""},
     Response("<Address ID=\"0\"><Address2>12 A AND B ST</Address2><City>AUSTIN</City>"
              "<State>TX</State><Zip5>78701</Zip5><Zip4/></Address>")},
    {"bare ampersand of an entity that XML does not have",
     {"GET", kPath,
      "API=Verify&XML=%3CAddressValidateRequest%20USERID=%221%22%3E%3CAddress%20ID=%220%22%3E"
      "%3CAddress2%3EJANE&nbsp;PSC%201%20BOX%202%3C/Address2%3E%3CCity%3EAPO%3C/City%3E",
      ""},
     Response("<Address ID=\"0\">" + kInvalid + "</Address>")},
    {"lines above a military address",
     {"GET", kPath,
      "API=Verify&XML=%3CAddressValidateRequest%20USERID=%221%22%3E%3CAddress%20ID=%220%22%3E"
      "%3CAddress2%3EJOS%C3%89%20P&%23x0A;PSC%201%20BOX%202%3C/Address2%3E%3CCity%3EAPO%3C/City%3E"
      "%3CState%3EAE%3C/State%3E%3CZip5%3E09096%3C/Zip5%3E%3C/Address%3E"
      "%3C/AddressValidateRequest%3E",
      ""},
     Response("<Address ID=\"0\"><Address2>JOS\xC3\x89 P&#10;PSC 1 BOX 2</Address2><City>APO</City>"
              "<State>AE</State><Zip5>09096</Zip5><Zip4/></Address>")},
    {"broken escapes stand for themselves", {"GET", kPath, "API=Verify&XML=%", ""}, kSyntax},
    {"no document", {"GET", kPath, "API=Verify", ""}, kSyntax},
    {"another API",
     {"GET", kPath, "API=Rate%3CV4%0A&XML=" + kPlus, ""},
     "<Error><Number>80040B1A</Number><Description>API Authorization failure. Rate&lt;V4 is not a "
     "valid API name for this protocol.</Description><Source>USPSCOM::DoAuth</Source></Error>"},
};

TEST(VerifyServiceTest, ReadsQueriesAndForms) {
  for (const QueryCase& row : kQueries) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Answer(row.request), row.reply);
  }
}

// Every prefix of a request is answered by one document or error.
TEST(VerifyServiceTest, AnswersEveryBeginning) {
  const std::string whole = Request("<Revision>1</Revision><Address ID=\"0\">" + kAsked +
                                    "</Address><Address ID=\"1\">" + kAsked + "</Address>");
  for (size_t length = 0; length < whole.size(); ++length) {
    const std::string reply = AnswerDocument(whole.substr(0, length));
    ASSERT_TRUE(reply == kSyntax ||
                reply.starts_with("<AddressValidateResponse><Address ID=\"0\">"))
        << length << ": " << reply;
  }
}

}  // namespace
}  // namespace postwright::service
