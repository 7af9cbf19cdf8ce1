#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDSCANNER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDSCANNER_H_

#include <QByteArray>
#include <QCoreApplication>
#include <QList>

#include "apps/addressbook/formats/vcard/ContentLine.h"
#include "apps/tables/TextRange.h"

namespace postwright::addressbook {

// The properties that have to do with an address; all others are kept as they are, unread.
enum class CardProperty : quint8 { Address, Label, FormattedName, Name, Organization };

struct CardLine {
  CardProperty property;
  tables::TextRange range;  // with folds and line break
};

// A vCard in a text: where it stands and where its lines are that matter here.
struct Card {
  tables::TextRange range;  // from BEGIN:VCARD to the line break after END:VCARD
  qsizetype endLine = 0;    // where the line END:VCARD begins
  CardVersion version = CardVersion::V30;
  QList<CardLine> lines;
};

// Finds the vCards in a text without reading what they hold. A card inside a card (AGENT) is part
// of the outer one.
class CardScanner {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::CardScanner)

 public:
  // Throws FileError, naming the line, for a card without an end, and for a property of an address
  // of more than 1 MiB.
  static QList<Card> scan(const QByteArray& utf8);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDSCANNER_H_
