#ifndef POSTWRIGHT_CORE_LABEL_PARSEDFIELDS_H_
#define POSTWRIGHT_CORE_LABEL_PARSEDFIELDS_H_

#include <postwright/AddressInfo.h>

#include <array>
#include <string>

namespace postwright {

// A part of an address that was parsed, and what records, tables and databases call it.
struct ParsedField {
  const char* name;
  std::wstring AddressInfo::*value;
};

// All parts, in the order of a record.
inline constexpr std::array kParsedFields = {
    ParsedField{"prefix", &AddressInfo::prefix},
    ParsedField{"number", &AddressInfo::number},
    ParsedField{"predirectional", &AddressInfo::predirectional},
    ParsedField{"street", &AddressInfo::street},
    ParsedField{"street_suffix", &AddressInfo::streetSuffix},
    ParsedField{"postdirectional", &AddressInfo::postdirectional},
    ParsedField{"secondary_unit", &AddressInfo::secondaryUnit},
    ParsedField{"secondary_number", &AddressInfo::secondaryNumber},
    ParsedField{"street_line", &AddressInfo::streetLine},
    ParsedField{"city", &AddressInfo::city},
    ParsedField{"state", &AddressInfo::state},
    ParsedField{"zip", &AddressInfo::zip},
    ParsedField{"suffix", &AddressInfo::suffix},
};

}  // namespace postwright

#endif  // POSTWRIGHT_CORE_LABEL_PARSEDFIELDS_H_
