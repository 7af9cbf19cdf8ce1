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

// What a record of the postal service's own products (docs/licensed-data.md) says besides a row's
// fields.
struct PostalRecord {
  enum class Kind : char {
    None = 0,  // the row is another source's
    Firm = 'F',
    GeneralDelivery = 'G',
    HighRise = 'H',
    Box = 'P',
    Route = 'R',
    Street = 'S',
    Deletion,      // of the record with the key
    Place,         // a name of a ZIP code's place, with its key
    Urbanization,  // the name of one, with its key
    Alias,         // a name of a street
  };

  bool IsBox() const {
    return kind == Kind::GeneralDelivery || kind == Kind::Box || kind == Kind::Route;
  }

  Kind kind = Kind::None;
  std::string key;
  std::string firm;
  std::string route;         // "C001"
  std::string urbanization;  // a key
  std::string lastLine;      // the key of the place that its last line is to name
  std::string unitLow;       // of a range of units, whose designator is Field::Unit
  std::string unitHigh;
  std::string unitParity;
  std::string other;  // the preferred name of the place, or the street that the alias stands for
  bool isUsable = false;  // the name may be used in an address
};

// A row of a source, UTF-8 as the source has it; what the source does not tell is empty.
class AddressRow {
 public:
  PostalRecord postal;

  std::string& operator[](Field field) { return texts_[static_cast<size_t>(field)]; }
  const std::string& operator[](Field field) const { return texts_[static_cast<size_t>(field)]; }

  void Clear() {
    for (std::string& text : texts_) {
      text.clear();
    }
    postal = {};
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
  NoRecord,   // deletes a record that is not there
  NoName,     // of an urbanization whose name is not known
};
constexpr size_t kRowFaults = 7;

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_ADDRESSROW_H_
