#include "postal/places/LastLine.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "common/AsciiText.h"
#include "service/protocol/VerifyReply.h"
#include "tests/postal/DocTable.h"
#include "tests/postal/ShippedZips.h"

namespace postwright::postal {
namespace {

std::string Check(const LastLine& asked) {
  const auto answer = LastLineChecker(ShippedZips()).Check(asked);
  if (const auto* rejection = std::get_if<Rejection>(&answer)) {
    return std::string(service::VerifyReply::NumberOf(*rejection));
  }
  const auto& placed = std::get<PlacedLine>(answer);
  return placed.city + " " + placed.state + " " + placed.zip5;
}

TEST(LastLineTest, EveryRuleOfThePage) {
  const auto rows = ReadDocTables("verify-service.md", "city", 5);
  EXPECT_GT(rows.size(), 40U);
  for (const DocRow& row : rows) {
    SCOPED_TRACE(row.place);
    EXPECT_EQ(Check({*FoldToAscii(row.cells[0]), *FoldToAscii(row.cells[1]), row.cells[2]}),
              row.cells[3]);
  }
}

// Goes through the list: each row is placed where it says, under the name it says, and the answer
// given as a question gives itself.
TEST(LastLineTest, EveryRowOfTheBase) {
  std::ifstream rows(POSTWRIGHT_SOURCE_DIR "/data/us-zips.tsv");
  size_t count = 0;
  for (std::string zip, city, state;
       std::getline(rows, zip, '\t') && std::getline(rows, city, '\t') && std::getline(rows, state);
       ++count) {
    const std::string folded = *FoldToAscii(city);
    const std::string answer = Check({folded, state, zip});
    ASSERT_TRUE(answer.ends_with(" " + state + " " + zip)) << zip << ": " << answer;
    ASSERT_EQ(Check({answer.substr(0, answer.size() - 9), "", zip}), answer) << zip;
  }
  EXPECT_EQ(count, ShippedZips().ZipCount());
}

TEST(LastLineTest, SaysWhatItCorrected) {
  const auto placed = [](const LastLine& asked) {
    return std::get<PlacedLine>(LastLineChecker(ShippedZips()).Check(asked));
  };
  EXPECT_FALSE(placed({"ST LOUIS", "MISSOURI", "63101"}).cityCorrected);
  EXPECT_TRUE(placed({"AUSTN", "TX", "78701"}).cityCorrected);
  EXPECT_TRUE(placed({"AUSTIN", "OK", "78701"}).cityCorrected);
  EXPECT_FALSE(placed({"AUSTIN", "TX", "78701-1234"}).zipCorrected);
  EXPECT_TRUE(placed({"HUTTO", "TX", ""}).zipCorrected);
}

// A list that cannot be read says what is wrong with it and where.
TEST(ZipListTest, RefusesOtherFiles) {
  for (const auto& [text, reason] :
       {std::pair{"78701,Austin,TX\n", "rows: line 1: is not ZIP, city"},
        {"78701\tAustin\tTX\n787\tAustin\tTX\n", "rows: line 2: does not begin"},
        {"78701\tAustin\tTexas\n", "rows: line 1: does not end in a state"},
        {"78701\t \tTX\n", "rows: line 1: names no city"}}) {
    std::istringstream rows(text);
    ZipList base;
    try {
      base.Read(rows, "rows");
      ADD_FAILURE() << text;
    } catch (const ZipListError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with(reason)) << error.what();
    }
  }
  EXPECT_THROW(ZipList().Load(testing::TempDir()), ZipListError);
  EXPECT_THROW(ZipList().Load("/nonexistent.tsv"), ZipListError);
}

// A later row for a ZIP replaces the earlier one, also in the city's list of ZIPs.
TEST(ZipListTest, LaterRowsReplaceEarlierOnes) {
  std::istringstream rows("78634\tHutto\tTX\n\n78634\tRound Rock\tTX\r\n");
  ZipList base;
  base.Read(rows, "rows");
  EXPECT_EQ(base.FindZip("78634")->name, "ROUND ROCK");
  EXPECT_EQ(base.FindCity("HUTTO", "TX"), nullptr);
  EXPECT_FALSE(base.IsCityAnywhere("HUTTO"));
  EXPECT_EQ(base.ZipCount(), 1U);
}

}  // namespace
}  // namespace postwright::postal
