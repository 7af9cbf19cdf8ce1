#include <postwright/CorrectionReview.h>

#include "core/review/LabelWords.h"
#include "tests/core/parser/LabelGenerator.h"

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

namespace postwright {

namespace {

std::string Codes(const CorrectionReview& review) {
  std::string codes;
  for (const CorrectionChange& change : review.Changes()) {
    codes += (codes.empty() ? "" : " ") + std::string(CorrectionRuleCode(change.rule));
  }
  return codes;
}

// The words of a text that are in no change.
std::vector<std::wstring> Rest(const std::wstring& text, const std::vector<CorrectionPart>& parts) {
  std::vector<std::wstring> rest;
  for (const LabelWord& word : ReadLabelWords(text)) {
    int holders = 0;
    for (const CorrectionPart& part : parts) {
      const bool apart = word.end <= part.begin || word.begin >= part.end;
      EXPECT_TRUE(apart || (word.begin >= part.begin && word.end <= part.end));
      holders += apart ? 0 : 1;
    }
    EXPECT_LE(holders, 1) << "a word of two changes";
    if (holders == 0) {
      rest.push_back(WithoutSigns(word.text));
    }
  }
  return rest;
}

std::wstring Joined(const std::vector<std::wstring>& words) {
  std::wstring joined;
  for (const std::wstring& word : words) {
    joined += word;
  }
  return joined;
}

// Each word of both texts is the same on both sides, in order, or belongs to one change.
void ExpectWholeAccount(const std::wstring& typed, const std::wstring& corrected,
                        const CorrectionReview& review) {
  std::vector<CorrectionPart> before;
  std::vector<CorrectionPart> after;
  for (const CorrectionChange& change : review.Changes()) {
    for (const auto& [part, text] :
         {std::pair(&change.typed, &typed), {&change.corrected, &corrected}}) {
      EXPECT_EQ(part->text, text->substr(part->begin, part->end - part->begin));
      EXPECT_EQ(part->line,
                static_cast<size_t>(std::count(
                    text->begin(), text->begin() + static_cast<long>(part->begin), L'\n')));
    }
    EXPECT_EQ(change.doubt, !change.reason.empty());
    before.push_back(change.typed);
    after.push_back(change.corrected);
  }
  EXPECT_EQ(Joined(Rest(typed, before)), Joined(Rest(corrected, after)));
}

struct Row {
  const char* name;
  const wchar_t* typed;
  const wchar_t* corrected;
  const char* footnotes;
  const char* codes;
  const char* doubt = "";
};

constexpr Row kRows[] = {
#include "tests/core/review/rows.inc"
};

}  // namespace

TEST(CorrectionReviewTest, FindsTheRuleOfEachChange) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const CorrectionReview review(row.typed, row.corrected, row.footnotes);
    EXPECT_EQ(Codes(review), row.codes);
    EXPECT_EQ(review.ReasonCode(), row.doubt);
    EXPECT_EQ(review.Doubtful(), *row.doubt != '\0');
    ExpectWholeAccount(row.typed, row.corrected, review);
  }
}

}  // namespace postwright
