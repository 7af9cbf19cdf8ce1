#include "apps/addressbook/formats/BookFormats.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "apps/addressbook/formats/csv/CsvFile.h"
#include "apps/addressbook/formats/ldif/LdifFile.h"
#include "apps/addressbook/formats/store/StoreFile.h"
#include "apps/addressbook/formats/vcard/VCardFile.h"
#include "apps/addressbook/formats/workbook/WorkbookFile.h"
#include "apps/tables/FileError.h"
#include "apps/tables/TextFile.h"

namespace postwright::addressbook {

namespace {

constexpr qint64 kHeadSize = 4096;

// Workbooks of before 2007 and other compound files begin so.
constexpr QByteArrayView kCompoundFile("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);

// Where the texts of this file are found by a translator.
struct BookFormats {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::BookFormats)
};

// A head that cannot be read tells no format: the file would be taken for another one.
FileHead headOf(const QString& path) {
  QFile file(path);
  const bool isFile = QFileInfo(path).isFile();
  if (isFile && !file.open(QIODevice::ReadOnly)) {
    throw tables::FileError(
        tables::TextFile::tr("The file cannot be read: %1.").arg(file.errorString()));
  }
  const QByteArray bytes = isFile ? file.read(kHeadSize) : QByteArray();
  return {bytes, tables::beginningAsUtf8(bytes).trimmed()};
}

}  // namespace

const QList<const BookFormat*>& bookFormats() {
  static const QList<const BookFormat*> formats = {
      &StoreFile::bookFormat(),   &VCardFile::bookFormat(), &WorkbookFile::xlsxFormat(),
      &WorkbookFile::odsFormat(), &LdifFile::bookFormat(),  &CsvFile::bookFormat()};
  return formats;
}

const BookFormat* formatForPath(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  const auto& formats = bookFormats();
  const auto found = std::find_if(formats.begin(), formats.end(), [&](const BookFormat* format) {
    return format->endings.contains(ending);
  });
  return found == formats.end() ? nullptr : *found;
}

QString nameFilter(const BookFormat& format) {
  QStringList patterns;
  for (const QString& ending : format.endings) {
    patterns.append(QStringLiteral("*.") + ending);
  }
  return QStringLiteral("%1 (%2)").arg(format.title(), patterns.join(QLatin1Char(' ')));
}

QString knownFormatsSentence() {
  QStringList filters;
  for (const BookFormat* const format : bookFormats()) {
    filters.append(nameFilter(*format));
  }
  return BookFormats::tr("The program opens: %1.").arg(filters.join(QStringLiteral(", ")));
}

std::unique_ptr<BookFile> openBookFile(const QString& path) {
  const FileHead head = headOf(path);
  if (head.bytes.startsWith(kCompoundFile)) {
    throw tables::FileError(BookFormats::tr(
        "This is a workbook in the form of before 2007 (.xls), one that is protected by a "
        "password, "
        "or a file of another program. Save it as .xlsx or as CSV, without a password, in the "
        "program that made it, and open that."));
  }
  // Web programs give a page or an XML text that name; one with tabs is read as what it is.
  if (QFileInfo(path).suffix().toLower() == u"xls" && head.utf8.startsWith('<')) {
    throw tables::FileError(
        BookFormats::tr("This is a web page that is named as a workbook (.xls). Open it in a "
                        "spreadsheet program, save it as .xlsx or as CSV, and open that."));
  }
  // An empty file, or one of which only the name tells what it should be.
  const BookFormat* const named = formatForPath(path);
  if (QFileInfo(path).isFile() && QFileInfo(path).size() < kHeadSize && head.utf8.isEmpty() &&
      !head.bytes.contains('\0')) {
    return newBookFile(path);
  }
  const auto& formats = bookFormats();
  const auto found = std::find_if(formats.begin(), formats.end(),
                                  [&](const BookFormat* format) { return format->isLikely(head); });
  const bool isByName = *found == formats.last() && named != nullptr && named->isText;
  if (*found == formats.last() && head.utf8.contains('\0')) {
    throw tables::FileError(BookFormats::tr("This is not a text file.") + QLatin1Char(' ') +
                            knownFormatsSentence());
  }
  return (isByName ? named : *found)->read(path);
}

std::unique_ptr<BookFile> newBookFile(const QString& path) {
  const BookFormat* const named = formatForPath(path);
  return (named != nullptr && named->isWritable() ? named : bookFormats().first())->make(path);
}

}  // namespace postwright::addressbook
