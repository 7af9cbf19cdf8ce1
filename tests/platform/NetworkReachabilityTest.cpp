#include <postwright/NetworkReachability.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

TEST(NetworkReachabilityTest, LoopbackIsReachableWithAndWithoutPort) {
  for (const char* host : {"127.0.0.1", "127.0.0.1:8470", "localhost:1", "localhost"}) {
    EXPECT_TRUE(IsHostReachable(host)) << host;
  }
}

TEST(NetworkReachabilityTest, ReadsAddressesWithColonsOfTheirOwn) {
  const bool hasIpv6 = IsHostReachable("::1");  // a machine may have it switched off
  EXPECT_EQ(IsHostReachable("[::1]"), hasIpv6);
  EXPECT_EQ(IsHostReachable("[::1]:8470"), hasIpv6);
}

TEST(NetworkReachabilityTest, NoNameIsNotReachable) {
  for (const char* host : {"", ":80", "[", "[]:80", "999.0.0.1", "no such host", "x.invalid"}) {
    EXPECT_FALSE(IsHostReachable(host)) << host;
  }
}

}  // namespace

}  // namespace postwright
