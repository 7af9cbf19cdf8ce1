#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDCONTENT_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDCONTENT_H_

#include <QList>
#include <QString>
#include <optional>

#include "apps/addressbook/formats/vcard/CardScanner.h"
#include "apps/addressbook/formats/vcard/ContentLine.h"

namespace postwright::addressbook {

// The lines of a card that hold one address: places in Card::lines, or -1.
struct AddressLines {
  int address = -1;
  int label = -1;  // versions before 4.0 keep the label's text in a line of its own
};

// Places of the components in the value of ADR (RFC 6350, 6.3.1).
enum AddressComponent {
  kPostOfficeBox,
  kExtendedAddress,
  kStreetAddress,
  kLocality,
  kRegion,
  kPostalCode,
  kCountry,
  kAddressComponents
};

// What a card says about its addresses.
//
//   const CardContent content(text, card);
//   for (const AddressLines& lines : content.addresses()) show(content.label(lines));
class CardContent {
 public:
  // `text` holds `card`; neither is kept.
  CardContent(const QByteArray& text, const Card& card);

  // The addresses in the order of the card. A card without one has a single address without lines,
  // to which the user may give some.
  QList<AddressLines> addresses() const;

  // The text of the label: the one that the card holds, else name, organization and address.
  QString label(const AddressLines& lines) const;

  // The line at a place of Card::lines; nil for -1 and for a line that cannot be read.
  const std::optional<ContentLine>& line(int place) const;
  // The place of the first line of a property, or -1.
  int placeOf(CardProperty property) const;

  QString name() const;
  QString organization() const;
  // Unescaped; always kAddressComponents of them.
  QList<QStringList> components(int place) const;

 private:
  int labelFor(int address) const;
  QList<int> placesOf(CardProperty property) const;
  QStringList composeAddress(int place) const;

  CardVersion _version;
  QList<CardProperty> _properties;
  QList<std::optional<ContentLine>> _lines;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDCONTENT_H_
