#include <postwright/NetworkReachability.h>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <resolv.h>
#include <sys/socket.h>

#include <string_view>
#include <thread>

#include "common/FileDescriptor.h"
#include "platform/UrlFetch.h"

namespace postwright {

namespace {

// A name server on loopback, which this thread asks: it answers that names with "gone" in them do
// not exist, and fails for every other name.
class NameServer {
 public:
  NameServer() : handle_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    address_.sin_family = AF_INET;
    address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address_;
    auto* const address = reinterpret_cast<sockaddr*>(&address_);
    EXPECT_EQ(bind(handle_, address, size), 0);
    EXPECT_EQ(getsockname(handle_, address, &size), 0);
    EXPECT_EQ(res_init(), 0);
    _res.nscount = 1;
    _res.nsaddr_list[0] = address_;
    thread_ = std::thread([this] { Serve(); });
  }

  ~NameServer() {
    sendto(handle_, "", 0, 0, reinterpret_cast<sockaddr*>(&address_), sizeof address_);
    thread_.join();
    res_init();
  }

 private:
  void Serve() const {
    char packet[512];
    sockaddr_in from = {};
    socklen_t size = sizeof from;
    ssize_t count = 0;
    while ((count = recvfrom(handle_, packet, sizeof packet, 0, reinterpret_cast<sockaddr*>(&from),
                             &size)) > 3) {
      const bool isGone = std::string_view(packet, count).find("gone") != std::string_view::npos;
      packet[2] = static_cast<char>(packet[2] | 0x80);  // RFC 1035, 4.1.1: a response
      packet[3] = isGone ? 3 : 2;                       // name error, server failure
      sendto(handle_, packet, count, 0, reinterpret_cast<sockaddr*>(&from), size);
    }
  }

  FileDescriptor handle_;
  sockaddr_in address_ = {};
  std::thread thread_;
};

}  // namespace

TEST(NetworkReachabilityTest, AsksForARouteToTheHostAlone) {
  for (const char* host : {"127.0.0.1", "127.0.0.1:8470", "localhost", "localhost:1"}) {
    EXPECT_TRUE(IsHostReachable(host)) << host;
  }
  for (const char* host : {"", ":80", "[", "[]:80", "999.0.0.1", "no such host", "x.invalid"}) {
    EXPECT_FALSE(IsHostReachable(host)) << host;
  }
  const bool hasIpv6 = IsHostReachable("::1");  // a machine may have it switched off
  EXPECT_EQ(IsHostReachable("[::1]:8470"), hasIpv6);
}

TEST(NetworkReachabilityTest, TellsNoSuchNameFromNoNetwork) {
  const NameServer server;
  EXPECT_EQ(WhyUnreachable("gone.example.:80"), FetchOutcomeNotResolved);
  EXPECT_EQ(WhyUnreachable("host.example.:80"), FetchOutcomeNoNetwork);  // nobody knows
  EXPECT_EQ(WhyUnreachable("255.255.255.255"), FetchOutcomeNoNetwork);   // no route
  EXPECT_EQ(WhyUnreachable("127.0.0.1:80"), FetchOutcomeUnknown);
  FetchReport fetch;
  FetchUrl("http://gone.example.:80/x", FetchLimits(), &fetch);
  EXPECT_EQ(fetch.outcome, FetchOutcomeNotResolved);
  FetchUrl("http://me@host.example.:80/x", FetchLimits(), &fetch);
  EXPECT_EQ(fetch.outcome, FetchOutcomeNoNetwork);
}

}  // namespace postwright
