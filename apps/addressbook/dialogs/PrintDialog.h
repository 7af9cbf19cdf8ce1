#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_PRINTDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_PRINTDIALOG_H_

#include <QDialog>

#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/sheet/SheetJob.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFontComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QSpinBox;
class QToolButton;

namespace postwright::addressbook {

class SheetView;

// The labels that may be printed: all those shown in the table, and those selected there.
struct PrintableLabels {
  QStringList shown;
  QStringList selected;
};

// Prints labels on sheets, or saves them as a PDF, after showing every page as it will be.
class PrintDialog : public QDialog {
  Q_OBJECT

 public:
  PrintDialog(const PrintableLabels& labels, const Preferences& preferences,
              QWidget* parent = nullptr);

  // The settings with what was chosen here.
  Preferences preferences() const;

  // Writes the pages to a PDF file and closes the dialog; shows what goes wrong.
  void savePdfTo(const QString& path);

  // What was done, once the dialog is accepted.
  const QString& note() const { return _note; }

 private:
  QFormLayout* buildFields();
  void addShiftFields(QFormLayout* form);
  QWidget* buildPages();
  QDoubleSpinBox* makeInches(const char* name, double value);
  SheetJob job() const;
  void refresh();
  void print();
  void savePdf();
  void run(const QString& done, const std::function<bool(const SheetJob::Progress&)>& produce);

  PrintableLabels _labels;
  Preferences _preferences;
  QString _note;
  int _page = 0;
  QComboBox* _which = nullptr;
  QComboBox* _sheet = nullptr;
  QSpinBox* _start = nullptr;
  QFontComboBox* _family = nullptr;
  QDoubleSpinBox* _points = nullptr;
  QDoubleSpinBox* _right = nullptr;
  QDoubleSpinBox* _down = nullptr;
  QCheckBox* _outlines = nullptr;
  SheetView* _view = nullptr;
  QLabel* _pageText = nullptr;
  QToolButton* _previous = nullptr;
  QToolButton* _next = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_PRINTDIALOG_H_
