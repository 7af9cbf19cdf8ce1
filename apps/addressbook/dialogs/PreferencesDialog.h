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
  // `usualServer` is the service that is asked where the settings name none.
  PreferencesDialog(const Preferences& preferences, const QString& usualServer,
                    QWidget* parent = nullptr);

  // The settings as the fields have them.
  Preferences preferences() const;

 private:
  QWidget* buildLook();
  QWidget* buildService(const QString& usualServer);
  QWidget* buildWindow();
  void checkServer();

  Preferences _preferences;
  LookFields* _look = nullptr;
  QLineEdit* _spellings = nullptr;
  QLineEdit* _server = nullptr;
  QLabel* _serverProblem = nullptr;
  QComboBox* _appearance = nullptr;
  QPushButton* _accept = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_PREFERENCESDIALOG_H_
