#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_STREETSCONTROLLER_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_STREETSCONTROLLER_H_

#include <QObject>
#include <QPointer>

namespace postwright::addressbook {

class AddressFixer;
class MessageBar;
class StreetsDialog;

// Says in a bar where the program answers by itself and knows no streets, and fetches some.
class StreetsController : public QObject {
  Q_OBJECT

 public:
  // All live longer than this.
  StreetsController(const AddressFixer& fixer, MessageBar* bar, QWidget* window);

  // Looks again. Where the user has closed the bar, it stays away until something else is the case.
  void tellMissing();
  // Opens the dialog that fetches streets, or puts it in front.
  void fetch();
  // Closes it, for the window goes; what it was about is stopped.
  void leave();

 signals:
  void told(const QString& note);

 private:
  const AddressFixer& _fixer;
  MessageBar* _bar;
  QWidget* _window;
  QPointer<StreetsDialog> _dialog;
  QString _missing;  // what the bar said last
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WINDOW_STREETSCONTROLLER_H_
