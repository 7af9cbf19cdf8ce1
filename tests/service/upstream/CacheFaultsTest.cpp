// Whichever call of the cache fails, or is the last one before the process is killed: what it had
// is still there, SQLite's log goes with the next close, and the logged failure names file and
// cause.

#include <gtest/gtest.h>

#include <filesystem>

#include "postal/store/Sqlite.h"
#include "service/gateway/AnswerCache.h"
#include "tests/service/upstream/ManualClock.h"
#include "tests/support/FaultRuns.h"
#include "tests/support/FaultShim.h"
#include "tests/support/TempFolder.h"

namespace postwright::service {
namespace {

class CacheFaultsTest : public testing::Test {
 protected:
  CacheFaultsTest() {
    for (const ReplyField& field : kReplyFields) {
      answer_.*field.member = field.element;
    }
    answer_.returnText = ReplyFields::kDefaultMatch;
    AnswerCache(elsewhere_.File("kept"), "a", clock_, {}).Keep("before", answer_);
    runs_.folder = std::filesystem::canonical(folder_.File(""));
    runs_.work = [this] { return Use(); };
    runs_.check = [this](const FaultRuns::End& end) { return Complaint(end); };
  }

  void Begin(bool isThere) {
    isThere_ = isThere;
    runs_.prepare = [this] {
      if (isThere_) {
        std::filesystem::copy(elsewhere_.File("kept"), file_);
      }
    };
  }

  // What a gateway does when it starts and answers.
  std::string Use() const {
    try {
      AnswerCache cache(file_, "a", clock_, {});
      cache.Keep("new", answer_);
      cache.NoteCall();
      cache.Find("new");
      return cache.LastFailure() + cache.Repair();
    } catch (const postal::StoreError& error) {
      return error.what();
    }
  }

  std::string Complaint(const FaultRuns::End& end) const {
    if (!end.said.empty() && !(end.said.find(file_) == 0 && end.NamesCause())) {
      return "no file or no cause is named";
    }
    std::string wrong;
    {
      AnswerCache again(file_, "a", clock_, {});
      wrong += isThere_ && again.Find("before") != AnswerCache::Kept(answer_) ? "lost; " : "";
      wrong += !end.isKilled && end.said.empty() && !again.Find("new") ? "not kept, unsaid; " : "";
      again.Keep("again", answer_);
      wrong += again.Find("again") ? "" : "keeps nothing; ";
      wrong += again.LastFailure() + again.Repair();
    }
    return wrong + (runs_.Files() == "answers" ? "" : "there are: " + runs_.Files());
  }

  const TempFolder folder_;
  const TempFolder elsewhere_;
  const std::string file_ = std::filesystem::canonical(folder_.File("")) / "answers";
  const ManualClock clock_;
  ReplyFields answer_;
  bool isThere_ = false;
  FaultRuns runs_;
};

TEST_F(CacheFaultsTest, KeepsWhatItHad) {
  for (const bool isThere : {true, false}) {
    SCOPED_TRACE(isThere);
    Begin(isThere);
    EXPECT_EQ(runs_.Run(), "");
  }
}

TEST_F(CacheFaultsTest, OutlivesEachPieceOfMemoryThatIsMissing) {
  constexpr long kFirst = 200;
  constexpr long kSpread = 200;
  Begin(true);
  runs_.prepare();
  FaultShimFailMemory(0);
  EXPECT_EQ(Use(), "");
  const long all = FaultShimMemoryCalls();
  if (all == 0) {
    GTEST_SKIP() << "A sanitizer's memory has no faults.";
  }
  ASSERT_GT(all, 2 * kFirst);
  for (long i = 1; i <= kFirst + kSpread; ++i) {
    std::filesystem::remove(file_);
    runs_.prepare();
    FaultShimFailMemory(i <= kFirst ? i : kFirst + (all - kFirst) * (i - kFirst) / kSpread);
    try {
      Use();
    } catch (const std::bad_alloc&) {  // of our own, where the cache is made
    }
    FaultShimFailMemory(0);
    EXPECT_EQ(Complaint({true, ""}), "") << i;
  }
}

}  // namespace
}  // namespace postwright::service
