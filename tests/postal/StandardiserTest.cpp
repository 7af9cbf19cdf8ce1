#include "postal/lines/Standardiser.h"

#include <gtest/gtest.h>

#include "core/parser/Vocabulary.h"
#include "postal/words/Lexicon.h"
#include "tests/postal/DocTable.h"

namespace postwright::postal {
namespace {

constexpr const char* kTurnedDown = "turned down";

// The lines in standard form, or what the page writes if there are none.
DeliveryLines Standardise(const DeliveryLines& asked, const std::string& state) {
  const auto fold = [](const std::string& text) { return FoldToAscii(text); };
  const auto address1 = fold(asked.address1);
  const auto address2 = fold(asked.address2);
  if (!address1 || !address2) {
    return {"", kTurnedDown, ""};
  }
  return Standardiser::Standardise({*address1, *address2, asked.urbanization}, state)
      .value_or(StandardLines{{"", kTurnedDown, ""}, {}})
      .Lines();
}

void ExpectStable(const DeliveryLines& standard, const std::string& state) {
  if (standard.address2 != kTurnedDown) {
    EXPECT_EQ(Standardise(standard, state).address2, standard.address2);
    EXPECT_EQ(Standardise(standard, state).address1, standard.address1);
  }
}

TEST(StandardiserTest, EveryRuleOfThePage) {
  const auto rows = ReadDocTables("standardiser.md", "state", 4);
  EXPECT_GT(rows.size(), 150U);
  for (const DocRow& row : rows) {
    SCOPED_TRACE(row.place);
    const DeliveryLines standard = Standardise({"", row.cells[1], ""}, row.cells[0]);
    EXPECT_EQ(standard.address2, row.cells[2]);
    EXPECT_EQ(standard.address1, "");
    ExpectStable(standard, row.cells[0]);
  }
}

TEST(StandardiserTest, EveryRuleOfTwoLines) {
  const auto rows = ReadDocTables("standardiser.md", "state", 6);
  EXPECT_GE(rows.size(), 10U);
  for (const DocRow& row : rows) {
    SCOPED_TRACE(row.place);
    const DeliveryLines standard = Standardise({row.cells[1], row.cells[2], ""}, row.cells[0]);
    EXPECT_EQ(standard.address1, row.cells[3] == kTurnedDown ? "" : row.cells[3]);
    EXPECT_EQ(standard.address2, row.cells[3] == kTurnedDown ? kTurnedDown : row.cells[4]);
    ExpectStable(standard, row.cells[0]);
  }
}

// Every suffix in every spelling, with every directional before and after and every kind of unit:
// the result is standard, and stays the same.
TEST(StandardiserTest, StandardAddressesStay) {
  const std::vector<std::string> directions = {"", "N", "NORTH", "SOUTHEAST", "S E", "W"};
  const std::vector<std::string> names = {"MAIN", "5TH", "EAST", "N", "PARK", "OLD MILL", "COUNTY"};
  const std::vector<std::string> units = {"",   "APT 4", "# 4B", "REAR", "SUITE 100 B",
                                          "4B", "BOX 7"};
  size_t lines = 0;
  for (const auto& suffix : Vocabulary::Suffixes()) {
    std::vector<std::wstring> forms(suffix.written.begin(), suffix.written.end());
    forms.emplace_back(suffix.standard);
    for (const std::wstring& form : forms) {
      for (const std::string& direction : directions) {
        // Each part cycles with its own period, so that every pair of them meets.
        const std::string& name = names[lines % names.size()];
        const std::string line =
            "12 " + direction + " " + name + " " + std::string(form.begin(), form.end()) + " " +
            directions[lines / 3 % directions.size()] + " " + units[lines / 5 % units.size()];
        SCOPED_TRACE(line);
        const DeliveryLines standard = Standardise({"", line, ""}, "TX");
        ASSERT_NE(standard.address2, kTurnedDown);
        ExpectStable(standard, "TX");
        ++lines;
      }
    }
  }
  EXPECT_GT(lines, 3000U);
}

TEST(StandardiserTest, UrbanizationIsKept) {
  const auto own =
      Standardiser::Standardise({"", "A17 CALLE 1", "URBANIZACION LAS GLADIOLAS"}, "PR");
  EXPECT_EQ(own->urbanization, "URB LAS GLADIOLAS");
  const auto above = Standardiser::Standardise({"URB LAS GLADIOLAS", "A17 CALLE 1", ""}, "PR");
  EXPECT_EQ(above->urbanization, "URB LAS GLADIOLAS");
  EXPECT_EQ(above->address1, "");
  const auto within = Standardiser::Standardise({"", "URB LAS GLADIOLAS A17 CALLE 1", ""}, "PR");
  EXPECT_EQ(within->urbanization, "URB LAS GLADIOLAS");
}

}  // namespace
}  // namespace postwright::postal
