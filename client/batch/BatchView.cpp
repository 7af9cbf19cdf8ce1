#include "client/batch/BatchView.h"

#include <postwright/BatchOptions.h>

#include <QApplication>
#include <QItemSelectionModel>
#include <QScreen>
#include <QScrollBar>

#include "client/LocalizedString.h"
#include "client/batch/AddressDelegate.h"
#include "client/batch/DetailArea.h"
#include "client/batch/RowHeights.h"
#include "client/batch/StatusDelegate.h"
#include "client/batch/StatusIcons.h"
#include "client/batch/WrappingRow.h"
#include "client/batch/review/BatchTexts.h"
#include "ui_Postwright.h"

namespace postwright {
namespace {

constexpr int kDetailHeight = 230;
constexpr int kLeastSearch = 90;
constexpr AddressStatus kStatuses[] = {AddressStatusUnchanged, AddressStatusFixed,
                                       AddressStatusMultiple, AddressStatusError};

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

}  // namespace

BatchView::BatchView(QDialog& window)
    : _window(window), _layout(std::make_unique<Ui::Postwright>()) {
  _layout->setupUi(&window);
  _detail = std::make_unique<DetailView>(*_layout);
  for (const AddressStatus status : kStatuses) {
    _layout->scFilter->addSegment(statusIcon(status));
  }
  _layout->vwBanner->hide();
  layFilterOut();
  layTablesOut();
  layDetailOut();
  WrappingRow::wrap(*_layout->loButtons);
  setOptions({});
  _detail->showNothing();
  fitToScreen(window);
}

BatchView::~BatchView() {
  memory() = {_window.size(), _layout->spContent->saveState()};
  _layout->tvAddresses->setModel(nullptr);  // the widgets go with the window, later
  _layout->tvMatches->setModel(nullptr);
}

// The search goes below the filter where the window is narrow.
void BatchView::layFilterOut() {
  auto* row = new QWidget;
  auto* wrapping = new WrappingRow(row);
  wrapping->setSpacing(_layout->loFilter->spacing());
  for (QWidget* control :
       QList<QWidget*>{_layout->scFilter, _layout->bnDoubtful, _layout->cbReason,
                       _layout->bnHostOrder, _layout->leSearch, _layout->bnMore}) {
    wrapping->addWidget(control);
  }
  _layout->loFilter->addWidget(row);
  _layout->leSearch->setMinimumWidth(kLeastSearch);
}

void BatchView::layTablesOut() {
  QTableView* table = _layout->tvAddresses;
  table->setModel(&_addresses);
  auto* delegate = new AddressDelegate(table);
  table->setItemDelegateForColumn(BatchTableModel::AddressColumn, delegate);
  table->setItemDelegateForColumn(BatchTableModel::FixedColumn, delegate);
  QHeaderView* columns = table->horizontalHeader();
  columns->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  columns->setStretchLastSection(false);
  columns->setSectionResizeMode(QHeaderView::Stretch);
  columns->setSectionResizeMode(BatchTableModel::StatusColumn, QHeaderView::Fixed);
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table->setItemDelegateForColumn(BatchTableModel::StatusColumn, new StatusDelegate(table));
}

void BatchView::layDetailOut() {
  new DetailArea(*_layout);
  _layout->spContent->setStretchFactor(0, 1);
  _layout->spContent->setStretchFactor(1, 0);
  if (!_layout->spContent->restoreState(memory().split)) {
    _layout->spContent->setSizes({2 * kDetailHeight, kDetailHeight});
  }
}

void BatchView::setOptions(const BatchOptions& options) {
  _detail->setOptions(options);
  _findsProblems = options.findsProblems;
  _layout->bnDoubtful->hide();
  _layout->bnHostOrder->hide();
  _layout->cbReason->hide();
  _layout->bnStop->hide();
  _layout->bnGoOn->hide();
  _layout->bnSummary->hide();
  QTableView* table = _layout->tvAddresses;
  table->setSelectionMode(options.selectsSeveral ? QAbstractItemView::ExtendedSelection
                                                 : QAbstractItemView::SingleSelection);
  table->horizontalHeader()->setSectionsClickable(options.findsProblems);
  const QFont font = options.usesHostFont ? QApplication::font() : tableFont();
  _leastLines = options.usesHostFont ? 2 : 1;
  table->setFont(font);
  _detail->setFieldFont(font);
  table->horizontalHeader()->resizeSection(BatchTableModel::StatusColumn,
                                           StatusDelegate::width(*table));
}

RecordQuery BatchView::query() const {
  RecordQuery query;
  for (const AddressStatus status : kStatuses) {
    query.statuses[status] = _layout->scFilter->isSelected(status);
  }
  query.doubtful = _layout->bnDoubtful->isChecked();
  query.reason = _layout->cbReason->currentData().toString();
  query.search = _layout->leSearch->text();
  query.order = _order;
  query.descending = _descending;
  return query;
}

void BatchView::sortBy(int column) {
  constexpr RecordQuery::Order kOrders[] = {RecordQuery::Order::Address, RecordQuery::Order::Fixed,
                                            RecordQuery::Order::Status};
  static_assert(std::size(kOrders) == BatchTableModel::ColumnCount);
  const RecordQuery::Order order = kOrders[column];
  if (order == _order && _descending) {
    sortByHost();
    return;
  }
  _descending = order == _order;
  _order = order;
  QHeaderView* columns = _layout->tvAddresses->horizontalHeader();
  columns->setSortIndicatorShown(true);
  columns->setSortIndicator(column, _descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  _layout->bnHostOrder->show();
}

void BatchView::sortByHost() {
  _order = RecordQuery::Order::Host;
  _descending = false;
  _layout->tvAddresses->horizontalHeader()->setSortIndicatorShown(false);
  _layout->bnHostOrder->hide();
}

void BatchView::selectAllSegments() {
  for (const AddressStatus status : kStatuses) {
    _layout->scFilter->setSelected(status, true);
  }
  const QSignalBlocker silence(_layout->leSearch);
  _layout->leSearch->clear();
  _layout->cbReason->setCurrentIndex(0);
  _layout->bnDoubtful->setChecked(false);
}

void BatchView::showRecords(const BatchResultRecordList& records) {
  _layout->tvAddresses->clearSelection();
  _addresses.setRecords(records);
  fitRows();
}

void BatchView::replaceRecords(const BatchResultRecordList& records) {
  const BatchResultRecordList selected = selectedRecords();
  const int top = _layout->tvAddresses->verticalScrollBar()->value();
  {
    const QSignalBlocker silence(_layout->tvAddresses->selectionModel());
    showRecords(records);
  }
  QItemSelection rows;
  for (const BatchResultRecordPointer& record : selected) {
    const int row = _addresses.rowOf(*record);
    if (row >= 0) {
      rows.select(_addresses.index(row, 0), _addresses.index(row, 0));
    }
  }
  QItemSelectionModel* selection = _layout->tvAddresses->selectionModel();
  selection->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (!rows.isEmpty()) {
    selection->setCurrentIndex(rows.indexes().first(), QItemSelectionModel::NoUpdate);
  }
  _layout->tvAddresses->verticalScrollBar()->setValue(top);
}

// The header measures nothing and repaints nothing while the heights are set.
void BatchView::fitRows() {
  QHeaderView* rows = _layout->tvAddresses->verticalHeader();
  RowHeights heights(_layout->tvAddresses->font(), _leastLines);
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
  return rows.size() == 1 ? rows.first().row() : -1;
}

QList<int> BatchView::selectedRows() const {
  QList<int> rows;
  for (const QModelIndex& index : _layout->tvAddresses->selectionModel()->selectedRows()) {
    rows.append(index.row());
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

int BatchView::currentRow() const {
  const int one = selectedRow();
  const QItemSelectionModel* selection = _layout->tvAddresses->selectionModel();
  return one >= 0 || !selection->hasSelection() ? one : selection->currentIndex().row();
}

BatchResultRecordList BatchView::selectedRecords() const {
  BatchResultRecordList records;
  for (const int row : selectedRows()) {
    records.append(_addresses.records().at(row));
  }
  return records;
}

// Not by the table's own selectRow(), which adds to the selection while Ctrl is held.
void BatchView::selectRow(int row) {
  const QModelIndex index = _addresses.index(row, 0);
  QItemSelectionModel* selection = _layout->tvAddresses->selectionModel();
  selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  selection->select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  _layout->tvAddresses->scrollTo(index);
}

void BatchView::showNumbers(const ReviewCounts& counts, const std::optional<QString>& progress,
                            const QString& banner) {
  for (const AddressStatus status : kStatuses) {
    _layout->scFilter->setText(status, segmentText(status, counts.ofStatus(status)));
  }
  _layout->bnDoubtful->setText(doubtfulText(counts.doubtful));
  _layout->bnDoubtful->setVisible(_findsProblems &&
                                  (counts.doubtful > 0 || _layout->bnDoubtful->isChecked()));
  _layout->bnUpdate->setText(applyText(counts));
  _layout->txtProgress->setText(progress.value_or(summaryText(counts)));
  _layout->txtBanner->setText(banner);
  _layout->vwBanner->setVisible(!banner.isEmpty());
}

// A list that is open is left alone: nothing moves beneath the person's pointer.
void BatchView::showReasons(const QMap<QString, qsizetype>& reasons) {
  QComboBox* box = _layout->cbReason;
  if (!_findsProblems || reasons == _reasons || box->view()->isVisible()) {
    return;
  }
  _reasons = reasons;
  const QString chosen = box->currentData().toString();
  const QSignalBlocker silence(box);
  box->clear();
  box->addItem(localizedString("SAllReasons"));
  for (auto reason = reasons.begin(); reason != reasons.end(); ++reason) {
    box->addItem(reasonText(reason.key(), reason.value()), reason.key());
  }
  if (!chosen.isEmpty() && !reasons.contains(chosen)) {
    box->addItem(reasonText(chosen, 0), chosen);
  }
  box->setCurrentIndex(std::max(0, chosen.isEmpty() ? 0 : box->findData(chosen)));
  box->setVisible(box->count() > 1);
}

void BatchView::showListOrReason(qsizetype total) {
  const bool empty = _addresses.rowCount() == 0;
  _layout->txtEmpty->setText(emptyText(total));
  _layout->bnShowAll->setVisible(total > 0);
  _layout->vwList->setCurrentWidget(empty ? static_cast<QWidget*>(_layout->vwEmpty)
                                          : _layout->vwTable);
  _layout->txtNone->setVisible(!empty);  // there is none to select
}

}  // namespace postwright
