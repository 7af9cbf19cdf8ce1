#include "service/http/HttpServer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <map>
#include <memory>
#include <thread>
#include <vector>

#include "service/http/ConnectionWatch.h"
#include "service/http/HeadCheck.h"
#include "service/http/RequestTarget.h"
#include "tests/service/Socket.h"

namespace postwright::service {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::string_literals::operator""s;

// A server on a free port whose answer is the method, the query and the body's length.
class HttpServerTest : public testing::Test {
 protected:
  void Start(const HttpServer::Limits& limits) {
    server_.emplace(
        ListenAddress::Parse("127.0.0.1:0"), limits,
        [](const HttpRequest& request, const Respond& respond) {
          if (request.query == "throw") {
            throw std::runtime_error("broken");
          }
          respond({200, "text/plain",
                   request.method + " " + request.query + " " + std::to_string(request.body.size()),
                   ""});
        },
        log_);
  }

  std::string Ask(const std::string& request) {
    Socket client(server_->Address());
    client.Send(request);
    return client.ReceiveResponse();
  }

  int nowhere_ = open("/dev/null", O_WRONLY);
  RequestLog log_{nowhere_, ""};
  std::optional<HttpServer> server_;
};

TEST_F(HttpServerTest, RefusesWhatIsTooLargeOrUnknown) {
  HttpServer::Limits limits;
  limits.bytesPerConnection = 8 * 1024;
  limits.bodyBytes = 100;
  Start(limits);
  const std::string host = " HTTP/1.1\r\nHost: a\r\n";
  const std::string hundred(100, 'x');
  const std::string chunk = "64\r\n" + hundred + "\r\n";
  const struct {
    const char* name;
    std::string request;
    std::string reply;  // how the response begins, or ends
  } rows[] = {
      {"plain", "GET /?a=%00" + host + "\r\n", "GET a=%00 0"},
      {"an absolute form", "GET http://b.example/?a" + host + "\r\n", "GET a 0"},
      {"body at the limit", "POST /" + host + "Content-Length: 100\r\n\r\n" + hundred, "POST  100"},
      {"body beyond it", "POST /" + host + "Content-Length: 101\r\n\r\n", "HTTP/1.1 413"},
      {"beyond it in chunks",
       "POST /" + host + "Transfer-Encoding: chunked\r\n\r\n" + chunk + chunk + "0\r\n\r\n",
       "HTTP/1.1 413"},
      {"long request line", "GET /" + std::string(9000, 'a') + host + "\r\n", "HTTP/1.1 414"},
      {"long headers", "GET /" + host + "A: " + std::string(9000, 'a') + "\r\n\r\n",
       "HTTP/1.1 431"},
      {"another method", "DELETE /" + host + "\r\n", "HTTP/1.1 405"},
      {"no host", "GET / HTTP/1.1\r\n\r\n", "HTTP/1.1 400"},
      {"a failure of the handler", "GET /?throw" + host + "\r\n", "HTTP/1.1 500"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string reply = Ask(row.request);
    EXPECT_TRUE(reply.starts_with(row.reply) || reply.ends_with(row.reply)) << reply;
  }
  EXPECT_EQ(Ask("hello\r\n\r\n"), "");  // not HTTP: closed without a word
}

// Heads that two readers could understand differently. None is acted on, nor anything after them.
TEST_F(HttpServerTest, RefusesWhatCouldBeReadInTwoWays) {
  Start({});
  const std::string hidden = "GET /?hidden HTTP/1.1\r\nHost: a\r\n\r\n";
  const std::string post = "POST / HTTP/1.1\r\nHost: a\r\n";
  const std::string length = "Content-Length: 0\r\n";
  const std::string chunked = "Transfer-Encoding: chunked\r\n";
  const std::string end = "\r\n0\r\n\r\n";
  const std::string rows[] = {
      post + length + chunked + end,
      post + chunked + length + end,
      post + length + length + "\r\n",
      post + length + "Content-Length: 5\r\n\r\n",
      post + "Content-Length: 0, 0\r\n\r\n",
      post + "Content-Length: +0\r\n\r\n",
      post + "Content-Length : 0\r\n\r\n",
      post + "Content-Length\t: 0\r\n\r\n",
      post + chunked + chunked + end,
      post + "Transfer-Encoding: gzip, chunked\r\n" + end,
      post + "Transfer-Encoding: identity\r\n" + end,
      "POST / HTTP/1.0\r\nHost: a\r\nConnection: keep-alive\r\n" + chunked + end,
      post + "Host: b\r\n\r\n",
      post + "A: \x01\r\n\r\n",
      post + "A: b\rContent-Length: 5\r\n\r\n",
      post + "A\0: b\r\n\r\n"s,
      post + " A: b\r\n\r\n" + "B c\r\n\r\n",
      post + "\xC3\x84: b\r\n\r\n",
      "GET /\x7F HTTP/1.1\r\nHost: a\r\n\r\n",
  };
  for (const std::string& row : rows) {
    Socket client(server_->Address());
    client.Send(row + hidden);
    const std::string reply = client.ReceiveAll();
    EXPECT_TRUE(reply.starts_with("HTTP/1.1 400 ")) << row << reply;
    EXPECT_NE(reply.find("Connection: close"), std::string::npos) << row << reply;
    EXPECT_EQ(reply.find("GET hidden"), std::string::npos) << row << reply;
  }
  // The HTTP library ends a line at a zero byte.
  EXPECT_TRUE(Ask("GET /?a\0b HTTP/1.1\r\nHost: a\r\n\r\n"s).ends_with("GET a 0"));
  // What is not a fault.
  EXPECT_TRUE(Ask("\r\n" + post + "transfer-encoding: Chunked\r\n" + end).ends_with("POST  0"));
}

// A thousand silent connections shut no client out, and make none in use close.
TEST_F(HttpServerTest, IdleConnectionsGiveWay) {
  HttpServer::Limits limits;
  limits.connections = 100;
  limits.connectionsPerAddress = 1;  // does not apply to loopback
  Start(limits);
  const std::string get = "GET /?a HTTP/1.1\r\nHost: a\r\n\r\n";
  Socket kept(server_->Address());
  std::vector<std::unique_ptr<Socket>> silent;
  for (int i = 0; i < 1000; ++i) {
    silent.push_back(std::make_unique<Socket>(server_->Address()));
    if (i % 100 == 0) {
      kept.Send(get);
      EXPECT_TRUE(kept.ReceiveResponse().ends_with("GET a 0"));
      EXPECT_TRUE(Ask(get).ends_with("GET a 0"));
    }
  }
  EXPECT_EQ(silent.front()->ReceiveAll(), "");
  silent.back()->Send(get);
  EXPECT_TRUE(silent.back()->ReceiveResponse().ends_with("GET a 0"));
}

// What the watch is told about connections, on pairs of sockets.
TEST(ConnectionWatchTest, EndsTheOldestIdleConnection) {
  struct Pair {
    Pair() { EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0); }
    ~Pair() {
      close(ends[0]);
      close(ends[1]);
    }
    bool IsEnded() const {
      char byte = 0;
      return recv(ends[1], &byte, 1, MSG_DONTWAIT) == 0;
    }
    int ends[2] = {};
  };
  const auto ended = [](const std::vector<std::unique_ptr<Pair>>& pairs) {
    std::string numbers;
    for (size_t i = 0; i < pairs.size(); ++i) {
      numbers += pairs[i]->IsEnded() ? std::to_string(i) : "";
    }
    return numbers;
  };
  // One letter a connection, in the order of opening: s silent, k kept between two requests, a
  // being answered; capitals are for the second of two peers. The last one is one too many.
  const struct {
    const char* connections;
    size_t most;
    size_t perPeer;
    seconds idle;
    const char* ended;
  } rows[] = {
      {"ksss", 3, 9, seconds(10), "1"},  {"ksss", 3, 9, seconds(0), "0"},
      {"kakk", 3, 9, seconds(10), "3"},  {"aaaa", 3, 9, seconds(0), "3"},
      {"SsSs", 9, 1, seconds(10), "01"}, {"SaSa", 9, 1, seconds(10), "03"},
      {"sss", 3, 3, seconds(0), ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.connections);
    ConnectionWatch watch({row.most, row.perPeer, row.idle, seconds(60)});
    std::vector<std::unique_ptr<Pair>> pairs;
    for (const char* kind = row.connections; *kind != '\0'; ++kind) {
      const bool isOther = *kind < 'a';
      const char state = static_cast<char>(isOther ? *kind - 'A' + 'a' : *kind);
      pairs.push_back(std::make_unique<Pair>());
      const int socket = pairs.back()->ends[0];
      ConnectionWatch::Connection& connection =
          watch.Opened(socket, isOther ? "192.0.2.1" : "192.0.2.2", false);
      EXPECT_EQ(&watch.Opened(socket, "192.0.2.3", false), &connection);
      if (state != 's') {
        watch.HeadRead(connection);
      }
      if (state == 'k') {
        watch.Answered(connection);
      }
    }
    EXPECT_EQ(ended(pairs), row.ended);
  }
}

TEST(ConnectionWatchTest, LeavesWhatIsBeingAnswered) {
  int waiting[2] = {};
  int answering[2] = {};
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, waiting), 0);
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, answering), 0);
  ConnectionWatch watch({});
  watch.Opened(waiting[0], "a", false);
  watch.HeadRead(watch.Opened(answering[0], "a", false));
  watch.EndWaiting();
  EXPECT_EQ(send(waiting[1], "a", 1, MSG_NOSIGNAL), -1);
  EXPECT_EQ(send(answering[1], "a", 1, MSG_NOSIGNAL), 1);
  for (const int socket : {waiting[0], waiting[1], answering[0], answering[1]}) {
    close(socket);
  }
}

TEST_F(HttpServerTest, HoldsNoMoreConnectionsThanAllowed) {
  HttpServer::Limits limits;
  limits.connections = 2;
  Start(limits);
  const std::string get = "GET /?a HTTP/1.1\r\nHost: a\r\n\r\n";
  Socket first(server_->Address());
  std::optional<Socket> second(server_->Address());
  for (Socket* client : {&first, &*second}) {
    client->Send(get);
    EXPECT_TRUE(client->ReceiveResponse().ends_with("GET a 0"));
  }
  EXPECT_EQ(Socket(server_->Address()).ReceiveAll(), "");
  second.reset();
  std::string reply;
  for (int i = 0; i < 1000 && reply.empty(); ++i) {  // until the server has met the end
    reply = Ask(get);
  }
  EXPECT_TRUE(reply.ends_with("GET a 0"));
}

// A client that trickles a header keeps its connection busy, but not forever.
TEST_F(HttpServerTest, EndsARequestThatTakesTooLong) {
  HttpServer::Limits limits;
  limits.request = milliseconds(200);
  Start(limits);
  Socket slow(server_->Address());
  slow.Send("GET / HTTP/1.1\r\nHost: a\r\n");
  std::atomic<bool> ended = false;
  std::thread trickle([&] {
    for (int i = 0; i < 1000 && !ended; ++i) {
      slow.Send("a: b\r\n");
      std::this_thread::sleep_for(milliseconds(10));
    }
  });
  EXPECT_EQ(slow.ReceiveAll(), "");  // and not, in the end, that the headers are too long
  ended = true;
  trickle.join();
}

// One thread serves all: it goes on with others while an answer is awaited, an answer may come
// after the server is gone, and one that never comes counts as a failure.
TEST_F(HttpServerTest, OthersGoOnWhileAnAnswerIsWaitedFor) {
  HttpServer::Limits limits;
  limits.threads = 1;
  std::mutex mutex;
  std::map<std::string, Respond> waiting;
  server_.emplace(
      ListenAddress::Parse("127.0.0.1:0"), limits,
      [&](const HttpRequest& request, const Respond& respond) {
        if (request.query.starts_with("later")) {
          const std::lock_guard lock(mutex);
          waiting[request.query] = respond;
        } else if (request.query != "never") {
          respond({200, "text/plain", request.query, ""});
        }
      },
      log_);
  const auto get = [](const std::string& query) {
    return "GET /?" + query + " HTTP/1.1\r\nHost: a\r\n\r\n";
  };
  Socket slow(server_->Address());
  Socket abandoned(server_->Address());
  slow.Send(get("later"));
  abandoned.Send(get("later-than-that"));
  for (size_t count = 0; count < 2;) {
    EXPECT_TRUE(Ask(get("now")).ends_with("now"));
    const std::lock_guard lock(mutex);
    count = waiting.size();
  }
  EXPECT_TRUE(Ask(get("never")).starts_with("HTTP/1.1 500"));
  std::thread([respond = waiting["later"]] {
    respond({200, "text/plain", "at last", ""});
    respond({200, "text/plain", "again", ""});
  }).join();
  EXPECT_TRUE(slow.ReceiveResponse().ends_with("at last"));
  slow.Send(get("now"));
  EXPECT_TRUE(slow.ReceiveResponse().ends_with("now"));
  server_.reset();
  EXPECT_EQ(abandoned.ReceiveAll(), "");
  waiting["later-than-that"]({200, "text/plain", "too late", ""});
}

// Stopping waits for half-sent requests, the first on a connection or a later one, and not for long
// for anything else: neither a connection between two requests nor one without a request.
TEST_F(HttpServerTest, DrainFinishesWhatHasBegun) {
  Start({});
  const std::string get = "GET /?done HTTP/1.1\r\nHost: a\r\n\r\n";
  Socket idle(server_->Address());
  Socket silent(server_->Address());
  Socket half(server_->Address());
  Socket halfAgain(server_->Address());
  silent.Send("\r\n");
  for (Socket* client : {&idle, &halfAgain}) {
    client->Send("\r\n" + get);
    EXPECT_TRUE(client->ReceiveResponse().ends_with("GET done 0"));
  }
  half.Send(get.substr(0, 5));
  halfAgain.Send(get.substr(0, 25));
  std::thread drain([&] { server_->Drain(std::chrono::hours(1)); });
  while (Socket(server_->Address()).IsOpen()) {
  }
  half.Send(get.substr(5));
  halfAgain.Send(get.substr(25));
  EXPECT_EQ(idle.ReceiveAll(), "");
  EXPECT_EQ(silent.ReceiveAll(), "");
  for (Socket* client : {&half, &halfAgain}) {
    const std::string reply = client->ReceiveAll();
    EXPECT_TRUE(reply.ends_with("GET done 0")) << reply;
    EXPECT_NE(reply.find("Connection: close"), std::string::npos) << reply;
  }
  drain.join();
}

// Some of the lines that are not read are kept and the rest is counted; no line is torn.
TEST(RequestLogTest, CountsWhatItLeavesOut) {
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  const std::string leftOut = " lines were left out, since nobody read them";
  int lines = 0;
  std::atomic<int> told = 0;  // lines that came, and lines reported as left out
  std::atomic<bool> isTold = false;
  std::thread reader;
  {
    RequestLog log(ends[1], "log: ");
    const auto write = [&] {
      log.Write(std::string(5000, 'a') + '\n');
      ++lines;
    };
    while (lines < 1000) {
      write();
    }
    reader = std::thread([&] {
      FILE* const input = fdopen(ends[0], "r");
      char line[5000] = "";
      while (fgets(line, sizeof(line), input) != nullptr) {
        const std::string text(line);
        const bool isCount = text.ends_with(leftOut + '\n');
        isTold = isTold || isCount;
        told += isCount ? std::stoi(text.substr(5)) : 1;
        EXPECT_TRUE(text.starts_with("log: ") &&
                    (isCount || text.size() == RequestLog::kLongestLine))
            << text;
      }
      fclose(input);
    });
    while (!isTold && lines < 10'000) {
      write();
      std::this_thread::sleep_for(milliseconds(1));
    }
    // The end waits half a second for a reader, which on a busy machine may sleep longer.
    for (int tries = 0; told < lines && tries < 20'000; ++tries) {
      std::this_thread::sleep_for(milliseconds(1));
    }
  }
  close(ends[1]);
  reader.join();
  EXPECT_TRUE(isTold);
  EXPECT_EQ(told.load(), lines);
}

TEST(RequestTargetTest, CutsWhatARequestLineAsksFor) {
  const char* const rows[][4] = {
      {"/a?b?c", "", "/a", "b?c"},
      {"/a", "", "/a", ""},
      {"*", "", "*", ""},
      {"?b", "", "", "b"},
      {"http://a.example:80/b?c=http://d", "a.example:80", "/b", "c=http://d"},
      {"HTTPS://a.example", "a.example", "/", ""},
      {"http://a?b/c", "a", "/", "b/c"},
      {"http:///a", "", "/a", ""},
      {"/http://a/b", "", "/http://a/b", ""},
      {"", "", "", ""},
  };
  for (const auto& [target, host, path, query] : rows) {
    const RequestTarget parts = RequestTarget::Of(target);
    EXPECT_EQ(parts.host, host) << target;
    EXPECT_EQ(parts.path, path) << target;
    EXPECT_EQ(parts.query, query) << target;
  }
}

TEST(HeadCheckTest, KnowsWhatAProxyAdds) {
  for (const char* name : {"X-Forwarded-For",
                           "x-forwarded-port",
                           "X-Forwarded",
                           "Forwarded",
                           "Forwarded-For",
                           "via",
                           "X-REAL-IP",
                           "X-Client-IP",
                           "Client-IP",
                           "True-Client-IP",
                           "X-Cluster-Client-IP",
                           "X-Original-Forwarded-For",
                           "X-Original-Host",
                           "X-ProxyUser-IP",
                           "X-Remote-Addr",
                           "X-Remote-IP",
                           "X-Envoy-External-Address",
                           "CF-Connecting-IP",
                           "Fastly-Client-IP",
                           "CDN-Loop",
                           "X-Azure-ClientIP"}) {
    EXPECT_TRUE(IsForwarded({"HTTP/1.1", "/", {{"Host", "a"}, {name, ""}}})) << name;
  }
  for (const char* name : {"Host", "X-Forward", "Forward", "Via-X", "X", "Accept"}) {
    EXPECT_FALSE(IsForwarded({"HTTP/1.1", "/", {{name, "Via"}}})) << name;
  }
}

// Some versions of the HTTP library refuse these by themselves.
TEST(HeadCheckTest, ObjectsToWhatCouldBeReadInTwoWays) {
  const RequestHead plain = {"HTTP/1.1", "/?a=%00", {{"Host", "a"}, {"A", "b\tc \xC3\x84"}}};
  EXPECT_EQ(ObjectionTo(plain), "");
  const auto with = [&](std::initializer_list<std::pair<std::string_view, std::string_view>> more) {
    RequestHead head = plain;
    head.fields.insert(head.fields.end(), more);
    return ObjectionTo(head);
  };
  EXPECT_EQ(with({{"content-length", "007"}}), "");
  EXPECT_EQ(with({{"transfer-encoding", "Chunked"}}), "");
  for (const char* name : {"", "A ", "A(", "A:", "A\t", "\xC3\x84", "A\x7F"}) {
    EXPECT_EQ(with({{name, ""}}), "a header that cannot be read") << name;
  }
  for (const char* value : {"\r", "\n", "\x01", "a\x1F", "\x7F"}) {
    EXPECT_EQ(with({{"B", value}}), "a header that cannot be read") << value;
  }
  for (const char* length : {"", "+1", "-1", "1 ", "1,1", "0x1", "1.0"}) {
    EXPECT_EQ(with({{"Content-Length", length}}), "a Content-Length that is not one number");
  }
  EXPECT_EQ(with({{"Content-Length", "1"}, {"Content-Length", "1"}}),
            "a Content-Length that is not one number");
  for (const char* coding : {"", "gzip", "chunked, chunked", "gzip, chunked", "chunked;a"}) {
    EXPECT_EQ(with({{"Transfer-Encoding", coding}}), "a Transfer-Encoding other than chunked");
  }
  EXPECT_EQ(with({{"host", "a"}}), "two Hosts");
  const char* const kBoth = "a Transfer-Encoding beside a Content-Length, or in HTTP/1.0";
  EXPECT_EQ(with({{"Content-Length", "1"}, {"Transfer-Encoding", "chunked"}}), kBoth);
  EXPECT_EQ(ObjectionTo({"HTTP/1.0", "/", {{"Transfer-Encoding", "chunked"}}}), kBoth);
  EXPECT_EQ(ObjectionTo({"HTTP/1.0", "/", {{"Content-Length", "1"}}}), "");
  for (const char* target : {"/ a", "/\ta", "/\x7F", "/\x01", " /"}) {
    EXPECT_EQ(ObjectionTo({"HTTP/1.1", target, {}}), "a request line that cannot be read");
  }
}

TEST(ListenAddressTest, KnowsLoopback) {
  for (const char* loopback : {"127.0.0.1:0", "127.255.0.9:0", "localhost:0", "[::1]:0"}) {
    EXPECT_TRUE(ListenAddress::Parse(loopback).IsLoopback()) << loopback;
  }
  for (const char* other : {"127.example.com:0", "0.0.0.0:0", "[::]:0", "128.0.0.1:0", "127:0"}) {
    EXPECT_FALSE(ListenAddress::Parse(other).IsLoopback()) << other;
  }
  EXPECT_EQ(ListenAddress::ReadHost("::FFFF:192.0.2.1"), "192.0.2.1");
  EXPECT_EQ(ListenAddress::ReadHost("2001:DB8::0:1"), "2001:db8::1");
  EXPECT_EQ(ListenAddress::ReadHost("proxy.example.com"), "");
}

TEST(ListenAddressTest, ReadsAddressAndPort) {
  for (const char* wrong : {"", "8470", ":8470", "127.0.0.1", "127.0.0.1:", "127.0.0.1:x",
                            "127.0.0.1:65536", "127.0.0.1:-1", "::1:80", "127.0.0.1:80 "}) {
    EXPECT_THROW(ListenAddress::Parse(wrong), ListenError) << wrong;
  }
  for (const char* host : {"127.0.0.1", "[::1]"}) {
    const int socket = ListenAddress::Parse(std::string(host) + ":0").Open();
    const std::string taken = ListenAddress::OfSocket(socket);
    EXPECT_TRUE(taken.starts_with(std::string(host) + ":")) << taken;
    EXPECT_THROW(ListenAddress::Parse(taken).Open(), ListenError);
    close(socket);
  }
}

}  // namespace
}  // namespace postwright::service
