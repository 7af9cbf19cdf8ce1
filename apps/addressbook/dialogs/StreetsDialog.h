#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_STREETSDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_STREETSDIALOG_H_

#include <QDialog>

#include "apps/addressbook/fix/StreetFetch.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace postwright::addressbook {

// Asks of which state or county streets are wanted, and fetches them. Stays beside the window,
// which can be worked in meanwhile.
class StreetsDialog : public QDialog {
  Q_OBJECT

 public:
  explicit StreetsDialog(QWidget* parent = nullptr);

  // Escape and the button that closes stop a fetch first, and then close.
  void reject() override;

 signals:
  // A base of the place, "Texas" or "Travis, Texas", is where the program finds it.
  void fetched(const QString& place);

 private:
  QWidget* buildFields();
  QString placeText() const;
  void start();
  void tell(const StreetFetch::Progress& progress);
  void end(StreetFetch::End end, const QString& why);
  void refresh();

  StreetFetch _fetch;
  QComboBox* _state = nullptr;
  QLineEdit* _county = nullptr;
  QLineEdit* _server = nullptr;
  QWidget* _fields;  // which hold these
  QProgressBar* _bar;
  QLabel* _progress;  // how far it is, or how it ended
  QLabel* _words;     // what the command said last
  QPushButton* _start;
  QPushButton* _stop;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_STREETSDIALOG_H_
