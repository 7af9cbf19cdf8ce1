#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_QUESTION_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_QUESTION_H_

#include <QMessageBox>

namespace postwright::addressbook {

// A question that the user answers with one of a few steps, each named for what it does.
//
//   Question question(window, tr("Save the changes?"), tr("If not, they are lost."));
//   QAbstractButton* const save = question.addStep(tr("&Save"));
//   question.addWayOut(tr("Cancel"));
//   if (question.ask() == save) ...
class Question {
 public:
  Question(QWidget* window, const QString& title, const QString& explanation);

  // The first step is taken by Return.
  QAbstractButton* addStep(const QString& text);
  // Taken by Escape and by closing the box.
  void addWayOut(const QString& text);

  // Returns the button that was chosen.
  QAbstractButton* ask();

 private:
  QMessageBox _box;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_QUESTION_H_
