#ifndef POSTWRIGHT_APPS_TABLES_FORMULAGUARD_H_
#define POSTWRIGHT_APPS_TABLES_FORMULAGUARD_H_

#include <QByteArray>

namespace postwright::tables {

// Returns `csv` with an apostrophe in front of each cell that a spreadsheet program would run as a
// formula, that is, one that begins with = + - @, a tab or a carriage return (OWASP, "CSV
// Injection"). All else stays as it is.
QByteArray guardFormulas(const QByteArray& csv, char delimiter);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_FORMULAGUARD_H_
