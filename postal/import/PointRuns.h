#ifndef POSTWRIGHT_POSTAL_IMPORT_POINTRUNS_H_
#define POSTWRIGHT_POSTAL_IMPORT_POINTRUNS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "postal/store/Sqlite.h"

namespace postwright::postal {

// An address of a street, as an import gathers it. Borrows its texts.
struct StagedPoint {
  int64_t street = 0;
  std::string_view number;
  std::string_view unit;
  std::string_view zip4;
};

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

// The addresses of all runs of a file's `staged_run`, in the order of street, number and unit; of
// equal ones those first that were added first. Memory is 32 KiB a run. Borrows the file. One
// thread.
class RunMerge {
 public:
  explicit RunMerge(SqliteFile& file);

  // Goes on to the next; false at the end.
  bool Next();

  // The one that Next went to, until the next call.
  const StagedPoint& Point() const { return runs_[order_.front()].point; }

 private:
  struct Run {
    int64_t number = 0;
    int64_t part = 0;  // the next one
    std::string rows;
    size_t at = 0;  // of what comes after `point`
    StagedPoint point;
    std::string_view key;  // number and unit of the point, for its order
  };

  bool Read(Run& run);
  bool ComesAfter(size_t run, size_t other) const;

  SqliteStatement find_;
  std::vector<Run> runs_;
  std::vector<size_t> order_;  // a heap of those that have a point, the least in front
  bool hasBegun_ = false;
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_POSTAL_IMPORT_POINTRUNS_H_
