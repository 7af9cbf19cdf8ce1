#include <postwright/CorrectionReview.h>

#include "core/c/Guard.h"

#include <memory>
#include <vector>

struct postwright_review {
  struct Strings {
    std::string reason;
    std::string typed;
    std::string corrected;
  };
  std::vector<Strings> strings;
  std::vector<postwright_change> changes;
};

namespace postwright {

namespace {

// For each place in a wide text, how many bytes of its UTF-8 form come before it.
std::vector<std::size_t> ByteOffsets(const std::wstring& text) {
  std::vector<std::size_t> offsets = {0};
  offsets.reserve(text.size() + 1);
  for (const wchar_t c : text) {
    offsets.push_back(offsets.back() + (c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4));
  }
  return offsets;
}

std::unique_ptr<postwright_review> NewReview(const std::wstring& typed,
                                             const std::wstring& corrected, const char* footnotes) {
  const CorrectionReview account(typed, corrected, footnotes == nullptr ? "" : footnotes);
  const std::vector<std::size_t> inTyped = ByteOffsets(typed);
  const std::vector<std::size_t> inCorrected = ByteOffsets(corrected);
  auto review = std::make_unique<postwright_review>();
  review->strings.reserve(account.Changes().size());  // the changes point into it
  for (const CorrectionChange& change : account.Changes()) {
    const postwright_review::Strings& strings = review->strings.emplace_back(
        postwright_review::Strings{Utf8FromWide(change.reason), Utf8FromWide(change.typed.text),
                                   Utf8FromWide(change.corrected.text)});
    review->changes.push_back({CorrectionRuleCode(change.rule), CorrectionRuleText(change.rule),
                               strings.reason.c_str(), change.doubt ? 1 : 0, strings.typed.c_str(),
                               change.typed.line, inTyped[change.typed.begin],
                               inTyped[change.typed.end], strings.corrected.c_str(),
                               change.corrected.line, inCorrected[change.corrected.begin],
                               inCorrected[change.corrected.end]});
  }
  return review;
}

}  // namespace

}  // namespace postwright

int32_t postwright_review_new(const char* typed, size_t typed_length, const char* corrected,
                              size_t corrected_length, const char* footnotes,
                              postwright_review** review) {
  if (review == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  *review = nullptr;
  if (typed == nullptr || corrected == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  return postwright::Guard([&]() -> std::int32_t {
    const std::optional<std::wstring> before = postwright::ReadText(typed, typed_length);
    const std::optional<std::wstring> after = postwright::ReadText(corrected, corrected_length);
    if (!before || !after) {
      return POSTWRIGHT_BAD_TEXT;
    }
    *review = postwright::NewReview(*before, *after, footnotes).release();
    return POSTWRIGHT_NONE;
  });
}

size_t postwright_review_count(const postwright_review* review) {
  return review == nullptr ? 0 : review->changes.size();
}

const postwright_change* postwright_review_change(const postwright_review* review, size_t index) {
  return index < postwright_review_count(review) ? &review->changes[index] : nullptr;
}

const postwright_change* postwright_review_doubt(const postwright_review* review) {
  for (size_t i = 0; i < postwright_review_count(review); ++i) {
    if (review->changes[i].doubt != 0) {
      return &review->changes[i];
    }
  }
  return nullptr;
}

void postwright_review_free(postwright_review* review) {
  delete review;
}
