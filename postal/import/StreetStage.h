#ifndef POSTWRIGHT_POSTAL_IMPORT_STREETSTAGE_H_
#define POSTWRIGHT_POSTAL_IMPORT_STREETSTAGE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <variant>

#include "common/StringHash.h"
#include "postal/import/AddressRow.h"
#include "postal/import/RowReader.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// Where an import gathers its streets, with their ZIP codes and the names of those: each once,
// however many rows it has. Borrows all. Memory is bounded. One thread.
class StreetStage {
 public:
  StreetStage(SqliteFile& stage, RowReader& reader, int64_t source);

  // Returns the number of the row's street in the base; sets `fault` where it has none that can be
  // read.
  std::optional<int64_t> Find(const AddressRow& row, std::optional<RowFault>& fault);

  // Adds a name of the ZIP code's place, standard, that may be used in an address.
  void AddCity(const std::string& zip, const std::string& name);

 private:
  int64_t IdOf(const RowStreet& read);
  void NotePlace(const RowStreet& read);

  SqliteFile& stage_;
  RowReader& reader_;
  const int64_t source_;
  SqliteStatement find_;
  SqliteStatement add_;
  SqliteStatement addCity_;
  SqliteStatement addZip_;
  std::unordered_set<std::string> notedPlaces_;  // ZIP codes with their cities
  std::string key_;
  std::unordered_map<std::string, std::variant<int64_t, RowFault>, StringHash<char>,
                     std::equal_to<>>
      known_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_STREETSTAGE_H_
