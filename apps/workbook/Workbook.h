#ifndef POSTWRIGHT_APPS_WORKBOOK_WORKBOOK_H_
#define POSTWRIGHT_APPS_WORKBOOK_WORKBOOK_H_

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QStringList>
#include <memory>
#include <optional>

namespace postwright::workbook {

// What a cell of a sheet holds, and so whether its text may be changed.
enum class CellKind {
  Text,    // also an empty one
  Number,  // of a general format, or of digits with leading zeros
  Kept,    // a formula, date, amount, truth value or error: shown and never written
};

// A row of a sheet that holds something.
struct SheetRow {
  int number = 0;  // from 0, as in the sheet
  QStringList cells;
  QList<CellKind> kinds;  // as many
};

// What becomes of a row.
struct RowChange {
  int number = 0;
  std::optional<QStringList> cells;  // none: emptied of all that is not a formula
};

// A spreadsheet program's file: Office Open XML (ISO/IEC 29500) or OpenDocument (ISO/IEC 26300).
//
//   const auto workbook = Workbook::open(bytes);
//   QList<SheetRow> rows = workbook->rows(0);
//   rows[1].cells[2] = "12 MAIN ST";
//   bytes = workbook->with(0, {{rows[1].number, rows[1].cells}}, {});
//
// A changed cell keeps its style and becomes text, or stays a number where its format shows the new
// text; the rest of the sheet and every other part of the file stay byte for byte as they were.
class Workbook {
  Q_DECLARE_TR_FUNCTIONS(postwright::workbook::Workbook)

 public:
  // The most that a sheet may hold: a small file can name a million rows of thousands of cells.
  static constexpr int kMostColumns = 16'384;
  static constexpr int kMostRows = 1'048'576;
  static constexpr qsizetype kMostCells = 4'000'000;

  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;
  virtual ~Workbook() = default;

  // Reads a file of either kind. Throws FileError for one that is neither, is damaged, or is too
  // large.
  static std::unique_ptr<Workbook> open(QByteArray file);

  // The names of its sheets; at least one.
  virtual QStringList sheets() const = 0;

  // The rows of a sheet that hold something, in order. Throws FileError for a sheet that is damaged
  // or holds more than kMostCells.
  virtual QList<SheetRow> rows(int sheet) const = 0;

  // Returns the file with changed rows, in order, and with new ones after the last that holds
  // something. Throws FileError where a cell that would change is kept, or where the file as
  // written would not read as it should.
  QByteArray with(int sheet, const QList<RowChange>& changes,
                  const QList<QStringList>& added) const;

 protected:
  Workbook() = default;

  virtual QByteArray edited(int sheet, const QList<RowChange>& changes,
                            const QList<QStringList>& added) const = 0;
};

// "C" for 2, as a spreadsheet calls its columns.
QString columnLetters(int column);

// Throws the FileError for a cell that would have to change and is kept.
[[noreturn]] void failKept(int row, int column);
[[noreturn]] void failTooLarge();
[[noreturn]] void failDamagedSheet();

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_WORKBOOK_H_
