#ifndef POSTWRIGHT_APPS_TABLES_COLUMNMAPPING_H_
#define POSTWRIGHT_APPS_TABLES_COLUMNMAPPING_H_

#include <QList>
#include <QString>
#include <QStringList>

#include "apps/tables/LabelText.h"

namespace postwright::tables {

// What a column of a CSV file is to the label. The numbers are kept in the user's settings.
enum class ColumnRole {
  None = 0,     // not on the label
  Given = 1,    // title, first and middle names: before the name, on its line
  Name = 2,     // last name, or the full one
  Company = 3,  // a line of its own
  Street = 4,   // lines of their own: street, unit, box; or the whole label in one cell
  City = 5,
  State = 6,
  Zip = 7,       // a second one holds the four digits after the hyphen
  Below = 8,     // a line below the place
  Title = 9,     // "Dr.": the first of the name's line, wherever the column is
  Suffix = 10,   // "Jr.": the last of it
  Country = 11,  // the last line; the United States are not named
};
inline constexpr int kColumnRoles = 12;

// Which columns of a CSV file make the label, and how.
//
//   const ColumnMapping mapping({ColumnRole::Name, ColumnRole::Street, ColumnRole::City,
//                                ColumnRole::State, ColumnRole::Zip});
//   mapping.compose({"Jane Doe", "12 Main St", "Austin", "TX", "78701"});
//   // "Jane Doe\n12 Main St\nAustin, TX 78701"
//
// Columns of the same role follow one another as in the file.
class ColumnMapping {
 public:
  // A label divided into the cells of its row.
  struct Division {
    QStringList cells;     // of the whole row; those that are not on the label as they were
    bool isWhole = false;  // the label would not divide and stands in one cell with its lines
  };

  ColumnMapping() = default;
  explicit ColumnMapping(QList<ColumnRole> roles) : _roles(std::move(roles)) {}

  const QList<ColumnRole>& roles() const { return _roles; }

  // False where no column is on the label.
  bool isUsable() const;

  // True where a row has more for the label than a name.
  bool hasAddress(const QStringList& cells) const;

  // Returns the cells of a row without its address; names stay.
  QStringList withoutAddress(QStringList cells) const;

  // Returns the label of a row. Rows may be shorter than the header, and longer.
  QString compose(const QStringList& cells) const;

  // Returns the last name of a row, or the company of one without a name; empty where the columns
  // do not tell it from the first name.
  QString lastName(const QStringList& cells) const;

  // Divides an edited or corrected label into the cells of a row that held `cells`, such that
  // compose() gives the label again, but for case, spacing and punctuation within a line. A mapping
  // that is not usable leaves the cells as they are.
  Division divide(const QString& label, const QStringList& cells) const;

 private:
  QList<int> columnsOf(ColumnRole role) const;
  bool has(ColumnRole role) const { return _roles.contains(role); }
  QStringList valuesOf(const QStringList& cells, ColumnRole role) const;
  QString composePlace(const QStringList& cells) const;
  QStringList composeStreet(const QStringList& cells) const;

  QList<int> nameColumns() const;
  QString composeCountry(const QStringList& cells) const;
  void keepForeign(QStringList& cells, const QStringList& old, LabelParts& parts) const;
  void putCountry(QStringList& cells, const QStringList& old, LabelParts& parts) const;
  QStringList blanked(QStringList cells) const;
  void putLines(QStringList& cells, ColumnRole role, const QStringList& lines) const;
  void putPlace(QStringList& cells, const PlaceParts& place) const;
  void putName(QStringList& cells, const QStringList& old, const QString& name) const;
  void putLinesAbove(QStringList& cells, const QStringList& old, QStringList lines) const;
  void putCompany(QStringList& cells, const QStringList& old, QStringList& lines) const;
  void packAddress(QStringList& cells, const QStringList& old) const;
  int columnForWhole() const;

  QList<ColumnRole> _roles;
};

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_COLUMNMAPPING_H_
