#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETVIEW_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETVIEW_H_

#include <QWidget>

#include "apps/addressbook/sheet/SheetJob.h"

namespace postwright::addressbook {

// Shows a page of labels as it will be printed, those that do not fit with a red edge. On the first
// page a click, or the arrow keys, chooses the label to begin with; those before it are shown as
// used up.
class SheetView : public QWidget {
  Q_OBJECT

 public:
  explicit SheetView(QWidget* parent = nullptr);

  void show(const SheetJob& job, int page);

  QSize sizeHint() const override;

 signals:
  void startChosen(int start);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void paintMisfits(QPainter& painter) const;
  double scale() const;
  QPointF corner() const;
  void choose(int start);

  SheetJob _job;
  int _page = 0;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_PRINTING_SHEETVIEW_H_
