#ifndef POSTWRIGHT_POSTAL_IMPORT_POSTALSTAGE_H_
#define POSTWRIGHT_POSTAL_IMPORT_POSTALSTAGE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "postal/import/AddressRow.h"
#include "postal/import/RowReader.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// Where an import gathers the records of the postal service's own products, beside the rows of
// other sources: each can still be deleted by a later file, by its key. Borrows all. One thread.
class PostalStage {
 public:
  // What an import gathers, and Compose turns into a base's tables.
  static const std::string_view kTables;

  PostalStage(SqliteFile& stage, RowReader& reader, int64_t source);

  // Adds the numbers of a record on their street, or says why they are left out.
  std::optional<RowFault> AddNumbers(int64_t street, const AddressRow& row);

  // Adds a name of a place that must not be used in an address, or the preferred one.
  void AddPlaceName(const std::string& zip, const std::string& key, const std::string& preferred);

  // Adds a name of a place or an urbanization, by which records have a key.
  void AddName(const std::string& key, const std::string& name);

  // Returns it; empty where none was added by that key.
  std::string NameOf(const std::string& key);

  // Adds a name that stands for another; says why not where either is not a street.
  std::optional<RowFault> AddAlias(const AddressRow& row);

  // Takes away what was added by that key; false where there is nothing.
  bool Delete(const std::string& key);

  // Puts what was gathered in `stage`, attached to `whole`, into the tables of a base; with
  // `update`, what other sources than `source` have in `old` too.
  static void Compose(SqliteFile& whole, int64_t source, bool update);

 private:
  static void ComposeDelivery(SqliteFile& whole, const std::string& source);

  SqliteFile& stage_;
  RowReader& reader_;
  const int64_t source_;
  SqliteStatement addRecord_;
  SqliteStatement addPlaceName_;
  SqliteStatement addAlias_;
  SqliteStatement addName_;
  SqliteStatement findName_;
  std::optional<SqliteStatement> delete_;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_POSTALSTAGE_H_
