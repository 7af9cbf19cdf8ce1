#ifndef POSTWRIGHT_APPS_TABLES_REPLACEMENTFILE_H_
#define POSTWRIGHT_APPS_TABLES_REPLACEMENTFILE_H_

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

namespace postwright::tables {

// A file that is written beside another one and takes its place when it is done, so that at any
// moment, should the program be killed, there is the old or the new one, whole.
//
//   ReplacementFile replacement(path);
//   replacement.write(bytes);  // or let others write at temporaryPath()
//   replacement.commit();
//
// What a program that was killed has left is removed by the next one that writes or reads the same
// file; a lock tells it from what another program is writing just now.
class ReplacementFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::tables::ReplacementFile)

 public:
  // Makes an empty file in the folder of `path`, or of what `path` links to. Throws FileError; also
  // where the file at `path` is write-protected.
  explicit ReplacementFile(const QString& path);
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;
  // Removes the file unless it was committed.
  ~ReplacementFile();

  const QString& temporaryPath() const { return _temporaryPath; }

  // Adds to what was written. Throws FileError.
  void write(const QByteArray& bytes);

  // Sees the file on the disk, gives it the permissions of the one it replaces, and puts it there.
  // Throws FileError; what was there before is then unchanged.
  void commit();

  // Removes what killed programs have left beside `path`.
  static void removeLeftovers(const QString& path);

 private:
  QString _path;
  QString _temporaryPath;
  int _descriptor = -1;
  bool _isCommitted = false;
};

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_REPLACEMENTFILE_H_
