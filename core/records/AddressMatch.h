#ifndef POSTWRIGHT_CORE_RECORDS_ADDRESSMATCH_H_
#define POSTWRIGHT_CORE_RECORDS_ADDRESSMATCH_H_

#include <postwright/AddressFields.h>
#include <postwright/Export.h>

#include <cstdint>
#include <memory>
#include <string>

namespace postwright {

// What a service says of the numbers in a range. The value is carried for the host and never
// interpreted here; any 32-bit value may occur.
enum AddressRangeType : std::int32_t {
  AddressRangeTypeOdd = 0,
  AddressRangeTypeEven = 1,
  AddressRangeTypeNone = 2,  // nothing is said
  AddressRangeTypeBoth = 3,
};

// One candidate address: an address that may stand for a whole run of house or box numbers (the
// primary range) and of unit numbers (the secondary range), from which a person has to pick one.
//
//   const AddressMatch match(AddressFields(L"", L"MAIN ST", L"", L"AUSTIN", L"TX", L"78701", L""),
//                            AddressRangeTypeNone, L"100", L"198",
//                            AddressRangeTypeNone, L"1A", L"1F", L"S");
//   match.GetAddressTemplate(false);             // L"(100 - 198) MAIN ST (1A - 1F)\nAUSTIN, TX
//   78701" match.ComposeAddressForRechecking(L"120", L"1C");  // L"120 MAIN ST 1C\nAUSTIN, TX
//   78701"
//
// A value like its base; read from any thread. Bounds are text: they are copied unchanged and
// compared with nothing, since unit numbers such as 1A or B-12 have no order as numbers.
class POSTWRIGHT_CORE_EXPORT AddressMatch : public AddressFields {
 public:
  // A candidate without text and without ranges.
  AddressMatch() = default;

  // `recordType` is the one-letter USPS record type; "P" marks a post-office box.
  AddressMatch(const AddressFields& address, AddressRangeType primaryType,
               const std::wstring& primaryLow, const std::wstring& primaryHigh,
               AddressRangeType secondaryType, const std::wstring& secondaryLow,
               const std::wstring& secondaryHigh, const std::wstring& recordType);

  AddressRangeType GetPrimaryType() const { return primaryType_; }
  const std::wstring& GetPrimaryLow() const { return primaryLow_; }
  const std::wstring& GetPrimaryHigh() const { return primaryHigh_; }
  AddressRangeType GetSecondaryType() const { return secondaryType_; }
  const std::wstring& GetSecondaryLow() const { return secondaryLow_; }
  const std::wstring& GetSecondaryHigh() const { return secondaryHigh_; }

  // True when both bounds are there; one bound alone is not a range. The type is not looked at.
  bool HasPrimaryRange() const { return !primaryLow_.empty() && !primaryHigh_.empty(); }
  bool HasSecondaryRange() const { return !secondaryLow_.empty() && !secondaryHigh_.empty(); }

  // True for the record type "P" alone, upper case and one letter.
  bool IsPOBox() const { return IsPOBox(recordType_); }
  static bool IsPOBox(const std::wstring& recordType) { return recordType == L"P"; }

  // The operations below change the primary street line and nothing else. House numbers are put in
  // front of the street and units after it; box numbers are put after the box text, and a box's
  // secondary range is left out: a box has no units.

  // Returns the candidate for display, its ranges written out: L"(100 - 198) MAIN ST (1A - 1F)".
  // The result is AddressFields::ComposeAddressBlock's, prefix and suffix in it as
  // `withPrefixAndSuffix` says.
  std::wstring GetAddressTemplate(bool withPrefixAndSuffix) const;

  // As GetAddressTemplate, with "%@" in the place of each range: L"%@ MAIN ST %@". Whoever fills
  // the pattern must take "%@" alone for a place to fill; other percent signs are address text.
  std::wstring GetAddressPattern(bool withPrefixAndSuffix) const;

  // Returns the address block, prefix and suffix included, with the values chosen, ready to be
  // fixed again. Any text is taken, also one outside the bounds. An empty value leaves its number
  // out of the line; a value for a range that the candidate lacks is dropped.
  std::wstring ComposeAddressForRechecking(const std::wstring& primaryValue,
                                           const std::wstring& secondaryValue) const;

  // The same as a record, which the caller owns; never null.
  std::unique_ptr<AddressFields> ComposeAddressForRechecking2(
      const std::wstring& primaryValue, const std::wstring& secondaryValue) const;

 private:
  AddressFields WithInserts(bool withPrefixAndSuffix, const std::wstring& primary,
                            const std::wstring& secondary) const;

  AddressRangeType primaryType_ = AddressRangeTypeNone;
  std::wstring primaryLow_;
  std::wstring primaryHigh_;
  AddressRangeType secondaryType_ = AddressRangeTypeNone;
  std::wstring secondaryLow_;
  std::wstring secondaryHigh_;
  std::wstring recordType_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_RECORDS_ADDRESSMATCH_H_
