#include "client/batch/DetailArea.h"

#include "client/batch/TurningColumns.h"
#include "client/batch/WrappingRow.h"
#include "ui_Postwright.h"

namespace postwright {
namespace {

constexpr int kAboveDetail = 6;
constexpr QSize kLeastDetail(200, 60);
constexpr int kLeastField = 56;

void letFieldsShrink(QWidget& pages) {
  for (QAbstractScrollArea* field : pages.findChildren<QAbstractScrollArea*>()) {
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    field->setMinimumHeight(kLeastField);
    for (QBoxLayout* layout : pages.findChildren<QBoxLayout*>()) {
      layout->setStretchFactor(field, 1);
    }
  }
}

void turnColumns(QBoxLayout& columns) {
  auto* turning = new TurningColumns;
  turning->setSpacing(columns.spacing());
  while (QLayoutItem* column = columns.takeAt(0)) {
    turning->addLayout(column->layout(), 1);
  }
  columns.addLayout(turning);
}

}  // namespace

DetailArea::DetailArea(Ui::Postwright& layout) {
  setObjectName(QStringLiteral("vwDetail"));
  letFieldsShrink(*layout.vwContent);
  for (QBoxLayout* buttons :
       {layout.loUnchangedButtons, layout.loFixedButtons, layout.loMultipleButtons,
        layout.loMatchesButtons, layout.loEditButtons, layout.loEditFixedButtons,
        layout.loSeveralButtons, layout.loErrorButtons}) {
    WrappingRow::wrap(*buttons);
  }
  for (QBoxLayout* columns : {layout.loFixedTexts, layout.loMultiple, layout.loEdit}) {
    turnColumns(*columns);
  }
  layout.loFixed->setStretchFactor(layout.loFixedTexts, 1);
  layout.vwContent->setContentsMargins(0, kAboveDetail, 0, 0);
  const int place = layout.spContent->indexOf(layout.vwContent);
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setMinimumSize(kLeastDetail);
  setWidget(layout.vwContent);
  layout.spContent->insertWidget(place, this);
}

}  // namespace postwright
