// Two texts, typed and corrected, into the explanation of a correction. Each word is the same on
// both sides, in order, or belongs to one change; a text is not a correction of itself. And the
// lines of a label around its address are unchanged, byte for byte, once the address is put back.

#include <postwright/AddressLines.h>
#include <postwright/CorrectionReview.h>

#include <algorithm>

#include "common/WideText.h"
#include "core/review/LabelWords.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;
using fuzz::Require;

using Side = CorrectionPart CorrectionChange::*;

// The words that no change covers, run together: D.C. and DC are the same.
std::wstring KeptWords(const std::wstring& text, const CorrectionReview& review, Side side) {
  std::vector<int> owners(text.size(), 0);
  for (const CorrectionChange& change : review.Changes()) {
    const CorrectionPart& part = change.*side;
    Require(part.begin <= part.end && part.end <= text.size(), "a part is within its text");
    Require(text.compare(part.begin, part.end - part.begin, part.text) == 0,
            "a part's text stands at its place");
    for (std::size_t at = part.begin; at < part.end; ++at) {
      Require(owners[at]++ == 0, "no two changes have the same words");
    }
  }
  std::wstring kept;
  for (const LabelWord& word : ReadLabelWords(text)) {
    if (owners[word.begin] == 0) {
      kept += WithoutSigns(word.text);
    }
  }
  return kept;
}

void CheckReview(const std::wstring& typed, const std::wstring& corrected,
                 const std::string& footnotes) {
  const CorrectionReview review(typed, corrected, footnotes);
  Require(KeptWords(typed, review, &CorrectionChange::typed) ==
              KeptWords(corrected, review, &CorrectionChange::corrected),
          "every word is the same on both sides or belongs to a change");
  Require(CorrectionReview(typed, typed, footnotes).Changes().empty(),
          "a text differs in nothing from itself");
}

void CheckLines(const std::wstring& text, const std::wstring& corrected) {
  const AddressLines lines(text);
  Require(lines.GetAbove() + lines.GetRun() + lines.GetBelow() == text,
          "above, address and below are the text");
  const std::wstring label = lines.PutBack(corrected);
  if (lines.GetOutcome() == AddressLinesLeftAlone) {
    Require(label == text, "a label left alone stays as it is");
  }
  if (lines.GetOutcome() != AddressLinesFound) {
    return;
  }
  // In a label of one line only the spaces and commas at the cuts are given up.
  constexpr std::wstring_view kGivenUp = L" \t\r\n\u00A0,;|/\u2022\u00B7";
  std::wstring_view above = lines.GetAbove();
  std::wstring_view below = lines.GetBelow();
  if (!label.starts_with(above)) {
    above = above.substr(0, above.find_last_not_of(kGivenUp) + 1);
  }
  if (!label.ends_with(below)) {
    below.remove_prefix(std::min(below.find_first_not_of(kGivenUp), below.size()));
  }
  Require(label.starts_with(above) && label.ends_with(below),
          "the lines around the address stay as they are");
  const bool isOneLine = text.find_first_of(L"\r\n\v\f\u0085\u2028\u2029") == text.npos;
  Require(isOneLine || (above == lines.GetAbove() && below == lines.GetBelow()),
          "of a label of several lines nothing is given up");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::UseCharacterLocale();
  const std::vector<std::string> parts = fuzz::PartsOf(DecodeText(fuzz::TextOf(data, size)), 3);
  const std::wstring typed = WideFromUtf8(parts[0]);
  const std::wstring corrected = WideFromUtf8(parts[1]);
  CheckReview(typed, corrected, parts[2]);
  CheckLines(typed, corrected);
  return 0;
}
