#include "core/c/Guard.h"
#include "core/c/Handles.h"

#include <array>
#include <memory>
#include <string>

namespace postwright {

static_assert(POSTWRIGHT_RANGE_ODD == int{AddressRangeTypeOdd} &&
              POSTWRIGHT_RANGE_EVEN == int{AddressRangeTypeEven} &&
              POSTWRIGHT_RANGE_NONE == int{AddressRangeTypeNone} &&
              POSTWRIGHT_RANGE_BOTH == int{AddressRangeTypeBoth});

std::unique_ptr<postwright_candidates> NewCandidates(const FixedAddress& fixed) {
  auto made = std::make_unique<postwright_candidates>();
  made->matches = fixed.GetAddressMatches();
  made->strings.reserve(made->matches.size());  // the candidates point into it
  for (const AddressMatch& match : made->matches) {
    const auto& [text, primaryLow, primaryHigh, secondaryLow, secondaryHigh] =
        made->strings.emplace_back(std::array<std::string, 5>{
            Utf8FromWide(match.GetAddressTemplate(true)), Utf8FromWide(match.GetPrimaryLow()),
            Utf8FromWide(match.GetPrimaryHigh()), Utf8FromWide(match.GetSecondaryLow()),
            Utf8FromWide(match.GetSecondaryHigh())});
    made->candidates.push_back({text.c_str(), match.GetPrimaryType(), primaryLow.c_str(),
                                primaryHigh.c_str(), match.GetSecondaryType(), secondaryLow.c_str(),
                                secondaryHigh.c_str()});
  }
  return made;
}

}  // namespace postwright

size_t postwright_candidates_count(const postwright_candidates* candidates) {
  return candidates == nullptr ? 0 : candidates->candidates.size();
}

const postwright_candidate* postwright_candidates_at(const postwright_candidates* candidates,
                                                     size_t index) {
  return index < postwright_candidates_count(candidates) ? &candidates->candidates[index] : nullptr;
}

const char* postwright_candidates_compose(postwright_candidates* candidates, size_t index,
                                          const char* primary, const char* secondary) {
  if (index >= postwright_candidates_count(candidates)) {
    return nullptr;
  }
  const int32_t result = postwright::Guard([&]() -> int32_t {
    const auto wide = [](const char* text) {
      return postwright::WideFromUtf8(text == nullptr ? "" : text);
    };
    candidates->composed = postwright::Utf8FromWide(
        candidates->matches[index].ComposeAddressForRechecking(wide(primary), wide(secondary)));
    return POSTWRIGHT_NONE;
  });
  return result == POSTWRIGHT_NONE ? candidates->composed.c_str() : nullptr;
}

void postwright_candidates_free(postwright_candidates* candidates) {
  delete candidates;
}
