#include "client/batch/StatusDelegate.h"

#include <QTableView>
#include <algorithm>

#include "client/LocalizedString.h"

namespace postwright {

int StatusDelegate::width(const QTableView& table) {
  constexpr int kIconAndMargins = 48;
  int width = 0;
  for (const char* key : {"SStatusUnchanged", "SStatusFixed", "SStatusMultiple", "SStatusError",
                          "SStatusNotChecked", "SStatusOwn", "SStatusDoubtful"}) {
    width = std::max(width, table.fontMetrics().horizontalAdvance(localizedString(key)));
  }
  return width + kIconAndMargins;
}

void StatusDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  constexpr int kIconSize = 16;
  QStyledItemDelegate::initStyleOption(option, index);
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->decorationSize = QSize(kIconSize, kIconSize);
}

}  // namespace postwright
