#include "apps/tables/TextFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringConverter>
#include <algorithm>
#include <array>
#include <optional>

#include "apps/tables/FileError.h"
#include "apps/tables/ReplacementFile.h"
#include "common/Encoding.h"

namespace postwright::tables {

namespace {

constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF", 3);
constexpr QByteArrayView kUtf16LittleEndianMark("\xFF\xFE", 2);
constexpr QByteArrayView kUtf16BigEndianMark("\xFE\xFF", 2);
constexpr qsizetype kUtf16Mark = 2;

constexpr qsizetype kLookedAt = 4096;
constexpr size_t kFirstHighCode = 0x80;
constexpr size_t kCodes = 0x100;
using HighCharacters = std::array<char16_t, kCodes - kFirstHighCode>;

// The characters of the codes from 0x80 on. One that the encoding leaves open stands for itself, so
// that it is written again as it was read.
HighCharacters charactersOf(char32_t (*decode)(char byte)) {
  HighCharacters found = {};
  for (size_t code = kFirstHighCode; code < kCodes; ++code) {
    const char32_t character = decode(static_cast<char>(code));
    found[code - kFirstHighCode] =
        static_cast<char16_t>(character == QChar::ReplacementCharacter ? code : character);
  }
  return found;
}

const HighCharacters& charactersOf(TextEncoding encoding) {
  static const HighCharacters windows = charactersOf(FromWindows1252);
  static const HighCharacters mac = charactersOf(FromMacRoman);
  return encoding == TextEncoding::MacRoman ? mac : windows;
}

bool isOfSingleBytes(TextEncoding encoding) {
  return encoding == TextEncoding::Windows1252 || encoding == TextEncoding::MacRoman;
}

QByteArray singleBytesToUtf8(const QByteArray& bytes, TextEncoding encoding) {
  const HighCharacters& characters = charactersOf(encoding);
  QString text = QString::fromLatin1(bytes);
  for (QChar& character : text) {
    if (character.unicode() >= kFirstHighCode) {
      character = QChar(characters[character.unicode() - kFirstHighCode]);
    }
  }
  return text.toUtf8();
}

// Nothing where a character has no code.
std::optional<QByteArray> utf8ToSingleBytes(const QByteArray& utf8, TextEncoding encoding) {
  const HighCharacters& characters = charactersOf(encoding);
  QString text = QString::fromUtf8(utf8);
  for (QChar& character : text) {
    if (character.unicode() < kFirstHighCode) {
      continue;
    }
    const auto* const found = std::find(characters.begin(), characters.end(), character.unicode());
    if (found == characters.end()) {
      return std::nullopt;
    }
    character = QChar(static_cast<char16_t>(kFirstHighCode + (found - characters.begin())));
  }
  return text.toLatin1();
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
    case TextEncoding::Utf16LittleEndianBare:
    case TextEncoding::Utf16BigEndianBare:
    case TextEncoding::Windows1252:
    case TextEncoding::MacRoman:
      break;
  }
  return {};
}

// UTF-16 without a mark: of a text in a Latin script, half the bytes are NUL, and those on one
// side.
std::optional<TextEncoding> bareUtf16(QByteArrayView bytes) {
  const QByteArrayView start = bytes.first(std::min(bytes.size(), kLookedAt));
  std::array<qsizetype, 2> nuls = {};
  for (qsizetype at = 0; at < start.size(); ++at) {
    nuls[static_cast<size_t>(at % 2)] += start[at] == '\0' ? 1 : 0;
  }
  const qsizetype many = start.size() / 4;
  if (bytes.size() % 2 != 0 || std::max(nuls[0], nuls[1]) <= many ||
      std::min(nuls[0], nuls[1]) > 0) {
    return std::nullopt;
  }
  return nuls[1] > 0 ? TextEncoding::Utf16LittleEndianBare : TextEncoding::Utf16BigEndianBare;
}

TextEncoding detect(QByteArrayView bytes) {
  for (const TextEncoding marked : {TextEncoding::Utf8WithMark, TextEncoding::Utf16LittleEndian,
                                    TextEncoding::Utf16BigEndian}) {
    if (bytes.startsWith(markOf(marked))) {
      return marked;
    }
  }
  if (const std::optional<TextEncoding> bare = bareUtf16(bytes)) {
    return *bare;
  }
  return QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8() ? TextEncoding::Utf8
                                                                   : TextEncoding::Windows1252;
}

QStringConverter::Encoding converterFor(TextEncoding utf16) {
  const bool isLittle =
      utf16 == TextEncoding::Utf16LittleEndian || utf16 == TextEncoding::Utf16LittleEndianBare;
  return isLittle ? QStringConverter::Utf16LE : QStringConverter::Utf16BE;
}

QByteArray utf16ToUtf8(const QByteArray& bytes, TextEncoding encoding) {
  QStringDecoder decoder(converterFor(encoding), QStringConverter::Flag::ConvertInitialBom);
  const QString text = decoder(bytes);
  if (decoder.hasError() || bytes.size() % 2 != 0 || !text.isValidUtf16()) {
    throw FileError(
        TextFile::tr("The file is not valid UTF-16, perhaps because its end is missing. Save it "
                     "again in the program that made it."));
  }
  return text.toUtf8();
}

QByteArray toUtf8(QByteArray bytes, TextEncoding encoding) {
  const QByteArrayView mark = markOf(encoding);
  bytes.remove(0, bytes.startsWith(mark) ? mark.size() : 0);
  if (isUtf16(encoding)) {
    return utf16ToUtf8(bytes, encoding);
  }
  if (isOfSingleBytes(encoding)) {
    return singleBytesToUtf8(bytes, encoding);
  }
  if (!QUtf8StringView(bytes.constData(), bytes.size()).isValidUtf8()) {
    throw FileError(TextFile::tr("The file is not valid UTF-8."));
  }
  return bytes;
}

// `encoding` becomes the one that was used.
QByteArray fromUtf8(const QByteArray& utf8, TextEncoding& encoding) {
  if (isOfSingleBytes(encoding)) {
    if (std::optional<QByteArray> bytes = utf8ToSingleBytes(utf8, encoding)) {
      return *std::move(bytes);
    }
    encoding = TextEncoding::Utf8WithMark;
  }
  if (isUtf16(encoding)) {
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
    throw FileError(
        TextFile::tr("Line %1 holds a NUL byte, so this is not a text file.").arg(line));
  }
}

}  // namespace

bool isUtf16(TextEncoding encoding) {
  return encoding == TextEncoding::Utf16LittleEndian || encoding == TextEncoding::Utf16BigEndian ||
         encoding == TextEncoding::Utf16LittleEndianBare ||
         encoding == TextEncoding::Utf16BigEndianBare;
}

TextFile TextFile::read(const QString& path) {
  ReplacementFile::removeLeftovers(path);
  const QFileInfo info(path);
  if (info.exists() && !info.isFile()) {
    throw FileError(tr("This is a folder or a device, not a file."));
  }
  if (info.size() > kLargest) {
    throw FileError(tr("The file is larger than 512 MiB. Split it into smaller ones."));
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
  return of(bytes, detect(bytes));
}

TextFile TextFile::of(const QByteArray& bytes, TextEncoding encoding) {
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
    notes.append(tr("The file is UTF-8 now: %1, which it was before, has no code for one of its "
                    "characters.")
                     .arg(encoding == TextEncoding::MacRoman ? QStringLiteral("Mac Roman")
                                                             : QStringLiteral("Windows-1252")));
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
  if (const std::optional<TextEncoding> bare = bareUtf16(bytes.first(bytes.size() / 2 * 2))) {
    const QString text = QStringDecoder(converterFor(*bare))(bytes);
    return text.toUtf8();
  }
  return bytes.startsWith(kUtf8Mark) ? bytes.sliced(kUtf8Mark.size()) : bytes;
}

QByteArray windows1252ToUtf8(const QByteArray& bytes) {
  return singleBytesToUtf8(bytes, TextEncoding::Windows1252);
}

}  // namespace postwright::tables
