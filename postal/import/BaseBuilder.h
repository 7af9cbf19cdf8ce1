#ifndef POSTWRIGHT_POSTAL_IMPORT_BASEBUILDER_H_
#define POSTWRIGHT_POSTAL_IMPORT_BASEBUILDER_H_

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "postal/import/AddressRow.h"
#include "postal/import/PointRuns.h"
#include "postal/import/PostalStage.h"
#include "postal/import/RowReader.h"
#include "postal/import/RowSource.h"
#include "postal/import/StreetStage.h"
#include "postal/places/ZipList.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// What is known of a source as a whole; all of it is kept in the base.
struct SourceFacts {
  std::string name;         // by which a later import replaces it
  std::string format;       // "OpenAddresses CSV"
  std::string licence;      // "CC BY 4.0"
  std::string attribution;  // what must be said wherever its data go
  bool whole = true;        // it knows every street of the ZIP codes that it has streets of
  // The codes of the states whose rows are taken, by what the rows say; none: all rows are.
  std::vector<std::string> states = {};
};

// How far an import has got in its files.
struct ImportPlace {
  int64_t file = 0;  // files that are done
  RowPlace row;      // in the next one
};

// What became of the rows.
struct ImportCounts {
  int64_t points = 0;
  int64_t ranges = 0;
  int64_t names = 0;  // of places and streets
  int64_t leftOut = 0;
};

// What becomes of what an earlier import has gathered and not finished.
enum class Earlier { GoOn, Discard };

// Makes a base, or one with a source more or a source's newer rows, without anybody seeing it
// before it is whole.
//
//   BaseBuilder builder("texas.base", {"Travis County", …}, job, zips);
//   builder.Add(row);
//   builder.Save(place);
//   builder.Finish();
//
// Rows are gathered in FILE.import. What Save has told is kept there, whatever ends the process:
// the next builder for the same base and job goes on after it. Finish sorts all rows into
// FILE.import-new, which takes the place of FILE in one step; a service that has the old one open
// reads on in that.
//
// Memory does not grow with the rows; sorting uses files in SQLITE_TMPDIR or /var/tmp. One thread.
// Throws StoreError where SQLite fails and ImportError for a file that is in the way.
class BaseBuilder {
 public:
  // `job` stands for the command: whatever must be the same for going on. Borrows `zips`.
  BaseBuilder(const std::filesystem::path& base, const SourceFacts& source, const std::string& job,
              const ZipList& zips, Earlier earlier = Earlier::GoOn);

  // Where an earlier import was left, or the beginning.
  const ImportPlace& Place() const { return place_; }
  const ImportCounts& Counts() const { return counts_; }

  // Adds a row, or says why it is left out.
  std::optional<RowFault> Add(const AddressRow& row);

  // Counts a row that could not be read.
  void LeaveOut() { ++counts_.leftOut; }

  // Keeps what was added so far, up to that place in the files.
  void Save(const ImportPlace& place);

  // Puts the base in place and the gathered rows away. Throws ImportError where no row was added:
  // the base stays as it is then, with what it had of the source.
  void Finish();

 private:
  void OpenStage(Earlier earlier);
  void Lock(const std::function<void()>& step) const;
  void RemoveStage();
  void Begin(const std::string& job);
  void CopyStreets();
  void GoOn(const std::string& job);
  std::optional<RowFault> AddPostal(const AddressRow& row);
  void AddPlace(const AddressRow& row);
  void Compose(SqliteFile& whole) const;
  std::string Path(std::string_view ending) const { return base_.string() + std::string(ending); }

  std::filesystem::path base_;
  SourceFacts source_;
  RowReader reader_;
  SqliteFile stage_;
  int64_t sourceId_ = 1;
  ImportPlace place_;
  ImportCounts counts_;
  std::optional<StreetStage> streets_;
  std::optional<PostalStage> postal_;
  std::optional<PointRuns> points_;
  std::optional<SqliteStatement> addRange_;
};

// An import that cannot begin, or not go on; what() says what to do.
class ImportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_BASEBUILDER_H_
