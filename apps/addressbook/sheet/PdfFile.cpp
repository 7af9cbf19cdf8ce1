#include "apps/addressbook/sheet/PdfFile.h"

#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>

#include "apps/addressbook/sheet/LabelSheet.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

constexpr int kPdfResolution = 1200;

}  // namespace

bool writePdfFile(const QString& path, const QString& title, const QPageLayout& pages,
                  const std::function<bool(QPagedPaintDevice&)>& paint) {
  QSaveFile file(path);
  const auto fail = [&file] {
    throw tables::FileError(
        LabelSheet::tr("The PDF could not be written: %1. Free some space or save under "
                       "another name.")
            .arg(file.errorString()));
  };
  if (!file.open(QIODevice::WriteOnly)) {
    fail();
  }
  bool isWhole = false;
  {
    QPdfWriter writer(&file);
    writer.setResolution(kPdfResolution);
    writer.setTitle(title);
    writer.setPageLayout(pages);
    isWhole = paint(writer);
  }  // the writer ends the file
  if (!isWhole) {
    file.cancelWriting();
    return false;
  }
  if (!file.commit()) {
    fail();
  }
  return true;
}

}  // namespace postwright::addressbook
