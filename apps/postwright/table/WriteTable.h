#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_WRITETABLE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_WRITETABLE_H_

#include "apps/postwright/stream/Failure.h"
#include "apps/postwright/stream/Output.h"
#include "apps/postwright/table/AddressTable.h"

namespace postwright {

// Writes what AddressTable::Rewrite() makes of `table` to `output`, to its end, and tells the user
// of rows that stay as they are: kExitNotALabel where there are any, else kExitDone.
ExitStatus WriteTable(const AddressTable& table, const QStringList& added,
                      const AddressTable::Answer& answer, Output& output);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_WRITETABLE_H_
