#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_QUOTEDPRINTABLE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_QUOTEDPRINTABLE_H_

#include <QByteArray>

namespace postwright::addressbook {

// Decodes quoted-printable (RFC 2045, 6.7), as vCard 2.1 uses it: soft line breaks are taken out,
// what is not a valid code stays as it is.
QByteArray decodeQuotedPrintable(const QByteArray& encoded);

// Encodes everything but printable ASCII, "=" included, as codes, with soft line breaks such that
// no line, the first of which already holds `used` octets, is longer than 76.
QByteArray encodeQuotedPrintable(const QByteArray& bytes, qsizetype used,
                                 const QByteArray& lineBreak);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_QUOTEDPRINTABLE_H_
