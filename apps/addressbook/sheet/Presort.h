#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_PRESORT_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_PRESORT_H_

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

namespace postwright::addressbook {

// Mail in the order in which the Postal Service wants it.
class Presort {
  Q_DECLARE_TR_FUNCTIONS(postwright::addressbook::Presort)

 public:
  // The pieces of one three-digit prefix of ZIP codes; those without a ZIP code have none.
  struct Count {
    QString prefix;
    int pieces;
    bool operator==(const Count&) const = default;
  };

  // The places of the labels by ZIP code, ZIP+4 included, those without one last; labels of the
  // same code stay in their order.
  static QList<int> order(const QStringList& labels);

  // How many pieces each prefix has, in order, each label being printed `copies` times.
  static QList<Count> count(const QStringList& labels, int copies = 1);

  // The counts as a page to print, in HTML.
  static QString page(const QList<Count>& counts);
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SHEET_PRESORT_H_
