#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_FIXTABLE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_FIXTABLE_H_

#include <string>

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/table/AddressTable.h"
#include "apps/postwright/table/RowRecords.h"

namespace postwright {

struct FixTableOptions {
  std::string output;       // where the table goes; "" or "-" is standard output
  std::string records;      // an earlier run's records to go on with; "" for none
  bool explain = false;     // columns with the words of the reason and the changes, too
  bool candidates = false;  // a column with what could have been meant
};

// Has the labels of `table` fixed by `fix`, as a stream, and writes the table with the corrected
// addresses in their cells, and columns added: status, confirmation, reason, zip4, proposed and,
// where asked for, reason_text, source_text, changes and candidates. A correction that the cells
// cannot hold is proposed and not made. Rows that have no record, since the run ended early, have
// the status not-asked. Throws Failure and ClosedPipe; returns what `fix` returned, or
// kExitNotALabel where a row could not be read.
ExitStatus FixTable(const AddressTable& table, const FixTableOptions& options,
                    const RowRecords::Stream& fix);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_FIXTABLE_H_
