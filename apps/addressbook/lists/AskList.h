#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_ASKLIST_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_ASKLIST_H_

#include <QCoreApplication>
#include <QList>
#include <QString>

namespace postwright::addressbook {

class Book;

// The entries whose address was turned down, or must be decided on, as a list to ask people about:
// each with the reason and room for the right address.
class AskList {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::AskList)

 public:
  // Those of `rows` that belong on it, in their order. An entry without an answer does
  // not: nothing is known against it.
  static QList<int> of(const Book& book, const QList<int>& rows);

  // The list as pages to print, in HTML.
  static QString page(const Book& book, const QList<int>& rows);

  // The same as plain text, for a mail.
  static QString text(const Book& book, const QList<int>& rows);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_LISTS_ASKLIST_H_
