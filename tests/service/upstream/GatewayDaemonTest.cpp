#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <thread>

#include "common/SmallText.h"
#include "tests/service/Daemon.h"
#include "tests/service/Socket.h"
#include "tests/service/upstream/PostalStandIn.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

class GatewayDaemonTest : public testing::Test {
 protected:
  GatewayDaemonTest() {
    WriteCredentials("secret");
    for (const char* number : {"1", "2", "3", "4"}) {
      const std::string street = std::string(number) + " MAIN ST";
      api_.Say(street + "REET", 200, PostalStandIn::Found(street));
    }
  }

  void WriteCredentials(const std::string& secret) const {
    folder_.Write("credentials", "client_id = id\nclient_secret = " + secret + '\n');
  }

  std::vector<std::string> Arguments(const std::vector<std::string>& more) const {
    std::vector<std::string> all = {"--listen",       "127.0.0.1:0",
                                    "--upstream",     "postal-v3",
                                    "--upstream-url", api_.Url(),
                                    "--credentials",  folder_.File("credentials"),
                                    "--cache",        folder_.File("new/answers.sqlite")};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }

  static std::string Body(const std::string& response) {
    return response.substr(std::min(response.find("\r\n\r\n") + 4, response.size()));
  }

  static std::string Get(const std::string& address, const std::string& path,
                         const std::string& headers = "Host: localhost\r\n") {
    Socket client(address);
    client.Send("GET " + path + " HTTP/1.1\r\n" + headers + "\r\n");
    return client.ReceiveResponse();
  }

  // Asks for the addresses with those house numbers in one document.
  static std::string Ask(const std::string& address, const std::vector<std::string>& numbers) {
    return Body(AskWhole(address, numbers));
  }

  // The same, with the head of the response.
  static std::string AskWhole(const std::string& address, const std::vector<std::string>& numbers) {
    std::string document = "<AddressValidateRequest USERID=\"U\">";
    for (const std::string& number : numbers) {
      document += "<Address ID=\"" + number + "\"><Address1/><Address2>" + number +
                  " main street</Address2><City/><State/><Zip5>62701</Zip5><Zip4/></Address>";
    }
    document += "</AddressValidateRequest>";
    return Get(address, "/ShippingAPI.dll?API=Verify&XML=" + EscapeQuery(document));
  }

  static std::string Found(const std::string& number) {
    return "<Address ID=\"" + number + "\"><Address2>" + number +
           " MAIN ST</Address2><City>SPRINGFIELD</City><State>IL</State><Zip5>62701</Zip5>"
           "<Zip4>1103</Zip4></Address>";
  }

  static void ExpectHolds(const std::string& text, const std::vector<std::string>& parts) {
    for (const std::string& part : parts) {
      EXPECT_NE(text.find(part), std::string::npos) << part << " is not in\n" << text;
    }
  }

  const std::string kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  const TempFolder folder_;
  PostalStandIn api_;
};

// Each address of a document is asked for by itself: one that is turned down does not affect the
// others; one that cannot be asked for now makes the whole an error, but the answers are kept.
TEST_F(GatewayDaemonTest, AnswersWholeDocuments) {
  {
    Daemon daemon(Arguments({"--budget", "4/h"}));
    const std::string address = daemon.ReadAddress();
    EXPECT_EQ(Ask(address, {"2", "9", "1"}),
              kDeclaration + "<AddressValidateResponse>" + Found("2") +
                  "<Address ID=\"9\"><Error><Number>-2147219401</Number><Source>clsAMS</Source>"
                  "<Description>Address Not Found.  </Description><HelpFile/><HelpContext/></Error>"
                  "</Address>" +
                  Found("1") + "</AddressValidateResponse>");
    const std::string error = Ask(address, {"3", "4"});
    EXPECT_TRUE(error.starts_with(
        kDeclaration +
        "<Error><Number>80040B18</Number><Description>The gateway has made all the "
        "calls to the address service that it may make for now. It goes on with new "
        "addresses at 20"))
        << error;
    EXPECT_TRUE(error.ends_with(" UTC.</Description><Source>USPSCOM::DoAuth</Source></Error>"));
    ExpectHolds(AskWhole(address, {"4"}), {"\r\nRetry-After: 3"});  // the hour, less a moment
    EXPECT_EQ(AskWhole(address, {"1"}).find("Retry-After"), std::string::npos);
    EXPECT_EQ(api_.Addresses(), 4);
    ExpectHolds(Body(Get(address, "/status")),
                {"postal-v3 " + api_.Url(), "waits until 20", "budget is spent", "0 of 4/h left",
                 "4 calls, 0 under way", "budget-spent 2",
                 " answers in " + folder_.File("new/answers.sqlite"), "0 failures"});
    ExpectHolds(Body(Get(address, "/metrics")),
                {"\npostwright_upstream_calls_total 4\n", "\npostwright_upstream_budget_left 0\n",
                 "\npostwright_errors_total{kind=\"budget-spent\"} 2\n",
                 "\npostwright_addresses_total{outcome=\"found\"} 4\n",
                 "\npostwright_rejections_total{number=\"-2147219401\"} 1\n",
                 "\npostwright_document_seconds_bucket{le=\"+Inf\"} 4\n",
                 "\npostwright_upstream_call_seconds_count 4\n",
                 "\npostwright_cache_hit_age_seconds_count ", "\npostwright_upstream_paused 1\n"});
    for (const char* headers :
         {"Host: example.com\r\n", "Host: 127.example.com\r\n",
          "Host: localhost\r\nX-Forwarded-For: 192.0.2.1\r\n",
          "Host: localhost\r\nvia: 1.1 proxy\r\n", "Host: localhost\r\nX-Real-IP: 192.0.2.1\r\n"}) {
      EXPECT_TRUE(Get(address, "/status", headers).starts_with("HTTP/1.1 403")) << headers;
    }
    for (const std::string& host : {address, std::string("[::1]:1"), std::string("LOCALHOST:80")}) {
      EXPECT_TRUE(Get(address, "/metrics", "Host: " + host + "\r\n").starts_with("HTTP/1.1 200"))
          << host;
    }
    daemon.Signal(SIGTERM);
    EXPECT_EQ(daemon.Wait(), 0);
    for (std::string line = daemon.ReadLine(); !line.empty(); line = daemon.ReadLine()) {
      EXPECT_EQ(line.find("secret"), std::string::npos) << line;
      EXPECT_EQ(line.find("token-"), std::string::npos) << line;
      EXPECT_EQ(line.find("MAIN"), std::string::npos) << line;
    }
  }
  Daemon again(Arguments({"--budget", "4/h", "--fallback", "base", "--open-status", "a.example"}));
  const std::string address = again.ReadAddress();
  EXPECT_EQ(Ask(address, {"3"}),
            kDeclaration + "<AddressValidateResponse>" + Found("3") + "</AddressValidateResponse>");
  EXPECT_EQ(Ask(address, {"4"}),
            kDeclaration +
                "<AddressValidateResponse><Address ID=\"4\"><Address2>4 MAIN ST"
                "</Address2><City>SPRINGFIELD</City><State>IL</State><Zip5>62701</Zip5>"
                "<Zip4/></Address></AddressValidateResponse>");
  EXPECT_EQ(api_.Addresses(), 4);
  ExpectHolds(Get(address, "/status", "Host: A.example:80\r\nX-Forwarded-For: 192.0.2.1\r\n"),
              {"HTTP/1.1 200", "1 answered from the local base"});
  // Every metric of the Grafana board exists.
  std::ifstream file(POSTWRIGHT_SOURCE_DIR "/examples/grafana/postwright.json");
  const std::string board{std::istreambuf_iterator<char>(file), {}};
  const std::string metrics = Body(Get(address, "/metrics"));
  const std::regex name("postwright_[a-z_]+");
  const std::sregex_iterator end;
  size_t count = 0;
  for (std::sregex_iterator at(board.begin(), board.end(), name); at != end; ++at, ++count) {
    EXPECT_NE(metrics.find('\n' + at->str()), std::string::npos) << at->str();
  }
  EXPECT_GT(count, 20U);
}

TEST_F(GatewayDaemonTest, ReadsItsCredentialsAgain) {
  WriteCredentials("outdated");
  Daemon daemon(Arguments({}));
  const std::string address = daemon.ReadAddress();
  ExpectHolds(Ask(address, {"1"}), {"<Number>80040B1A</Number>"});
  ExpectHolds(daemon.ReadLine(), {"upstream: unauthorised (token: HTTP 401); asked again at 20"});
  daemon.ReadLine();
  chmod((folder_.File("credentials")).c_str(), 0644);
  daemon.Signal(SIGHUP);
  ExpectHolds(daemon.ReadLine(), {"the base was read again"});
  ExpectHolds(daemon.ReadLine(), {"chmod 600", "the old file of credentials stays in use"});
  WriteCredentials("secret");
  daemon.Signal(SIGHUP);
  daemon.ReadLine();
  ExpectHolds(daemon.ReadLine(), {"the file of credentials was read again"});
  EXPECT_EQ(Ask(address, {"1"}),
            kDeclaration + "<AddressValidateResponse>" + Found("1") + "</AddressValidateResponse>");
}

TEST_F(GatewayDaemonTest, FinishesWhatWaitsForTheUpstream) {
  api_.Hold();
  Daemon daemon(Arguments({}));
  const std::string address = daemon.ReadAddress();
  std::string answer;
  std::thread client([&] { answer = Ask(address, {"1"}); });
  while (api_.Addresses() == 0) {
    usleep(1000);
  }
  daemon.Signal(SIGTERM);
  usleep(50'000);
  api_.Release();
  EXPECT_EQ(daemon.Wait(), 0);
  client.join();
  ExpectHolds(answer, {Found("1")});
}

}  // namespace
}  // namespace postwright::service
