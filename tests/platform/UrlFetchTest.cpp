#include "platform/UrlFetch.h"

#include "tests/support/LoopbackServer.h"

#include <postwright/MacPlatformServices.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace postwright {

namespace {

using Answer = LoopbackServer::Answer;

const std::string kOk = "HTTP/1.1 200 OK\r\n";
const std::string kHalf = kOk + "Content-Length: 9\r\n\r\nhello";
const std::string kChunked = "Transfer-Encoding: chunked\r\n\r\n";
const std::string kGo = "HTTP/1.1 302 Go\r\nContent-Length: 0\r\nLocation: ";
const std::string kMuch(1U << 16U, 'x');
const std::string kHeader = "A: " + kMuch.substr(1024) + "\r\n";

const struct AnswerCase {
  const char* name;
  Answer answer;
  std::string body;
} kAnswers[] = {
    {"body of given length", LoopbackServer::Page("hello"), "hello"},
    {"body up to the close", {kOk + "\r\nhello", true}, "hello"},
    {"body in chunks", {kOk + kChunked + "2\r\nhe\r\n3\r\nllo\r\n0\r\n\r\n"}, "hello"},
    {"zero bytes", LoopbackServer::Page(std::string("a\0b", 3)), std::string("a\0b", 3)},
    {"page of an error", {"HTTP/1.1 500 No\r\nContent-Length: 4\r\n\r\noops"}, "oops"},
    {"packed unasked", {kOk + "Content-Encoding: gzip\r\nContent-Length: 1\r\n\r\nx"}, "x"},
    {"half a body", {kHalf, true}, ""},
    {"half a chunk", {kOk + kChunked + "9\r\nhello", true}, ""},
    {"closed at once", {"", true}, ""},
    {"not HTTP", {"hello\r\n\r\n", true}, ""},
    {"silence", {""}, ""},
    {"silence after half", {kHalf}, ""},
    {"redirect to itself", {kGo + "/\r\n\r\n"}, ""},
    {"redirect to a file", {kGo + "file:///etc/passwd\r\n\r\n"}, ""},
    {"announced beyond the bound", {kOk + "Content-Length: 16777217\r\n\r\n", false, kMuch}, ""},
    {"endless body", {kOk + "\r\n", false, kMuch}, ""},
    {"endless head", {kOk, false, kHeader}, ""},
    {"endless interim replies", {"", false, "HTTP/1.1 100 Continue\r\nA: B\r\n\r\n"}, ""},
    {"endless trailers", {kOk + kChunked + "0\r\n", false, kHeader}, ""},
    {"endless body of a redirect",
     {"HTTP/1.1 302 Go\r\nLocation: /\r\n" + kChunked, false, "10000\r\n" + kMuch + "\r\n"},
     ""},
};

std::string Fetch(const std::string& url) {
  const std::vector<std::uint8_t> body = FetchUrl(url, {.silence = std::chrono::seconds(1)});
  return std::string(body.begin(), body.end());
}

std::string Url(const LoopbackServer& server) {
  return "http://" + server.GetEndpoint() + "/x";
}

}  // namespace

TEST(UrlFetchTest, GivesWholeBodiesAlone) {
  for (const AnswerCase& row : kAnswers) {
    SCOPED_TRACE(row.name);
    const LoopbackServer server(row.answer);
    EXPECT_EQ(Fetch(Url(server)), row.body);
  }
}

TEST(UrlFetchTest, TakesBodiesUpToTheBound) {
  constexpr std::size_t kBound = 16U << 20U;
  for (const std::size_t size : {kBound, kBound + 1}) {
    const LoopbackServer server(Answer{kOk + "\r\n" + std::string(size, 'x'), true});
    EXPECT_EQ(Fetch(Url(server)).size(), size == kBound ? kBound : 0);
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
