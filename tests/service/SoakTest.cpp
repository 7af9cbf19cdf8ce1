#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/service/Daemon.h"
#include "tests/service/Socket.h"

namespace postwright::service {
namespace {

#ifdef POSTWRIGHT_SANITIZED
constexpr int kGoodOnes = 100;
constexpr long kGrowth = 350'000;  // kB; a sanitizer keeps 256 MiB of freed memory
#else
constexpr int kGoodOnes = 500;
constexpr long kGrowth = 20'000;
#endif

constexpr const char* kElsewhere = "127.0.0.2";  // where the bad ones come from

bool IsGood(const std::string& response) {
  return response.starts_with("HTTP/1.1 200 OK\r\n") &&
         response.ends_with(
             "<AddressValidateResponse><Address><Address2>12 MAIN ST</Address2>"
             "<City>AUSTIN</City><State>TX</State><Zip5>78701</Zip5><Zip4/>"
             "</Address></AddressValidateResponse>");
}

std::string Post(const std::string& headers, const std::string& body) {
  return "POST /ShippingAPI.dll?API=Verify HTTP/1.1\r\nHost: a\r\n" + headers + "\r\n" + body;
}

std::string Post(const std::string& body) {
  return Post("Content-Length: " + std::to_string(body.size()) + "\r\n", body);
}

std::string Repeat(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) {
    all += text;
  }
  return all;
}

// What clients send by mistake or malice. Some get an answer, some are closed without one; where
// the server goes on waiting, the client closes.
std::vector<std::string> BadRequests() {
  const std::string good = AskForMain();
  return {
      "",
      good.substr(0, 1),
      good.substr(0, good.size() / 2),
      good.substr(0, good.size() - 2),
      "GET /" + std::string(100'000, 'a') + " HTTP/1.1\r\nHost: a\r\n\r\n",
      "GET / HTTP/1.1\r\n" + Repeat("A: b\r\n", 20'000) + "\r\n",
      "GET / HTTP/1.1\r\nHost: a\r\nA: " + std::string(100'000, 'a'),
      std::string(50'000, '\0'),
      std::string(50'000, '\n'),
      "\x16\x03\x01\x02\x05\x01\xFC\x03\x03",  // TLS
      "PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n",
      "TRACE / HTTP/1.1\r\nHost: a\r\n\r\n",
      "GET http://example.com/ HTTP/1.1\r\nHost: a\r\n\r\n",
      "GET /../../etc/passwd%00 HTTP/1.0\r\n\r\n",
      Post(std::string(100'000, 'a')),
      Post("Content-Length: 99999999999999999999\r\n", "a"),
      Post("Content-Length: -1\r\n", "a"),
      Post("Content-Length: 10\r\n", "a"),
      Post("Content-Length: 3\r\nTransfer-Encoding: chunked\r\n", "0\r\n\r\n"),
      Post("Transfer-Encoding: chunked\r\n", "FFFFFFFFFFFFFFFF\r\na"),
      Post("Transfer-Encoding: chunked\r\n", Repeat("1\r\na\r\n", 5'000)),
      Post("Transfer-Encoding: chunked\r\n", "zz\r\n"),
      Post(Repeat("<a>", 20'000)),
      Post("<!DOCTYPE a [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]><a>&b;</a>"),
      Post("<AddressValidateRequest USERID=\"1\">" + Repeat("<Address/>", 6'000)),
      Post("<AddressValidateRequest USERID=\"1\"><Address><Address2>" + Repeat("1 ", 30'000)),
      Repeat(good, 20),  // all at once, and closed without reading
  };
}

// Slow, half-sent, oversized and hostile requests among good ones: no good one fails, although the
// others take all the connections that their address may have. In the end nothing is left of them.
TEST(SoakTest, GoodRequestsDoNotMindBadOnes) {
  Daemon daemon({"--listen", "127.0.0.1:0", "--idle-time", "3s", "--request-time", "6s"});
  const std::string address = daemon.ReadAddress();
  std::atomic<int> good = 0;
  std::atomic<int> lost = 0;
  std::atomic<bool> isOver = false;
  const auto ask = [&](Socket& client) {
    client.Send(AskForMain());
    const bool isGood = IsGood(client.ReceiveResponse());
    ++(isGood ? good : lost);
  };
  {
    Socket first(address);
    ask(first);
  }
  const long before = daemon.ResidentKilobytes();
  const size_t files = daemon.OpenFiles();

  std::vector<std::thread> threads;
  threads.emplace_back([&] {
    for (Socket client(address); !isOver;) {
      ask(client);
    }
  });
  threads.emplace_back([&] {
    while (!isOver) {
      Socket client(address);
      ask(client);
    }
  });
  threads.emplace_back([&] {  // a hundred that trickle until they are cut off
    std::vector<Socket> slow;
    for (size_t i = 0; !isOver; ++i) {
      if (slow.size() < 100) {
        slow.emplace_back(address, kElsewhere).Send("GET / HTTP/1.1\r\n");
      } else if (slow[i % 100].Send("a: b\r\n") == 0) {
        slow.clear();
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  });
  const std::vector<std::string> bad = BadRequests();
  for (int round = 0; good + lost < kGoodOnes; ++round) {
    for (size_t i = 0; i < bad.size(); ++i) {
      Socket client(address, kElsewhere);
      client.Send(bad[i]);
      if ((round + static_cast<int>(i)) % 3 == 0) {
        client.Reset();
      }
    }
  }
  isOver = true;
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(lost, 0);
  for (int i = 0; i < 2000 && daemon.OpenFiles() > files; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_LE(daemon.OpenFiles(), files);
  EXPECT_LT(daemon.ResidentKilobytes() - before, kGrowth);
  Socket last(address);
  ask(last);
  EXPECT_EQ(lost, 0);
}

}  // namespace
}  // namespace postwright::service
