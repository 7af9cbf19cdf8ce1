#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETDIALOG_H_

#include <QDialog>
#include <QList>

#include "apps/addressbook/sheet/LabelSheet.h"

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace postwright::addressbook {

class SheetView;

// Asks for the measures of a sheet that is not among those known, shows it and says what is wrong
// with it; also changes and removes one that was entered before.
class SheetDialog : public QDialog {
  Q_OBJECT

 public:
  // Begins with the measures of `sheet`, which may be one of `own`.
  SheetDialog(const LabelSheet& sheet, const QList<LabelSheet>& own, QWidget* parent = nullptr);

  // Once the dialog is accepted: the user's own sheets, and the name of the one to print on.
  const QList<LabelSheet>& sheets() const { return _own; }
  const QString& chosen() const { return _chosen; }

 private:
  QWidget* buildFields();
  QDoubleSpinBox* addMeasure(QFormLayout& form, const char* name, const QString& caption);
  void showMeasures(const LabelSheet& sheet);
  void changePaper();
  LabelSheet entered() const;
  QString problem() const;
  void refresh();
  void keep();
  void removeSheet();

  LabelSheet _sheet;
  QList<LabelSheet> _own;
  QString _chosen;
  bool _isOwn;
  QLineEdit* _name = nullptr;
  QComboBox* _paper = nullptr;
  QSpinBox* _columns = nullptr;
  QSpinBox* _rows = nullptr;
  QDoubleSpinBox* _width = nullptr;
  QDoubleSpinBox* _height = nullptr;
  QDoubleSpinBox* _left = nullptr;
  QDoubleSpinBox* _top = nullptr;
  QDoubleSpinBox* _across = nullptr;
  QDoubleSpinBox* _down = nullptr;
  QLabel* _problem = nullptr;
  SheetView* _view = nullptr;
  QPushButton* _keep = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETDIALOG_H_
