#include <postwright/AddressFields.h>

namespace postwright {

namespace {

void AppendLine(std::wstring& block, const std::wstring& line) {
  if (line.empty()) {
    return;
  }
  if (!block.empty()) {
    block += L'\n';
  }
  block += line;
}

}  // namespace

AddressFields::AddressFields(const std::wstring& prefix, const std::wstring& primaryStreet,
                             const std::wstring& secondaryStreet, const std::wstring& city,
                             const std::wstring& state, const std::wstring& zip,
                             const std::wstring& suffix)
    : prefix_(prefix),
      primaryStreet_(primaryStreet),
      secondaryStreet_(secondaryStreet),
      city_(city),
      state_(state),
      zip_(zip),
      suffix_(suffix) {}

bool AddressFields::IsEmpty() const {
  return prefix_.empty() && primaryStreet_.empty() && secondaryStreet_.empty() && city_.empty() &&
         state_.empty() && zip_.empty() && suffix_.empty();
}

std::wstring AddressFields::ComposeAddressBlock(bool withPrefixAndSuffix) const {
  std::wstring block;
  if (IsEmpty()) {
    return block;
  }
  if (withPrefixAndSuffix) {
    block = prefix_;
  }
  AppendLine(block, primaryStreet_);
  AppendLine(block, secondaryStreet_);
  AppendLine(block, city_ + L", " + state_ + L" " + zip_);
  if (withPrefixAndSuffix) {
    AppendLine(block, suffix_);
  }
  return block;
}

}  // namespace postwright
