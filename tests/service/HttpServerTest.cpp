#include "service/http/HttpServer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <map>
#include <thread>

#include "tests/service/Socket.h"

namespace postwright::service {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

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

TEST_F(HttpServerTest, HoldsNoMoreConnectionsThanAllowed) {
  HttpServer::Limits limits;
  limits.connectionsPerAddress = 2;
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

// A client that trickles a header keeps its connection busy, but not for ever.
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

// One thread serves all: it goes on with others while an answer is waited for, an answer may come
// when the server is gone, and one that never comes is a failure.
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

// The end waits for half-sent requests, first ones and later ones, and for nothing else: neither
// for a connection between two requests nor for one on which nothing was sent.
TEST_F(HttpServerTest, DrainFinishesWhatHasBegun) {
  Start({});
  const std::string get = "GET /?done HTTP/1.1\r\nHost: a\r\n\r\n";
  Socket idle(server_->Address());
  Socket silent(server_->Address());
  Socket half(server_->Address());
  Socket halfAgain(server_->Address());
  for (Socket* client : {&idle, &halfAgain}) {
    client->Send(get);
    EXPECT_TRUE(client->ReceiveResponse().ends_with("GET done 0"));
  }
  half.Send(get.substr(0, 5));
  halfAgain.Send(get.substr(0, 25));
  std::thread drain([&] { server_->Drain(seconds(10)); });
  EXPECT_EQ(idle.ReceiveAll(), "");
  EXPECT_EQ(silent.ReceiveAll(), "");
  EXPECT_FALSE(Socket(server_->Address()).IsOpen());
  half.Send(get.substr(5));
  halfAgain.Send(get.substr(25));
  for (Socket* client : {&half, &halfAgain}) {
    const std::string reply = client->ReceiveAll();
    EXPECT_TRUE(reply.ends_with("GET done 0")) << reply;
    EXPECT_NE(reply.find("Connection: close"), std::string::npos) << reply;
  }
  drain.join();
}

// Of what nobody reads some is kept and the rest is counted; no line is torn.
TEST(RequestLogTest, CountsWhatItLeavesOut) {
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  const std::string leftOut = " lines were left out, since nobody read them";
  int lines = 0;
  int told = 0;  // lines that came, and those that were said to be left out
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
        const int count = text.ends_with(leftOut + '\n') ? std::stoi(text.substr(5)) : 1;
        isTold = isTold || count > 1;
        told += count;
        EXPECT_TRUE(text.starts_with("log: ") &&
                    (count > 1 || text.size() == RequestLog::kLongestLine))
            << text;
      }
      fclose(input);
    });
    while (!isTold && lines < 10'000) {
      write();
      std::this_thread::sleep_for(milliseconds(1));
    }
  }
  close(ends[1]);
  reader.join();
  EXPECT_TRUE(isTold);
  EXPECT_EQ(told, lines);
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
