#ifndef POSTWRIGHT_TESTS_ADDRESSBOOK_TESTFOLDER_H_
#define POSTWRIGHT_TESTS_ADDRESSBOOK_TESTFOLDER_H_

#include <QFile>
#include <QTemporaryDir>

#include "apps/addressbook/formats/BookFormats.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

// A folder of files that is removed with the test.
class TestFolder {
 public:
  QString path(const QString& name) const { return _folder.filePath(name); }

  // Writes a file again and returns its path.
  QString put(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
      qFatal("%s cannot be written", qUtf8Printable(file.fileName()));
    }
    return file.fileName();
  }

  QByteArray bytes(const QString& name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  // Returns why a file cannot be opened; null if it can.
  static QString refusal(const QString& path) {
    try {
      openBookFile(path);
      return {};
    } catch (const tables::FileError& error) {
      return error.message();
    }
  }

 private:
  QTemporaryDir _folder;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_TESTS_ADDRESSBOOK_TESTFOLDER_H_
