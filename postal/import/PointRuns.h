#ifndef POSTWRIGHT_POSTAL_IMPORT_POINTRUNS_H_
#define POSTWRIGHT_POSTAL_IMPORT_POINTRUNS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "postal/import/StagedPoint.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

// Where an import gathers its addresses: in sorted runs, packed, which RunMerge brings together. It
// takes a fraction of what a row a point and a sort of the table took. Memory is that of one run.
// Borrows the stage. One thread.
class PointRuns {
 public:
  // What an import gathers.
  static const std::string_view kTables;

  explicit PointRuns(SqliteFile& stage);

  // Adds one. No text may have a NUL.
  void Add(const StagedPoint& point);

  // Puts what was added since the last time into the stage, as a run.
  void Save();

  // Puts the points of all runs in `stage`, attached to `whole`, into the table of a base; with
  // `update`, those that other sources than `source` have in `old`, too.
  static void Compose(SqliteFile& whole, int64_t source, bool update);

 private:
  struct Added {
    int64_t street;
    size_t text;  // where it begins in `texts_`
    size_t keyLength;
    size_t length;
  };

  bool ComesFirst(const Added& a, const Added& b) const;

  SqliteStatement add_;
  int64_t run_;
  std::vector<Added> points_;
  std::string texts_;  // number and unit, which are the key, and ZIP+4, each ended by a NUL
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_POINTRUNS_H_
