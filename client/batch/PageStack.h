#ifndef POSTWRIGHT_CLIENT_BATCH_PAGESTACK_H_
#define POSTWRIGHT_CLIENT_BATCH_PAGESTACK_H_

#include <QStackedWidget>

namespace postwright {

// A stack of pages with layouts, one page at least, that takes the room of the page that is shown
// and not that of the largest.
class PageStack final : public QStackedWidget {
  Q_OBJECT

 public:
  explicit PageStack(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 private:
  QSize withMargins(const QSize& page) const;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_PAGESTACK_H_
