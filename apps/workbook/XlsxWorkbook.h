#ifndef POSTWRIGHT_APPS_WORKBOOK_XLSXWORKBOOK_H_
#define POSTWRIGHT_APPS_WORKBOOK_XLSXWORKBOOK_H_

#include <QHash>

#include "apps/workbook/NumberFormats.h"
#include "apps/workbook/Workbook.h"
#include "apps/workbook/ZipParts.h"

namespace postwright::workbook {

// A workbook of Office Open XML: .xlsx, .xlsm.
class XlsxWorkbook final : public Workbook {
 public:
  static bool isOne(const ZipParts& parts);

  // A new one, with one sheet that is empty.
  static QByteArray make();

  explicit XlsxWorkbook(ZipParts parts);

  QStringList sheets() const override { return _names; }
  QList<SheetRow> rows(int sheet) const override;

 protected:
  QByteArray edited(int sheet, const QList<RowChange>& changes,
                    const QList<QStringList>& added) const override;

 private:
  // The parts that another one refers to, by their relation's identifier.
  struct Relation {
    QString type;  // the last word of its address: "worksheet"
    QByteArray part;
  };
  QHash<QString, Relation> relationsOf(const QByteArray& part) const;
  QByteArray partOfType(const QByteArray& of, const QString& type) const;
  QStringList sharedStrings() const;

  ZipParts _parts;
  QByteArray _main;  // the part that names the sheets
  QStringList _names;
  QList<QByteArray> _sheetParts;
  bool _isFrom1904 = false;
  NumberFormats _formats;
};

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_XLSXWORKBOOK_H_
