#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SENDERFIELDS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SENDERFIELDS_H_

#include <QImage>
#include <QWidget>

#include "apps/addressbook/settings/PrintSettings.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace postwright::addressbook {

// The return address and the picture beside it: a part of the dialog that prints.
class SenderFields : public QWidget {
  Q_OBJECT

 public:
  explicit SenderFields(const PrintSettings& settings, QWidget* parent = nullptr);

  // Writes what the fields say into `settings`.
  void read(PrintSettings& settings) const;

  // What is printed on each label of `sheet`; empty where nothing is wanted or there is no room.
  Sender sender(const LabelSheet& sheet) const;

  // Says where the sheet has no room for a return address.
  void showRoom(const LabelSheet& sheet);

 signals:
  void changed();

 private:
  void choosePicture();
  void loadPicture();

  QCheckBox* _on;
  QPlainTextEdit* _address;
  QLineEdit* _path;
  QLabel* _problem;
  QLabel* _room;
  QImage _picture;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SENDERFIELDS_H_
