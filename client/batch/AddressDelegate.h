#ifndef POSTWRIGHT_CLIENT_BATCH_ADDRESSDELEGATE_H_
#define POSTWRIGHT_CLIENT_BATCH_ADDRESSDELEGATE_H_

#include <QFont>
#include <QStyledItemDelegate>

namespace postwright {

// Draws the two texts of a row of BatchTableModel with their differences marked. Text that is
// higher than the row ends in an ellipsis; the detail view shows it whole.
class AddressDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_ADDRESSDELEGATE_H_
