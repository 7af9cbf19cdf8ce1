#include <postwright/AddressMatch.h>

namespace postwright {

AddressMatch::AddressMatch(const AddressFields& address, AddressRangeType primaryType,
                           const std::wstring& primaryLow, const std::wstring& primaryHigh,
                           AddressRangeType secondaryType, const std::wstring& secondaryLow,
                           const std::wstring& secondaryHigh, const std::wstring& recordType)
    : AddressFields(address),
      primaryType_(primaryType),
      primaryLow_(primaryLow),
      primaryHigh_(primaryHigh),
      secondaryType_(secondaryType),
      secondaryLow_(secondaryLow),
      secondaryHigh_(secondaryHigh),
      recordType_(recordType) {}

}  // namespace postwright
