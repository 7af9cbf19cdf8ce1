#include <postwright/FixedAddress.h>

#include <algorithm>

namespace postwright {

namespace {

bool SpansNoRange(const AddressMatch& match) {
  return !match.HasPrimaryRange() && !match.HasSecondaryRange();
}

}  // namespace

FixedAddress::FixedAddress(FixResult result, const AddressFields& exactMatchAddress,
                           const std::vector<AddressMatch>& addressMatches)
    : result_(result), exactMatchAddress_(exactMatchAddress), addressMatches_(addressMatches) {}

bool FixedAddress::IsAddressMatchesValid() const {
  switch (result_) {
    case FixResultMultipleMatch:
    case FixResultExactMatch:
    case FixResultDefaultMatch:
      return !addressMatches_.empty();
    default:
      return false;
  }
}

std::wstring FixedAddress::GetDefaultAddress() const {
  if (IsExactMatchAddressValid()) {
    return exactMatchAddress_.ComposeAddressBlock();
  }
  if (!IsAddressMatchesValid()) {
    return {};
  }
  const auto match = std::find_if(addressMatches_.begin(), addressMatches_.end(), SpansNoRange);
  return match == addressMatches_.end() ? std::wstring() : match->GetAddressTemplate(true);
}

std::wstring FixedAddress::GetExactAddress() const {
  if (IsExactMatchAddressValid()) {
    return exactMatchAddress_.ComposeAddressBlock();
  }
  if (addressMatches_.size() == 1 && SpansNoRange(addressMatches_.front())) {
    return addressMatches_.front().GetAddressTemplate(true);
  }
  return {};
}

}  // namespace postwright
