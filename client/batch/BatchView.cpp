#include "client/batch/BatchView.h"

#include <QItemSelectionModel>
#include <QScreen>
#include <QStyledItemDelegate>

#include "client/LocalizedString.h"
#include "client/batch/AddressDelegate.h"
#include "client/batch/RowHeights.h"
#include "client/batch/StatusIcons.h"
#include "client/batch/review/BatchTexts.h"
#include "ui_Postwright.h"

namespace postwright {
namespace {

constexpr int kDetailHeight = 230;
constexpr int kAboveDetail = 6;
constexpr int kIconSize = 16;
constexpr AddressStatus kStatuses[] = {AddressStatusUnchanged, AddressStatusFixed,
                                       AddressStatusMultiple, AddressStatusError};

// Keeps room for an image where a status has none, so that the words stand below one another.
class StatusDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = QSize(kIconSize, kIconSize);
  }
};

// How the user left the last window of this process.
struct Memory {
  QSize size{920, 680};
  QByteArray split;
};

Memory& memory() {
  static Memory memory;
  return memory;
}

void fitToScreen(QDialog& window) {
  window.resize(memory().size.boundedTo(window.screen()->availableSize()));
}

// Of the widest status, so that the column need not be measured anew as results come in.
int statusWidth(const QTableView& table) {
  constexpr int kIconAndMargins = 48;
  int width = 0;
  for (const char* key : {"SStatusUnchanged", "SStatusFixed", "SStatusMultiple", "SStatusError",
                          "SStatusNotChecked"}) {
    width = std::max(width, table.fontMetrics().horizontalAdvance(localizedString(key)));
  }
  return width + kIconAndMargins;
}

}  // namespace

BatchView::BatchView(QDialog& window)
    : _window(window), _layout(std::make_unique<Ui::Postwright>()) {
  _layout->setupUi(&window);
  _detail = std::make_unique<DetailView>(*_layout);
  for (const AddressStatus status : kStatuses) {
    _layout->scFilter->addSegment(statusIcon(status));
  }
  _layout->vwBanner->hide();
  _layout->vwContent->setContentsMargins(0, kAboveDetail, 0, 0);
  layTablesOut();
  _detail->showNothing();
  fitToScreen(window);
}

BatchView::~BatchView() {
  memory() = {_window.size(), _layout->spContent->saveState()};
  _layout->tvAddresses->setModel(nullptr);  // the widgets go with the window, later
  _layout->tvMatches->setModel(nullptr);
}

void BatchView::layTablesOut() {
  QTableView* table = _layout->tvAddresses;
  table->setModel(&_addresses);
  table->setFont(tableFont());
  auto* delegate = new AddressDelegate(table);
  table->setItemDelegateForColumn(BatchTableModel::AddressColumn, delegate);
  table->setItemDelegateForColumn(BatchTableModel::FixedColumn, delegate);
  QHeaderView* columns = table->horizontalHeader();
  columns->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  columns->setStretchLastSection(false);
  columns->setSectionResizeMode(QHeaderView::Stretch);
  columns->setSectionResizeMode(BatchTableModel::StatusColumn, QHeaderView::Fixed);
  columns->resizeSection(BatchTableModel::StatusColumn, statusWidth(*table));
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table->setItemDelegateForColumn(BatchTableModel::StatusColumn, new StatusDelegate(table));
  _layout->spContent->setStretchFactor(0, 1);
  _layout->spContent->setStretchFactor(1, 0);
  if (!_layout->spContent->restoreState(memory().split)) {
    _layout->spContent->setSizes({2 * kDetailHeight, kDetailHeight});
  }
}

StatusFilter BatchView::filter() const {
  StatusFilter filter{};
  for (const AddressStatus status : kStatuses) {
    filter[status] = _layout->scFilter->isSelected(status);
  }
  return filter;
}

void BatchView::selectAllSegments() {
  for (const AddressStatus status : kStatuses) {
    _layout->scFilter->setSelected(status, true);
  }
}

void BatchView::showRecords(const BatchResultRecordList& records) {
  _layout->tvAddresses->clearSelection();
  _addresses.setRecords(records);
  fitRows();
}

// The header measures nothing and repaints nothing while the heights are set.
void BatchView::fitRows() {
  QHeaderView* rows = _layout->tvAddresses->verticalHeader();
  RowHeights heights(_layout->tvAddresses->font());
  rows->setDefaultSectionSize(heights.heightFor({}));
  rows->setUpdatesEnabled(false);
  rows->blockSignals(true);
  for (int row = 0; row < _addresses.rowCount(); ++row) {
    rows->resizeSection(row, heights.heightFor(_addresses.records().at(row)->values().address));
  }
  rows->blockSignals(false);
  rows->setUpdatesEnabled(true);
}

void BatchView::removeRow(int row) {
  {
    // Removing a selected row moves the selection by itself, and would show a detail on the way.
    const QSignalBlocker silence(_layout->tvAddresses->selectionModel());
    _addresses.removeRow(row);
    _layout->tvAddresses->clearSelection();
  }
  const int last = _addresses.rowCount() - 1;
  if (last >= 0) {
    selectRow(std::min(row, last));
  } else {
    _layout->vwContent->setEnabled(false);  // stays as it was, of no use
  }
}

int BatchView::selectedRow() const {
  const QModelIndexList rows = _layout->tvAddresses->selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

void BatchView::selectRow(int row) {
  _layout->tvAddresses->selectRow(row);
  _layout->tvAddresses->scrollTo(_addresses.index(row, 0));
}

void BatchView::showNumbers(const ReviewCounts& counts, const std::optional<QString>& progress) {
  for (const AddressStatus status : kStatuses) {
    _layout->scFilter->setText(status, segmentText(status, counts.ofStatus(status)));
  }
  _layout->bnUpdate->setText(applyText(counts));
  _layout->txtProgress->setText(progress.value_or(summaryText(counts)));
  const QString banner = bannerText(counts);
  _layout->txtBanner->setText(banner);
  _layout->vwBanner->setVisible(!banner.isEmpty());
}

void BatchView::showListOrReason(qsizetype total) {
  const bool empty = _addresses.rowCount() == 0;
  _layout->txtEmpty->setText(emptyText(total));
  _layout->bnShowAll->setVisible(total > 0);
  _layout->vwList->setCurrentWidget(empty ? static_cast<QWidget*>(_layout->vwEmpty)
                                          : _layout->vwTable);
}

}  // namespace postwright
