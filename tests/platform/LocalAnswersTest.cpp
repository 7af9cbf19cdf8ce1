#include <postwright/LocalAnswers.h>
#include <postwright/NetworkReachability.h>
#include <postwright/ReportingServices.h>

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>

namespace postwright {

namespace {

constexpr const wchar_t* kUrl = L"http://127.0.0.1:1/x?y=Pe%C3%B1a";  // where nobody listens

// Each test leaves the network as it found it.
class LocalAnswersTest : public testing::Test {
 protected:
  ~LocalAnswersTest() override { SetLocalAnswers({}); }

  FetchReport Fetch() {
    const auto body = services_.ReadUrl(kUrl);
    EXPECT_EQ(std::string(body->begin(), body->end()), services_.Reply());
    return services_.Fetch();
  }

  std::atomic<bool> abandoned_ = false;
  ReportingServices services_{&abandoned_};
};

}  // namespace

TEST_F(LocalAnswersTest, StandInForTheNetwork) {
  std::string asked;
  std::vector<std::string> head;
  SetLocalAnswers([&](const std::string& url, const std::vector<std::string>& headers) {
    asked = url;
    head = headers;
    return LocalAnswer{503, 7, std::string("a\0b", 3)};
  });
  services_.WantCandidates(5);
  const FetchReport report = Fetch();
  EXPECT_EQ(services_.Reply(), std::string("a\0b", 3));
  EXPECT_EQ(asked, "http://127.0.0.1:1/x?y=Pe%C3%B1a");
  EXPECT_EQ(head, std::vector<std::string>{"Postwright-Candidates: 5"});
  EXPECT_EQ(report.outcome, FetchOutcomeAnswered);
  EXPECT_EQ(report.httpStatus, 503);
  EXPECT_EQ(report.retryAfter, 7);
  EXPECT_EQ(MacPlatformServices().ReadUrl(kUrl)->size(), 3U);
  EXPECT_TRUE(IsHostReachable("no such host"));

  abandoned_ = true;
  EXPECT_EQ(Fetch().outcome, FetchOutcomeAbandoned);
  abandoned_ = false;
  SetLocalAnswers({});
  EXPECT_EQ(Fetch().outcome, FetchOutcomeRefused);
  EXPECT_FALSE(IsHostReachable("no such host"));
}

TEST_F(LocalAnswersTest, AreAFailedFetchWhereTheyThrow) {
  SetLocalAnswers([](const std::string&, const std::vector<std::string>&) -> LocalAnswer {
    throw std::runtime_error("the base is damaged");
  });
  EXPECT_EQ(Fetch().outcome, FetchOutcomeBrokeOff);
  EXPECT_EQ(services_.Reply(), "");
}

TEST_F(LocalAnswersTest, AreReplacedWhileTheyAreAsked) {
  std::atomic<bool> done = false;
  std::jthread replacing([&done] {
    for (int i = 0; i < 1000; ++i) {
      SetLocalAnswers([body = std::string(100, static_cast<char>('a' + i % 26))](
                          const std::string&, const std::vector<std::string>&) {
        return LocalAnswer{200, 0, body};
      });
    }
    done = true;
  });
  while (!done) {
    const auto body = MacPlatformServices().ReadUrl(kUrl);
    const std::string text(body->begin(), body->end());  // empty before the first
    EXPECT_EQ(text, std::string(text.size(), text[0]));
  }
}

}  // namespace postwright
