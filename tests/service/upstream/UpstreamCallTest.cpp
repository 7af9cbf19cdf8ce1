#include <gtest/gtest.h>
#include <atomic>
#include <future>
#include <thread>

#include "service/Verifier.h"
#include "service/VerifyService.h"
#include "service/gateway/Gateway.h"
#include "service/http/HttpServer.h"
#include "service/upstream/PostalApiUpstream.h"
#include "service/upstream/UpstreamUrl.h"
#include "service/upstream/VerifyXmlUpstream.h"
#include "tests/postal/ShippedZips.h"
#include "tests/service/upstream/ManualClock.h"
#include "tests/service/upstream/PostalStandIn.h"
#include "tests/support/HostileShapes.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

RequestAddress Main() {
  RequestAddress normal;
  normal.address2 = "12 MAIN ST";
  normal.city = "SPRINGFIELD";
  normal.state = "IL";
  return normal;
}

// "found", the number of a rejection, or a fault's kind.
std::string Show(const UpstreamOutcome& outcome) {
  if (const auto* fault = std::get_if<UpstreamFault>(&outcome.answer)) {
    return std::string(NameOf(fault->kind));
  }
  const auto* const rejection = std::get_if<postal::Rejection>(&outcome.answer);
  return rejection == nullptr ? "found" : std::string(VerifyReply::NumberOf(*rejection));
}

FaultKind FaultOf(HttpOutcome end) {
  return end == HttpOutcome::TimedOut   ? FaultKind::TimedOut
         : end == HttpOutcome::NoAnswer ? FaultKind::Unreachable
                                        : FaultKind::BadReply;
}

// Whatever a server sends, a call ends with the whole answer or none.
TEST(HttpClientTest, EndsWhateverTheServerDoes) {
  HttpClient client({.whole = HostileLimits().whole, .bytes = HostileLimits().bytes});
  ForEachHostileShape([&client](const HostileShape& shape) {
    SCOPED_TRACE(shape.name);
    const LoopbackServer server(shape.answer);
    const auto answer = client.Send({"http://" + server.GetEndpoint() + "/x", {}});
    if (const auto* failure = std::get_if<HttpClient::Failure>(&answer)) {
      EXPECT_EQ(failure->kind, FaultOf(shape.end));
      EXPECT_EQ(failure->calls, 1U);
      EXPECT_NE(shape.end, HttpOutcome::Answered) << failure->detail;
    } else {
      EXPECT_EQ(shape.end, HttpOutcome::Answered);
      EXPECT_EQ(std::get<HttpAnswer>(answer).body,
                shape.unpacked.empty() ? shape.body : shape.unpacked);
    }
  });
}

// A partner is asked within the same limits, and no shape is taken for an address or a refusal.
TEST(VerifyXmlUpstreamTest, TakesNothingOfAHostileServer) {
  const TempFolder folder;
  const std::string credentials = folder.Write("partner", "user_id = id\n");
  ForEachHostileShape([&credentials](const HostileShape& shape) {
    SCOPED_TRACE(shape.name);
    const LoopbackServer server(shape.answer);
    VerifyXmlUpstream upstream("http://" + server.GetEndpoint(), credentials,
                               {.whole = HostileLimits().whole, .bytes = HostileLimits().bytes});
    const UpstreamOutcome outcome = upstream.Ask(Main());
    const auto* const fault = std::get_if<UpstreamFault>(&outcome.answer);
    ASSERT_NE(fault, nullptr);
    const bool isOfStatus = shape.name == std::string_view("page of an error");
    EXPECT_EQ(fault->kind, isOfStatus ? FaultKind::ServerError : FaultOf(shape.end));
    EXPECT_EQ(outcome.calls, 1U);
  });
}

class PostalUpstreamTest : public testing::Test {
 protected:
  PostalUpstreamTest() {
    limits_.whole = seconds(5);
    api_.Say("12 MAIN ST", 200, PostalStandIn::Found("12 MAIN ST"));
  }

  PostalApiUpstream& Upstream() {
    if (!upstream_) {
      upstream_.emplace(api_.Url(), credentials_, zips_, clock_, limits_);
    }
    return *upstream_;
  }

  UpstreamOutcome Ask(const RequestAddress& normal = Main()) { return Upstream().Ask(normal); }

  const TempFolder folder_;
  std::string credentials_ =
      folder_.Write("good", "# comment\n\n client_id = id\r\nclient_secret=secret");
  Zips zips_ = [] { return std::make_shared<postal::ZipList>(); };
  ManualClock clock_;
  HttpClient::Limits limits_;
  PostalStandIn api_;
  std::optional<PostalApiUpstream> upstream_;
};

// While the old token is valid, a failing token server is asked once a minute and no call fails.
TEST_F(PostalUpstreamTest, GoesOnWithTheOldTokenWhereThereIsNoOther) {
  Ask();
  api_.SetTokenReply("");
  clock_.Move(hours(7) + seconds(13 * 60));
  for (const int tokens : {2, 2, 3}) {
    EXPECT_EQ(Show(Ask()), "found");
    EXPECT_EQ(api_.Tokens(), tokens);
    clock_.Move(seconds(31));
  }
  clock_.Move(hours(1));
  const UpstreamOutcome outcome = Ask();
  EXPECT_EQ(Show(outcome), "server-error");
  EXPECT_EQ(outcome.calls, 0U);
}

TEST_F(PostalUpstreamTest, ManyThreadsFetchOneToken) {
  Upstream();
  std::vector<std::thread> threads;
  std::atomic<int> found = 0;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&, this] { found += Show(Ask()) == "found" ? 1 : 0; });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(found, 8);
  EXPECT_EQ(api_.Tokens(), 1);
}

TEST_F(PostalUpstreamTest, A401GetsOneNewTokenAndOneMoreTry) {
  Ask();
  api_.EndTokens();
  const UpstreamOutcome outcome = Ask();
  EXPECT_EQ(Show(outcome), "found");
  EXPECT_EQ(outcome.calls, 2U);
  EXPECT_EQ(api_.Tokens(), 2);
  api_.Say("12 MAIN ST", 401, "");
  const UpstreamOutcome refused = Ask();
  EXPECT_EQ(Show(refused), "unauthorised");
  EXPECT_EQ(refused.calls, 2U);
  EXPECT_EQ(api_.Tokens(), 3);
  EXPECT_EQ(api_.Addresses(), 5);
}

TEST_F(PostalUpstreamTest, ReadsTokensInEveryForm) {
  const struct {
    const char* reply;
    const char* result;
    seconds life;  // then the next one is fetched
  } rows[] = {
      {R"({"access_token":"@","expires_in":100})", "found", seconds(90)},
      {R"({"access_token":"@","expires_in":"100"})", "found", seconds(90)},
      {R"({"access_token":"@"})", "found", seconds(3240)},
      {R"({"access_token":"@\r\nX-Other: 1","expires_in":100})", "bad-reply", {}},
      {R"({"access_token":""})", "bad-reply", {}},
      {R"(<html>@</html>)", "bad-reply", {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reply);
    upstream_.reset();
    api_.SetTokenReply(row.reply);
    EXPECT_EQ(Show(Ask()), row.result);
    const int tokens = api_.Tokens();
    if (row.life.count() > 0) {
      clock_.Move(row.life - seconds(1));
      Ask();
      EXPECT_EQ(api_.Tokens(), tokens);
      clock_.Move(seconds(1));
      Ask();
      EXPECT_EQ(api_.Tokens(), tokens + 1);
    }
  }
}

TEST_F(PostalUpstreamTest, TellsFailuresApart) {
  Ask();
  limits_.whole = milliseconds(300);
  limits_.bytes = 1000;
  upstream_.reset();
  const std::string head = "HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n{";
  const struct {
    const char* bytes;
    std::string rest;
    const char* result;
  } rows[] = {
      {"closed at once", "", "unreachable"},
      {"half an answer", head + std::string(100, ' '), "bad-reply"},
      {"too long", head + std::string(4999, ' '), "bad-reply"},
      {"no HTTP", "SSH-2.0-OpenSSH\r\n", "bad-reply"},
      {"redirected", "HTTP/1.1 302 Found\r\nLocation: /\r\nContent-Length: 0\r\n\r\n", "bad-reply"},
  };
  for (const auto& row : rows) {
    api_.Break(row.rest);
    const int before = api_.Addresses();
    const UpstreamOutcome outcome = Ask();
    EXPECT_EQ(Show(outcome), row.result) << row.bytes;
    EXPECT_EQ(outcome.calls, static_cast<size_t>(api_.Addresses() - before)) << row.bytes;
  }
  api_.Hold();
  EXPECT_EQ(Show(Ask()), "timed-out");
  std::thread([this] { Upstream().Stop(); }).join();
  EXPECT_NE(Show(Ask()), "found");
  api_.Release();
  PostalApiUpstream away("http://127.0.0.1:1", credentials_, zips_, clock_, limits_);
  EXPECT_EQ(Show(away.Ask(Main())), "unreachable");
}

TEST_F(PostalUpstreamTest, HearsWhenToAskAgain) {
  const struct {
    const char* header;
    std::optional<seconds> pause;
  } rows[] = {
      {"Retry-After: 30\r\n", seconds(30)},
      {"retry-after: 999999999\r\n", hours(24)},
      {"Retry-After: soon\r\n", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& row : rows) {
    api_.Say("12 MAIN ST", 429, "", row.header);
    const auto outcome = Ask();
    EXPECT_EQ(Show(outcome), "quota");
    EXPECT_EQ(std::get<UpstreamFault>(outcome.answer).retryAfter, row.pause) << row.header;
  }
}

TEST(CredentialsTest, TakesPrivateFilesOfOneForm) {
  const TempFolder folder;
  const std::string good = "client_id = a\nclient_secret = b=c\nuser_id = d\npassword = e\n";
  const Credentials read = Credentials::Load(folder.Write("private", good, 0400));
  EXPECT_EQ(read.clientId + read.clientSecret + read.userId + read.password, "ab=cde");
  const struct {
    std::string content;
    mode_t mode;
    const char* complaint;
  } rows[] = {
      {good, 0640, "let its owner alone read it (chmod 600)"},
      {good, 0604, "let its owner alone read it (chmod 600)"},
      {good, 0602, "let its owner alone read it (chmod 600)"},
      {"client_id = a\nclient_secret\n", 0600, ": line 2: is not NAME = VALUE"},
      {"client_secret = hunter2\x01\n", 0600, ": line 1: is not NAME = VALUE"},
      {"clientid = hunter2\n", 0600, ": line 1: is not NAME = VALUE"},
      {std::string(5000, '#'), 0600, "is longer than 4096 bytes"},
  };
  for (const auto& row : rows) {
    const std::string file = folder.Write("private", row.content, row.mode);
    try {
      Credentials::Load(file);
      ADD_FAILURE() << row.complaint;
    } catch (const CredentialsError& error) {
      EXPECT_NE(std::string(error.what()).find(row.complaint), std::string::npos) << error.what();
      EXPECT_EQ(std::string(error.what()).find("hunter2"), std::string::npos);
    }
  }
  EXPECT_THROW(Credentials::Load(folder.File(".")), CredentialsError);
  EXPECT_THROW(Credentials::Load("/nonexistent"), CredentialsError);
}

TEST(UpstreamUrlTest, SendsNoSecretInTheClear) {
  EXPECT_EQ(ReadUpstreamUrl("https://apis.usps.com/"), "https://apis.usps.com");
  EXPECT_EQ(ReadUpstreamUrl("http://[::1]:80"), "http://[::1]:80");
  for (const char* wrong : {"http://apis.usps.com", "http://127.example.com", "http://[::1]x",
                            "apis.usps.com", "https://", "https://a@b", "https://a?b",
                            "https://a b", "ftp://a", "http://127.0.0.1@b.c", ""}) {
    EXPECT_THROW(ReadUpstreamUrl(wrong), std::invalid_argument) << wrong;
  }
  EXPECT_EQ(ReadPartnerUrl("verify.example.com:8443"), "https://verify.example.com:8443");
  EXPECT_EQ(ReadPartnerUrl("localhost:8470"), "http://localhost:8470");
  EXPECT_EQ(ReadPartnerUrl("127.example.com"), "https://127.example.com");
  EXPECT_EQ(ReadPartnerUrl("http://intranet/usps"), "http://intranet/usps");
  for (const char* wrong : {"", "a/b", "a@b", "ftp://a", "https://"}) {
    EXPECT_THROW(ReadPartnerUrl(wrong), std::invalid_argument) << wrong;
  }
}

// The partner is our own service.
TEST(VerifyXmlUpstreamTest, AsksAPartner) {
  const TempFolder folder;
  Verifier verifier(postal::ShippedZips());
  VerifyService service(verifier, nullptr, {"/usps", false});
  RequestLog log(-1, "");
  HttpServer server(ListenAddress::Parse("127.0.0.1:0"), {},
                    std::bind_front(&VerifyService::Answer, &service), log);
  const std::string credentials = folder.Write("partner", "user_id = \"<&\npassword = p");
  VerifyXmlUpstream upstream(ReadPartnerUrl("http://" + server.Address() + "/usps"), credentials,
                             {});
  RequestAddress normal = Main();
  normal.firmName = "SMITH & SONS <INC>";
  normal.zip5 = "62701";
  const UpstreamOutcome found = upstream.Ask(normal);
  ASSERT_EQ(Show(found), "found");
  EXPECT_EQ(std::get<ReplyFields>(found.answer),
            std::get<ReplyFields>(verifier.Verify(normal).outcome));
  for (const AddressCall call : {AddressCall::ZipCode, AddressCall::City}) {
    RequestAddress other = normal;
    other.call = call;
    const UpstreamOutcome told = upstream.Ask(other);
    ASSERT_EQ(Show(told), "found");
    EXPECT_EQ(std::get<ReplyFields>(told.answer).city, "SPRINGFIELD");
    other.zip5 = call == AddressCall::City ? "00000" : "";
    EXPECT_EQ(Show(upstream.Ask(other)), call == AddressCall::City ? "-2147219399" : "-2147219403");
  }
  normal.zip5 = "";
  EXPECT_EQ(Show(upstream.Ask(normal)), "-2147219403");
  VerifyXmlUpstream lost(ReadPartnerUrl("http://" + server.Address()), credentials, {});
  EXPECT_EQ(Show(lost.Ask(normal)), "refused");
  EXPECT_THROW(VerifyXmlUpstream("https://a", folder.Write("partner", "password = p"), {}),
               CredentialsError);
}

// A partner that has as many candidates as it is asked for.
class ChoiceSource final : public AnswerSource {
 public:
  void Find(const RequestAddress& asked, const std::string&, Done done) override {
    ++count;
    AddressAnswer answer = postal::Rejection::Multiple;
    for (size_t i = 0; i < asked.candidates; ++i) {
      answer.candidates.push_back(Choice(i));
    }
    done(std::move(answer));
  }

  static postal::Candidate Choice(size_t i) {
    return {"",
            std::to_string(i) + " MAIN ST & CO",
            "URB A",
            "SPRINGFIELD",
            "IL",
            "62701",
            {"1", "99", postal::Parity::Odd},
            {"1A", "1F", postal::Parity::Even},
            'H'};
  }

  std::atomic<int> count = 0;
};

TEST(VerifyXmlUpstreamTest, GivesOnCandidatesAndKeepsThem) {
  const TempFolder folder;
  ChoiceSource source;
  VerifyService partner(source, nullptr, {});
  RequestLog log(-1, "");
  HttpServer server(ListenAddress::Parse("127.0.0.1:0"), {},
                    std::bind_front(&VerifyService::Answer, &partner), log);
  VerifyXmlUpstream upstream(ReadPartnerUrl("http://" + server.Address()),
                             folder.Write("partner", "user_id = U"), {});
  ManualClock clock;
  AnswerCache cache(folder.File("answers"), upstream.Name(), clock, {});
  Gateway gateway(
      upstream, [] { return std::make_shared<postal::ZipList>(); }, Budget(std::nullopt), &cache,
      clock, {}, log);
  const auto ask = [&gateway](const std::string& number, size_t candidates) {
    RequestAddress asked = Main();
    asked.address2 = number + " MAIN ST";
    asked.candidates = candidates;
    std::promise<AddressAnswer> promise;
    gateway.Find(asked, "a", [&](AddressAnswer answer) { promise.set_value(std::move(answer)); });
    return promise.get_future().get();
  };
  const auto isMultiple = [](const AddressAnswer& answer) {
    return answer == AddressAnswer(postal::Rejection::Multiple);
  };
  AddressAnswer answer = ask("12", 3);
  EXPECT_TRUE(isMultiple(answer));
  ASSERT_EQ(answer.candidates.size(), 3U);
  EXPECT_EQ(answer.candidates[2], ChoiceSource::Choice(2));
  EXPECT_EQ(ask("12", 50).candidates.size(), 50U);
  EXPECT_EQ(source.count, 1);
  // A request without candidates is answered from what was kept; the other way round asks once
  // more.
  answer = ask("12", 0);
  EXPECT_TRUE(isMultiple(answer) && answer.candidates.empty());
  EXPECT_EQ(source.count, 1);
  answer = ask("14", 0);
  EXPECT_TRUE(isMultiple(answer) && answer.candidates.empty());
  EXPECT_EQ(source.count, 2);
  EXPECT_EQ(ask("14", 1).candidates.size(), 1U);
  EXPECT_EQ(source.count, 3);
}

}  // namespace
}  // namespace postwright::service
