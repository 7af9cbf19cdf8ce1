#ifndef POSTWRIGHT_TESTS_CLIENT_BATCH_ENTRIES_H_
#define POSTWRIGHT_TESTS_CLIENT_BATCH_ENTRIES_H_

#include <postwright/AddressEntry.h>

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <utility>

namespace postwright {

// A host's entry that is just a text.
class Entry final : public AddressEntry {
 public:
  explicit Entry(QString text) : _text(std::move(text)) {}
  QString value() const override { return _text; }
  void setValue(const QString& text) override { _text = text; }

 private:
  QString _text;
};

using Entries = QList<std::shared_ptr<AddressEntry>>;

inline Entries EntriesOf(const QStringList& texts) {
  Entries entries;
  for (const QString& text : texts) {
    entries.append(std::make_shared<Entry>(text));
  }
  return entries;
}

inline QStringList TextsOf(const Entries& entries) {
  QStringList texts;
  for (const std::shared_ptr<AddressEntry>& entry : entries) {
    texts.append(entry->value());
  }
  return texts;
}

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_CLIENT_BATCH_ENTRIES_H_
