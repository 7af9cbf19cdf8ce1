#ifndef POSTWRIGHT_CLIENT_BATCH_DETAILAREA_H_
#define POSTWRIGHT_CLIENT_BATCH_DETAILAREA_H_

#include <QScrollArea>

namespace Ui {
class Postwright;
}

namespace postwright {

// The lower part of the batch window's splitter. Its pages scroll up and down where they do not
// fit, so that none of them makes the window grow. Sideways they scroll only where a single control
// is wider than the window: rows of buttons and columns give way before.
class DetailArea final : public QScrollArea {
  Q_OBJECT

 public:
  // Takes the pages of `layout` and their place in its splitter.
  explicit DetailArea(Ui::Postwright& layout);
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_DETAILAREA_H_
