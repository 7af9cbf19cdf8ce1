#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_LOOKFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_LOOKFIELDS_H_

#include <QWidget>

#include "apps/addressbook/fix/AddressFixer.h"

class QComboBox;
class QFormLayout;
class QLabel;

namespace postwright::addressbook {

// The fields for how corrected labels look, with a label that looks so: a part of two dialogs.
class LookFields final : public QWidget {
  Q_OBJECT

 public:
  explicit LookFields(const FixSettings& settings, QWidget* parent = nullptr);

  // The settings with what the fields say.
  FixSettings settings() const;

  // The user's own spellings, for the preview.
  void setSpellings(const QString& spellings);

 private:
  QComboBox* addBox(QFormLayout& form, const char* name, const QString& caption,
                    const QStringList& choices, int chosen);
  void showLabel();

  FixSettings _settings;
  QComboBox* _case;
  QComboBox* _punctuation;
  QComboBox* _names;
  QLabel* _label;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_LOOKFIELDS_H_
