#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETFIELDS_H_

#include <QWidget>

#include "apps/addressbook/printing/PrintableLabels.h"
#include "apps/addressbook/settings/PrintSettings.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QSpinBox;

namespace postwright::addressbook {

// Which labels are printed, and on which sheet: a part of the dialog that prints.
class SheetFields : public QWidget {
  Q_OBJECT

 public:
  // All labels that the table shows, and those selected there.
  SheetFields(const PrintableLabels& shown, const PrintableLabels& selected,
              const PrintSettings& settings, QWidget* parent = nullptr);

  // Writes what the fields say into `settings`.
  void read(PrintSettings& settings) const;

  const PrintableLabels& labels() const;
  bool includesRefused() const;
  void leaveOutRefused();

  // The place of the first label, from 0.
  int start() const;
  void setStart(int start);
  int copies() const;

 signals:
  // Other labels, or in another order.
  void labelsChanged();
  void changed();

 private:
  void addLabels(QFormLayout& form, const PrintSettings& settings);
  void addSheet(QFormLayout& form, const PrintSettings& settings);
  void fillSheets(const QString& chosen);
  LabelSheet sheet() const;
  void sheetTyped();
  void sheetChosen();
  void measure();
  void showRefused();

  PrintableLabels _shown;
  PrintableLabels _selected;
  QList<LabelSheet> _own;
  QComboBox* _which = nullptr;
  QCheckBox* _refused = nullptr;
  QCheckBox* _byZip = nullptr;
  QComboBox* _sheet = nullptr;
  QSpinBox* _start = nullptr;
  QSpinBox* _copies = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETFIELDS_H_
