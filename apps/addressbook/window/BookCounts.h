#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_BOOKCOUNTS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_BOOKCOUNTS_H_

#include <QObject>

class QLabel;
class QStatusBar;

namespace postwright::addressbook {

class Book;

// How many entries there are, and how they stand with the service, in the status bar.
class BookCounts : public QObject {
  Q_OBJECT

 public:
  explicit BookCounts(QStatusBar* bar);

  // `shown` and `selected` of the entries of `book` are.
  void show(const Book& book, int shown, int selected);

 private:
  QLabel* _counts;
  QLabel* _states;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_BOOKCOUNTS_H_
