#include "apps/addressbook/formats/vcard/VCardFile.h"

#include <algorithm>
#include <optional>

#include "apps/addressbook/book/BookFormat.h"
#include "apps/addressbook/formats/vcard/CardEditor.h"
#include "apps/tables/FileError.h"

namespace postwright::addressbook {

namespace {

const QByteArray kBegin = "BEGIN:VCARD";

}  // namespace

QString VCardFile::kindText(const QString& type) {
  return type == u"HOME" ? tr("Home") : type == u"WORK" ? tr("Work") : QString();
}

const BookFormat& VCardFile::bookFormat() {
  static const BookFormat format = {
      [] { return tr("vCard file"); },
      {QStringLiteral("vcf"), QStringLiteral("vcard")},
      {QStringLiteral("text/vcard"), QStringLiteral("text/x-vcard")},
      [](const FileHead& head) {
        return head.utf8.first(std::min(head.utf8.size(), kBegin.size())).toUpper() == kBegin;
      },
      [](const QString& path) -> std::unique_ptr<BookFile> {
        return std::make_unique<VCardFile>(tables::TextFile::read(path));
      },
      [](const QString&) -> std::unique_ptr<BookFile> { return std::make_unique<VCardFile>(); }};
  return format;
}

VCardFile::VCardFile(tables::TextFile text) : _text(std::move(text)) {
  _cards = CardScanner::scan(_text.utf8);
  if (_cards.isEmpty() && !_text.utf8.trimmed().isEmpty()) {
    throw tables::FileError(tr("The file holds no vCard: no line reads BEGIN:VCARD."));
  }
  if (!_cards.isEmpty()) {
    _newCards = _cards.first().version;
    _lineBreak = _text.utf8.contains("\r\n") ? "\r\n" : "\n";
  }
  for (int card = 0; card < _cards.size(); ++card) {
    const CardContent content(_text.utf8, _cards[card]);
    for (const AddressLines& lines : content.addresses()) {
      _addresses.append(
          {card, lines, content.label(lines), kindText(content.kind(lines)), content.lastName()});
    }
  }
}

QList<Entry> VCardFile::entries() const {
  QList<Entry> entries;
  entries.reserve(_addresses.size());
  for (const Address& address : _addresses) {
    entries.append({entries.size() + 1, address.label, {}, address.kind, address.lastName});
  }
  return entries;
}

QStringList VCardFile::write(const QString& path, const QList<Entry>& entries) {
  QList<const QString*> labels(_addresses.size(), nullptr);  // null: removed
  QByteArray added;
  for (const Entry& entry : entries) {
    if (entry.id <= _addresses.size()) {
      labels[entry.id - 1] = &entry.label;
    } else {
      added += CardEditor::newCard(entry.label, _newCards, _lineBreak);
    }
  }
  QByteArray text;
  text.reserve(_text.utf8.size() + added.size());
  qsizetype copied = 0;
  auto address = _addresses.cbegin();
  for (int card = 0; card < _cards.size(); ++card) {
    text += tables::TextRange{copied, _cards[card].range.begin}.of(_text.utf8);
    text += cardText(card, address, labels);
    copied = _cards[card].range.end;
  }
  text += _text.utf8.sliced(copied);
  if (!text.isEmpty() && !text.endsWith('\n') && !added.isEmpty()) {
    text += _lineBreak;
  }
  return tables::TextFile{text + added, _text.encoding}.write(path);
}

// Returns the card as it is to be written; empty where all of its entries were removed. `address`
// is moved after the card's addresses.
QByteArray VCardFile::cardText(int card, QList<Address>::const_iterator& address,
                               const QList<const QString*>& labels) const {
  std::optional<CardEditor> editor;  // made for a card that changes: it reads the card once more
  bool isEmpty = true;
  for (; address != _addresses.cend() && address->card == card; ++address) {
    const QString* const label = labels[address - _addresses.cbegin()];
    isEmpty = isEmpty && label == nullptr;
    if (label != nullptr && *label == address->label) {
      continue;
    }
    if (!editor) {
      editor.emplace(_text.utf8, _cards[card], _lineBreak);
    }
    if (label == nullptr) {
      editor->remove(address->lines);
    } else {
      editor->setLabel(address->lines, *label);
    }
  }
  if (isEmpty) {
    return {};
  }
  return editor ? editor->result() : _cards[card].range.of(_text.utf8);
}

}  // namespace postwright::addressbook
