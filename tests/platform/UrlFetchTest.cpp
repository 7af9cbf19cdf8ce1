#include "platform/UrlFetch.h"

#include "tests/support/LoopbackServer.h"

#include <postwright/MacPlatformServices.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace postwright {

namespace {

using Answer = LoopbackServer::Answer;

const std::string kHead = "HTTP/1.1 200 OK\r\n";
const std::string kChunked = kHead + "Transfer-Encoding: chunked\r\n\r\n";
const std::string kMuch(1U << 16U, 'x');

std::string Fetch(const std::string& url) {
  const std::vector<std::uint8_t> body = FetchUrl(url, {.silence = std::chrono::seconds(1)});
  return std::string(body.begin(), body.end());
}

std::string Url(const LoopbackServer& server) {
  return "http://" + server.GetEndpoint() + "/x";
}

TEST(UrlFetchTest, GivesWholeBodiesAlone) {
  const struct {
    const char* name;
    Answer answer;
    std::string body;
  } kRows[] = {
      {"body of given length", {kHead + "Content-Length: 5\r\n\r\nhello"}, "hello"},
      {"body up to the close", {kHead + "\r\nhello", true}, "hello"},
      {"body in chunks", {kChunked + "2\r\nhe\r\n3\r\nllo\r\n0\r\n\r\n"}, "hello"},
      {"zero bytes",
       {kHead + "Content-Length: 3\r\n\r\na" + std::string("\0b", 2)},
       std::string("a\0b", 3)},
      {"page of an error", {"HTTP/1.1 500 No\r\nContent-Length: 4\r\n\r\noops"}, "oops"},
      {"not asked to be packed",
       {kHead + "Content-Encoding: gzip\r\nContent-Length: 2\r\n\r\n\x1F\x8B"},
       "\x1F\x8B"},
      {"no body", {kHead + "Content-Length: 0\r\n\r\n"}, ""},
      {"half a body", {kHead + "Content-Length: 10\r\n\r\nhello", true}, ""},
      {"half a chunk", {kChunked + "9\r\nhello", true}, ""},
      {"closed at once", {"", true}, ""},
      {"not HTTP", {"hello\r\n\r\n", true}, ""},
      {"silence", {""}, ""},
      {"silence after half", {kHead + "Content-Length: 10\r\n\r\nhello"}, ""},
      {"redirect to itself", {"HTTP/1.1 302 Go\r\nLocation: /\r\nContent-Length: 0\r\n\r\n"}, ""},
      {"redirect to a file",
       {"HTTP/1.1 302 Go\r\nLocation: file:///etc/passwd\r\nContent-Length: 0\r\n\r\n"},
       ""},
      {"announced beyond the bound",
       {kHead + "Content-Length: 16777217\r\n\r\n", false, kMuch},
       ""},
      {"endless body", {kHead + "\r\n", false, kMuch}, ""},
      {"endless head", {kHead, false, "A: " + kMuch.substr(1024) + "\r\n"}, ""},
      {"endless interim replies", {"", false, "HTTP/1.1 100 Continue\r\nA: B\r\n\r\n"}, ""},
      {"endless trailers", {kChunked + "0\r\n", false, "A: " + kMuch.substr(60000) + "\r\n"}, ""},
      {"endless body of a redirect",
       {"HTTP/1.1 302 Go\r\nLocation: /\r\nTransfer-Encoding: chunked\r\n\r\n", false,
        "10000\r\n" + kMuch + "\r\n"},
       ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    LoopbackServer server(row.answer);
    EXPECT_EQ(Fetch(Url(server)), row.body);
  }
}

TEST(UrlFetchTest, TakesBodiesUpToTheBound) {
  constexpr std::size_t kBound = 16U << 20U;
  for (const std::size_t size : {kBound, kBound + 1}) {
    LoopbackServer server(Answer{kHead + "\r\n" + std::string(size, 'x'), true});
    EXPECT_EQ(Fetch(Url(server)).size(), size == kBound ? kBound : 0);
  }
}

TEST(UrlFetchTest, RefusesWhatIsNoAbsoluteHttpUrl) {
  LoopbackServer server(Answer{kHead + "Content-Length: 5\r\n\r\nhello"});
  const std::string host = server.GetEndpoint();
  const std::vector<std::string> urls = {"",
                                         host + "/x",
                                         "//" + host + "/x",
                                         "http://",
                                         "file:///etc/passwd",
                                         "ftp://" + host + "/x",
                                         "http://" + host + "/a b",
                                         "http://" + host + "0/x",
                                         "http://127.0.0.1:1/"};
  for (const std::string& url : urls) {
    EXPECT_EQ(Fetch(url), "") << url;
  }
  EXPECT_TRUE(server.GetRequests().empty());
}

TEST(UrlFetchTest, SendsTheBareRequestOnOneConnectionAThread) {
  LoopbackServer server(Answer{kHead + "Content-Length: 5\r\n\r\nhello"});
  const std::string request = "/x?XML=%3Ca%3E&amp;%26amp%3b'\"";
  const auto fetchTwice = [&] {
    MacPlatformServices services;
    const std::wstring url = services.UTF8ToUCS2("http://" + server.GetEndpoint() + request);
    EXPECT_EQ(services.ReadUrl(url.c_str())->size(), 5U);
    EXPECT_EQ(services.ReadUrl(url.c_str())->size(), 5U);
  };
  std::thread other(fetchTwice);
  fetchTwice();
  other.join();
  const std::string expected =
      "GET " + request + " HTTP/1.1\r\nHost: " + server.GetEndpoint() + "\r\n\r\n";
  EXPECT_EQ(server.GetRequests(), std::vector<std::string>(4, expected));
  EXPECT_EQ(server.CountConnections(), 2);
}

TEST(UrlFetchTest, ForkedChildOpensItsOwnConnection) {
  LoopbackServer server(Answer{kHead + "Content-Length: 5\r\n\r\nhello"});
  EXPECT_EQ(Fetch(Url(server)), "hello");
  const pid_t child = fork();
  if (child == 0) {
    _exit(Fetch(Url(server)) == "hello" ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Fetch(Url(server)), "hello");
  EXPECT_EQ(server.CountConnections(), 2);
}

}  // namespace

}  // namespace postwright
