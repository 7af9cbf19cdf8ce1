#ifndef POSTWRIGHT_CLIENT_BATCH_STATUSDELEGATE_H_
#define POSTWRIGHT_CLIENT_BATCH_STATUSDELEGATE_H_

#include <QStyledItemDelegate>

class QTableView;

namespace postwright {

// Draws the status of a row. Keeps room for an image where a status has none, so that the words
// stand below one another.
class StatusDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  // Of the widest status in the font of `table`, so that the column need not be measured again as
  // results come in.
  static int width(const QTableView& table);

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_STATUSDELEGATE_H_
