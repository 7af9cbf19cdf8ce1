#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_READINGFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_READINGFIELDS_H_

#include <QWidget>

#include "apps/addressbook/book/ColumnedFile.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QSpinBox;

namespace postwright::addressbook {

// How the rows of a file are found: sheet, encoding, delimiter, what is above them. What does
// not apply to a file is not shown.
class ReadingFields : public QWidget {
  Q_OBJECT

 public:
  // `file` is asked what it offers and not kept.
  ReadingFields(const ColumnedFile& file, QWidget* parent);

  // Shows a choice, and says nothing of it.
  void setChoice(const tables::TableChoice& choice);

  // Puts what is shown into a choice. False while the user is about to type a delimiter.
  bool read(tables::TableChoice& choice) const;

 signals:
  void changed();

 private:
  void addField(QGridLayout* layout, const QString& caption, QWidget* field);
  void delimiterChanged();

  QList<tables::TextEncoding> _encodings;
  QComboBox* _sheet = nullptr;
  QComboBox* _encoding = nullptr;
  QComboBox* _delimiter = nullptr;
  QLineEdit* _otherDelimiter = nullptr;
  QSpinBox* _skipped = nullptr;
  QCheckBox* _header = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_DIALOGS_READINGFIELDS_H_
