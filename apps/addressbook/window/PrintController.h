#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_PRINTCONTROLLER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_PRINTCONTROLLER_H_

#include <QList>
#include <QObject>

class QWidget;

namespace postwright::addressbook {

class Book;

// Prints entries: their labels, or the list of those to ask people about.
class PrintController : public QObject {
  Q_OBJECT

 public:
  // Both live longer than this.
  PrintController(const Book& book, QWidget* window);

  // Asks on which sheet; `shown` and `selected` are to choose from.
  void printLabels(const QList<int>& shown, const QList<int>& selected);

  // Shows those of `shown` that were turned down.
  void listToAsk(const QList<int>& shown);

 signals:
  // What was printed.
  void told(const QString& note);
  void preferencesChanged();

 private:
  const Book& _book;
  QWidget* _window;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_PRINTCONTROLLER_H_
