#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_LABELPREVIEW_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_LABELPREVIEW_H_

#include <QWidget>

#include "apps/addressbook/sheet/LabelFace.h"

namespace postwright::addressbook {

// Shows a label as it will be printed, on paper in the proportions of the sheet's labels.
class LabelPreview : public QWidget {
  Q_OBJECT

 public:
  explicit LabelPreview(QWidget* parent = nullptr);

  void setSheet(const LabelSheet& sheet, const LabelStyle& style);
  void setLabel(const QString& label);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  LabelSheet _sheet = LabelSheet::all().first();
  LabelStyle _style;
  QString _label;
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_WIDGETS_LABELPREVIEW_H_
