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
constexpr const char* kRefusalWithoutWords =
    "<R><Address><Error><Number>-1</Number></Error></Address></R>";
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
      {kRefusalWithoutWords,
       {},
       false,
       "turned-down",
       "says: no reason was given. Look at the whole"},
      {kWholeError, {FetchOutcomeAnswered, 200}, true, "service-error", "It goes on at 13:00. The"},
      {"<html>",
       {FetchOutcomeAnswered, 502},
       true,
       "http-status",
       "a:1 answers with HTTP status 502"},
      {"", {FetchOutcomeAnswered, 300}, true, "http-status", "HTTP status 300"},
      {"", {FetchOutcomeAnswered, 299}, true, "bad-answer", "reply of a:1 cannot"},
      {"<html>", {FetchOutcomeAnswered, 200}, true, "bad-answer", "reply of a:1 cannot"},
      {"", {FetchOutcomeNoNetwork}, true, "no-network", "No internet connection"},
      {"", {FetchOutcomeNotResolved}, true, "not-resolved", "no host a:1."},
      {"", {FetchOutcomeRefused}, true, "refused", "Nothing answers at a:1 (connection refused)"},
      {"", {FetchOutcomeTimedOut}, true, "timed-out", "no answer in time"},
      {"", {FetchOutcomeBrokeOff}, true, "broke-off", "ended before"},
      {"", {FetchOutcomeBadAnswer}, true, "bad-answer", "not a Verify service"},
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

// Code and advice of each number of the Verify interface.
TEST(VerifyFailureTest, KnowsTheNumbersOfRefusals) {
  const struct {
    const char* number;
    const char* code;
    const char* advice;
  } rows[] = {
      {"-2147219396", "address-invalid", "Look at the street's line"},
      {"-2147219399", "zip-invalid", "Look at the ZIP code: it is none"},
      {"-2147219400", "city-invalid", "Look at the city"},
      {"-2147219401", "not-found", "Look at the street and its number"},
      {"-2147219402", "state-invalid", "Look at the state"},
      {"-2147219403", "several-found", "Write more of it"},
      {"-2147219404", "turned-down", "Look at the whole address"},
      {"", "turned-down", "Look at the whole address"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.number);
    const VerifyFailure failure(
        VerifyReport("<R><Address><Error><Number>" + std::string(row.number) +
                     "</Number><Description>No.</Description></Error></Address></R>"),
        "a:1");
    EXPECT_FALSE(failure.IsUnanswered());
    EXPECT_EQ(failure.Code(), row.code);
    EXPECT_TRUE(failure.Text().starts_with("The service says: No. " + std::string(row.advice)))
        << failure.Text();
  }
}

}  // namespace postwright
