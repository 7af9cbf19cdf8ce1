#include <gtest/gtest.h>
#include <signal.h>

#include <string>
#include <vector>

#include "common/SmallText.h"
#include "tests/postal/base/SampleBase.h"
#include "tests/service/Daemon.h"
#include "tests/service/Socket.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

const std::string kData = POSTWRIGHT_SOURCE_DIR "/data/sample/";

std::string Form(const std::string& name, const std::string& text, const std::string& more = "") {
  return name + "=" + EscapeQuery(text) + more;
}

std::string Post(const std::string& body, const std::string& head = "Host: localhost\r\n") {
  return "POST / HTTP/1.1\r\n" + head + "Content-Length: " + std::to_string(body.size()) +
         "\r\n\r\n" + body;
}

// The service with the streets of the made-up towns.
class PageTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new TempFolder;
    postal::Import(folder_->File("town.base"), "town", {kData + "town.csv"}, postal::SampleZips());
  }
  static void TearDownTestSuite() { delete folder_; }

  static std::vector<std::string> Arguments(std::vector<std::string> more = {}) {
    more.insert(more.end(), {"--listen", "127.0.0.1:0", "--base", folder_->File("town.base"),
                             "--base", kData + "zips.tsv"});
    return more;
  }

  static inline TempFolder* folder_ = nullptr;
};

TEST_F(PageTest, AnswersForms) {
  const std::string many(10'001, 'x');
  std::string rows = "address\n";
  for (int row = 0; row < 1000; ++row) {
    rows += "\"12 n main street, millrace oh 00011\"\n";
  }
  const std::string cells = "name,street,apt,city,state,zip\n";
  const struct {
    std::string request;
    int status;
    std::vector<std::string> holds;
    std::vector<std::string> lacks = {};
  } kRows[] = {
      {"GET / HTTP/1.1\r\nHost: localhost\r\n\r\n",
       200,
       {"Content-Security-Policy: default-src 'none'; script-src 'sha256-",
        "frame-ancestors 'none'", "<textarea name=\"label\"", "Cache-Control: no-store",
        "State of the service", "town.base"},
       {"Set-Cookie", " style=\"", " onclick", "http://fonts", "unsafe-inline"}},
      {Post(Form("label", "Jane\r\n12 north main street\r\nmillrace oh 00011")),
       200,
       {"badge fixed", "12 <ins>N</ins> MAIN <ins>ST</ins>", "directional in standard form",
        "according to the address base town.base"}},
      {Post(Form("label", "Jane\n99 north main street\nmillrace oh 00011")),
       200,
       {"badge to-decide", "Look at the number", "What could have been meant", "House number, "}},
      {Post(Form("label", "\xEE\x80\x80 N MAIN ST\nMILLRACE, OH 00011", "&number=12")),
       200,
       {"12 N MAIN ST", "Confirmed, according to"}},
      {Post(Form("label", "12 Main St\nBoston MA 2108")), 200, {"Was this meant?", "MA 02108"}},
      {Post(Form("label", "RR 3 Box 14\nMillrace OH 00011")), 200, {"nobody was asked"}},
      {Post(Form("label", "12 Nowhere St\nMillrace OH 00011")), 200, {"badge turned-down"}},
      {Post(Form("label", "  \r\n")), 200, {"There is no label"}},
      {Post(Form("label", many)), 200, {"too long for a label"}},
      {Post("nothing=at+all"), 200, {"There is no label"}},
      // Hostile texts are text.
      {Post(Form("label", "</textarea><script>alert(1)</script>\n12 n main st\nmillrace oh 00011")),
       200,
       {"&lt;/textarea&gt;&lt;script&gt;alert(1)"},
       {"<script>alert"}},
      {Post(Form("label",
                 "\"><img src=x onerror=a>&amp;\x01\xE2\x80\xAE\xFF\n12 n main st\nmillrace "
                 "oh 00011")),
       200,
       {"&quot;&gt;&lt;img", "&amp;amp;\xEF\xBF\xBD"},
       {"<img", "\x01", "\xE2\x80\xAE"}},
      {Post(Form("table", "name,address\n<b x='>,12 n main street; millrace oh 00011\n")),
       200,
       {"data-cells=\"[&quot;&lt;b x=&#39;"},
       {"<b x"}},
      // Tables.
      {Post(Form("table", "address\n\"99 n main st, millrace oh 00011\"\n")),
       200,
       {"class=\"meant\"", "What could have been meant: "}},
      {Post(Form("table",
                 cells + "Jane,12 north main street,,millrace,ohio,00011\nBob,\"1 Main\nEve,,,,,\n"
                         "Flat,14 n main st,2,millrace,oh,00011\nMore,a,b,c,d,e,f\n"
                         "Off,99 n main st,,millrace,oh,00011\n",
                 "&as=csv")),
       200,
       {"attachment; filename=\"corrected.csv\"",
        "name,street,apt,city,state,zip,status,confirmation,reason,zip4,proposed\r\n",
        "Jane,12 N MAIN ST,,MILLRACE,OH,00011,fixed,confirmed,,00011-1201,\r\n",
        "\"Bob,\"\"1 Main\",,,,,,not-asked,,unreadable,,\r\n", "Eve,,,,,,not-asked,,empty,,\r\n",
        "Flat,14 N MAIN ST,2,MILLRACE,OH,00011,fixed,confirmed,", "More,a,b,c,d,e,f\r\n",
        "Off,99 n main st,,millrace,oh,00011,to-decide,number-not-known,"}},
      {Post(Form("table", "Address\tNote\n12 n main street, millrace oh 00011\t=1+1", "&as=csv")),
       200,
       {"\"12 N MAIN ST\nMILLRACE OH 00011-1201\",=1+1,fixed"}},
      {Post(Form("table", "12 n main street, millrace oh 00011\n", "&as=rows")),
       200,
       {"<li data-status=\"fixed\""},
       {"<html", "<script"}},
      {Post(Form("table",
                 "address,status,confirmation,reason,zip4,proposed\n\"12 n main st, "
                 "millrace oh 00011\",not-answered,,,,\n",
                 "&as=csv")),
       200,
       {"\r\n\r\naddress,status,confirmation,reason,zip4,proposed\r\n", ",fixed,confirmed,"}},
      {Post(Form("table", "a;b\nc;d", "&as=csv")), 200, {"No column of an address was found"}},
      {Post(Form("table", "street,city")), 200, {"no row under the names"}},
      {Post(Form("table", "")), 200, {"There is no row."}},
      {Post(Form("table", "address" + std::string(300'000, ',') + "\nx")),
       200,
       {"than 200 columns"}},
      {Post(Form("table", std::string(300'000, '"'))), 200, {"more than 2000 characters"}},
      {Post(Form("table", rows)), 200, {">1000</span>"}},
      {Post(Form("table", rows + "one more\n")), 200, {"more than 1,000 rows"}},
      {Post(Form("table", std::string(1024 * 1024, 'x'))), 413, {"up to 1048576 bytes"}},
      // Users.
      {Post("label=x", "Host: evil.example\r\n"), 403, {"--open-page"}},
      {Post(std::string(65'537, 'x'), "Host: evil.example\r\n"), 413, {"up to 65536 bytes"}},
      {Post("label=x", "Host: localhost\r\nVia: 1.1 proxy\r\n"), 403, {}},
      {Post("label=x", "Host: localhost\r\nOrigin: http://evil.example\r\n"), 403, {"own page"}},
      {Post("label=x", "Host: localhost\r\nOrigin: null\r\n"), 403, {}},
      {Post("label=x", "Host: localhost:1\r\nOrigin: http://localhost:1\r\n"), 200, {}},
      {Post("label=x", "Host: open.example\r\nVia: 1.1 proxy\r\n"), 200, {}, {"town.base"}},
      // Questions from the page are counted separately.
      {"GET /metrics HTTP/1.1\r\nHost: localhost\r\n\r\n",
       200,
       {"\npostwright_addresses_total{outcome=\"found\"} 0\n"},
       {"postwright_page_addresses_total{outcome=\"found\"} 0\n"}},
  };
  Daemon daemon(Arguments({"--open-page", "open.example"}));
  const std::string address = daemon.ReadAddress();
  for (const auto& row : kRows) {
    Socket client(address);
    client.Send(row.request);
    const std::string reply = client.ReceiveResponse();
    const std::string shown = row.request.substr(0, 300);
    EXPECT_TRUE(reply.starts_with("HTTP/1.1 " + std::to_string(row.status) + ' '))
        << shown << "\n"
        << reply.substr(0, 300);
    const std::string log = daemon.ReadLine();
    EXPECT_EQ(log.find("main"), std::string::npos) << log;
    for (const std::string& part : row.holds) {
      EXPECT_NE(reply.find(part), std::string::npos) << part << "\nin " << shown;
    }
    for (const std::string& part : row.lacks) {
      EXPECT_EQ(reply.find(part), std::string::npos) << part << "\nin " << shown;
    }
  }
}

// The server's only thread goes on while a label waits for an upstream that does not answer.
TEST_F(PageTest, HoldsNobodyUp) {
  const std::string credentials = folder_->Write("credentials", "user_id = X\n");
  Daemon silent(Arguments());
  const std::string upstream = silent.ReadAddress();
  silent.Signal(SIGSTOP);
  Daemon daemon(Arguments({"--threads", "1", "--upstream", "verify-xml", upstream, "--credentials",
                           credentials, "--cache", "none"}));
  const std::string address = daemon.ReadAddress();
  Socket page(address);
  page.Send(Post(Form("label", "12 n main street\nmillrace oh 00011")));
  const std::string status = "GET /status HTTP/1.1\r\nHost: localhost\r\n\r\n";
  Socket other(address);
  for (std::string reply; reply.find("1 under way") == std::string::npos;) {
    other.Send(status);
    reply = other.ReceiveResponse();
    ASSERT_TRUE(reply.starts_with("HTTP/1.1 200"));
  }
  for (int waiting = 0; waiting < 9; ++waiting) {  // one more than may wait for the page
    Socket next(address);
    next.Send(Post("label=x"));
    if (waiting == 8) {
      EXPECT_TRUE(next.ReceiveResponse().starts_with("HTTP/1.1 503"));
    }
    other.Send(status);  // so that it is accepted before the next one
    other.ReceiveResponse();
  }
  silent.Signal(SIGCONT);
  const std::string reply = page.ReceiveResponse();
  EXPECT_NE(reply.find("MAIN <ins>ST"), std::string::npos)
      << reply.substr(reply.find("<p class=\"verdict"));
}

}  // namespace
}  // namespace postwright::service
