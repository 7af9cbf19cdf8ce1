#ifndef POSTWRIGHT_APPS_WORKBOOK_XLSXSHEET_H_
#define POSTWRIGHT_APPS_WORKBOOK_XLSXSHEET_H_

#include "apps/workbook/NumberFormats.h"
#include "apps/workbook/Workbook.h"
#include "apps/workbook/XmlText.h"

namespace postwright::workbook {

// The texts that the cells of all sheets share.
QStringList readSharedStrings(const QByteArray& part);

// The part of a workbook that is one sheet (ISO/IEC 29500-1, 18.3.1.99).
class XlsxSheet {
 public:
  XlsxSheet(QByteArray part, QStringList strings, const NumberFormats& formats, bool isFrom1904);

  QList<SheetRow> rows() const;

  // Returns the part as Workbook::with() has it. Once.
  QByteArray with(const QList<RowChange>& changes, const QList<QStringList>& added);

 private:
  struct Cell {
    int column = 0;
    NumberFormats::Shown shown;
    pugi::xml_node node;
  };

  pugi::xml_node data() const;
  QList<Cell> cellsOf(pugi::xml_node row) const;
  NumberFormats::Shown shownIn(pugi::xml_node cell) const;
  void change(pugi::xml_node row, int number, const std::optional<QStringList>& cells);
  QByteArray cellText(const QByteArray& prefix, int row, int column, const QString& text,
                      pugi::xml_node old) const;
  void widen(int lastRow, const QList<QStringList>& added);
  QByteArray rowText(const QByteArray& prefix, int number, const QStringList& cells) const;

  XmlText _xml;
  QStringList _strings;
  const NumberFormats& _formats;
  bool _isFrom1904;
};

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_XLSXSHEET_H_
