#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_FIXCONTROLLER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_FIXCONTROLLER_H_

#include <QObject>

#include "apps/addressbook/fix/AddressFixer.h"
#include "apps/addressbook/fix/FixPlan.h"

class QWidget;

namespace postwright::addressbook {

class BookDocument;

// Has addresses of the book checked and takes what comes of it: corrected labels as one step that
// can be undone, and what is known of each entry from now on.
class FixController : public QObject {
  Q_OBJECT

 public:
  // All three live longer than this.
  FixController(BookDocument& document, AddressFixer& fixer, QWidget* window);

  // Asks the user which of the entries, with those at `selected` to choose from, and how.
  void fix(const QList<int>& selected);
  // Without a question: the entries at `selected`, those found right lately included, or those that
  // failed before.
  void fixSelected(const QList<int>& selected);
  void fixFailed();

 signals:
  // What came of it; `hasFailures` when there is something to look at.
  void told(const QString& note, bool hasFailures);

 private:
  void run(const QList<int>& rows);

  BookDocument& _document;
  AddressFixer& _fixer;
  QWidget* _window;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_FIXCONTROLLER_H_
