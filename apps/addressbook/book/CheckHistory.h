#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_CHECKHISTORY_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_CHECKHISTORY_H_

#include <QDate>
#include <QList>
#include <QString>

#include "apps/addressbook/book/Entry.h"

namespace postwright::addressbook {

// Remembers between runs what the service said of which label and when, for the files that have no
// place for it: CSV and vCard. A label is kept as its fingerprint, so that what was said of it is
// found again in a copy of the file, and is lost with an edit; what is older than half a year is
// forgotten. A reason may name a word of the label that it is about.
//
//   CheckHistory history(CheckHistory::usualPath());
//   history.fill(entries);      // after a file was read
//   history.remember(entries);  // after the service was asked
//
// A history that cannot be read or written is not worth stopping for: what is known is then what
// happened in this run, and the program's log says why.
class CheckHistory {
 public:
  // The history of this user. The folder is made where it is not there yet.
  static QString usualPath();

  explicit CheckHistory(QString path) : _path(std::move(path)) {}

  // Gives each entry that knows of no check the one that is remembered for its label.
  void fill(QList<Entry>& entries) const;

  // Remembers what was said of the entries, except where there was no answer.
  void remember(const QList<Entry>& entries, QDate today) const;

 private:
  QString _path;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_BOOK_CHECKHISTORY_H_
