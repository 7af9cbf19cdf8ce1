#include "apps/addressbook/widgets/Question.h"

#include <QPushButton>

namespace postwright::addressbook {

Question::Question(QWidget* window, const QString& title, const QString& explanation)
    : _box(window) {
  _box.setText(title);
  _box.setInformativeText(explanation);
  _box.setTextFormat(Qt::PlainText);
}

QAbstractButton* Question::addStep(const QString& text) {
  QPushButton* const step = _box.addButton(text, QMessageBox::ActionRole);
  if (_box.defaultButton() == nullptr) {
    _box.setDefaultButton(step);
  }
  return step;
}

void Question::addWayOut(const QString& text) {
  _box.setEscapeButton(_box.addButton(text, QMessageBox::RejectRole));
}

QAbstractButton* Question::ask() {
  _box.exec();
  return _box.clickedButton();
}

}  // namespace postwright::addressbook
