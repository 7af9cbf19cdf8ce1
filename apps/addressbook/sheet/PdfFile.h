#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_PDFFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_PDFFILE_H_

#include <QString>
#include <functional>

class QPageLayout;
class QPagedPaintDevice;

namespace postwright::addressbook {

// Writes what `paint` paints to a PDF file, the old or the new one being there at any moment. False
// where `paint` returns false: nothing was written. Throws FileError.
bool writePdfFile(const QString& path, const QString& title, const QPageLayout& pages,
                  const std::function<bool(QPagedPaintDevice&)>& paint);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_PDFFILE_H_
