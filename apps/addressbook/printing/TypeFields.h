#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_TYPEFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_TYPEFIELDS_H_

#include <QWidget>

#include "apps/addressbook/settings/PrintSettings.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFontComboBox;
class QFormLayout;

namespace postwright::addressbook {

// How labels are lettered and where they land on the paper: a part of the dialog that prints.
class TypeFields : public QWidget {
  Q_OBJECT

 public:
  explicit TypeFields(const PrintSettings& settings, QWidget* parent = nullptr);

  // Writes what the fields say into `settings`.
  void read(PrintSettings& settings) const;
  bool hasOutlines() const;

 signals:
  void changed();

 private:
  void addLook(QFormLayout& form, const PrintSettings& settings);
  QDoubleSpinBox* addShift(QFormLayout& form, const char* name, const QString& caption,
                           double value);

  QFontComboBox* _family;
  QDoubleSpinBox* _points;
  QCheckBox* _alike = nullptr;
  QComboBox* _case = nullptr;
  QComboBox* _punctuation = nullptr;
  QDoubleSpinBox* _right;
  QDoubleSpinBox* _down;
  QCheckBox* _outlines;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_TYPEFIELDS_H_
