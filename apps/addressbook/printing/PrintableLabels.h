#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRINTABLELABELS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRINTABLELABELS_H_

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace postwright::addressbook {

class Book;

// The labels of some entries, sorted by whether mail should go there.
struct PrintableLabels {
  QStringList texts;       // in the order of the list, those that were refused among them
  QList<bool> areRefused;  // for each: the service turned its address down
  QHash<QString, QString> deliveryPoints;  // of the labels of which they are known
  int refused = 0;
  int withoutAddress = 0;  // left out: a name alone is not a label

  // The labels to print.
  QStringList chosen(bool includesRefused) const;
};

PrintableLabels printableLabels(const Book& book, const QList<int>& rows);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRINTABLELABELS_H_
