#ifndef POSTWRIGHT_APPS_TABLES_TEXTFILE_H_
#define POSTWRIGHT_APPS_TABLES_TEXTFILE_H_

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace postwright::tables {

// How the characters of a text file are written.
enum class TextEncoding {
  Utf8,
  Utf8WithMark,
  Utf16LittleEndian,  // with their mark
  Utf16BigEndian,
  Utf16LittleEndianBare,  // without one
  Utf16BigEndianBare,
  Windows1252,
  MacRoman,  // of Apple's programs of before 2001, and of some of theirs today; never guessed
};

// With a mark or without, in either order of bytes.
bool isUtf16(TextEncoding encoding);

// The whole of a text file, as UTF-8 whatever its encoding.
//
//   TextFile file = TextFile::read(path);
//   file.utf8.replace(from, length, "12 MAIN ST");
//   tell(file.write(path));
//
// What is not changed in between is written byte for byte as it was.
struct TextFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::tables::TextFile)

 public:
  // The largest file, in bytes: 512 MiB.
  static constexpr qint64 kLargest = 512LL * 1024 * 1024;

  // The encoding is the one its byte-order mark names, else UTF-16 where every other byte of its
  // beginning is NUL, else UTF-8 where the bytes are valid in it, else Windows-1252. Throws
  // FileError for a file that cannot be read, is larger than 512 MiB, or is not text (a NUL byte,
  // UTF-16 that is not valid).
  static TextFile read(const QString& path);

  // The same for the bytes of a file that somebody else has read.
  static TextFile of(const QByteArray& bytes);

  // The same in an encoding that the user knows; one with a byte-order mark needs none here. Throws
  // FileError where the bytes are not valid in it.
  static TextFile of(const QByteArray& bytes, TextEncoding encoding);

  // Writes the file so that at any moment, should the program be killed, there is the old or the
  // new one, whole. A file in Windows-1252 or Mac Roman that has a character now for which there is
  // no code becomes UTF-8 with a byte-order mark; that is what the user should know, and what is
  // returned. Throws FileError where the file could not be written; the old one is then as it was.
  QStringList write(const QString& path) const;

  // The bytes that write() would write; what it would return is added to `notes`.
  QByteArray bytes(QStringList& notes) const;

  QByteArray utf8;
  TextEncoding encoding = TextEncoding::Utf8;
};

// Returns the beginning of a file, of which the end may be cut off anywhere, as UTF-8.
QByteArray beginningAsUtf8(const QByteArray& bytes);

// Windows-1252 to UTF-8. The five codes that Windows leaves unused stand for the control characters
// of the same number, so any bytes come back as they were.
QByteArray windows1252ToUtf8(const QByteArray& bytes);

}  // namespace postwright::tables

#endif  // POSTWRIGHT_APPS_TABLES_TEXTFILE_H_
