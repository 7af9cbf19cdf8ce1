// Bytes of a vCard file. What is not changed is written byte for byte as it was; a card whose label
// was changed is still one card with the same number of addresses, and shows that label.

#include <QStringList>

#include "apps/addressbook/formats/vcard/CardEditor.h"
#include "apps/tables/FileError.h"
#include "apps/tables/LabelText.h"
#include "apps/tables/TextFile.h"
#include "fuzz/InputText.h"
#include "fuzz/Require.h"

namespace {

using namespace postwright;
using namespace postwright::addressbook;
using fuzz::Require;

// Shows the label of the first address of the only card in `text`.
QString FirstLabel(const QByteArray& text, qsizetype addresses) {
  const QList<Card> cards = CardScanner::scan(text);
  Require(cards.size() == 1, "an edited card is one card");
  const CardContent content(text, cards.first());
  Require(content.addresses().size() == addresses, "it has as many addresses as before");
  return content.label(content.addresses().first());
}

void CheckCard(const QByteArray& text, const Card& card) {
  const QByteArray lineBreak = text.contains("\r\n") ? "\r\n" : "\n";
  const CardContent content(text, card);
  for (const AddressLines& lines : content.addresses()) {
    content.label(lines);
    content.kind(lines);
  }
  Require(CardEditor(text, card, lineBreak).result() == card.range.of(text),
          "a card that is not changed stays as it is");
  const QString label = QStringLiteral("Ann Other\n1 Elm St; Rear, 2\nReno, NV 89501");
  CardEditor editor(text, card, lineBreak);
  editor.setLabel(content.addresses().first(), label);
  const QString shown = FirstLabel(editor.result(), content.addresses().size());
  Require(tables::lettersOf(shown).contains(tables::lettersOf(QStringLiteral("1 Elm St; Rear, 2"))),
          "an edited card shows the new street");
  Require(shown.contains(QStringLiteral("Reno, NV 89501")), "and the new place");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::TextOf(data, size);
  try {
    const QByteArray text =
        tables::TextFile::of(QByteArray(input.data(), static_cast<qsizetype>(size))).utf8;
    qsizetype end = 0;
    for (const Card& card : CardScanner::scan(text)) {
      Require(card.range.begin >= end && card.range.end > card.range.begin &&
                  card.range.end <= text.size(),
              "cards follow one another");
      end = card.range.end;
      CheckCard(text, card);
    }
  } catch (const tables::FileError& error) {
    Require(!error.message().isEmpty(), "a file that is refused is told why");
  }
  return 0;
}
