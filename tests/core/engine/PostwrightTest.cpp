#include <postwright/Postwright.h>

#include "tests/support/FixResultPrinter.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/ScriptedServices.h"

#include <postwright/Deployment.h>

#include <gtest/gtest.h>
#include <tinyxml.h>

namespace postwright {

namespace {

const std::wstring kLabel = L"Jane Doe\n12 main st\naustin tx 78701\nUSA";
const std::string kAddress =
    "<Address2>12 MAIN ST</Address2><City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>";

std::string Reply(const std::string& address) {
  return "<?xml version=\"1.0\"?><R><Address ID=\"0\">" + address + "</Address></R>";
}

std::pair<FixResult, std::wstring> FixText(const std::wstring& text, IPlatformServices* services) {
  try {
    const std::unique_ptr<FixedAddress> fixed = Postwright::Fix(text, true, services);
    EXPECT_TRUE(fixed->GetAddressMatches().empty());
    return {fixed->GetResult(), fixed->GetExactAddress()};
  } catch (const PostwrightException& failure) {
    return {failure.GetResult(), L""};
  }
}

const struct ReplyCase {
  const char* name;
  std::string reply;
  FixResult outcome;
  std::wstring corrected;  // the lines between prefix and suffix
  std::wstring log;        // the beginning of the only line
} kReplies[] = {
    {"corrected", Reply(kAddress + "<Zip4>1234</Zip4>"), FixResultDefaultMatch,
     L"12 MAIN ST\nAUSTIN, TX 78701-1234", L""},
    {"ZIP alone", Reply(kAddress + "<Zip4/>"), FixResultDefaultMatch,
     L"12 MAIN ST\nAUSTIN, TX 78701", L""},
    {"add-on of three digits", Reply(kAddress + "<Zip4>123</Zip4>"), FixResultDefaultMatch,
     L"12 MAIN ST\nAUSTIN, TX 78701", L""},
    {"urbanization", Reply(kAddress + "<Urbanization>URB LAS GLADIOLAS</Urbanization>"),
     FixResultDefaultMatch, L"12 MAIN ST\nURB LAS GLADIOLAS\nAUSTIN, TX 78701", L""},
    {"no street",
     Reply("<Address1>APT 4</Address1><City>PE\xC3\x91"
           "A</City><Zip5>78701</Zip5>"),
     FixResultDefaultMatch, L"PE\u00D1A,  78701", L""},
    {"first of each name", Reply("<Address2>1 A ST</Address2>" + kAddress), FixResultDefaultMatch,
     L"1 A ST\nAUSTIN, TX 78701", L""},
    {"turned down",
     Reply(kAddress + "<Error><Number>-1</Number><Description>Not \xC3\x91</Description></Error>"),
     FixResultInvalidAddress, L"", L"warning: Postwright::Fix(): server error = 'Not \u00D1'"},
    {"turned down, no reason", Reply("<Error/>"), FixResultInvalidAddress, L"",
     L"warning: Postwright::Fix(): server error = ''"},
    {"root is the error", "<Error><Number>80040b1a</Number></Error>", FixResultBadReply, L"",
     L"warning: Postwright::Fix(): unexpected server error"},
    {"cut short", "<R><Address><Address2>12 MA", FixResultBadReply, L"",
     L"error: Postwright::MakeRequestToServer(): unable to parse returned xml document: Error "},
    {"page of another", "<html><body><p>No</body></html>", FixResultBadReply, L"",
     L"error: Postwright::MakeRequestToServer(): unable to parse returned xml document: Error "},
    {"not UTF-8",
     Reply("<City>PE\xD1"
           "A</City>"),
     FixResultBadReply, L"",
     L"error: Postwright::MakeRequestToServer(): unable to parse returned xml document: the doc"},
    {"no root", "<!-- nothing -->", FixResultBadReply, L"",
     L"error: Postwright::MakeRequestToServer(): RootElement == NULL"},
    {"no network", "", FixResultBadReply, L"",
     L"error: Postwright::MakeRequestToServer(): RootElement == NULL"},
};

TEST(PostwrightTest, ReplyDecidesOutcome) {
  for (const ReplyCase& row : kReplies) {
    SCOPED_TRACE(row.name);
    ScriptedServices services(row.reply);
    const auto [outcome, corrected] = FixText(kLabel, &services);
    EXPECT_EQ(outcome, row.outcome);
    EXPECT_EQ(corrected, row.corrected.empty() ? L"" : L"JANE DOE\n" + row.corrected + L"\nUSA");
    EXPECT_EQ(services.urls.size(), 1U);  // one request a fix, whatever comes back
    ASSERT_EQ(services.log.size(), row.log.empty() ? 0U : 1U);
    EXPECT_TRUE(row.log.empty() || services.log[0].starts_with(row.log)) << services.log[0].c_str();
  }
}

// Reaches the steps of a fix.
class OpenPostwright final : public Postwright {
 public:
  OpenPostwright(const std::wstring& text, IPlatformServices* services)
      : Postwright(text, false, services) {}
  using Postwright::ComposeRequestUrl;
  using Postwright::GetChildValueInt;
};

TEST(PostwrightTest, AsksForTheParsedAddress) {
  const struct {
    const char* name;
    std::wstring text;
    std::wstring street, city, state, zip;  // as they stand in the URL
  } kRows[] = {
      {"label", kLabel, L"12%20MAIN%20ST", L"AUSTIN", L"TX", L"78701"},
      {"box", L"PO Box 7\nPe\u00F1a Blanca NM 87041-0007", L"PO%20BOX%207", L"PE%C3%91A%20BLANCA",
       L"NM", L"87041-0007"},
      {"ampersand and number sign", L"12 A&B ST # 5\nAUSTIN TX 78701",
       L"12%20A%26amp%3bB%20ST%20%23%205", L"AUSTIN", L"TX", L"78701"},
      {"no address", L"hello", L"", L"", L"", L""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    ScriptedServices services("");
    EXPECT_EQ(OpenPostwright(row.text, &services).ComposeRequestUrl(),
              L"http://127.0.0.1:8470/ShippingAPI.dll?API=Verify&XML="
              L"%3CAddressValidateRequest%20USERID=%22305KQVZ61948%22%3E"
              L"%3CRevision%3E1%3C/Revision%3E%3CAddress%20ID=%220%22%3E"
              L"%3CAddress1%3E%3C/Address1%3E%3CAddress2%3E" +
                  row.street + L"%3C/Address2%3E%3CCity%3E" + row.city + L"%3C/City%3E%3CState%3E" +
                  row.state + L"%3C/State%3E%3CZip5%3E" + row.zip +
                  L"%3C/Zip5%3E%3CZip4%3E%3C/Zip4%3E"
                  L"%3C/Address%3E%3C/AddressValidateRequest%3E");
  }
}

TEST(PostwrightTest, FlagAndFormOfInputChangeNothing) {
  ScriptedServices services(Reply(kAddress));
  const AddressFields fields(L"Jane Doe", L"12 main st", L"", L"austin", L"tx", L"78701", L"USA");
  const std::wstring fixed = Postwright::Fix(kLabel, true, &services)->GetExactAddress();
  EXPECT_EQ(Postwright::Fix(kLabel, false, &services)->GetExactAddress(), fixed);
  EXPECT_EQ(Postwright::Fix(fields, false, &services)->GetExactAddress(), fixed);
  EXPECT_EQ(services.urls, std::vector<std::wstring>(3, services.urls[0]));
}

TEST(PostwrightTest, ReadsNumericChildren) {
  ScriptedServices services("");
  OpenPostwright engine(L"", &services);
  TiXmlDocument document;
  document.Parse("<R><Number>-42</Number><Word>x</Word><Empty/></R>");
  EXPECT_EQ(engine.GetChildValueInt(document.RootElement(), "Number"), -42);
  EXPECT_EQ(engine.GetChildValueInt(document.RootElement(), "Word"), 0);
  EXPECT_THROW(engine.GetChildValueInt(document.RootElement(), "Empty"), PostwrightException);
  EXPECT_EQ(services.log, std::vector<std::wstring>{
                              L"error: Postwright::GetChildValueInt(): 'Empty' tag not found"});
}

TEST(PostwrightTest, DeploymentSaysWhomToAsk) {
  const std::string body = Reply(kAddress);
  LoopbackServer server(LoopbackServer::Answer{
      "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body});
  const Deployment before = GetDeployment();
  SetDeployment({server.GetEndpoint(), "ANOTHER&ME", "127.0.0.1"});
  MacPlatformServices services;
  const auto [outcome, corrected] = FixText(kLabel, &services);
  SetDeployment(before);
  EXPECT_EQ(outcome, FixResultDefaultMatch);
  EXPECT_EQ(corrected, L"JANE DOE\n12 MAIN ST\nAUSTIN, TX 78701\nUSA");
  ASSERT_EQ(server.GetRequests().size(), 1U);
  EXPECT_TRUE(server.GetRequests()[0].starts_with(
      "GET /ShippingAPI.dll?API=Verify&XML=%3CAddressValidateRequest%20"
      "USERID=%22ANOTHER%26amp%3bME%22%3E%3CRevision%3E1%3C/Revision%3E"));
}

}  // namespace

}  // namespace postwright
