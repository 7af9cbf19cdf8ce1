#include <postwright/Postwright.h>

#include "tests/support/LoopbackServer.h"
#include "tests/support/ScriptedServices.h"

#include <postwright/Deployment.h>

#include <gtest/gtest.h>
#include <tinyxml.h>

namespace postwright {

namespace {

const std::wstring kLabel = L"Jane Doe\n12 main st\naustin tx 78701\nUSA";
const std::string kMain = "<Address2>12 MAIN ST</Address2>";
const std::string kCity = "<City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5>";

std::string Reply(const std::string& address) {
  return "<?xml version=\"1.0\"?><R><Address>" + address + "</Address></R>";
}

std::string Western(const std::string& encoding, const std::string& address) {
  return "<?xml version='1.0' encoding = '" + encoding + "'?><R><Address>" + address +
         "</Address></R>";
}

std::pair<FixResult, std::wstring> FixText(const std::wstring& text, IPlatformServices* services) {
  try {
    const std::unique_ptr<FixedAddress> fixed = Postwright::Fix(text, true, services);
    return {fixed->GetResult(), fixed->GetExactAddress()};
  } catch (const PostwrightException& failure) {
    return {failure.GetResult(), L""};
  }
}

const std::wstring kLines = L"12 MAIN ST\nAUSTIN, TX 78701";
const std::wstring kUnexpected = L"warning: Postwright::Fix(): unexpected server error";
const std::wstring kNoXml =
    L"error: Postwright::MakeRequestToServer(): unable to parse returned xml document: ";
const std::wstring kNoRoot = L"error: Postwright::MakeRequestToServer(): RootElement == NULL";
const std::wstring kDenied = L"warning: Postwright::Fix(): server error = '";

constexpr FixResult kFixed = FixResultDefaultMatch;
constexpr FixResult kTurnedDown = FixResultInvalidAddress;
constexpr FixResult kBadReply = FixResultBadReply;

const struct ReplyCase {
  const char* name;
  std::string reply;
  FixResult outcome;
  std::wstring text;  // the lines between prefix and suffix, or how the only log line begins
} kReplies[] = {
    {"corrected", Reply(kMain + kCity + "<Zip4>1234</Zip4>"), kFixed, kLines + L"-1234"},
    {"add-on of three digits", Reply(kMain + kCity + "<Zip4>123</Zip4>"), kFixed, kLines},
    {"add-on empty", Reply(kMain + kCity + "<Zip4/>"), kFixed, kLines},
    {"first of each name", Reply(kMain + kCity + "<City>WACO</City>"), kFixed, kLines},
    {"urbanization", Reply("<Urbanization>URB SOL</Urbanization>"), kFixed, L"URB SOL\n,  "},
    {"not asked for", Reply("<Address1>4</Address1><City>PE\xC3\x91O</City>"), kFixed,
     L"PE\u00D1O,  "},
    {"turned down", Reply("<Error><Description>\xC3\x91o</Description></Error>"), kTurnedDown,
     kDenied + L"\u00D1o'"},
    {"turned down, no reason", Reply(kCity + "<Error/>"), kTurnedDown, kDenied + L"'"},
    {"root is the error", "<Error><Number>80040b1a</Number></Error>", kBadReply, kUnexpected},
    {"cut short", "<R><Address><Address2>12 MA", kBadReply, kNoXml + L"Error "},
    {"page of another", "<html><p>No</html>", kBadReply, kNoXml + L"Error "},
    {"Latin 1", Western("ISO-8859-1", "<City>PE\xD1O</City>"), kFixed, L"PE\u00D1O,  "},
    {"Windows", Western("windows-1252", "<City>O\x92NEIL</City>"), kFixed, L"O\u2019NEIL,  "},
    {"Latin 1 that is UTF-8", Western("iso-8859-1", "<City>PE\xC3\x91O</City>"), kFixed,
     L"PE\u00D1O,  "},
    {"Latin 1, a reference", Western("latin1", "<City>PE&#xD1;O</City>"), kFixed, L"PE\u00D1O,  "},
    {"no character of Windows", Western("windows-1252", "<City>PE\x81O</City>"), kBadReply,
     kNoXml + L"the document is not UTF-8"},
    {"another encoding", Western("ISO-8859-2", "<City>PE\xD1O</City>"), kBadReply,
     kNoXml + L"the document is not UTF-8"},
    {"refused", Reply("<City>PE\xD1O</City>"), kBadReply, kNoXml + L"the document is not UTF-8"},
    {"no root", "<!-- nothing -->", kBadReply, kNoRoot},
    {"no network", "", kBadReply, kNoRoot},
};

// Gives access to the steps of a fix.
class OpenPostwright final : public Postwright {
 public:
  OpenPostwright(const std::wstring& text, IPlatformServices* services)
      : Postwright(text, false, services) {}
  using Postwright::ComposeRequestUrl;
  using Postwright::GetChildValueInt;
};

}  // namespace

TEST(PostwrightTest, ReplyDecidesOutcome) {
  for (const ReplyCase& row : kReplies) {
    SCOPED_TRACE(row.name);
    ScriptedServices services(row.reply);
    const auto [outcome, corrected] = FixText(kLabel, &services);
    EXPECT_EQ(outcome, row.outcome);
    EXPECT_EQ(services.urls.size(), 1U);  // one request a fix, whatever comes back
    if (row.outcome == FixResultDefaultMatch) {
      EXPECT_EQ(corrected, L"JANE DOE\n" + row.text + L"\nUSA");
      EXPECT_TRUE(services.log.empty());
    } else {
      ASSERT_EQ(services.log.size(), 1U);
      EXPECT_EQ(services.log[0].substr(0, row.text.size()), row.text);
    }
  }
}

// A host that returns null where it must not.
TEST(PostwrightTest, NullIsABadReply) {
  struct NullServices final : MacPlatformServices {
    std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t*) override { return nullptr; }
  };
  NullServices services;
  EXPECT_EQ(FixText(kLabel, &services).first, FixResultBadReply);
  EXPECT_EQ(FixText(kLabel, nullptr).first, FixResultBadReply);
  services.LogWarning(nullptr);
}

TEST(PostwrightTest, AsksForTheParsedAddress) {
  const struct {
    std::wstring text, street, city, state, zip;  // the fields as they are in the URL
  } kRows[] = {
      {kLabel, L"12%20MAIN%20ST", L"AUSTIN", L"TX", L"78701"},
      {L"PO Box 7\nPe\u00F1a NM 87041-0007", L"PO%20BOX%207", L"PE%C3%91A", L"NM", L"87041-0007"},
      {L"1 A&B ST # 5\nA TX 78701", L"1%20A%26amp%3bB%20ST%20%23%205", L"A", L"TX", L"78701"},
      {L"no address here", L"", L"", L"", L""},
  };
  for (const auto& row : kRows) {
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
  ScriptedServices services(Reply(kMain));
  const AddressFields fields(L"Jane Doe", L"12 main st", L"", L"austin", L"tx", L"78701", L"USA");
  Postwright::Fix(kLabel, true, &services);
  Postwright::Fix(kLabel, false, &services);
  Postwright::Fix(fields, false, &services);
  EXPECT_EQ(services.urls, std::vector<std::wstring>(3, services.urls[0]));
}

TEST(PostwrightTest, ReadsNumericChildren) {
  ScriptedServices services("");
  OpenPostwright engine(L"", &services);
  TiXmlDocument document;
  document.Parse("<R><Number>-42</Number><Empty/></R>");
  EXPECT_EQ(engine.GetChildValueInt(document.RootElement(), "Number"), -42);
  EXPECT_THROW(engine.GetChildValueInt(document.RootElement(), "Empty"), PostwrightException);
  EXPECT_EQ(services.log.at(0), L"error: Postwright::GetChildValueInt(): 'Empty' tag not found");
}

TEST(PostwrightTest, DeploymentSaysWhomToAsk) {
  const LoopbackServer server(LoopbackServer::Page(Reply(kMain + kCity)));
  const Deployment before = GetDeployment();
  SetDeployment({server.GetEndpoint(), "ANOTHER&ME", "127.0.0.1"});
  MacPlatformServices services;
  EXPECT_EQ(FixText(kLabel, &services).second, L"JANE DOE\n12 MAIN ST\nAUSTIN, TX 78701\nUSA");
  SetDeployment(before);
  const std::string asked =
      "GET /ShippingAPI.dll?API=Verify&XML=%3CAddressValidateRequest%20"
      "USERID=%22ANOTHER%26amp%3bME%22%3E%3CRevision%3E1%3C/Revision%3E";
  EXPECT_EQ(server.GetRequests().at(0).substr(0, asked.size()), asked);
}

}  // namespace postwright
