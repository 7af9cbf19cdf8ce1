#include "apps/postwright/stream/Outage.h"

#include <gtest/gtest.h>
#include <postwright/Deployment.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "apps/postwright/FixRecord.h"
#include "apps/postwright/stream/JsonRecord.h"
#include "apps/postwright/stream/LineFilter.h"
#include "service/VerifyService.h"
#include "service/gateway/Gateway.h"
#include "service/http/HttpServer.h"
#include "tests/service/upstream/ManualClock.h"
#include "tests/support/TempFolder.h"

namespace postwright {

namespace {

using std::chrono::minutes;
using std::chrono::seconds;

// The clock of a run and of a gateway. It advances when somebody sleeps.
class SleepersClock final : public RunClock {
 public:
  Time Now() const override { return shared_.Now(); }
  void Sleep(std::chrono::milliseconds length) override {
    const auto whole = std::chrono::ceil<seconds>(length);
    slept_.push_back(whole);
    shared_.Move(whole);
  }
  void Move(seconds by) { shared_.Move(by); }

  const service::ManualClock& Shared() const { return shared_; }
  const std::vector<seconds>& Slept() const { return slept_; }

 private:
  service::ManualClock shared_;
  std::vector<seconds> slept_;
};

std::string ReadAll(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

std::string Status(FixStatus status) {
  return R"({"address":"","fixed":"","status":)" + std::to_string(static_cast<int>(status)) + "}\n";
}

LineRecord Missed(seconds retryAfter = seconds(0)) {
  LineRecord record(Status(FixStatus::kUnanswered));
  record.heard = Heard::kNoAnswer;
  record.retryAfter = retryAfter;
  record.why = "Nobody there.";
  return record;
}

LineRecord Answered() {
  LineRecord record(Status(FixStatus::kFixed));
  record.heard = Heard::kAnswer;
  return record;
}

int NumberOf(const LabelLine& label) {
  return std::stoi(label.address);
}

// Captures standard error for as long as the object lives.
class Captured {
 public:
  explicit Captured(std::string& said) : said_(said) { testing::internal::CaptureStderr(); }
  ~Captured() { said_ = testing::internal::GetCapturedStderr(); }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;

 private:
  std::string& said_;
};

class OutageTest : public testing::Test {
 protected:
  // The records of labels with the house numbers 1, 2 ..., answered by `answer`.
  ExitStatus Run(int labels, const LineAnswer& answer, const std::string& resume = "") {
    std::string lines;
    for (int label = 1; label <= labels; ++label) {
      lines += '"' + std::to_string(label) + " main street, austin tx 78701\"\n";
    }
    LineFilterOptions options;
    options.input = folder_.Write("labels", lines);
    options.output = resume.empty() ? folder_.File("records") : "";
    options.resume = resume;
    options.giveUpAfter = giveUpAfter_;
    options.clock = &clock_;
    const Captured captured(said_);
    return FilterLines(options, answer);
  }

  // The statuses of the records, one digit each.
  std::string Statuses() const {
    std::istringstream records(ReadAll(folder_.File("records")));
    std::string statuses;
    for (std::string record; std::getline(records, record);) {
      statuses += std::to_string(static_cast<int>(StatusOfRecord(record).value()));
    }
    return statuses;
  }

  const TempFolder folder_;
  SleepersClock clock_;
  seconds giveUpAfter_ = minutes(10);
  std::string said_;
};

TEST_F(OutageTest, WaitsWithGrowingPausesAndGoesOn) {
  const auto back = clock_.Now() + seconds(100);
  int asked = 0;
  EXPECT_EQ(Run(20,
                [&](const LabelLine& label) {
                  ++asked;
                  return NumberOf(label) >= 7 && clock_.Now() < back ? Missed() : Answered();
                }),
            kExitDone);
  EXPECT_EQ(Statuses(), std::string(20, '1'));
  const std::vector<seconds> pauses = {seconds(1),  seconds(2),  seconds(4), seconds(8),
                                       seconds(16), seconds(32), seconds(60)};
  EXPECT_EQ(clock_.Slept(), pauses);
  EXPECT_EQ(asked, 20 + Outage::kInARow + 6);  // the seventh try is one of the answers
  EXPECT_EQ(said_, "postwright: Nobody there. Waiting for the service, 10 min at most.\n");
}

TEST_F(OutageTest, GivesUpAndLosesNothing) {
  const auto begun = clock_.Now();
  EXPECT_EQ(
      Run(40, [](const LabelLine& label) { return NumberOf(label) > 3 ? Missed() : Answered(); }),
      kExitOutage);
  EXPECT_EQ(clock_.Now() - begun, minutes(10));
  EXPECT_FALSE(std::filesystem::exists(folder_.File("records")));
  const std::string hint = "go on with --resume ";
  const std::size_t at = said_.find(hint) + hint.size();
  std::filesystem::rename(said_.substr(at, said_.find('\n', at) - at), folder_.File("records"));
  EXPECT_TRUE(Statuses().starts_with("111444")) << Statuses();
}

// A service that answers all labels but a few is not away, whichever those are.
TEST_F(OutageTest, IsNotHeldUpByLabelsThatNeverGetAnAnswer) {
  for (const int first : {1, 9, 17}) {
    SCOPED_TRACE(first);
    EXPECT_EQ(Run(20,
                  [first](const LabelLine& label) {
                    const int number = NumberOf(label);
                    return number >= first && number < first + 3 ? Missed() : Answered();
                  }),
              kExitDone);
    std::string expected(20, '1');
    EXPECT_EQ(Statuses(), expected.replace(first - 1, 3, "444"));
  }
}

TEST_F(OutageTest, CountsWhatWasAsked) {
  const auto isAsked = [](const LabelLine& label) { return NumberOf(label) % 2 == 0; };
  EXPECT_EQ(Run(4,
                [&](const LabelLine& label) {
                  return isAsked(label) ? Missed() : LineRecord(Status(FixStatus::kUnchanged));
                }),
            kExitDone);
  EXPECT_EQ(Statuses(), "0404");  // two in a row are no outage
  EXPECT_TRUE(clock_.Slept().empty());
  EXPECT_EQ(Run(9,
                [&](const LabelLine& label) {
                  return isAsked(label) ? Missed() : LineRecord(Status(FixStatus::kUnchanged));
                }),
            kExitOutage);  // a label that is not asked about does not break the row
}

TEST_F(OutageTest, WaitsAsLongAsTheServiceSays) {
  const auto begun = clock_.Now();
  EXPECT_EQ(Run(2,
                [&](const LabelLine&) {
                  const auto left =
                      std::chrono::duration_cast<seconds>(begun + minutes(90) - clock_.Now());
                  return left > seconds(0) ? Missed(std::min<seconds>(left, minutes(20)))
                                           : Answered();
                }),
            kExitDone);
  EXPECT_EQ(Statuses(), "11");
  EXPECT_EQ(clock_.Now() - begun, minutes(90));
  EXPECT_EQ(said_,
            "postwright: Nobody there. Waiting until the service may be asked again, 20 min from "
            "now.\n");
}

// An upstream that finds every address, and counts.
class CountingUpstream final : public service::Upstream {
 public:
  const std::string& Name() const override { return name_; }
  service::UpstreamOutcome Ask(const service::RequestAddress& normal) override {
    ++calls_;
    service::ReplyFields fields;
    fields.address2 = normal.address2;
    fields.city = "AUSTIN";
    fields.state = "TX";
    fields.zip5 = "78701";
    return {fields, 1};
  }
  void ReloadCredentials() override {}
  void Stop() override {}
  int Calls() const { return calls_; }

 private:
  const std::string name_ = "counting";
  std::atomic<int> calls_ = 0;
};

// The real gateway with the real fix.
class BudgetTest : public OutageTest {
 protected:
  void StartGateway() {
    server_.reset();
    service_.reset();
    gateway_.reset();
    cache_.emplace(folder_.File("answers"), upstream_.Name(), clock_.Shared(),
                   service::AnswerCache::Limits());
    gateway_.emplace(
        upstream_, [this] { return zips_; }, service::Budget(service::Budget::ParseRate("20/min")),
        &*cache_, clock_.Shared(), service::Gateway::Limits(), log_);
    service_.emplace(*gateway_, nullptr, service::VerifyService::Options());
    server_ = std::make_unique<service::HttpServer>(
        service::ListenAddress::Parse("127.0.0.1:0"), service::HttpServer::Limits(),
        [this](const service::HttpRequest& request, const service::Respond& respond) {
          service_->Answer(request, respond);
        },
        log_);
    SetDeployment({.verifyHost = server_->Address(), .userId = "TEST", .probeHost = "127.0.0.1"});
  }

  LineRecord Fix(const LabelLine& label) { return FixRecord(client_, label, {{}, false}); }

  CountingUpstream upstream_;
  std::shared_ptr<postal::ZipList> zips_ = std::make_shared<postal::ZipList>();
  service::RequestLog log_{-1, ""};
  std::optional<service::AnswerCache> cache_;
  std::optional<service::Gateway> gateway_;
  std::optional<service::VerifyService> service_;
  std::unique_ptr<service::HttpServer> server_;
  PostwrightClient client_;
};

// Both are stopped in the middle and started again; no label costs a second call.
TEST_F(BudgetTest, FinishesAListBeyondTheBudget) {
  StartGateway();
  giveUpAfter_ = seconds(30);  // less than the gateway asks to wait
  const auto begun = clock_.Now();
  const std::string records = folder_.File("records");
  const auto fix = [this](const LabelLine& label) { return Fix(label); };
  const auto end = [this](const LabelLine& label) {
    return NumberOf(label) == 50 ? throw std::runtime_error("killed") : Fix(label);
  };
  EXPECT_THROW(Run(100, end, records), std::runtime_error);
  EXPECT_EQ(Statuses(), std::string(49, '1'));
  StartGateway();
  EXPECT_EQ(Run(100, fix, records), kExitDone);
  EXPECT_EQ(Statuses(), std::string(100, '1'));
  EXPECT_EQ(clock_.Now() - begun, minutes(4));
  EXPECT_EQ(upstream_.Calls(), 100);
}

}  // namespace

}  // namespace postwright
