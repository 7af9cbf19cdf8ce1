#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_EMPTYPAGE_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_EMPTYPAGE_H_

#include <QWidget>

class QAction;
class QLabel;
class QPushButton;

namespace postwright::addressbook {

// What is shown in place of a table without rows: a sentence that says why, and the step to take.
class EmptyPage : public QWidget {
  Q_OBJECT

 public:
  explicit EmptyPage(QWidget* parent = nullptr);

  // `step` is triggered by the button, which bears its text. Borrowed.
  void explain(const QString& title, const QString& sentence, QAction* step);

 private:
  QLabel* _title;
  QLabel* _sentence;
  QPushButton* _button;
  QAction* _step = nullptr;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_EMPTYPAGE_H_
