#include <postwright/VerifyFailure.h>
#include <postwright/VerifyReport.h>

#include <gtest/gtest.h>

namespace postwright {

namespace {

constexpr const char* kRefusal =
    "<R><Address><Error><Number>-2147219401</Number><Description>Address Not Found.  "
    "</Description></Error></Address></R>";
constexpr const char* kOtherRefusal =
    "<R><Address><Error><Number>-1</Number><Description>No such box</Description></Error></Address>"
    "</R>";
constexpr const char* kWholeError =
    "<Error><Number>80040B18</Number><Description>It goes on at 13:00.</Description></Error>";

struct Row {
  const char* reply;
  FetchReport fetch;
  bool isUnanswered;
  const char* code;
  const char* text;  // a piece of it
};

}  // namespace

TEST(VerifyFailureTest, TellsNotAnsweredFromTurnedDown) {
  const Row rows[] = {
      {kRefusal,
       {FetchOutcomeAnswered, 200},
       false,
       "not-found",
       "The service says: Address Not Found. Look at"},
      {kRefusal, {}, false, "not-found", "Address Not Found."},
      {kOtherRefusal, {}, false, "turned-down", "No such box. Look"},
      {kWholeError, {FetchOutcomeAnswered, 200}, true, "service-error", "It goes on at 13:00. The"},
      {"<html>",
       {FetchOutcomeAnswered, 502},
       true,
       "http-status",
       "a:1 answers with HTTP status 502"},
      {"<html>", {FetchOutcomeAnswered, 200}, true, "bad-answer", "reply of a:1 cannot"},
      {"", {FetchOutcomeNoNetwork}, true, "no-network", "No internet connection"},
      {"", {FetchOutcomeNotResolved}, true, "not-resolved", "no host a:1."},
      {"", {FetchOutcomeRefused}, true, "refused", "Nothing answers at a:1 (connection refused)"},
      {"", {FetchOutcomeTimedOut}, true, "timed-out", "no answer in time"},
      {"", {FetchOutcomeBrokeOff}, true, "broke-off", "ended before"},
      {"", {FetchOutcomeBadAnswer}, true, "bad-answer", "no Verify service"},
      {"", {FetchOutcomeAbandoned}, true, "abandoned", "given up"},
      {"", {}, false, "", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.code);
    const VerifyFailure failure(VerifyReport(row.reply, row.fetch), "a:1");
    EXPECT_EQ(failure.IsUnanswered(), row.isUnanswered);
    EXPECT_EQ(failure.Code(), row.code);
    EXPECT_NE(failure.Text().find(row.text), std::string::npos) << failure.Text();
  }
}

}  // namespace postwright
