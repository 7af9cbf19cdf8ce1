#include "apps/tables/ReplacementFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "apps/tables/FileError.h"
#include "common/NewFileMode.h"
#include "common/WritingLock.h"

namespace postwright::tables {

namespace {

// A name may hold 255 bytes, and what is put around it needs some.
constexpr qsizetype kLongestName = 200;

const QString kEnding = QStringLiteral(".saving");

[[noreturn]] void fail(int error) {
  throw FileError(ReplacementFile::tr("The file could not be written: %1. What was there before is "
                                      "unchanged; free some space or save under another name.")
                      .arg(qt_error_string(error)));
}

// Beside the file and hidden: ".book.csv."
QString beginningOfName(const QFileInfo& file) {
  return QLatin1Char('.') + file.fileName().left(kLongestName) + QLatin1Char('.');
}

QString writtenPath(const QString& path) {
  const QFileInfo info(path);
  return info.isSymLink() ? info.symLinkTarget() : path;
}

// A file that nobody may write is not replaced either, not even for the superuser.
void refuseProtected(const QString& path) {
  struct stat found = {};
  const QByteArray name = QFile::encodeName(path);
  if (::stat(name.constData(), &found) == 0 &&
      ((found.st_mode & 0222) == 0 || ::access(name.constData(), W_OK) != 0)) {
    throw FileError(
        ReplacementFile::tr("The file is write-protected. Save under another name, or lift the "
                            "protection in its properties and save again."));
  }
}

}  // namespace

ReplacementFile::ReplacementFile(const QString& path) : _path(writtenPath(path)) {
  refuseProtected(_path);
  removeLeftovers(_path);
  const QFileInfo info(_path);
  const QByteArray pattern =
      QFile::encodeName(info.absolutePath() + QLatin1Char('/') + beginningOfName(info) +
                        QStringLiteral("XXXXXX") + kEnding);
  QByteArray name;
  do {
    ::close(_descriptor);
    name = pattern;
    _descriptor = ::mkostemps(name.data(), static_cast<int>(kEnding.size()), O_CLOEXEC);
    if (_descriptor < 0) {
      fail(errno);
    }
  } while (!LockNewFile(_descriptor, name.toStdString()));
  _temporaryPath = QFile::decodeName(name);
}

ReplacementFile::~ReplacementFile() {
  if (!_isCommitted) {
    ::unlink(QFile::encodeName(_temporaryPath).constData());
  }
  ::close(_descriptor);
}

void ReplacementFile::write(const QByteArray& bytes) {
  for (qsizetype written = 0; written < bytes.size();) {
    const ssize_t count =
        ::write(_descriptor, bytes.data() + written, static_cast<size_t>(bytes.size() - written));
    if (count < 0 && errno != EINTR) {
      fail(errno);
    }
    written += std::max<ssize_t>(count, 0);
  }
}

void ReplacementFile::commit() {
  const QByteArray path = QFile::encodeName(_path);
  struct stat replaced = {};
  const bool isReplacing = ::stat(path.constData(), &replaced) == 0;
  const mode_t mode = isReplacing ? replaced.st_mode & 07777 : NewFileMode();
  if (::fchmod(_descriptor, mode) != 0 || ::fsync(_descriptor) != 0 ||
      std::rename(QFile::encodeName(_temporaryPath).constData(), path.constData()) != 0) {
    fail(errno);
  }
  _isCommitted = true;
}

void ReplacementFile::removeLeftovers(const QString& book) {
  const QFileInfo info(writtenPath(book));
  const QString beginning = beginningOfName(info);
  const QDir folder = info.absoluteDir();
  for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
    const qsizetype ending =
        name.startsWith(beginning) ? name.indexOf(kEnding, beginning.size()) : -1;
    if (ending < 0) {
      continue;
    }
    const QString file = folder.filePath(name.first(ending + kEnding.size()));
    const QByteArray path = QFile::encodeName(folder.filePath(name));
    // The journal beside a database has a name that begins with that of its file.
    const bool isJournal = name.size() > ending + kEnding.size();
    if (!isJournal) {
      RemoveUnlessLocked(path.toStdString());
    } else if (!QFile::exists(file)) {
      ::unlink(path.constData());
    }
  }
}

}  // namespace postwright::tables
