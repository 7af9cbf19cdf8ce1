// Whichever call of an import fails, or is the last one before the process is killed: there is the
// old base or the new one, next to it at most what the same import goes on with, and the message
// names file and cause.

#include <gtest/gtest.h>

#include "tests/postal/base/SampleBase.h"
#include "tests/support/FaultRuns.h"
#include "tests/support/TempFolder.h"

namespace postwright::postal {
namespace {

class ImportFaultsTest : public testing::Test {
 protected:
  ImportFaultsTest() {
    zips_.Load(POSTWRIGHT_SOURCE_DIR "/data/sample/zips.tsv");
    csv_ =
        elsewhere_.Write("new.csv", "number,street,city,state,zip\n7,NEW ST,MILLRACE,OH,00011\n");
    const std::string other = elsewhere_.Write("old.csv", "number,street,zip\n1,OLD ST,00011\n");
    Import(elsewhere_.File("old"), "old", {other}, zips_);
    runs_.folder = std::filesystem::canonical(folder_.File(""));
    runs_.work = [this] { return ImportNew(); };
    runs_.check = [this](const FaultRuns::End& end) { return Complaint(end); };
  }

  void Begin(bool isThere, const std::string& input) {
    input_ = input;
    const std::string before = elsewhere_.File("old");
    before_ = isThere ? Content(before) : "";
    std::filesystem::remove(elsewhere_.File("new"));
    if (isThere) {
      std::filesystem::copy(before, elsewhere_.File("new"));
    }
    Import(elsewhere_.File("new"), "new", {input_}, zips_);
    after_ = Content(elsewhere_.File("new"));
    runs_.prepare = [this, isThere, before] {
      if (isThere) {
        std::filesystem::copy(before, base_);
      }
    };
  }

  std::string ImportNew() const {
    try {
      Import(base_, "new", {input_}, zips_);
      return "";
    } catch (const std::exception& error) {
      return error.what();
    }
  }

  std::string Complaint(const FaultRuns::End& end) const {
    const std::string held = Held();
    const std::string files = runs_.Files();
    if (held != before_ && held != after_) {
      return "the base holds: " + held;
    }
    if (!end.isKilled && end.said.empty() && (held != after_ || files != "town")) {
      return "nobody was told; there are: " + files;
    }
    if (!end.said.empty() && !(end.said.find(base_) == 0 && end.NamesCause())) {
      return "no file or no cause is named";
    }
    if (!end.isKilled && files.find("-new") != std::string::npos) {
      return "there are: " + files;
    }
    const std::string again = ImportNew();
    return again.empty() && Held() == after_ && runs_.Files() == "town"
               ? ""
               : "again: " + again + "; there are: " + runs_.Files();
  }

  std::string Held() const { return std::filesystem::exists(base_) ? Content(base_) : ""; }

  ZipList zips_;  // a few, so that a process starts at once
  const TempFolder folder_;
  const TempFolder elsewhere_;
  const std::string base_ = std::filesystem::canonical(folder_.File("")) / "town";
  std::string csv_;
  std::string input_;
  std::string before_;
  std::string after_;
  FaultRuns runs_;
};

TEST_F(ImportFaultsTest, LeavesTheOldBaseOrTheNewOne) {
  const struct {
    const char* name;
    bool isThere;
    std::string input;
  } rows[] = {
      {"a base that is there", true, csv_},
      {"none, and the postal service's own names", false,
       POSTWRIGHT_SOURCE_DIR "/data/sample/licensed/ctystate.txt"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Begin(row.isThere, row.input);
    EXPECT_EQ(runs_.Run(), "");
  }
}

}  // namespace
}  // namespace postwright::postal
