#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRINTDIALOG_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRINTDIALOG_H_

#include <QDialog>
#include <functional>
#include <optional>

#include "apps/addressbook/printing/PrintableLabels.h"
#include "apps/addressbook/settings/Preferences.h"
#include "apps/addressbook/sheet/SheetJob.h"

class QLabel;
class QPushButton;
class QToolButton;

namespace postwright::addressbook {

class BarcodeFields;
class SenderFields;
class SheetFields;
class SheetView;
class TypeFields;

// Prints labels on sheets and envelopes, or saves them as a PDF, after showing every page as it
// will be. Labels whose address was refused are printed only where the user asks for it and says so
// again; those that do not fit are named before anything is printed.
class PrintDialog : public QDialog {
  Q_OBJECT

 public:
  // The labels that may be printed: all those shown in the table, and those selected there.
  PrintDialog(const PrintableLabels& shown, const PrintableLabels& selected,
              const Preferences& preferences, QWidget* parent = nullptr);

  // The settings with what was chosen here.
  Preferences preferences() const;

  // Writes the pages to a PDF file and closes the dialog; shows what goes wrong.
  void savePdfTo(const QString& path);

  // What was done, once the dialog is accepted.
  const QString& note() const { return _note; }

 private:
  QWidget* buildFields(const PrintableLabels& shown, const PrintableLabels& selected);
  QWidget* buildPages();
  QWidget* buildButtons();
  QToolButton* makeStep(Qt::ArrowType arrow, const QString& name, int pages);
  void connectFields();
  SheetJob job() const;
  void takeLabels();
  void refresh();
  QString summary() const;
  void print();
  void savePdf();
  void showPresort();
  bool mayPrintRefused();
  std::optional<SheetJob> readyJob();
  bool mayLeaveOut(const SheetJob& job, const QList<int>& misfits);
  void run(const SheetJob& job, const QString& done,
           const std::function<bool(const SheetJob::Progress&)>& produce);

  Preferences _preferences;
  QStringList _labels;  // to be printed, in their order
  QString _note;
  quint64 _printed = 0;  // pieces with a serial number
  int _page = 0;
  SheetFields* _fields = nullptr;
  TypeFields* _type = nullptr;
  SenderFields* _sender = nullptr;
  BarcodeFields* _barcode = nullptr;
  QLabel* _summary = nullptr;
  SheetView* _view = nullptr;
  QLabel* _pageText = nullptr;
  QToolButton* _previous = nullptr;
  QToolButton* _next = nullptr;
  QPushButton* _print = nullptr;
  QPushButton* _save = nullptr;
  QPushButton* _presort = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_PRINTDIALOG_H_
