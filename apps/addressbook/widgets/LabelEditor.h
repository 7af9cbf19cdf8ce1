#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_LABELEDITOR_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_LABELEDITOR_H_

#include <QPlainTextEdit>

namespace postwright::addressbook {

// A field for the lines of a label. It leaves undoing to the window, where typing is one step among
// the others, and Tab to the keyboard's way around the window.
class LabelEditor : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit LabelEditor(QWidget* parent = nullptr);

  // Replaces the text without typed() being emitted; the cursor stays where it can.
  void showText(const QString& text);

 signals:
  void typed(const QString& text);
  // The user has turned to something else.
  void left();

 protected:
  bool event(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_LABELEDITOR_H_
