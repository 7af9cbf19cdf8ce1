#include "apps/addressbook/formats/vcard/QuotedPrintable.h"

namespace postwright::addressbook {

namespace {

constexpr qsizetype kLongestLine = 76;
constexpr qsizetype kCodeLength = 3;  // "=0A"

bool isHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

// The length of a soft line break at `offset`, which is that of an equals sign; 0 where none is.
qsizetype softBreakAt(const QByteArray& text, qsizetype offset) {
  qsizetype end = offset + 1;
  while (end < text.size() && (text[end] == ' ' || text[end] == '\t')) {
    ++end;  // blanks that a mail program left there
  }
  if (end == text.size()) {
    return end - offset;
  }
  if (text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n') {
    return end + 2 - offset;
  }
  return text[end] == '\n' || text[end] == '\r' ? end + 1 - offset : 0;
}

}  // namespace

QByteArray decodeQuotedPrintable(const QByteArray& encoded) {
  QByteArray bytes;
  bytes.reserve(encoded.size());
  for (qsizetype offset = 0; offset < encoded.size();) {
    if (encoded[offset] != '=') {
      bytes += encoded[offset++];
      continue;
    }
    if (const qsizetype softBreak = softBreakAt(encoded, offset)) {
      offset += softBreak;
    } else if (offset + 2 < encoded.size() && isHexDigit(encoded[offset + 1]) &&
               isHexDigit(encoded[offset + 2])) {
      bytes += QByteArray::fromHex(encoded.sliced(offset + 1, 2));
      offset += kCodeLength;
    } else {
      bytes += encoded[offset++];
    }
  }
  return bytes;
}

QByteArray encodeQuotedPrintable(const QByteArray& bytes, qsizetype used,
                                 const QByteArray& lineBreak) {
  QByteArray encoded;
  qsizetype length = used;
  for (const char byte : bytes) {
    const bool isPlain = byte >= ' ' && byte <= '~' && byte != '=';
    const QByteArray code =
        isPlain ? QByteArray(1, byte) : '=' + QByteArray(1, byte).toHex().toUpper();
    if (length + code.size() >= kLongestLine) {
      encoded += '=' + lineBreak;
      length = 0;
    }
    encoded += code;
    length += code.size();
  }
  return encoded;
}

}  // namespace postwright::addressbook
