#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_BARCODEFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_BARCODEFIELDS_H_

#include <QWidget>

#include "apps/addressbook/settings/PrintSettings.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace postwright::addressbook {

// The Intelligent Mail barcode: a part of the dialog that prints.
class BarcodeFields : public QWidget {
  Q_OBJECT

 public:
  explicit BarcodeFields(const PrintSettings& settings, QWidget* parent = nullptr);

  // Writes what the fields say into `settings`.
  void read(PrintSettings& settings) const;

  // What the barcodes on labels of `sheet` say; absent where none are wanted or none can be
  // printed.
  std::optional<MailCode> mail(const LabelSheet& sheet) const;

  // The labels that are to be printed.
  void setLabels(const QStringList& labels);

  // Says what is missing for barcodes on `sheet`, or how many of the labels get one.
  void explain(const LabelSheet& sheet);

 signals:
  void changed();

 private:
  QLineEdit* makeDigits(const char* name, const QString& text, int most);

  QStringList _labels;
  std::optional<qsizetype> _withZip4;  // how many of them have one, once they were counted
  QCheckBox* _on;
  QLineEdit* _mailer;
  QLineEdit* _service;
  QLineEdit* _serial;
  QLabel* _note;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_BARCODEFIELDS_H_
