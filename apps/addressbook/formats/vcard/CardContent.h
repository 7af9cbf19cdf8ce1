#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDCONTENT_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDCONTENT_H_

#include <QHash>
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

// "PO Box 12" for a box of which the card has the number alone.
QString boxLine(const QString& box);
// "Austin, TX 78701".
QString placeLine(const QList<QStringList>& components);

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

  // The text of the label: the one that the card holds, with the name where it lacks one; or name,
  // organization and address where the card holds none, or where the address says more: programs
  // of today change the address and leave an old label as it is.
  QString label(const AddressLines& lines) const;

  // The label that name, organization and address make. The organization is not on one for home.
  QString composedLabel(const AddressLines& lines) const;

  // True where the card holds a text of the label.
  bool hasLabel(const AddressLines& lines) const { return !keptLabel(lines).isEmpty(); }

  // "HOME", "WORK" or nothing.
  QString kind(const AddressLines& lines) const;

  // The line at a place of Card::lines; nil for -1 and for a line that cannot be read.
  const std::optional<ContentLine>& line(int place) const;
  // The place of the first line of a property, or -1.
  int placeOf(CardProperty property) const;

  QString name() const;
  // The family names of N.
  QString lastName() const;
  QString organization() const;
  // Unescaped; always kAddressComponents of them.
  QList<QStringList> components(int place) const;
  QStringList addressLines(int place) const;

 private:
  QString keptLabel(const AddressLines& lines) const;
  bool isOutdated(const QString& kept, const AddressLines& lines) const;
  QList<int> placesOf(CardProperty property) const;
  CardVersion _version;
  QList<CardProperty> _properties;
  QHash<CardProperty, int> _first;  // place of the first line of each
  QList<std::optional<ContentLine>> _lines;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDCONTENT_H_
