#ifndef POSTWRIGHT_POSTAL_IMPORT_ROWREADER_H_
#define POSTWRIGHT_POSTAL_IMPORT_ROWREADER_H_

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "common/StringHash.h"
#include "postal/base/StreetName.h"
#include "postal/import/AddressRow.h"
#include "postal/places/ZipList.h"

namespace postwright::postal {

// The place of a row, in standard form.
struct RowCity {
  std::string zip;    // empty where the row tells none
  std::string state;  // empty where it is not known
  std::string name;   // as the source names it; empty where it does not
};

// Brings the rows of a source into the form in which the service compares addresses: through the
// same standardiser that its questions go through.
//
// Most rows repeat what others said, so the answers are kept, within a bound. Borrows the ZIP
// codes, which tell the state of a row, and the ZIP code of a row that has none but whose city has
// one alone. One thread.
class RowReader {
 public:
  explicit RowReader(const ZipList& zips) : zips_(zips) {}

  RowCity ReadCity(const AddressRow& row) const;

  // Returns the row's street, in whose writing the state counts; of boxes, routes and general
  // delivery the BoxAddress, which is a street of its own in a base. nullopt where it has none that
  // can be read.
  std::optional<StreetName> ReadStreet(const AddressRow& row, std::string_view state) const;

  // Returns "12 1/2" of "12½", the empty text for what is not a house number.
  std::string ReadNumber(const std::string& text) const;

  // Returns "APT 4" of "apartment 4", "# 4" of "4", the empty text for none.
  const std::string& ReadUnit(const std::string& text);

 private:
  const ZipList& zips_;
  std::unordered_map<std::string, std::string, StringHash<char>, std::equal_to<>> units_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_ROWREADER_H_
