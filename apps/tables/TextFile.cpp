#include "apps/tables/TextFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringConverter>
#include <algorithm>
#include <array>

#include "apps/tables/FileError.h"
#include "apps/tables/ReplacementFile.h"
#include "common/Encoding.h"

namespace postwright::tables {

namespace {

constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF", 3);
constexpr QByteArrayView kUtf16LittleEndianMark("\xFF\xFE", 2);
constexpr QByteArrayView kUtf16BigEndianMark("\xFE\xFF", 2);
constexpr qsizetype kUtf16Mark = 2;

constexpr uchar kFirstWindowsCode = 0x80;
constexpr uchar kLastWindowsCode = 0x9F;
using WindowsCharacters = std::array<char16_t, kLastWindowsCode - kFirstWindowsCode + 1>;

// The characters of these codes. One that Windows-1252 leaves open stands for itself, so that it is
// written again as it was read.
const WindowsCharacters& windowsCharacters() {
  static const WindowsCharacters characters = [] {
    WindowsCharacters found = {};
    for (size_t i = 0; i < found.size(); ++i) {
      const size_t code = kFirstWindowsCode + i;
      const char32_t character = FromWindows1252(static_cast<char>(code));
      found[i] = static_cast<char16_t>(character == QChar::ReplacementCharacter ? code : character);
    }
    return found;
  }();
  return characters;
}

QByteArrayView markOf(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::Utf8WithMark:
      return kUtf8Mark;
    case TextEncoding::Utf16LittleEndian:
      return kUtf16LittleEndianMark;
    case TextEncoding::Utf16BigEndian:
      return kUtf16BigEndianMark;
    case TextEncoding::Utf8:
    case TextEncoding::Windows1252:
      break;
  }
  return {};
}

TextEncoding detect(QByteArrayView bytes) {
  for (const TextEncoding marked : {TextEncoding::Utf8WithMark, TextEncoding::Utf16LittleEndian,
                                    TextEncoding::Utf16BigEndian}) {
    if (bytes.startsWith(markOf(marked))) {
      return marked;
    }
  }
  return QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8() ? TextEncoding::Utf8
                                                                   : TextEncoding::Windows1252;
}

QStringConverter::Encoding converterFor(TextEncoding utf16) {
  return utf16 == TextEncoding::Utf16LittleEndian ? QStringConverter::Utf16LE
                                                  : QStringConverter::Utf16BE;
}

QByteArray utf16ToUtf8(const QByteArray& bytes, TextEncoding encoding) {
  QStringDecoder decoder(converterFor(encoding), QStringConverter::Flag::ConvertInitialBom);
  const QString text = decoder(bytes);
  if (decoder.hasError() || bytes.size() % 2 != 0 || !text.isValidUtf16()) {
    throw FileError(
        TextFile::tr("The file is marked as UTF-16 but is not valid in it, perhaps because its end "
                     "is missing. Save it again in the program that made it."));
  }
  return text.toUtf8();
}

QByteArray toUtf8(QByteArray bytes, TextEncoding encoding) {
  bytes.remove(0, markOf(encoding).size());
  switch (encoding) {
    case TextEncoding::Utf16LittleEndian:
    case TextEncoding::Utf16BigEndian:
      return utf16ToUtf8(bytes, encoding);
    case TextEncoding::Windows1252:
      return windows1252ToUtf8(bytes);
    case TextEncoding::Utf8:
    case TextEncoding::Utf8WithMark:
      break;
  }
  return bytes;
}

// `encoding` becomes the one that was used.
QByteArray fromUtf8(const QByteArray& utf8, TextEncoding& encoding) {
  if (encoding == TextEncoding::Windows1252) {
    if (std::optional<QByteArray> bytes = utf8ToWindows1252(utf8)) {
      return *std::move(bytes);
    }
    encoding = TextEncoding::Utf8WithMark;
  }
  if (encoding == TextEncoding::Utf16LittleEndian || encoding == TextEncoding::Utf16BigEndian) {
    QStringEncoder encoder(converterFor(encoding));
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    const QByteArray bytes = encoder(decoder(utf8));
    return markOf(encoding).toByteArray() + bytes;
  }
  return markOf(encoding).toByteArray() + utf8;
}

void refuseBinary(const QByteArray& utf8) {
  const qsizetype nul = utf8.indexOf('\0');
  if (nul >= 0) {
    const qsizetype line = utf8.first(nul).count('\n') + 1;
    throw FileError(TextFile::tr("Line %1 holds a NUL byte, so this is no text file.").arg(line));
  }
}

}  // namespace

TextFile TextFile::read(const QString& path) {
  ReplacementFile::removeLeftovers(path);
  const QFileInfo info(path);
  if (info.exists() && !info.isFile()) {
    throw FileError(tr("This is a folder or a device and no file."));
  }
  if (info.size() > kLargest) {
    throw FileError(tr("The file is larger than 512 MiB. Part it into smaller ones."));
  }
  QFile file(path);
  const bool isOpen = file.open(QIODevice::ReadOnly);
  const QByteArray bytes = isOpen ? file.readAll() : QByteArray();
  if (file.error() != QFileDevice::NoError) {
    throw FileError(tr("The file cannot be read: %1.").arg(file.errorString()));
  }
  return of(bytes);
}

TextFile TextFile::of(const QByteArray& bytes) {
  const TextEncoding encoding = detect(bytes);
  TextFile text{toUtf8(bytes, encoding), encoding};
  refuseBinary(text.utf8);
  return text;
}

QStringList TextFile::write(const QString& path) const {
  QStringList notes;
  ReplacementFile file(path);
  file.write(bytes(notes));
  file.commit();
  return notes;
}

QByteArray TextFile::bytes(QStringList& notes) const {
  TextEncoding used = encoding;
  QByteArray bytes = fromUtf8(utf8, used);
  if (used != encoding) {
    notes.append(
        tr("The file is UTF-8 now: Windows-1252, which it was before, has no code for one of its "
           "characters."));
  }
  return bytes;
}

QByteArray beginningAsUtf8(const QByteArray& bytes) {
  for (const TextEncoding utf16 : {TextEncoding::Utf16LittleEndian, TextEncoding::Utf16BigEndian}) {
    if (bytes.startsWith(markOf(utf16))) {
      const QString text = QStringDecoder(converterFor(utf16))(bytes.sliced(kUtf16Mark));
      return text.toUtf8();
    }
  }
  return bytes.startsWith(kUtf8Mark) ? bytes.sliced(kUtf8Mark.size()) : bytes;
}

QByteArray windows1252ToUtf8(const QByteArray& bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    if (code >= kFirstWindowsCode && code <= kLastWindowsCode) {
      character = QChar(windowsCharacters()[code - kFirstWindowsCode]);
    }
  }
  return text.toUtf8();
}

std::optional<QByteArray> utf8ToWindows1252(const QByteArray& utf8) {
  const WindowsCharacters& characters = windowsCharacters();
  QString text = QString::fromUtf8(utf8);
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    const auto* const found = std::find(characters.begin(), characters.end(), code);
    if (found != characters.end()) {
      character = QChar(kFirstWindowsCode + static_cast<int>(found - characters.begin()));
    } else if (code > 0xFF || (code >= kFirstWindowsCode && code <= kLastWindowsCode)) {
      return std::nullopt;
    }
  }
  return text.toLatin1();
}

}  // namespace postwright::tables
