#include "platform/UrlFetch.h"

#include "tests/support/HostileShapes.h"
#include "tests/support/LoopbackServer.h"

#include <postwright/Deployment.h>
#include <postwright/FetchTimeout.h>
#include <postwright/MacPlatformServices.h>
#include <postwright/Postwright.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <mutex>

namespace postwright {

namespace {

using Answer = LoopbackServer::Answer;

const std::string kOk = "HTTP/1.1 200 OK\r\n";

std::string Fetch(const std::string& url, const HttpLimits& limits = FetchLimits()) {
  const std::vector<std::uint8_t> body = FetchUrl(url, limits);
  return std::string(body.begin(), body.end());
}

// Lets other threads use the engine while a reply is awaited: the process has one parser, which
// takes no lock, and the fixes of this file must be able to wait side by side.
class WaitingAside : public MacPlatformServices {
 public:
  explicit WaitingAside(std::mutex* engine) : turn_(*engine) {}

  std::unique_ptr<std::vector<std::uint8_t>> ReadUrl(const wchar_t* url) override {
    turn_.unlock();
    auto body = MacPlatformServices::ReadUrl(url);
    turn_.lock();
    return body;
  }

 private:
  std::unique_lock<std::mutex> turn_;
};

std::string Url(const LoopbackServer& server) {
  return "http://" + server.GetEndpoint() + "/x";
}

}  // namespace

TEST(UrlFetchTest, GivesWholeBodiesAlone) {
  ForEachHostileShape([](const HostileShape& shape) {
    SCOPED_TRACE(shape.name);
    const LoopbackServer server(shape.answer);
    HttpLimits limits = HostileLimits();
    limits.redirects = FetchLimits().redirects;
    FetchReport report;
    const std::vector<std::uint8_t> body = FetchUrl(Url(server), limits, &report);
    EXPECT_EQ(std::string(body.begin(), body.end()), shape.body);
    EXPECT_EQ(report.outcome == FetchOutcomeBrokeOff,
              shape.end == HttpOutcome::NoAnswer || shape.end == HttpOutcome::BrokeOff);
  });
}

// The engine within its own limits: a fix ends, and no shape is taken for an address. The house
// number says which shape it is.
TEST(UrlFetchTest, NoFixTakesWhatAHostileServerSends) {
  const LoopbackServer server([](const std::string& request) {
    const std::string_view before = "Address2%3E";
    return HostileShapes()
        .at(std::stoul(request.substr(request.find(before) + before.size())))
        .answer;
  });
  const Deployment usual = GetDeployment();
  Deployment there = usual;
  there.verifyHost = server.GetEndpoint();
  SetDeployment(there);
  SetFetchTimeout(std::chrono::seconds(3));
  std::atomic<std::size_t> next = 0;
  std::mutex engine;
  ForEachHostileShape([&next, &engine](const HostileShape&) {
    const std::size_t number = next++;
    SCOPED_TRACE(HostileShapes()[number].name);
    WaitingAside services(&engine);
    EXPECT_THROW(
        Postwright::Fix(std::to_wstring(number) + L" Main St\nAustin, TX 78701", false, &services),
        PostwrightException);
  });
  SetFetchTimeout(std::chrono::minutes(2));
  SetDeployment(usual);
  EXPECT_EQ(server.GetRequests().size(), HostileShapes().size());
}

TEST(UrlFetchTest, FollowsRedirectsWithinItsLimits) {
  const std::string go = "HTTP/1.1 302 Go\r\nContent-Length: 0\r\nLocation: ";
  const struct {
    const char* name;
    Answer answer;
  } rows[] = {
      {"to itself", {go + "/\r\n\r\n"}},
      {"to a file", {go + "file:///etc/passwd\r\n\r\n"}},
      {"with an endless body",
       {"HTTP/1.1 302 Go\r\nLocation: /\r\n\r\n", false, std::string(1U << 16U, 'x')}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const LoopbackServer server(row.answer);
    EXPECT_EQ(Fetch(Url(server)), "");
    EXPECT_LE(server.GetRequests().size(), 21U);
  }
}

// The silence that ends a fetch, and the longest it may last in all.
TEST(UrlFetchTest, EndsWhereNothingMoreComes) {
  const LoopbackServer server(Answer{kOk + "Content-Length: 9\r\n\r\nhello"});
  HttpLimits limits = FetchLimits();
  limits.silence = std::chrono::seconds(1);
  EXPECT_EQ(Fetch(Url(server), limits), "");
  const std::chrono::milliseconds usual = GetFetchTimeout();
  SetFetchTimeout(std::chrono::milliseconds(200));
  const std::wstring url = MacPlatformServices().UTF8ToUCS2(Url(server));
  EXPECT_TRUE(MacPlatformServices().ReadUrl(url.c_str())->empty());
  SetFetchTimeout(usual);
}

TEST(UrlFetchTest, TakesBodiesUpToTheBound) {
  const std::string head = kOk + "\r\n";
  const std::size_t bound = (16U << 20U) - head.size();
  for (const std::size_t size : {bound, bound + 1}) {
    const LoopbackServer server(Answer{head + std::string(size, 'x'), true});
    EXPECT_EQ(Fetch(Url(server)).size(), size == bound ? bound : 0);
  }
}

TEST(UrlFetchTest, RefusesWhatIsNoAbsoluteHttpUrl) {
  const LoopbackServer server(LoopbackServer::Page("hello"));
  const std::string host = server.GetEndpoint();
  const std::vector<std::string> urls = {"",
                                         host + "/x",
                                         "//" + host,
                                         "http://",
                                         "file:///etc/passwd",
                                         "ftp://" + host + "/x",
                                         "http://" + host + "/a b",
                                         "http://" + host + "0/x",
                                         "http://127.0.0.1:1/"};
  for (const std::string& url : urls) {
    EXPECT_EQ(Fetch(url), "") << url;
  }
  EXPECT_EQ(server.CountConnections(), 0U);
}

TEST(UrlFetchTest, SendsTheBareRequestOnOneConnectionAThread) {
  const LoopbackServer server(LoopbackServer::Page("hello"));
  const std::string target = "/x?XML=%3Ca%3E&amp;%26amp%3b'\"";
  const auto fetchTwice = [&] {
    MacPlatformServices services;
    const std::wstring url = services.UTF8ToUCS2("http://" + server.GetEndpoint() + target);
    EXPECT_EQ(services.ReadUrl(url.c_str())->size(), 5U);
    EXPECT_EQ(services.ReadUrl(url.c_str())->size(), 5U);
  };
  std::thread other(fetchTwice);
  fetchTwice();
  other.join();
  const std::string request =
      "GET " + target + " HTTP/1.1\r\nHost: " + server.GetEndpoint() + "\r\n\r\n";
  EXPECT_EQ(server.GetRequests(), std::vector<std::string>(4, request));
  EXPECT_EQ(server.CountConnections(), 2U);
}

TEST(UrlFetchTest, ForkedChildOpensItsOwnConnection) {
  const LoopbackServer server(LoopbackServer::Page("hello"));
  EXPECT_EQ(Fetch(Url(server)), "hello");
  const pid_t child = fork();
  if (child == 0) {
    _exit(Fetch(Url(server)) == "hello" ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Fetch(Url(server)), "hello");
  EXPECT_EQ(server.CountConnections(), 2U);
}

}  // namespace postwright
