#ifndef POSTWRIGHT_POSTAL_BASE_POSTALREADER_H_
#define POSTWRIGHT_POSTAL_BASE_POSTALREADER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "postal/base/StreetName.h"
#include "postal/base/UnitRange.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// What a street's other name stands for.
struct StreetAlias {
  StreetName street;
  bool isPreferred = false;  // the other name is the one to write
};

// How mail gets to a number.
struct DeliveryFacts {
  std::string route;  // "C001"; empty where it is not known
  std::string place;  // that its last line is to name; empty where that is its ZIP code's
};

// Reads what a base has of the postal service's own products (PostalTables). Streets are told by
// their numbers in the file. As BaseReader.
class PostalReader {
 public:
  // Says whether the file has any of it.
  static bool IsIn(SqliteFile& file);

  // Returns by ZIP code and key of a name, with a blank between them, the name to write; of the
  // ZIP code and an empty key the one that the postal service prefers there.
  static std::unordered_map<std::string, std::string> ReadPreferredCities(SqliteFile& file);

  explicit PostalReader(SqliteFile& file);

  // Of several ranges with the number what they agree on.
  DeliveryFacts DeliveryOf(int64_t street, const std::string& number);

  std::vector<UnitRange> UnitsOf(int64_t street, const std::string& number);

  // Returns the ZIP+4 add-on of a firm at the address; empty where none has one, or several have
  // different ones. `unit` may be empty.
  std::string FirmZip4(int64_t street, const std::string& number, const std::string& unit,
                       const std::string& firm);

  // Returns what the name stands for at that number of the ZIP code.
  std::optional<StreetAlias> FindAlias(const std::string& zip, const StreetName& street,
                                       const std::string& number);

 private:
  SqliteStatement deliveries_;
  SqliteStatement units_;
  SqliteStatement firms_;
  SqliteStatement aliases_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_BASE_POSTALREADER_H_
