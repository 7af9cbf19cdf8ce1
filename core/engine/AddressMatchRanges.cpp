// The range operations of AddressMatch: how a candidate that spans numbers is shown, and how it
// becomes one address. They stand apart from the record because only the engine and its client use
// them.

#include <postwright/AddressMatch.h>

namespace postwright {

namespace {

constexpr const wchar_t* kPlaceholder = L"%@";

std::wstring RangeText(const std::wstring& low, const std::wstring& high) {
  return L"(" + low + L" - " + high + L")";
}

}  // namespace

std::wstring AddressMatch::GetAddressTemplate(bool withPrefixAndSuffix) const {
  return WithInserts(withPrefixAndSuffix, RangeText(primaryLow_, primaryHigh_),
                     RangeText(secondaryLow_, secondaryHigh_))
      .ComposeAddressBlock();
}

std::wstring AddressMatch::GetAddressPattern(bool withPrefixAndSuffix) const {
  return WithInserts(withPrefixAndSuffix, kPlaceholder, kPlaceholder).ComposeAddressBlock();
}

std::wstring AddressMatch::ComposeAddressForRechecking(const std::wstring& primaryValue,
                                                       const std::wstring& secondaryValue) const {
  return ComposeAddressForRechecking2(primaryValue, secondaryValue)->ComposeAddressBlock();
}

std::unique_ptr<AddressFields> AddressMatch::ComposeAddressForRechecking2(
    const std::wstring& primaryValue, const std::wstring& secondaryValue) const {
  return std::make_unique<AddressFields>(WithInserts(true, primaryValue, secondaryValue));
}

// The candidate's address with `primary` and `secondary` in the places of the ranges that it has;
// an empty text takes no place.
AddressFields AddressMatch::WithInserts(bool withPrefixAndSuffix, const std::wstring& primary,
                                        const std::wstring& secondary) const {
  std::wstring street = GetPrimaryStreet();
  if (HasPrimaryRange() && !primary.empty()) {
    street = IsPOBox() ? street + L" " + primary : primary + L" " + street;
  }
  if (HasSecondaryRange() && !secondary.empty() && !IsPOBox()) {
    street += L" " + secondary;
  }
  const std::wstring none;
  return AddressFields(withPrefixAndSuffix ? GetPrefix() : none, street, GetSecondaryStreet(),
                       GetCity(), GetState(), GetZip(), withPrefixAndSuffix ? GetSuffix() : none);
}

}  // namespace postwright
