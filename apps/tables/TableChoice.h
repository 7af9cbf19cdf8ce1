#ifndef POSTWRIGHT_APPS_TABLES_TABLECHOICE_H_
#define POSTWRIGHT_APPS_TABLES_TABLECHOICE_H_

#include "apps/tables/ColumnMapping.h"

namespace postwright::tables {

// How a table is to be read.
struct TableChoice {
  char delimiter = ',';
  ColumnMapping mapping;
};

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_TABLECHOICE_H_
