#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_MERGEFILE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_MERGEFILE_H_

#include <QByteArray>
#include <QCoreApplication>
#include <QList>

namespace postwright::addressbook {

class Book;

// What a word processor makes letters of: a CSV file with the lines of the name, street, unit,
// city, state and ZIP code of each entry in columns of their own, how far it is confirmed, and why
// it was turned down. UTF-8 with a mark, by which word processors know it; no cell is run as a
// formula.
class MergeFile {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::MergeFile)

 public:
  // The entries in the order of `rows`.
  static QByteArray write(const Book& book, const QList<int>& rows);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_MERGEFILE_H_
