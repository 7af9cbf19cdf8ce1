#include "service/gateway/AnswerCache.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <thread>

#include "postal/store/Sqlite.h"
#include "tests/service/upstream/ManualClock.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

class AnswerCacheTest : public testing::Test {
 protected:
  AnswerCacheTest() {
    for (const ReplyField& field : kReplyFields) {  // all different, so that a loss shows
      found_.*field.member = std::string(field.element) + " & <B>";
    }
    found_.returnText = ReplyFields::kDefaultMatch;
  }

  void Remove() {
    for (const char* suffix : {"", "-wal", "-shm"}) {
      unlink((file_ + suffix).c_str());
    }
  }

  std::string Content() const {
    std::ifstream file(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  AnswerCache& Open(const std::string& source = "a") {
    cache_.emplace(file_, source, clock_, limits_);
    return *cache_;
  }

  const TempFolder folder_;
  std::string file_ = folder_.File("answers");
  ManualClock clock_;
  AnswerCache::Limits limits_;
  ReplyFields found_;
  std::optional<AnswerCache> cache_;
};

TEST_F(AnswerCacheTest, KeepsOverARestartAndForItsLifetime) {
  Open().Keep("found", found_);
  cache_->Keep("rejected", postal::Rejection::Multiple);
  cache_->NoteCall();
  struct stat state = {};
  ASSERT_EQ(stat(file_.c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777U, 0600U);
  Open();
  EXPECT_EQ(cache_->Find("found"), AnswerCache::Kept(found_));
  EXPECT_EQ(cache_->Find("rejected"), AnswerCache::Kept(postal::Rejection::Multiple));
  EXPECT_EQ(cache_->Find("foun"), std::nullopt);
  EXPECT_EQ(cache_->CallsWithin(hours(1)).size(), 1U);
  EXPECT_EQ(Open("b").Find("found"), std::nullopt);
  EXPECT_EQ(cache_->CallsWithin(hours(1)).size(), 0U);
  Open();
  clock_.Move(hours(24));
  EXPECT_EQ(cache_->Find("rejected"), std::nullopt);
  EXPECT_EQ(cache_->CallsWithin(hours(1)).size(), 0U);
  clock_.Move(hours(24 * 29) - seconds(1));
  EXPECT_EQ(cache_->Find("found"), AnswerCache::Kept(found_));
  clock_.Move(seconds(1));
  EXPECT_EQ(cache_->Find("found"), std::nullopt);
  clock_.Move(-hours(24 * 31));  // kept in the future: its age is unknown
  EXPECT_EQ(cache_->Find("found"), std::nullopt);
  clock_.Move(hours(24 * 32));
  EXPECT_EQ(Open().Size(), 0);
  EXPECT_EQ(cache_->Failures(), 0U);
}

TEST_F(AnswerCacheTest, HoldsNoMoreThanItMay) {
  limits_.answers = 50;
  Open();
  for (int i = 0; i < 301; ++i) {
    cache_->Keep(std::to_string(i), found_);
    clock_.Move(seconds(1));
  }
  EXPECT_EQ(cache_->Size(), 50);
  EXPECT_EQ(cache_->Find("250"), std::nullopt);
  EXPECT_NE(cache_->Find("251"), std::nullopt);
}

TEST_F(AnswerCacheTest, TurnsDownWhatIsNoCache) {
  for (const char* statements :
       {"CREATE TABLE other(a)",
        "PRAGMA application_id=1; PRAGMA user_version=1; CREATE TABLE b(c)",
        "PRAGMA application_id=1347895619; PRAGMA user_version=2; CREATE TABLE b(c)"}) {
    Remove();
    postal::SqliteFile(file_, seconds(1)).Run(statements);
    const std::string before = Content();
    EXPECT_THROW(Open(), postal::StoreError) << statements;
    EXPECT_TRUE(Content() == before || before[68] == 'P') << statements;
  }
  Remove();
  std::ofstream(file_) << std::string(10'000, 'x');
  EXPECT_THROW(Open(), postal::StoreError);
  EXPECT_EQ(Content(), std::string(10'000, 'x'));
  file_ = "/nonexistent/answers";
  EXPECT_THROW(Open(), postal::StoreError);
}

TEST_F(AnswerCacheTest, BeginsANewOneBesideWhatIsDamaged) {
  for (const char* suffix : {".damaged", ".damaged-2"}) {
    Open().Keep("found", found_);
    EXPECT_EQ(cache_->Repair(), "");
    cache_.reset();
    const std::string whole = Content();
    std::ofstream(file_, std::ios::binary) << whole.substr(0, 100) + std::string(8000, 'x');
    Open().Keep("found", found_);
    EXPECT_NE(cache_->Repair().find(file_ + suffix + ", and a new cache"), std::string::npos)
        << cache_->Repair();
    EXPECT_EQ(cache_->Find("found"), AnswerCache::Kept(found_));
    std::ifstream damaged(file_ + suffix);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(damaged), {}).size(), 8100U);
  }
}

// A lock costs the answers that would have been kept, but no time; once it is gone, all is well.
TEST_F(AnswerCacheTest, DoesWithoutAFileThatIsLocked) {
  Open().Keep("before", found_);
  postal::SqliteFile other(file_, seconds(1));
  other.Run("BEGIN IMMEDIATE");
  cache_->Keep("locked", found_);
  EXPECT_EQ(cache_->Failures(), 1U);
  EXPECT_NE(cache_->Find("before"), std::nullopt);
  EXPECT_NE(cache_->LastFailure().find("locked"), std::string::npos);
  cache_.reset();
  other.Run("COMMIT; PRAGMA locking_mode=EXCLUSIVE; BEGIN IMMEDIATE; DELETE FROM calls");
  Open();
  EXPECT_EQ(cache_->Find("before"), std::nullopt);
  cache_->Keep("locked", found_);
  other.Run("COMMIT; PRAGMA locking_mode=NORMAL; SELECT * FROM calls");
  clock_.Move(seconds(11));
  cache_->Keep("after", found_);
  EXPECT_NE(cache_->Find("after"), std::nullopt);
  EXPECT_NE(cache_->Find("before"), std::nullopt);
}

TEST_F(AnswerCacheTest, DoesWithoutAFileThatCannotGrow) {
  Open().Keep("before", found_);
  signal(SIGXFSZ, SIG_IGN);
  rlimit old = {};
  getrlimit(RLIMIT_FSIZE, &old);
  const rlimit full = {40'000, old.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  for (int i = 0; i < 50; ++i) {
    cache_->Keep("full" + std::to_string(i), found_);
  }
  EXPECT_GT(cache_->Failures(), 0U);
  EXPECT_NE(cache_->Find("before"), std::nullopt);
  Remove();
  Open().Keep("full", found_);  // not even a new file fits
  setrlimit(RLIMIT_FSIZE, &old);
  clock_.Move(seconds(11));
  cache_->Keep("after", found_);
  EXPECT_NE(cache_->Find("after"), std::nullopt);
}

}  // namespace
}  // namespace postwright::service
