#include "common/HttpFetch.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <thread>

#include "tests/support/HostileShapes.h"
#include "tests/support/LoopbackServer.h"

namespace postwright {

namespace {

std::string Url(const LoopbackServer& server) {
  return "http://" + server.GetEndpoint() + "/x";
}

TEST(HttpFetchTest, EndsWhateverTheServerDoes) {
  ForEachHostileShape([](const HostileShape& shape) {
    SCOPED_TRACE(shape.name);
    const LoopbackServer server(shape.answer);
    HttpFetch http;
    const HttpFetch::Reply reply = http.Send({Url(server)}, HostileLimits());
    EXPECT_EQ(reply.outcome, shape.end) << reply.detail;
    EXPECT_EQ(reply.body, shape.body);
    EXPECT_EQ(reply.detail.empty(), shape.end == HttpOutcome::Answered);
    EXPECT_EQ(reply.requests, 1);
  });
}

TEST(HttpFetchTest, SaysWhyNothingWasSent) {
  const LoopbackServer server(LoopbackServer::Page("hello"));
  const struct {
    std::string url;
    HttpOutcome end;
  } rows[] = {
      {"", HttpOutcome::BadUrl},
      {server.GetEndpoint() + "/x", HttpOutcome::BadUrl},
      {"http://a b/", HttpOutcome::BadUrl},
      {"file:///etc/passwd", HttpOutcome::BadUrl},
      {"http://nowhere.invalid/", HttpOutcome::NotResolved},
      {"http://127.0.0.1:1/", HttpOutcome::Refused},
      {"https://" + server.GetEndpoint() + "/x", HttpOutcome::TimedOut},  // it waits for a request
  };
  HttpFetch http;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.url);
    const HttpFetch::Reply reply = http.Send({row.url}, HostileLimits());
    EXPECT_EQ(reply.outcome, row.end) << reply.detail;
    EXPECT_EQ(reply.requests, 0);
  }
}

TEST(HttpFetchTest, SendsWhatItIsGivenOnOneConnection) {
  const LoopbackServer server(LoopbackServer::Answer{
      "HTTP/1.1 429 Later\r\nRetry-After: 100000\r\nContent-Length: 2\r\n\r\nno"});
  HttpFetch http;
  const HttpFetch::Reply got = http.Send({Url(server), {"Accept:", "A: b"}}, {});
  EXPECT_EQ(got.status, 429);
  EXPECT_EQ(got.retryAfter, std::chrono::hours(24));
  EXPECT_EQ(got.body, "no");
  http.Send({Url(server), {"Accept:", "Content-Type: c/d"}, "body"}, {});
  http.Send({Url(server), {"Accept:"}, ""}, {});
  const std::string line = " /x HTTP/1.1\r\nHost: " + server.GetEndpoint() + "\r\n";
  const std::vector<std::string> requests = {
      "GET" + line + "A: b\r\n\r\n",
      "POST" + line + "Content-Type: c/d\r\nContent-Length: 4\r\n\r\nbody",
      "POST" + line +
          "Content-Length: 0\r\nContent-Type: application/x-www-form-urlencoded\r\n\r\n"};
  EXPECT_EQ(server.GetRequests(), requests);
  EXPECT_EQ(server.CountConnections(), 1U);
}

// What follows an answer is not taken for the beginning of the next one.
TEST(HttpFetchTest, LeavesAConnectionOnWhichMoreCameThanAnnounced) {
  const LoopbackServer server(
      LoopbackServer::Answer{"HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n1HTTP/1.1 200 "
                             "OK\r\nContent-Length: 1\r\n\r\n2"});
  HttpFetch http;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(http.Send({Url(server)}, {}).body, "1");
  }
  EXPECT_EQ(server.CountConnections(), 3U);
}

// A connection that ends during a request is replaced; the server may have read the lost request.
TEST(HttpFetchTest, CountsTheRequestThatItSendsAgain) {
  int requests = 0;
  const LoopbackServer server([&requests](const std::string&) {
    return ++requests == 2 ? LoopbackServer::Answer{"", true} : LoopbackServer::Page("hello");
  });
  HttpFetch http;
  EXPECT_EQ(http.Send({Url(server)}, {}).requests, 1);
  const HttpFetch::Reply reply = http.Send({Url(server)}, {});
  EXPECT_EQ(reply.body, "hello");
  EXPECT_EQ(reply.requests, 2);
}

TEST(HttpFetchTest, FollowsRedirectsWhereItMayAndCountsEachRequest) {
  const LoopbackServer server([](const std::string& request) {
    const bool isLast = request.find("/last ") != std::string::npos;
    return isLast ? LoopbackServer::Page("hello")
                  : LoopbackServer::Answer{
                        "HTTP/1.1 302 Go\r\nContent-Length: 0\r\nLocation: /last\r\n\r\n"};
  });
  HttpFetch http;
  HttpLimits limits = HostileLimits();
  EXPECT_EQ(http.Send({Url(server)}, limits).status, 302);
  limits.redirects = 1;
  const HttpFetch::Reply reply = http.Send({Url(server)}, limits);
  EXPECT_EQ(reply.body, "hello");
  EXPECT_EQ(reply.requests, 2);

  const LoopbackServer astray(LoopbackServer::Answer{
      "HTTP/1.1 302 Go\r\nContent-Length: 0\r\nLocation: file:///etc/passwd\r\n\r\n"});
  EXPECT_EQ(http.Send({Url(astray)}, limits).outcome, HttpOutcome::BadAnswer);
}

std::string Pack(const std::string& text) {
  std::string packed(compressBound(text.size()), '\0');
  uLongf size = packed.size();
  compress(reinterpret_cast<Bytef*>(packed.data()), &size,
           reinterpret_cast<const Bytef*>(text.data()), text.size());
  packed.resize(size);
  return packed;
}

TEST(HttpFetchTest, CountsBodiesAsTheyAreUnpacked) {
  const std::size_t bound = HostileLimits().bytes;
  for (const std::size_t size : {bound, bound + 1}) {
    const LoopbackServer server(LoopbackServer::Answer{
        "HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\n\r\n" + Pack(std::string(size, 'x')),
        true});
    HttpFetch http;
    HttpFetch::Request request = {Url(server)};
    EXPECT_LT(http.Send(request, HostileLimits()).body.size(), bound);  // as it came
    request.takesPacked = true;
    const HttpFetch::Reply reply = http.Send(request, HostileLimits());
    EXPECT_EQ(reply.outcome, size == bound ? HttpOutcome::Answered : HttpOutcome::TooLong);
    EXPECT_EQ(reply.body.size(), size == bound ? bound : 0);
  }
}

// Each head has 40 KiB and one coding; the limit is 64 KiB. Interim answers count with the final
// one; a redirect does not count with its target.
TEST(HttpFetchTest, CountsEachAnswersHeadAlone) {
  const std::string field = "A: " + std::string(std::size_t{40} << 10U, 'x') + "\r\n";
  const std::string rest = "Content-Encoding: deflate\r\n" + field + "\r\n" + Pack("hello");
  const std::string go = "HTTP/1.1 302 Go\r\nLocation: /last\r\nContent-Encoding: deflate\r\n" +
                         field + "Content-Length: 0\r\n\r\n";
  const std::string interim = "HTTP/1.1 103 Wait\r\n" + field + "\r\n";
  const std::string early = "HTTP/1.1 103 Wait\r\nContent-Encoding: deflate\r\n\r\n";
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const struct {
    const char* name;
    std::string first;  // in answer to the first request
    HttpOutcome end;
  } rows[] = {
      {"a redirect", go, HttpOutcome::Answered},
      {"an interim answer", early + ok + rest, HttpOutcome::Answered},
      {"a long one", interim + ok + rest, HttpOutcome::TooLong},
      {"two codings", ok + "Content-Encoding: deflate\r\n" + rest, HttpOutcome::BadAnswer},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const LoopbackServer server([&](const std::string& request) {
      const bool isLast = request.find("/last ") != std::string::npos;
      return LoopbackServer::Answer{isLast ? ok + rest : row.first, isLast || row.first != go};
    });
    HttpLimits limits = HostileLimits();
    limits.redirects = 1;
    HttpFetch::Request request = {Url(server)};
    request.takesPacked = true;
    HttpFetch http;
    const HttpFetch::Reply reply = http.Send(request, limits);
    EXPECT_EQ(reply.outcome, row.end) << reply.detail;
    EXPECT_EQ(reply.body, row.end == HttpOutcome::Answered ? "hello" : "");
  }
}

TEST(HttpFetchTest, EndsWhenCancelled) {
  const LoopbackServer server(LoopbackServer::Answer{""});
  std::atomic<bool> cancelled = false;
  HttpLimits limits;
  limits.cancelled = &cancelled;
  std::thread other([&] {
    while (server.GetRequests().empty()) {
      std::this_thread::yield();
    }
    cancelled = true;
  });
  HttpFetch http;
  EXPECT_EQ(http.Send({Url(server)}, limits).outcome, HttpOutcome::Cancelled);
  other.join();
}

}  // namespace

}  // namespace postwright
