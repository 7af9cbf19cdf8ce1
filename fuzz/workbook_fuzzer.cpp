// A sheet of a workbook. The first letter says which kind: "x" Office Open XML, "o" OpenDocument,
// "a" the bytes of the whole archive. It is refused with a reason or read; with a cell changed and
// a row added it reads as that, or is refused and not written.

#include <QStringList>

#include "apps/tables/FileError.h"
#include "apps/workbook/OdsWorkbook.h"
#include "apps/workbook/Workbook.h"
#include "apps/workbook/XlsxWorkbook.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright::workbook;
using postwright::fuzz::Require;

QByteArray ArchiveOf(const std::uint8_t* data, std::size_t size) {
  const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const QByteArray text = input.mid(1);
  return input.startsWith('x')
             ? ZipParts(XlsxWorkbook::make()).with("xl/worksheets/sheet1.xml", text)
         : input.startsWith('o') ? ZipParts(OdsWorkbook::make()).with("content.xml", text)
                                 : text;
}

void CheckChange(const Workbook& workbook, SheetRow row) {
  row.cells[row.cells.size() / 2] = QStringLiteral("12 MAIN  ST <&>\n4");
  const QStringList added{QString(), QStringLiteral("new")};
  try {
    const QList<SheetRow> rows =
        Workbook::open(workbook.with(0, {{row.number, row.cells}}, {added}))->rows(0);
    Require(rows.last().cells == added, "a row that was added is the last");
  } catch (const postwright::tables::FileError& error) {
    Require(!error.message().isEmpty(), "a change that is refused is told why");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const std::unique_ptr<Workbook> workbook = Workbook::open(ArchiveOf(data, size));
    Require(!workbook->sheets().isEmpty(), "a workbook has a sheet");
    const QList<SheetRow> rows = workbook->rows(0);
    for (const SheetRow& row : rows) {
      Require(!row.cells.isEmpty() && row.cells.size() == row.kinds.size(), "each cell has a kind");
    }
    if (!rows.isEmpty()) {
      CheckChange(*workbook, rows[rows.size() / 2]);
    }
  } catch (const postwright::tables::FileError& error) {
    Require(!error.message().isEmpty(), "a workbook that is refused is told why");
  }
  return 0;
}
