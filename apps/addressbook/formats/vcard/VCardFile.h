#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_VCARDFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_VCARDFILE_H_

#include <QStringList>

#include "apps/addressbook/book/BookFile.h"
#include "apps/addressbook/formats/vcard/CardContent.h"
#include "apps/tables/TextFile.h"

namespace postwright::addressbook {

// An address book in a vCard file of versions 2.1, 3.0 and 4.0 (RFC 2426, RFC 6350): an address an
// entry, so that a card with two of them has two entries, and a card without one has an entry that
// shows the name alone.
//
// What is not on a label is kept as it is, as are all lines of a card that did not change. A
// removed entry takes its address out of the card, and the card where it was the last one.
class VCardFile final : public BookFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::VCardFile)

 public:
  static const BookFormat& bookFormat();

  // A new file, of version 4.0.
  VCardFile() = default;

  // Reads a file. Throws FileError.
  explicit VCardFile(tables::TextFile text);

  const BookFormat& format() const override { return bookFormat(); }
  QList<Entry> entries() const override;
  QStringList write(const QString& path, const QList<Entry>& entries) override;

 private:
  struct Address {
    int card = 0;
    AddressLines lines;
    QString label;  // as it was read
    QString kind;
    QString lastName;
  };

  static QString kindText(const QString& type);
  QByteArray cardText(int card, QList<Address>::const_iterator& address,
                      const QList<const QString*>& labels) const;

  tables::TextFile _text;
  QByteArray _lineBreak = "\r\n";
  CardVersion _newCards = CardVersion::V40;
  QList<Card> _cards;
  QList<Address> _addresses;  // in the order of their cards
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_VCARDFILE_H_
