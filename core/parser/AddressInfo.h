#ifndef POSTWRIGHT_CORE_PARSER_ADDRESSINFO_H_
#define POSTWRIGHT_CORE_PARSER_ADDRESSINFO_H_

#include <array>
#include <string>

namespace postwright {

// What the parser read in one text: the text before the address, the elements of the address in
// upper case, the delivery line composed of them, and the text after the address. A text in which
// no address was found leaves all of it empty. A plain value: copied freely, read from any thread.
//
// The elements are those of USPS Publication 28, section 23.
struct AddressInfo {
  std::array<std::wstring, 7> reserved;  // for a reader of other forms; this parser leaves it empty
  std::wstring prefix;                   // the text before the address
  std::wstring number;                   // house number, inner blanks kept: "12 1/2"
  std::wstring predirectional;           // "N"
  std::wstring street;                   // "MAIN"; the whole line of a post-office box or military
                                         // address: "PO BOX 12", "PSC 1234 BOX 5678"
  std::wstring streetSuffix;             // "ST"
  std::wstring postdirectional;          // "NW"
  std::wstring secondaryUnit;            // "APT", or "#" where nothing better was written
  std::wstring secondaryNumber;          // "4B"
  std::wstring streetLine;               // the delivery line: "12 N MAIN ST APT 4B"
  std::wstring city;
  std::wstring state;   // a two-letter code; a name of several words stays as it was written
  std::wstring zip;     // "62701", "62701-1234" or "627011234"
  std::wstring suffix;  // the text after the address

  bool operator==(const AddressInfo&) const = default;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_PARSER_ADDRESSINFO_H_
