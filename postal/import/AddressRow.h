#ifndef POSTWRIGHT_POSTAL_IMPORT_ADDRESSROW_H_
#define POSTWRIGHT_POSTAL_IMPORT_ADDRESSROW_H_

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace postwright::postal {

// What a row of a source can say. A row has a house number, or the two ends of a range.
enum class Field {
  Number,
  Street,
  Unit,
  City,
  State,
  Zip,
  Zip4,
  Urbanization,
  Low,
  High,
  Parity,
};
constexpr size_t kFields = 11;

// The names of the fields on a command line, in their order.
constexpr std::array<std::string_view, kFields> kFieldNames = {
    "number", "street",       "unit", "city", "state",  "zip",
    "zip4",   "urbanization", "low",  "high", "parity",
};

// A row of a source, UTF-8 as it stands there; what the source does not tell is empty.
class AddressRow {
 public:
  std::string& operator[](Field field) { return texts_[static_cast<size_t>(field)]; }
  const std::string& operator[](Field field) const { return texts_[static_cast<size_t>(field)]; }

  void Clear() {
    for (std::string& text : texts_) {
      text.clear();
    }
  }

 private:
  std::array<std::string, kFields> texts_;
};

// Why a row is left out.
enum class RowFault {
  Malformed,  // cannot be read as a row at all
  NoZip,      // no ZIP code, and the city does not have one alone
  NoStreet,   // no street that could be read
  NoNumber,   // neither a number nor a range
  Elsewhere,  // not of the states that are wanted
};
constexpr size_t kRowFaults = 5;

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_ADDRESSROW_H_
