#ifndef POSTWRIGHT_POSTAL_IMPORT_STREETSTAGE_H_
#define POSTWRIGHT_POSTAL_IMPORT_STREETSTAGE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/StringHash.h"
#include "postal/import/AddressRow.h"
#include "postal/import/RowReader.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// Where an import gathers its streets, with their ZIP codes and the names of those: each once,
// however many rows it has. Borrows all. One thread.
//
// Most rows repeat the ZIP code of one and the street name of another, so both are read once, and a
// street is known by the two together. Memory is some 50 bytes a street and 200 a name, within a
// bound.
class StreetStage {
 public:
  StreetStage(SqliteFile& stage, RowReader& reader, int64_t source);

  // Returns the number of the row's street in the base; sets `fault` where it has none that can be
  // read.
  std::optional<int64_t> Find(const AddressRow& row, std::optional<RowFault>& fault);

  // Adds a name of the ZIP code's place, standard, that may be used in an address.
  void AddCity(const std::string& zip, const std::string& name);

 private:
  template <typename Value>
  using ByText = std::unordered_map<std::string, Value, StringHash<char>, std::equal_to<>>;

  struct Place {
    RowCity city;
    uint64_t number = 0;  // of its ZIP code, or of what takes its place for boxes
    bool isNoted = false;
  };

  Place& PlaceOf(const AddressRow& row);
  uint32_t NameOf(const AddressRow& row, const std::string& state);
  int64_t IdOf(const std::string& zip, std::string_view name);
  void Note(Place& place);
  void LookInStage();

  SqliteFile& stage_;
  RowReader& reader_;
  const int64_t source_;
  SqliteStatement add_;
  SqliteStatement addCity_;
  SqliteStatement addZip_;
  std::optional<SqliteStatement> find_;  // where the stage may have streets that `ids_` has not
  std::string key_;
  ByText<Place> places_;                       // as rows write them
  ByText<uint32_t> names_;                     // as rows write them
  ByText<uint32_t> standardNames_;             // each with its elements, by its place in `texts_`
  std::vector<const std::string*> texts_;      // of the standard names
  std::unordered_map<uint64_t, int64_t> ids_;  // by the numbers of ZIP code and name
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_STREETSTAGE_H_
