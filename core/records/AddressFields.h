#ifndef POSTWRIGHT_CORE_RECORDS_ADDRESSFIELDS_H_
#define POSTWRIGHT_CORE_RECORDS_ADDRESSFIELDS_H_

#include <postwright/Export.h>

#include <string>

namespace postwright {

// One US postal address, split into the lines and pieces of a label.
//
//   const AddressFields address(L"JANE DOE", L"12 MAIN ST", L"", L"AUSTIN", L"TX", L"78701-1234",
//                               L"");
//   address.ComposeAddressBlock(false);  // L"12 MAIN ST\nAUSTIN, TX 78701-1234"
//
// A value: copied freely, never changed once built, read from any thread. Fields are kept as they
// are given, untrimmed and unchecked, and may hold several lines.
class POSTWRIGHT_CORE_EXPORT AddressFields {
 public:
  // A record whose fields are all empty.
  AddressFields() = default;

  AddressFields(const std::wstring& prefix, const std::wstring& primaryStreet,
                const std::wstring& secondaryStreet, const std::wstring& city,
                const std::wstring& state, const std::wstring& zip, const std::wstring& suffix);

  // The lines above the street: name, company.
  const std::wstring& GetPrefix() const { return prefix_; }
  // The delivery line: house number, street, suffix, unit (USPS Publication 28, section 23).
  const std::wstring& GetPrimaryStreet() const { return primaryStreet_; }
  // A second street line; in a corrected address the Puerto Rican urbanization.
  const std::wstring& GetSecondaryStreet() const { return secondaryStreet_; }
  const std::wstring& GetCity() const { return city_; }
  const std::wstring& GetState() const { return state_; }
  // Five digits, or five digits, a hyphen and four digits.
  const std::wstring& GetZip() const { return zip_; }
  // The lines below the city: country, notes.
  const std::wstring& GetSuffix() const { return suffix_; }

  // True when all seven fields are empty. A field that holds only blanks is not empty.
  bool IsEmpty() const;

  // Returns the address as lines separated by single line feeds, without a final one: prefix,
  // primary street, secondary street, city line, suffix. Empty fields leave no line; without
  // `withPrefixAndSuffix` neither do those two. An empty record gives the empty string.
  //
  // The city line is the exception: it is written for any other record, and a record without city,
  // state and ZIP gets a line of a comma and two blanks. The line stands for the city line of a
  // label, and what was composed from a record must show that its city line is missing rather than
  // pass for an address without one.
  std::wstring ComposeAddressBlock(bool withPrefixAndSuffix) const;
  std::wstring ComposeAddressBlock() const { return ComposeAddressBlock(true); }

 private:
  std::wstring prefix_;
  std::wstring primaryStreet_;
  std::wstring secondaryStreet_;
  std::wstring city_;
  std::wstring state_;
  std::wstring zip_;
  std::wstring suffix_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_RECORDS_ADDRESSFIELDS_H_
