#ifndef POSTWRIGHT_APPS_WORKBOOK_ODSWORKBOOK_H_
#define POSTWRIGHT_APPS_WORKBOOK_ODSWORKBOOK_H_

#include "apps/workbook/Workbook.h"
#include "apps/workbook/ZipParts.h"

namespace postwright::workbook {

// A workbook of OpenDocument: .ods.
class OdsWorkbook final : public Workbook {
 public:
  static bool isOne(const ZipParts& parts);

  // A new one, with one sheet that is empty.
  static QByteArray make();

  explicit OdsWorkbook(ZipParts parts);

  QStringList sheets() const override { return _names; }
  QList<SheetRow> rows(int sheet) const override;

 protected:
  QByteArray edited(int sheet, const QList<RowChange>& changes,
                    const QList<QStringList>& added) const override;

 private:
  ZipParts _parts;
  QStringList _names;
};

}  // namespace postwright::workbook

#endif  // POSTWRIGHT_APPS_WORKBOOK_ODSWORKBOOK_H_
