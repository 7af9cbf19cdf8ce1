#ifndef POSTWRIGHT_POSTAL_IMPORT_RUNMERGE_H_
#define POSTWRIGHT_POSTAL_IMPORT_RUNMERGE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "postal/import/StagedPoint.h"
#include "postal/store/Sqlite.h"

namespace postwright::postal {

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

#endif  // POSTWRIGHT_POSTAL_IMPORT_RUNMERGE_H_
