#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKFORMAT_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKFORMAT_H_

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>

namespace postwright::addressbook {

class BookFile;

// The beginning of a file, by which its kind is told.
struct FileHead {
  QByteArray bytes;
  QByteArray utf8;  // the same as text, its leading blanks and blank lines taken away
};

// A kind of file that holds an address book. There is one object of each kind, in bookFormats().
struct BookFormat {
  // Its name in the user's language, for dialogs and messages: "vCard file".
  QString (*title)();
  // Of file names, lower case, without the dot; the first is the usual one.
  QStringList endings;
  // As the desktop entry has them.
  QStringList mimeTypes;
  // Tells by its beginning whether a file is of this kind.
  bool (*isLikely)(const FileHead& head);
  // Reads a file. Throws FileError with a message that does not name the file.
  std::unique_ptr<BookFile> (*read)(const QString& path);
  // Makes a new one, without entries, to be written at `path`. Null: the kind is read, not written.
  std::unique_ptr<BookFile> (*make)(const QString& path);

  // False for an archive or a database: what a text named so is, it does not say.
  bool isText = true;

  bool isWritable() const { return make != nullptr; }
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_BOOKFORMAT_H_
