#include "apps/addressbook/formats/store/ReplacementFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cerrno>
#include <cstdio>

#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

[[noreturn]] void fail(const QString& reason) {
  throw tables::FileError(
      ReplacementFile::tr("The file could not be written: %1. What was there before is "
                          "unchanged; free some space or save under another name.")
          .arg(reason));
}

// What a file that is made anew may be by the user's wish.
mode_t usualMode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

ReplacementFile::ReplacementFile(const QString& path)
    : _path(QFileInfo(path).isSymLink() ? QFileInfo(path).symLinkTarget() : path) {
  QTemporaryFile file(_path + QStringLiteral(".XXXXXX"));
  if (!file.open()) {
    fail(file.errorString());
  }
  file.setAutoRemove(false);
  _temporaryPath = file.fileName();
}

ReplacementFile::~ReplacementFile() {
  if (!_isCommitted) {
    QFile::remove(_temporaryPath);
  }
}

void ReplacementFile::commit() {
  QFile file(_temporaryPath);
  struct stat replaced = {};
  const bool isReplacing = ::stat(QFile::encodeName(_path).constData(), &replaced) == 0;
  const mode_t mode = isReplacing ? replaced.st_mode & 07777 : usualMode();
  if (!file.open(QIODevice::ReadWrite) || ::fchmod(file.handle(), mode) != 0 ||
      ::fsync(file.handle()) != 0 ||
      std::rename(QFile::encodeName(_temporaryPath).constData(),
                  QFile::encodeName(_path).constData()) != 0) {
    fail(file.error() == QFileDevice::NoError ? qt_error_string(errno) : file.errorString());
  }
  _isCommitted = true;
}

}  // namespace postwright::addressbook
