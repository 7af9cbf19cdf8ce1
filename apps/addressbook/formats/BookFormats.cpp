#include "apps/addressbook/formats/BookFormats.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstring>

#include "apps/addressbook/formats/csv/CsvFile.h"
#include "apps/addressbook/formats/store/StoreFile.h"
#include "apps/addressbook/formats/vcard/VCardFile.h"
#include "apps/tables/TextFile.h"

namespace postwright::addressbook {

namespace {

constexpr qint64 kSignatureSize = 16;

bool isVCard(const QByteArray& utf8) {
  static const QByteArray begin = "BEGIN:VCARD";
  const auto* const text = std::find_if(
      utf8.begin(), utf8.end(), [](char c) { return std::strchr(" \t\r\n", c) == nullptr; });
  return utf8.mid(text - utf8.begin(), begin.size()).toUpper() == begin;
}

QByteArray firstBytes(const QString& path) {
  QFile file(path);
  const bool isOpen = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
  return isOpen ? file.read(kSignatureSize) : QByteArray();
}

}  // namespace

std::unique_ptr<BookFile> openBookFile(const QString& path) {
  if (StoreFile::isStore(firstBytes(path))) {
    return std::make_unique<StoreFile>(path);
  }
  tables::TextFile text = tables::TextFile::read(path);
  if (text.utf8.trimmed().isEmpty()) {
    return newBookFile(path);
  }
  if (isVCard(text.utf8) || kindForPath(path) == BookKind::VCard) {
    return std::make_unique<VCardFile>(std::move(text));
  }
  return std::make_unique<CsvFile>(std::move(text));
}

std::unique_ptr<BookFile> newBookFile(const QString& path) {
  switch (kindForPath(path)) {
    case BookKind::VCard:
      return std::make_unique<VCardFile>();
    case BookKind::Csv:
      return std::make_unique<CsvFile>(path.endsWith(u".tsv", Qt::CaseInsensitive) ? '\t' : ',');
    case BookKind::Store:
      break;
  }
  return std::make_unique<StoreFile>();
}

BookKind kindForPath(const QString& path) {
  const QString suffix = QFileInfo(path).suffix().toLower();
  if (suffix == u"vcf" || suffix == u"vcard") {
    return BookKind::VCard;
  }
  return suffix == u"csv" || suffix == u"tsv" || suffix == u"txt" ? BookKind::Csv : BookKind::Store;
}

}  // namespace postwright::addressbook
