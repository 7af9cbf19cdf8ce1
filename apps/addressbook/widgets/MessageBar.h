#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_MESSAGEBAR_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_MESSAGEBAR_H_

#include <QFrame>
#include <functional>

class QLabel;
class QPushButton;

namespace postwright::addressbook {

// A line above the table that tells what has happened, with one thing to do about it, and stays
// until it is closed or something else has happened. Hidden while there is nothing to tell.
class MessageBar : public QFrame {
  Q_OBJECT

 public:
  explicit MessageBar(QWidget* parent = nullptr);

  void tell(const QString& text);
  void tell(const QString& text, const QString& step, std::function<void()> take);

 private:
  QLabel* _text;
  QPushButton* _step;
  std::function<void()> _take;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_MESSAGEBAR_H_
