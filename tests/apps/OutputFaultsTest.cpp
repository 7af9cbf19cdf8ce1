// Whichever call of a run fails, or is the last one before the process is killed: its file is the
// old or the new one, or with --resume has whole records so far; the same run done again leaves the
// new one and nothing next to it; and the message names file and cause.

#include <gtest/gtest.h>

#include <filesystem>

#include "apps/postwright/FixCommand.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/FaultRuns.h"

namespace postwright {

namespace {

constexpr const char* kLabels =
    "{\"id\":1,\"address\":\"Al\\n1 Main St\\nAustin, TX 78701\"}\n"
    "{\"id\":2,\"address\":\"Bo\\n2 Main St\\nAustin, TX 78701\"}\n"
    "{\"id\":3,\"address\":\"nothing\"}\n";
constexpr const char* kTable = "Name,Street,City,State,ZIP\nAl,1 Main St,Austin,TX,78701\n";
constexpr const char* kUnanswered =
    "{\"id\":2,\"address\":\"Bo\\n2 Main St\\nAustin, TX 78701\",\"fixed\":\"\",\"result\":\"\","
    "\"confirmation\":\"\",\"reason\":\"refused\",\"status\":4}\n";

struct Row {
  const char* name;
  bool isTable;
  bool isThere;
  bool isResumed;
};

constexpr Row kRows[] = {{"in place of a file", false, true, false},
                         {"a new file", false, false, false},
                         {"a table", true, true, false},
                         {"gone on with", false, true, true}};

class FaultedRun {
 public:
  FaultedRun(const Row& row, const std::string& server) : row_(row) {
    options_.file = elsewhere_.File(row.isTable ? "labels.csv" : "labels.jsonl");
    WriteFile(options_.file, row.isTable ? kTable : kLabels);
    options_.server = server;
    options_.quiet = true;
    options_.jsonl = !row.isTable;
    options_.output = elsewhere_.File("whole");
    Fix();
    whole_ = ReadFile(options_.output);
    earlier_ = row.isResumed ? whole_.substr(0, whole_.find('\n') + 1) + kUnanswered + "{\"id\":3"
                             : "old\n";
    runs_.folder = std::filesystem::canonical(folder_.File(""));
    (row.isResumed ? options_.resume : options_.output) = File();
    if (row.isResumed) {
      options_.output.clear();
    }
    runs_.prepare = [this] {
      if (row_.isThere) {
        WriteFile(File(), earlier_);
      }
    };
    runs_.work = [this] { return Fix(); };
    runs_.check = [this](const FaultRuns::End& end) { return Complaint(end); };
  }

  std::string Do() const { return whole_.empty() ? "nothing works" : runs_.Run(); }

 private:
  std::string Fix() const {
    try {
      RunFix(options_);
      return "";
    } catch (const Failure& failure) {
      return failure.what();
    }
  }

  std::string Complaint(const FaultRuns::End& end) const {
    const std::string held = ReadFile(File());
    const std::string files = runs_.Files();
    if (held != whole_ && (row_.isResumed ? !IsPartOfRun(held) : held != Earlier())) {
      return "the file holds: " + held;
    }
    if (!end.isKilled && end.said.empty() && (held != whole_ || files != "out")) {
      return "nobody was told; there are: " + files;
    }
    if (!end.said.empty() && !(end.said.find(File()) != std::string::npos && end.NamesCause())) {
      return "no file or no cause is named";
    }
    if (!end.isKilled && !row_.isResumed && files != (held.empty() ? "" : "out")) {
      return "there are: " + files;
    }
    const std::string again = Fix();
    return again.empty() && ReadFile(File()) == whole_ && runs_.Files() == "out"
               ? ""
               : "again: " + again + "; there are: " + runs_.Files() + "; " + ReadFile(File());
  }

  // The records of the first labels, from either run; a torn last line may still be there.
  bool IsPartOfRun(const std::string& held) const {
    const std::string first = whole_.substr(0, whole_.find('\n') + 1);
    return held.starts_with(first + kUnanswered) ||
           whole_.starts_with(held.substr(0, held.rfind('\n') + 1));
  }

  std::string Earlier() const { return row_.isThere ? earlier_ : ""; }
  std::string File() const { return runs_.folder + "/out"; }

  const Row& row_;
  const ScratchFolder folder_;
  const ScratchFolder elsewhere_;
  FixOptions options_;
  std::string whole_;
  std::string earlier_;
  FaultRuns runs_;
};

TEST(OutputFaultsTest, LeavesTheOldFileOrTheNewOne) {
  const VerifyDaemon daemon;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(FaultedRun(row, daemon.Endpoint()).Do(), "");
  }
}

}  // namespace

}  // namespace postwright
