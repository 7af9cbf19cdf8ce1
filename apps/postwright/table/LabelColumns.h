#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_LABELCOLUMNS_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_LABELCOLUMNS_H_

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "apps/tables/TableChoice.h"

namespace postwright {

// The columns of a table that make one label, in the order in which they stand on it, and their
// cells again from the corrected label.
class LabelColumns {
 public:
  // Those that `guessed` has, in a table of `width` columns.
  LabelColumns(const tables::AddressColumns& guessed, const QStringList& titles, int width);

  // Those that --columns names: "street=Address 1,unit=Apt,city=4", by title, whatever its case, or
  // by number from 1; `titles` is empty where the table has no header. Throws Failure where the
  // table has no such column, and lists those it has.
  LabelColumns(const std::string& named, const QStringList& titles, int width);

  // "home"; empty where a row has one address.
  const QString& Kind() const { return kind_; }

  // Whether the columns can hold an address: a street, or a place.
  bool IsUsable() const;

  // The label of a row; empty where the row has no address. A bare "4" in a column of units is
  // written as what the title says it is, "APT 4", or "# 4".
  QString LabelOf(const QStringList& row) const;

  // The row with the corrected `label` in its cells; nothing where it cannot be divided among them.
  // The unit goes where the row had its own. Names that differ in spacing alone stay as they were.
  // A ZIP code of five digits stays one, as the column may have no room for more. Uses
  // AddressParser::GetInstance(): one thread at a time.
  std::optional<QStringList> WithLabel(const QStringList& row, const QString& label) const;

  // "street=Address 1, city=City", for the user to see.
  QString Describe(const QStringList& titles) const;

 private:
  QStringList CellsOf(const QStringList& row) const;
  bool IsBareUnit(int place, const QString& cell) const;
  void PutUnit(const QStringList& old, const QString& unit, QStringList& cells) const;

  QString kind_;
  QList<int> columns_;  // of the table, in the order of the label
  tables::ColumnMapping mapping_;
  QStringList designators_;  // what a bare number is in a column of units; empty for all others
};

// What is wrong with the value of --columns; empty if nothing is.
std::string CheckColumns(const std::string& named);

// Whether it names a column by its title, so that the table has a header.
bool NamesTitles(const std::string& named);

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_LABELCOLUMNS_H_
