#include "service/gateway/Gateway.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <sstream>

#include "service/VerifyService.h"
#include "service/gateway/FallbackSource.h"
#include "service/gateway/GatewayFault.h"
#include "tests/service/upstream/ManualClock.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

using std::chrono::seconds;

// An upstream that answers what it is told, when it is allowed to.
class ScriptedUpstream final : public Upstream {
 public:
  const std::string& Name() const override { return name_; }

  UpstreamOutcome Ask(const RequestAddress& normal) override {
    std::unique_lock lock(mutex_);
    asked_.push_back(normal.address2);
    ++arrived_;
    changed_.notify_all();
    changed_.wait(lock, [this] { return allowed_ > 0 || isStopped_; });
    --allowed_;
    const auto outcome = isStopped_ ? UpstreamOutcome{UpstreamFault{}, 1} : script_(normal);
    return outcome;
  }

  void ReloadCredentials() override {}

  void Stop() override {
    const std::lock_guard lock(mutex_);
    isStopped_ = true;
    changed_.notify_all();
  }

  void Resume() {
    const std::lock_guard lock(mutex_);
    isStopped_ = false;
  }

  void Say(UpstreamOutcome outcome) {
    const std::lock_guard lock(mutex_);
    script_ = [outcome](const RequestAddress&) { return outcome; };
  }
  void Fail(FaultKind kind, std::optional<seconds> retryAfter = {}, size_t calls = 1) {
    Say({UpstreamFault{kind, retryAfter, "detail"}, calls});
  }
  void Throw() {
    const std::lock_guard lock(mutex_);
    script_ = [](const RequestAddress&) -> UpstreamOutcome { throw std::bad_alloc(); };
  }
  void Find() { Say({Found(), 1}); }

  void Hold() { Allow(-1'000'000'000); }
  void Allow(int calls) {
    const std::lock_guard lock(mutex_);
    allowed_ = calls < 0 ? 0 : allowed_ + calls;
    changed_.notify_all();
  }
  // Waits until that many calls have come in all.
  void Await(int calls) {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(changed_.wait_for(lock, seconds(20), [&] { return arrived_ >= calls; }));
  }

  std::vector<std::string> Asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
  }

  static ReplyFields Found() {
    ReplyFields fields;
    fields.address2 = "12 MAIN ST";
    fields.city = "AUSTIN";
    fields.state = "TX";
    fields.zip5 = "78701";
    fields.zip4 = "1234";
    fields.dpvConfirmation = "Y";
    return fields;
  }

 private:
  const std::string name_ = "scripted";
  std::mutex mutex_;
  std::condition_variable changed_;
  std::function<UpstreamOutcome(const RequestAddress&)> script_;
  std::vector<std::string> asked_;
  int arrived_ = 0;
  int allowed_ = 1'000'000;
  bool isStopped_ = false;
};

// A source that cannot answer anything.
class LocalNothing final : public AnswerSource {
  void Find(const RequestAddress&, const std::string&, Done done) override {
    done(ServiceFault{"80040B18", "", ""});
  }
};

std::string Show(const AddressAnswer& answer) {
  if (const auto* fault = std::get_if<ServiceFault>(&answer)) {
    return fault->kind;
  }
  return std::holds_alternative<postal::Rejection>(answer) ? "rejected" : "found";
}

seconds RetryAfter(const AddressAnswer& answer) {
  const auto* const fault = std::get_if<ServiceFault>(&answer);
  return fault == nullptr ? seconds(-1) : fault->retryAfter;
}

class GatewayTest : public testing::Test {
 protected:
  GatewayTest() { upstream_.Find(); }

  void Start() {
    gateway_.reset();
    upstream_.Resume();
    cache_.emplace(folder_.File("answers"), upstream_.Name(), clock_, AnswerCache::Limits());
    gateway_.emplace(
        upstream_, [this] { return zips_; }, Budget(rate_), &*cache_, clock_, limits_, log_);
  }

  // Asks for an address whose delivery line begins with `number`.
  std::future<AddressAnswer> Find(const std::string& number, const std::string& asker = "a") {
    if (!gateway_) {
      Start();
    }
    return FindIn(*gateway_, number, asker);
  }

  static std::future<AddressAnswer> FindIn(AnswerSource& source, const std::string& number,
                                           const std::string& asker) {
    RequestAddress asked;
    asked.address2 = number + " Main St.";
    asked.city = "Austin";
    asked.state = "TX";
    const auto promise = std::make_shared<std::promise<AddressAnswer>>();
    source.Find(asked, asker,
                [promise](AddressAnswer answer) { promise->set_value(std::move(answer)); });
    return promise->get_future();
  }

  static AddressAnswer Get(std::future<AddressAnswer> answer) {
    const bool hasCome = answer.wait_for(seconds(20)) == std::future_status::ready;
    EXPECT_TRUE(hasCome);
    return hasCome ? answer.get() : AddressAnswer(ServiceFault{"", "", "(silence)"});
  }
  std::string Ask(const std::string& number) { return Show(Get(Find(number))); }
  static bool IsReady(const std::future<AddressAnswer>& answer) {
    return answer.wait_for(seconds(0)) == std::future_status::ready;
  }
  size_t Calls() { return upstream_.Asked().size(); }

  const TempFolder folder_;
  ManualClock clock_;
  std::shared_ptr<postal::ZipList> zips_ = std::make_shared<postal::ZipList>();
  RequestLog log_{-1, ""};
  ScriptedUpstream upstream_;
  std::optional<Budget::Rate> rate_ = Budget::Rate{100, seconds(3600)};
  Gateway::Limits limits_;
  std::optional<AnswerCache> cache_;
  std::optional<Gateway> gateway_;
};

TEST_F(GatewayTest, AsksForOneAddressOnce) {
  upstream_.Hold();
  std::vector<std::future<AddressAnswer>> answers;
  for (const char* number : {"1", " 1 ", "1", "2"}) {
    answers.push_back(Find(number));
  }
  upstream_.Await(2);
  upstream_.Allow(100);
  for (auto& answer : answers) {
    EXPECT_EQ(Show(Get(std::move(answer))), "found");
  }
  EXPECT_EQ(Calls(), 2U);
  Start();
  EXPECT_EQ(Ask("1"), "found");
  upstream_.Say({postal::Rejection::NotFound, 1});
  EXPECT_EQ(Ask("3"), "rejected");
  EXPECT_EQ(Ask("3"), "rejected");
  EXPECT_EQ(Ask("\xD0\x9C"), "rejected");  // nothing to ask anybody for
  EXPECT_EQ(Calls(), 3U);
  const GatewayState state = gateway_->State();
  EXPECT_EQ(state.cached + state.joined, 2U);  // joined while the answer is being written
  EXPECT_EQ(state.calls, 1U);
  EXPECT_EQ(state.turnedDownHere, 1U);
}

// Of three questions about one place only two become calls: the kept answer has the ZIP+4.
TEST_F(GatewayTest, MakesTheOtherCalls) {
  Start();
  const auto ask = [this](AddressCall call, const char* zip) {
    RequestAddress asked;
    asked.address2 = "1 Main St.";
    asked.zip5 = zip;
    asked.call = call;
    const auto promise = std::make_shared<std::promise<AddressAnswer>>();
    gateway_->Find(asked, "a", [promise](AddressAnswer answer) { promise->set_value(answer); });
    return Get(promise->get_future());
  };
  std::istringstream zips("78701\tAUSTIN\tTX\n");
  zips_->Read(zips, "");
  for (const AddressCall call : {AddressCall::Verify, AddressCall::ZipCode}) {
    EXPECT_EQ(std::get<ReplyFields>(ask(call, "78701-1234")).zip4, "1234");
  }
  EXPECT_EQ(Calls(), 1U);
  ReplyFields place;
  place.city = "AUSTIN";
  place.state = "TX";
  place.zip5 = "78701";
  upstream_.Say({place, 1});
  EXPECT_EQ(std::get<ReplyFields>(ask(AddressCall::City, "78701-1234")), place);
  Start();
  EXPECT_EQ(std::get<ReplyFields>(ask(AddressCall::City, " 78701")), place);
  EXPECT_EQ(Calls(), 2U);
  EXPECT_EQ(ask(AddressCall::City, "787"), AddressAnswer(postal::Rejection::InvalidZip));
}

TEST_F(GatewayTest, SaysWhoseWordAnAnswerIs) {
  using Kind = ReplySource::Kind;
  EXPECT_EQ(Get(Find("1")).source, (ReplySource{Kind::Upstream, upstream_.Name()}));
  Start();
  const AddressAnswer kept = Get(Find("1"));
  EXPECT_EQ(kept.source.kind, Kind::Cache);
  EXPECT_EQ(kept.source.name, upstream_.Name());
  EXPECT_EQ(kept.source.date, FormatDate(clock_.Today()).substr(0, 10));
}

TEST_F(GatewayTest, CachedAnswersGoOnWhileTheUpstreamHangs) {
  EXPECT_EQ(Ask("1"), "found");
  upstream_.Hold();
  std::vector<std::future<AddressAnswer>> stuck;
  for (int i = 10; i < 30; ++i) {
    stuck.push_back(Find(std::to_string(i)));
  }
  upstream_.Await(1 + static_cast<int>(limits_.connections));
  EXPECT_TRUE(IsReady(Find("1")));
  EXPECT_EQ(gateway_->State().calling, limits_.connections);
  EXPECT_EQ(gateway_->State().waiting, 20 - limits_.connections);
  gateway_.reset();  // those who wait get an answer
  for (auto& answer : stuck) {
    EXPECT_EQ(Show(Get(std::move(answer))), "stopping");
  }
}

TEST_F(GatewayTest, KeepsWithinItsBudgetOverARestart) {
  rate_ = Budget::Rate{3, seconds(3600)};
  upstream_.Hold();
  auto underWay = Find("1");
  upstream_.Await(1);
  EXPECT_EQ(cache_->CallsWithin(seconds(3600)).size(), 1U);  // what a gateway leaves that is killed
  upstream_.Allow(100);
  EXPECT_EQ(Show(Get(std::move(underWay))), "found");
  upstream_.Fail(FaultKind::BadReply, {}, 2);  // a call and its repetition
  EXPECT_EQ(Ask("2"), "bad-reply");
  EXPECT_EQ(gateway_->State().budgetLeft, 0U);  // booked at once, not by the file alone
  Start();
  upstream_.Find();
  for (const char* number : {"3", "4"}) {
    const AddressAnswer answer = Get(Find(number));
    EXPECT_EQ(Show(answer), "budget-spent");
    EXPECT_EQ(RetryAfter(answer), seconds(3600));
  }
  EXPECT_EQ(Ask("1"), "found");
  EXPECT_EQ(gateway_->State().budgetLeft, 0U);
  EXPECT_EQ(gateway_->State().errors[static_cast<size_t>(FaultKind::BudgetSpent)], 2U);
  clock_.Move(seconds(3599));
  upstream_.Fail(FaultKind::Unreachable, {}, 0);  // costs nothing
  auto waits = Find("3");
  EXPECT_FALSE(IsReady(waits));  // its turn comes within its time
  clock_.Move(seconds(1));
  EXPECT_EQ(Show(Get(std::move(waits))), "unreachable");
  EXPECT_EQ(gateway_->State().budgetLeft, 3U);
  EXPECT_EQ(cache_->CallsWithin(seconds(3600)).size(), 0U);
}

TEST_F(GatewayTest, ComesBackWhenTheUpstreamSaysSo) {
  upstream_.Fail(FaultKind::Quota, seconds(15));
  auto waits = Find("1");
  upstream_.Await(1);
  while (gateway_->State().waiting == 0) {
    std::this_thread::yield();
  }
  EXPECT_EQ(gateway_->State().pause->kind, FaultKind::Quota);
  upstream_.Find();
  clock_.Move(seconds(14));
  EXPECT_FALSE(IsReady(waits));
  EXPECT_EQ(Calls(), 1U);
  clock_.Move(seconds(1));
  EXPECT_EQ(Show(Get(std::move(waits))), "found");
  EXPECT_EQ(Calls(), 2U);
  upstream_.Fail(FaultKind::Quota, seconds(30));  // longer than an address may wait
  const AddressAnswer turnedAway = Get(Find("2"));
  EXPECT_EQ(Show(turnedAway), "quota");
  EXPECT_EQ(RetryAfter(turnedAway), seconds(30));
  EXPECT_TRUE(IsReady(Find("3")));
  EXPECT_EQ(Calls(), 3U);
}

TEST_F(GatewayTest, LeavesAnUpstreamAloneThatFails) {
  const struct {
    FaultKind kind;
    seconds pauses[3];  // after the first failure in a row, the second and the third
  } rows[] = {
      {FaultKind::ServerError, {seconds(1), seconds(2), seconds(4)}},
      {FaultKind::Unreachable, {seconds(1), seconds(2), seconds(4)}},
      {FaultKind::TimedOut, {seconds(1), seconds(2), seconds(4)}},
      {FaultKind::Unauthorised, {seconds(60), seconds(60), seconds(60)}},
      {FaultKind::Forbidden, {seconds(60), seconds(60), seconds(60)}},
      {FaultKind::BadReply, {}},
      {FaultKind::Refused, {}},
  };
  int number = 0;
  for (const auto& row : rows) {
    SCOPED_TRACE(NameOf(row.kind));
    upstream_.Find();
    Ask(std::to_string(++number));
    upstream_.Fail(row.kind);
    for (const seconds pause : row.pauses) {
      const AddressAnswer answer = Get(Find(std::to_string(++number)));
      EXPECT_EQ(Show(answer), NameOf(row.kind));
      EXPECT_EQ(RetryAfter(answer), seconds(0));  // no time was promised
      const auto resumesAt = gateway_->State().resumesAt;
      EXPECT_EQ(resumesAt ? *resumesAt - clock_.Today() : seconds(0), pause);
      clock_.Move(pause);
    }
  }
  upstream_.Throw();
  EXPECT_EQ(Ask("1000"), "bad-reply");
  upstream_.Fail(FaultKind::ServerError, seconds(120));
  EXPECT_EQ(RetryAfter(Get(Find("1001"))), seconds(120));
}

TEST_F(GatewayTest, NobodyWaitsForLongerThanTheDeadline) {
  limits_.connections = 1;
  upstream_.Hold();
  auto early = Find("1");
  upstream_.Await(1);
  auto queued = Find("2");
  clock_.Move(seconds(19));
  auto later = Find("1");
  EXPECT_FALSE(IsReady(early));
  clock_.Move(seconds(1));
  EXPECT_EQ(Show(Get(std::move(early))), "late");
  EXPECT_EQ(Show(Get(std::move(queued))), "late");
  EXPECT_EQ(gateway_->State().waiting, 0U);
  EXPECT_FALSE(IsReady(later));
  clock_.Move(seconds(30));
  EXPECT_EQ(Show(Get(std::move(later))), "late");
  upstream_.Allow(1);  // the answer is kept, although nobody waits for it any more
  while (Show(Get(Find("1"))) != "found") {
  }
  EXPECT_EQ(Calls(), 1U);
}

TEST_F(GatewayTest, EverybodysTurnComes) {
  limits_.connections = 1;
  limits_.waiting = 4;
  upstream_.Hold();
  std::vector<std::future<AddressAnswer>> batch;
  batch.push_back(Find("1", "batch"));
  upstream_.Await(1);
  for (const char* number : {"2", "3", "4", "5"}) {
    batch.push_back(Find(number, "batch"));
  }
  EXPECT_EQ(Show(Get(Find("6", "batch"))), "queue-full");
  auto window = Find("7", "window");
  EXPECT_EQ(Show(Get(std::move(batch.back()))), "queue-full");  // has made room
  upstream_.Allow(100);
  EXPECT_EQ(Show(Get(std::move(window))), "found");
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(Show(Get(std::move(batch[static_cast<size_t>(i)]))), "found");
  }
  EXPECT_EQ(upstream_.Asked(), (std::vector<std::string>{"1 MAIN ST", "2 MAIN ST", "7 MAIN ST",
                                                         "3 MAIN ST", "4 MAIN ST"}));
}

// From many threads: every address gets one answer, and none is asked for twice.
TEST_F(GatewayTest, AnswersManyAtOnce) {
  limits_.waiting = 1000;
  rate_.reset();
  Start();
  std::atomic<int> found = 0;
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 8; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < 100; ++i) {
        found += Show(Get(Find(std::to_string(i), std::to_string(thread)))) == "found" ? 1 : 0;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(found, 800);
  EXPECT_EQ(Calls(), 100U);
}

// An address that lacks the confirmation today may have it tomorrow.
TEST_F(GatewayTest, KeepsNoIncompleteAnswer) {
  upstream_.Say({ScriptedUpstream::Found(), 1, false});
  EXPECT_EQ(Ask("1"), "found");
  while (gateway_->State().calling > 0) {
  }
  upstream_.Find();
  while (Calls() < 2) {  // joined while the previous call is finishing
    EXPECT_EQ(Ask("1"), "found");
  }
  EXPECT_EQ(cache_->Failures(), 0U);
}

// A caller that holds up its own answer is answered before it is gone.
TEST_F(GatewayTest, NoAnswerComesToWhatIsNoMore) {
  upstream_.Hold();
  Start();
  std::string body;
  {
    LocalNothing local;
    FallbackSource fallback(*gateway_, local);
    VerifyService service(fallback, nullptr, {});
    service.Answer({"GET", "/ShippingAPI.dll",
                    "API=Verify&XML=<AddressValidateRequest USERID='1'><Address><Address2>1 main st"
                    "</Address2><City>Austin</City><State>TX</State></Address>"
                    "</AddressValidateRequest>",
                    ""},
                   [&](const HttpReply& reply) { body = reply.body; });
    upstream_.Await(1);
    EXPECT_EQ(body, "");
  }
  EXPECT_NE(body.find("80040B18"), std::string::npos) << body;
  EXPECT_EQ(Ask("2"), "stopping");
}

TEST(FairQueueTest, DisplacesOnlyFromALongerLane) {
  FairQueue<int> queue;
  queue.Push("batch", 1);
  queue.Push("batch", 2);
  queue.Push("window", 3);
  EXPECT_EQ(queue.Displace("window"), std::nullopt);  // both would have two
  queue.Push("batch", 4);
  EXPECT_EQ(queue.Displace("batch"), std::nullopt);
  EXPECT_EQ(queue.Displace("window"), 4);
  EXPECT_EQ(queue.Displace("another"), 2);
  EXPECT_EQ(queue.Displace("another"), std::nullopt);
  EXPECT_EQ(queue.Size(), 2U);
}

TEST_F(GatewayTest, FallsBackOnTheBaseUnconfirmed) {
  // A base with streets would say all this.
  class Confident final : public AnswerSource {
    void Find(const RequestAddress&, const std::string&, Done done) override {
      ReplyFields fields = ScriptedUpstream::Found();
      fields.deliveryPoint = "12";
      fields.business = "Y";
      done(fields);
    }
  } confident;
  Start();
  FallbackSource source(*gateway_, confident);
  const auto ask = [&] { return std::get<ReplyFields>(Get(FindIn(source, "12", ""))); };
  upstream_.Fail(FaultKind::Unauthorised);
  const ReplyFields fields = ask();
  EXPECT_EQ(fields.address2, "12 MAIN ST");
  EXPECT_EQ(fields.dpvConfirmation + fields.dpvFalse, "NN");
  EXPECT_EQ(fields.zip4 + fields.deliveryPoint + fields.business, "");
  EXPECT_EQ(source.Count(), 1U);
  upstream_.Find();
  gateway_->ReloadCredentials();
  EXPECT_EQ(ask(), ScriptedUpstream::Found());
  EXPECT_EQ(source.Count(), 1U);
}

}  // namespace
}  // namespace postwright::service
