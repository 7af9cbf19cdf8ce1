#ifndef POSTWRIGHT_APPS_TABLES_COLUMNNAMES_H_
#define POSTWRIGHT_APPS_TABLES_COLUMNNAMES_H_

#include <QString>
#include <QStringList>

#include "apps/tables/ColumnMapping.h"

namespace postwright::tables {

// The names that columns have in the files of other programs.

// What a column is by its name, and to which of the addresses of a row it belongs.
struct NamedColumn {
  ColumnRole role = ColumnRole::None;
  QString group;
  QString rest;            // the name without the group
  bool tellsKind = false;  // "Address 1 - Label", which holds "Home"
};

// Reads the name of a column as it is written.
NamedColumn readColumnName(const QString& title);

// "Código postal" gives CODIGOPOSTAL.
QString plainName(const QString& title);

// Tells whether a plain name is that of a full name, which makes columns with its pieces
// superfluous.
bool isFullName(const QString& plainName);

// Tells whether a column is of the person and not of one of the addresses.
bool isPersonal(ColumnRole role);

// What an address of a group is called, in English: "Home"; empty for none.
QString kindOfGroup(const QString& group);

// The same in the user's language; what is not a kind of the table stays as it is.
QString kindText(const QString& kind);

// How many of the cells are names of columns.
int knownNames(const QStringList& cells);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_COLUMNNAMES_H_
