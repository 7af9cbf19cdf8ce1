#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_PREFERENCESDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_PREFERENCESDIALOG_H_

#include <QDialog>

#include "apps/addressbook/settings/Preferences.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace postwright::addressbook {

class LookFields;

// The settings that are not asked for where they are used.
class PreferencesDialog : public QDialog {
  Q_OBJECT

 public:
  // `fixer` lives longer than the dialog, which says who answers with it.
  PreferencesDialog(const Preferences& preferences, const AddressFixer& fixer,
                    QWidget* parent = nullptr);

  // The settings as the fields have them.
  Preferences preferences() const;

 private:
  QWidget* buildLook();
  QWidget* buildService();
  QWidget* buildWindow();
  void checkServer();

  Preferences _preferences;
  const AddressFixer& _fixer;
  LookFields* _look = nullptr;
  QLineEdit* _spellings = nullptr;
  QLineEdit* _server = nullptr;
  QLabel* _serverNote = nullptr;  // who answers, or what is wrong with the host
  QComboBox* _appearance = nullptr;
  QPushButton* _accept = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_PREFERENCESDIALOG_H_
