#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_SCROLLINGFORM_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_SCROLLINGFORM_H_

#include <QScrollArea>

class QDialog;

namespace postwright::addressbook {

// Holds the fields of a dialog: as large as they are where the screen is, scrolling where it is
// not, so that the buttons below stay in reach on a small screen or in large type.
class ScrollingForm : public QScrollArea {
 public:
  // `content` is owned from now on.
  explicit ScrollingForm(QWidget* content, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

// Gives a dialog that is not shown yet the size `wanted`, or what of it its screen has room for.
void resizeToScreen(QDialog& dialog, const QSize& wanted);

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_SCROLLINGFORM_H_
