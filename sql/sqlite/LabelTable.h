#ifndef POSTWRIGHT_SQL_SQLITE_LABELTABLE_H_
#define POSTWRIGHT_SQL_SQLITE_LABELTABLE_H_

#include <sqlite3ext.h>

#include <memory>

#include "sql/sqlite/Labels.h"

namespace postwright::sql {

// Adds the table-valued functions postwright_parse(label) and postwright_fix(label) to a
// connection: one row for a label, none for NULL or for a label without an address.
// Returns SQLite's result code.
int AddLabelTables(sqlite3* connection, const std::shared_ptr<Labels>& labels);

}  // namespace postwright::sql

#endif  // POSTWRIGHT_SQL_SQLITE_LABELTABLE_H_
