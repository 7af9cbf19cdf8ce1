#ifndef POSTWRIGHT_APPS_POSTWRIGHT_TABLE_ADDRESSTABLE_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_TABLE_ADDRESSTABLE_H_

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <string_view>

#include "apps/postwright/table/LabelColumns.h"
#include "apps/tables/CsvReader.h"
#include "apps/tables/TableChoice.h"
#include "apps/tables/TextFile.h"

namespace postwright {

// What a row without a record has for the code of its status.
inline constexpr std::string_view kNotAsked = "not-asked";

// A table of addresses: CSV or TSV with a header or without, in any usual encoding.
//
//   const AddressTable table(bytes, "list.csv", "");
//   table.ReadLabels([](const QString& label) { … });
//   table.Rewrite({"status"}, [](const LabelColumns& columns, QStringList& cells) { … }, warn);
//
// It is held whole, as text; rows are read one after another.
class AddressTable {
 public:
  // One address of a row: `cells` are those of the row and may be changed; what is returned goes
  // into the added columns.
  using Answer = std::function<QStringList(const LabelColumns& columns, QStringList& cells)>;

  // `bytes` are the file's, `name` is for messages, and `columns` what --columns says, or "" where
  // they are to be found. Throws Failure where that is not text or has no columns of an address.
  AddressTable(const std::string& bytes, std::string name, const std::string& columns);

  // "list.csv: street=Address 1, city=City", for the user to see.
  std::string Description() const;

  // Calls `take` with each label, row by row.
  void ReadLabels(const std::function<void(const QString& label)>& take) const;

  // Returns the bytes of the table, in its own encoding, with what `answer` makes of each address
  // that ReadLabels has, in the same order. `added` names the columns that are added, or found at
  // the place that an earlier run gave them. `warn` is called about rows that are left as they are:
  // those that cannot be read, or have more cells than the header.
  QByteArray Rewrite(const QStringList& added, const Answer& answer,
                     const std::function<void(const std::string&)>& warn) const;

 private:
  enum class RowKind {
    kAbove,  // a title above the header
    kHeader,
    kEntry,
    kUnreadable
  };

  // Calls `take` with each row and its number, from 1.
  void ReadRows(
      const std::function<void(RowKind kind, const tables::CsvRow& row, int number)>& take) const;
  bool HasOwnCells(const tables::CsvRow& row) const;
  RowKind KindOf(const tables::CsvRow& row, int number) const;
  std::string ProblemOf(const tables::CsvRow& row, int number) const;

  std::string name_;
  tables::TextFile text_;
  tables::TableChoice choice_;
  QStringList titles_;             // of the header; empty where there is none
  int width_ = 0;                  // in columns, without those that an earlier run added at its end
  QList<LabelColumns> addresses_;  // of a row
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_TABLE_ADDRESSTABLE_H_
