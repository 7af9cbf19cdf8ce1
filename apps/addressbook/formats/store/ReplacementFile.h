#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_STORE_REPLACEMENTFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_STORE_REPLACEMENTFILE_H_

#include <QCoreApplication>
#include <QString>

namespace postwright::addressbook {

// A file that is written beside another one and takes its place when it is done: what QSaveFile is,
// for a writer that wants a path and no device.
//
//   ReplacementFile replacement(path);
//   writeDatabase(replacement.temporaryPath());
//   replacement.commit();
class ReplacementFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::ReplacementFile)

 public:
  // Makes an empty file in the folder of `path`, or of what `path` links to. Throws FileError.
  explicit ReplacementFile(const QString& path);
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;
  // Removes the file unless it was committed.
  ~ReplacementFile();

  const QString& temporaryPath() const { return _temporaryPath; }

  // Sees the file on the disk, gives it the permissions of the one it replaces, and puts it there.
  // Throws FileError; what was there before is then unchanged.
  void commit();

 private:
  QString _path;
  QString _temporaryPath;
  bool _isCommitted = false;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_STORE_REPLACEMENTFILE_H_
