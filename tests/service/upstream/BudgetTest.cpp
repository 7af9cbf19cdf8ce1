#include "service/gateway/Budget.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace postwright::service {
namespace {

using std::chrono::hours;
using std::chrono::seconds;

constexpr Clock::Time kNow{seconds(1'000'000)};

TEST(BudgetTest, ReadsRates) {
  for (const char* good : {"60/h", "1/s", "5/min", "100000/d"}) {
    const auto rate = Budget::ParseRate(good);
    ASSERT_TRUE(rate) << good;
    EXPECT_EQ(Budget::Format(*rate), good);
  }
  for (const char* wrong : {"", "60", "/h", "0/h", "-1/h", "100001/d", "60/", "60/w", "60 /h",
                            "60/h ", "99999999999999999999/h"}) {
    EXPECT_FALSE(Budget::ParseRate(wrong)) << wrong;
  }
}

TEST(BudgetTest, SaysWhenACallIsFree) {
  Budget budget(Budget::Rate{2, seconds(60)});
  budget.Take(kNow - seconds(50));
  EXPECT_EQ(budget.Left(kNow), 1U);
  budget.Take(kNow);
  EXPECT_EQ(budget.Left(kNow), 0U);
  const seconds expected[] = {seconds(10), seconds(60), seconds(70), seconds(120), seconds(130)};
  for (size_t ahead = 0; ahead < std::size(expected); ++ahead) {
    EXPECT_EQ(budget.WhenFree(kNow, ahead), kNow + expected[ahead]) << ahead;
  }
  EXPECT_EQ(budget.WhenFree(kNow + seconds(10), 0), kNow + seconds(10));
  budget.GiveBack();
  EXPECT_EQ(budget.Left(kNow + seconds(10)), 2U);
  EXPECT_EQ(Budget(std::nullopt).WhenFree(kNow, 1'000'000), kNow);
}

// Calling whenever a call is free never exceeds the rate in any stretch of time, and never waits
// while a call is free.
TEST(BudgetTest, HoldsInEveryStretch) {
  std::mt19937 random(1);
  Budget budget(Budget::Rate{5, seconds(60)});
  std::vector<Clock::Time> calls;
  Clock::Time now = kNow;
  for (int i = 0; i < 2000; ++i) {
    now += seconds(random() % 20);
    const size_t within = static_cast<size_t>(std::count_if(
        calls.begin(), calls.end(), [&](Clock::Time at) { return at > now - seconds(60); }));
    ASSERT_LE(within, 5U);
    ASSERT_EQ(budget.Left(now), 5 - within);
    if (budget.WhenFree(now, 0) <= now) {
      budget.Take(now);
      calls.push_back(now);
    } else {
      ASSERT_EQ(within, 5U);
    }
  }
}

}  // namespace
}  // namespace postwright::service
