#ifndef POSTWRIGHT_APPS_WORKBOOK_ODSSHEET_H_
#define POSTWRIGHT_APPS_WORKBOOK_ODSSHEET_H_

#include "apps/workbook/Workbook.h"
#include "apps/workbook/XmlText.h"

namespace postwright::workbook {

// The sheets of the part that holds them all.
QList<pugi::xml_node> odsTables(const XmlText& content);

// One sheet of it (ISO/IEC 26300-1, 9.1). Rows and cells that are the same are written once there,
// with their number.
class OdsSheet {
 public:
  OdsSheet(QByteArray content, int sheet);

  QList<SheetRow> rows() const;

  // Returns the part as Workbook::with() has it. Once.
  QByteArray with(const QList<RowChange>& changes, const QList<QStringList>& added);

 private:
  struct Run {
    int first = 0;  // row, or column
    int count = 1;
    pugi::xml_node node;
  };
  struct Shown {
    QString text;
    CellKind kind = CellKind::Text;
  };

  QList<Run> rowRuns() const;
  static QList<Run> cellRuns(pugi::xml_node row);
  static Shown shownIn(pugi::xml_node cell);
  static bool isEmpty(pugi::xml_node row);
  QByteArray withCount(pugi::xml_node element, const char* attribute, int count) const;
  QByteArray changedRow(const Run& row, const RowChange& change) const;
  QByteArray changedCells(const Run& run, int row, const std::optional<QStringList>& cells) const;
  QByteArray cellText(pugi::xml_node old, const QString& text) const;
  QByteArray newCells(const QStringList& cells, qsizetype first) const;
  void add(const QList<Run>& runs, qsizetype filled, const QList<QStringList>& added);

  XmlText _xml;
  pugi::xml_node _table;
  QByteArray _prefix;  // of the elements of tables, those of text and of the document
  QByteArray _textPrefix;
  QByteArray _officePrefix;
};

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_ODSSHEET_H_
