#include "service/gateway/Budget.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "service/gateway/FairQueue.h"

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

// Whoever calls whenever a call is free never makes more than the rate in any stretch, and never
// waits while a call is free.
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

TEST(FairQueueTest, ServesInTurn) {
  FairQueue<int> queue;
  for (const int item : {1, 2, 3, 4}) {
    queue.Push("batch", item);
  }
  queue.Push("window", 10);
  EXPECT_EQ(queue.Pop(), 1);
  EXPECT_EQ(queue.Pop(), 10);
  EXPECT_EQ(queue.Pop(), 2);
  queue.Push("window", 11);
  queue.PutBack("window", 12);
  EXPECT_EQ(queue.Pop(), 12);
  queue.Remove("window", 11);
  EXPECT_EQ(queue.Size(), 2U);
  queue.Push("batch", 5);
  EXPECT_EQ(queue.Displace("batch"), std::nullopt);
  EXPECT_EQ(queue.Displace("other"), 5);
  EXPECT_EQ(queue.Pop(), 3);
  EXPECT_EQ(queue.Displace("other"), std::nullopt);  // would only change places
  EXPECT_EQ(queue.Pop(), 4);
  EXPECT_EQ(queue.Size(), 0U);
}

}  // namespace
}  // namespace postwright::service
