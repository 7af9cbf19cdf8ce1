#ifndef POSTWRIGHT_APPS_TABLES_TABLECHOICE_H_
#define POSTWRIGHT_APPS_TABLES_TABLECHOICE_H_

#include <QList>
#include <QString>

#include "apps/tables/ColumnMapping.h"
#include "apps/tables/TextFile.h"

namespace postwright::tables {

// The columns of one of the addresses that a row holds.
struct AddressColumns {
  QString kind;         // "Home"; empty where there is nothing to tell it from
  int kindColumn = -1;  // the column whose cells tell the kind; -1: none
  ColumnMapping mapping;
};

// How a table is to be read.
struct TableChoice {
  char delimiter = ',';
  bool hasHeader = true;
  int skippedRows = 0;              // above the header, such as a title
  QList<AddressColumns> addresses;  // at least one
  bool isNamed = false;             // the header has names that are known, so nothing was guessed
  TextEncoding encoding = TextEncoding::Utf8;  // of a text
  int sheet = 0;                               // of a workbook
};

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_TABLECHOICE_H_
