#include <postwright/CandidateFix.h>
#include <postwright/PostwrightException.h>

#include "core/c/Guard.h"
#include "core/c/Handles.h"
#include "core/c/HostServices.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct postwright_candidates {
  std::vector<postwright::AddressMatch> matches;
  std::vector<std::array<std::string, 5>> strings;
  std::vector<postwright_candidate> candidates;
  std::string composed;
};

namespace postwright {

namespace {

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

std::int32_t FixChoosing(const std::wstring& text, std::int32_t most, HostServices& services,
                         postwright_address** fixed, postwright_candidates** candidates) {
  const std::unique_ptr<FixedAddress> found = FixWithCandidates(text, false, most, &services);
  auto offered = found->IsAddressMatchesValid() ? NewCandidates(*found) : nullptr;
  if (found->IsExactMatchAddressValid()) {
    *fixed = NewAddress(*found);
  }
  *candidates = offered.release();
  return found->GetResult();
}

}  // namespace

}  // namespace postwright

int32_t postwright_fix_candidates(const char* text, size_t length,
                                  const postwright_services* services,
                                  postwright_canceller* canceller, int32_t most,
                                  postwright_address** fixed, postwright_candidates** candidates) {
  if (candidates == nullptr) {
    return POSTWRIGHT_BAD_ARGUMENT;
  }
  *candidates = nullptr;
  return postwright::MakeOfText(text, length, fixed, [&](const std::wstring& label) -> int32_t {
    if ((services != nullptr && services->size != sizeof *services) || most < 1) {
      return POSTWRIGHT_BAD_ARGUMENT;
    }
    const auto* cancelled = canceller != nullptr ? &canceller->cancelled : nullptr;
    postwright::HostServices host(services, cancelled);
    const auto turn = postwright::TakeTurn(cancelled);
    if (!turn) {
      return POSTWRIGHT_CANCELLED;
    }
    try {
      return postwright::FixChoosing(label, most, host, fixed, candidates);
    } catch (const postwright::PostwrightException&) {
      if (cancelled != nullptr && cancelled->load()) {
        return POSTWRIGHT_CANCELLED;  // a fetch that was given up looks like one without a reply
      }
      throw;
    }
  });
}

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
