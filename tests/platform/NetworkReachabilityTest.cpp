#include <postwright/NetworkReachability.h>

#include <gtest/gtest.h>

namespace postwright {

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

}  // namespace postwright
