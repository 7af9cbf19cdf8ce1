#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDEDITOR_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDEDITOR_H_

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include "apps/addressbook/formats/vcard/CardContent.h"

namespace postwright::addressbook {

// Changes the addresses of one card; every line that has nothing to do with a change stays byte for
// byte as it was.
//
//   CardEditor editor(text, card, "\r\n");
//   editor.setLabel(lines, "Jane Doe\n12 MAIN ST\nAUSTIN, TX 78701");
//   output += editor.result();
class CardEditor {
 public:
  // `text`, which holds `card`, and `card` are borrowed for the life of the editor.
  CardEditor(const QByteArray& text, const Card& card, QByteArray lineBreak);

  // Keeps the label in the components of the address, each line in the one that it came from, and
  // its whole text beside them where the card has that or the components cannot say it.
  // A name or organization that the label shows and that was edited, not just put in another case,
  // is changed in the card too.
  void setLabel(const AddressLines& lines, const QString& label);

  // Takes the address out of the card.
  void remove(const AddressLines& lines);

  QByteArray result() const;

  // Returns a new card for a label.
  static QByteArray newCard(const QString& label, CardVersion version, const QByteArray& lineBreak);

 private:
  void replace(int place, const ContentLine& line);
  QByteArray format(const ContentLine& line) const;
  void takeName(QStringList& above, QStringList& old);
  void takeOrganization(QStringList& above, const QStringList& old);
  void setAddress(const AddressLines& lines, const QString& label, const QString& value);
  bool saysAll(const ContentLine& address, const QString& label) const;
  void setLabelLine(const AddressLines& lines, const ContentLine& address, const QString& label);

  const QByteArray& _text;
  const Card& _card;
  QByteArray _lineBreak;
  CardContent _content;
  QMap<int, QByteArray> _replaced;  // by place in Card::lines
  QByteArray _added;                // before END:VCARD
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_FORMATS_VCARD_CARDEDITOR_H_
