#include <postwright/AddressFields.h>
#include <postwright/AddressParser.h>
#include <postwright/CorrectionReview.h>
#include <postwright/Utils.h>

#include "common/WideText.h"
#include "core/review/LabelWords.h"
#include "tests/core/parser/LabelGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
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

std::vector<std::wstring> Labels() {
  std::vector<std::wstring> labels;
  std::ifstream file(POSTWRIGHT_TEST_DATA "/labels.jsonl");
  for (std::string line; std::getline(file, line);) {
    labels.push_back(WideFromUtf8(nlohmann::json::parse(line).at("label").get<std::string>()));
  }
  EXPECT_FALSE(labels.empty());
  return labels;
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

TEST(CorrectionReviewTest, FindsNothingBetweenATextAndItself) {
  const auto expectNothing = [](const std::wstring& text) {
    EXPECT_EQ(Codes(CorrectionReview(text, text, "")), "");
    EXPECT_EQ(Codes(CorrectionReview(text, Utils::ToUpper(text), "")), "");
  };
  for (const std::wstring& label : Labels()) {
    expectNothing(label);
  }
  LabelGenerator generator(14);
  for (int i = 0; i < 3000; ++i) {
    expectNothing(generator.Address());
    expectNothing(generator.Mixture());
    expectNothing(generator.Noise());
  }
}

TEST(CorrectionReviewTest, AccountsForEveryWord) {
  LabelGenerator generator(15);
  for (int i = 0; i < 3000; ++i) {
    const std::wstring one = i % 3 == 0 ? generator.Address() : generator.Mixture();
    const std::wstring other = i % 3 == 1 ? generator.Noise() : generator.Address();
    SCOPED_TRACE(Utf8FromAnyWide(one) + " | " + Utf8FromAnyWide(other));
    ExpectWholeAccount(one, other, CorrectionReview(one, other, "ABLM"));
  }
}

// A word that is lost, repeated, or swapped with the next one.
TEST(CorrectionReviewTest, DoubtsWhatAWordSuffers) {
  const std::wstring labels[] = {
      L"Jane Doe\n27 County Road 24\nGraham, MO\n64455",
      L"Acme Hardware\n344 Upper Falls Sq Apt 4\nSaint Paul\nMN 55144-1234\nRing twice",
      L"9 N Old Mill Rd\nNew York NY 10001",
      L"98 5th Ave NW Ste 7\nFloral Park NY 11001",
      L"Unit 2050 Box 4190\nAPO AP 96278",
      L"12 1/2 Hill St Bldg 4 Apt 2\nGlen Burnie, MD 21060",
      L"5800 Interstate 35 N\nAustin TX 78701",
      L"61 State Highway 60 Rear\nMillrace OH 43085",
      L"150 Calle Luna\nSan Juan PR 00901",
  };
  for (const std::wstring& label : labels) {
    const std::vector<LabelWord> words = ReadLabelWords(label);
    for (std::size_t i = 0; i < words.size(); ++i) {
      const std::wstring before = label.substr(0, words[i].begin);
      const std::wstring word = label.substr(words[i].begin, words[i].end - words[i].begin);
      const std::wstring behind = label.substr(words[i].end);
      std::vector<std::wstring> texts = {before + behind, before + word + L' ' + word + behind};
      if (i + 1 < words.size()) {
        const std::size_t next = words[i + 1].begin;
        texts.push_back(before + label.substr(next, words[i + 1].end - next) +
                        label.substr(words[i].end, next - words[i].end) + word +
                        label.substr(words[i + 1].end));
      }
      for (const std::wstring& text : texts) {
        EXPECT_TRUE(CorrectionReview(label, text, "").Doubtful()) << Utf8FromAnyWide(text);
      }
    }
  }
}

// The parser reads a label without knowing cities or streets. Where it goes wrong, and only there,
// the review doubts the text that would result.
TEST(CorrectionReviewTest, DoubtsWhatTheParserGetsWrong) {
  std::map<std::wstring, std::string> doubts;
  for (const std::wstring& label : Labels()) {
    const AddressInfo info = AddressParser::GetInstance()->Parse(label);
    const CorrectionReview review(label,
                                  AddressFields(info.prefix, info.streetLine, L"", info.city,
                                                info.state, info.zip, info.suffix)
                                      .ComposeAddressBlock(),
                                  "");
    if (!info.streetLine.empty() && review.Doubtful()) {
      doubts.emplace(label.substr(0, label.find(L'\n')), review.ReasonCode());
    }
  }
  const std::map<std::wstring, std::string> expected = {
      {L"12-1/2 Elm Ct", "number-changed"},   // 12 2 ELM CT APT -1
      {L"12A Main St", "number-changed"},     // 12 MAIN ST APT A
      {L"12-3 Oak Ln", "number-changed"},     // 12 OAK LN APT -3
      {L"12 Elm", "word-crossed"},            // 12 ELM ST; LOUIS
      {L"5 Florida Key", "word-crossed"},     // 5 FLORIDA KEY KY; WEST
      {L"Tel 217-555-0142", "number-added"},  // TEL; 217-555 0142
      {L"12½ Main St", "number-lost"},        // 12 MAIN ST
  };
  EXPECT_EQ(doubts, expected);
}

TEST(CorrectionReviewTest, EndsOverTextsOfMegabytes) {
  constexpr size_t kCount = 200'000;
  std::wstring one;
  std::wstring other;
  for (size_t i = 0; i < kCount; ++i) {
    one += L"word" + std::to_wstring(i) + (i % 7 == 0 ? L"\n" : L" ");
    other += L"other" + std::to_wstring(i) + L" ";
  }
  EXPECT_EQ(Codes(CorrectionReview(one, one, "")), "");
  EXPECT_EQ(CorrectionReview(one, other, "").ReasonCode(), "too-long");
  EXPECT_EQ(CorrectionReview(one, L"", "").ReasonCode(), "number-lost");
  EXPECT_EQ(Codes(CorrectionReview(std::wstring(kCount, L'a'), std::wstring(kCount, L'b'), "")),
            "word-changed");
}

}  // namespace postwright
