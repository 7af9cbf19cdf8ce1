#include "apps/addressbook/window/EntryTable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSettings>
#include <QStyledItemDelegate>
#include <algorithm>

#include "apps/addressbook/widgets/ThemedIcon.h"

namespace postwright::addressbook {

namespace {

// Selecting more scattered rows than this takes long and is of no use; the first one is shown.
constexpr qsizetype kMostRanges = 500;

constexpr int kMeasuredRows = 500;  // in view and around it, by which a column is fitted
constexpr int kLeastLetters = 10;
constexpr int kMostLetters = 40;

const QString kHeaderKey = QStringLiteral("window/entryWidths");

// Puts the icon of an entry's state before what the column says.
class StateDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = stateIcon(static_cast<CheckState>(index.data(EntryModel::kStateRole).toInt()));
  }
};

}  // namespace

EntryTable::EntryTable(EntryModel& model, QWidget* parent) : QTableView(parent), _model(model) {
  setModel(&model);
  setItemDelegateForColumn(EntryModel::Checked, new StateDelegate(this));
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setFrameShape(QFrame::NoFrame);
  setAccessibleName(tr("Entries"));
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
  QHeaderView* const header = horizontalHeader();
  header->setHighlightSections(false);
  header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header->setSortIndicatorClearable(true);
  header->setSortIndicator(EntryModel::kBookOrder, Qt::AscendingOrder);
  setSortingEnabled(true);
  if (!header->restoreState(QSettings().value(kHeaderKey).toByteArray())) {
    _areWidthsUsers = false;
  }
  header->setSortIndicator(EntryModel::kBookOrder, Qt::AscendingOrder);
  header->setStretchLastSection(true);
  header->setResizeContentsPrecision(kMeasuredRows);
  connect(&model, &QAbstractItemModel::modelReset, this, &EntryTable::fitColumns);
  for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
    connect(&model, signal, this, &EntryTable::showColumns);
  }
  connect(&model, &QAbstractItemModel::dataChanged, this, &EntryTable::showColumns);
  fitColumns();
  connect(header, &QHeaderView::sectionResized, this, &EntryTable::takeWidth);
  connect(this, &QTableView::doubleClicked, this, &EntryTable::editRequested);
}

EntryTable::~EntryTable() {
  if (_areWidthsUsers) {
    QSettings().setValue(kHeaderKey, horizontalHeader()->saveState());
  }
}

// Widths as the entries need them, within what leaves room for the others, until the user gives
// the columns widths.
void EntryTable::fitColumns() {
  showColumns();
  if (_areWidthsUsers) {
    return;
  }
  _isFitting = true;
  const int letter = fontMetrics().averageCharWidth();
  for (int column = 0; column < EntryModel::kColumns; ++column) {
    if (!isColumnHidden(column)) {
      const int needed =
          std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
      setColumnWidth(column,
                     std::clamp(needed + letter, kLeastLetters * letter, kMostLetters * letter));
    }
  }
  _isFitting = false;
}

// The last column takes what is left of the window, whatever the user does.
void EntryTable::takeWidth(int column, int before, int now) {
  int last = EntryModel::kColumns - 1;
  while (last > 0 && isColumnHidden(horizontalHeader()->logicalIndex(last))) {
    --last;
  }
  const bool isUsers = horizontalHeader()->visualIndex(column) != last && before > 0 && now > 0;
  _areWidthsUsers = _areWidthsUsers || (isUsers && !_isFitting);
}

// Those in which there is something.
void EntryTable::showColumns() {
  setColumnHidden(EntryModel::Sharing, !_model.hasSharing());
  setColumnHidden(EntryModel::Kind, !_model.hasKinds());
  setColumnHidden(EntryModel::Confirmed, !_model.hasConfirmations());
}

QList<int> EntryTable::selectedBookRows() const {
  return _model.bookRows(selectionModel()->selectedRows());
}

void EntryTable::selectBookRows(const QList<int>& rows) {
  const QList<int> shown = _model.shownBookRows();
  QItemSelection selection;
  for (int place = 0; place < shown.size() && selection.size() <= kMostRanges; ++place) {
    if (!std::binary_search(rows.begin(), rows.end(), shown[place])) {
      continue;
    }
    if (!selection.isEmpty() && selection.last().bottom() == place - 1) {
      selection.last() = QItemSelectionRange(selection.last().topLeft(), _model.index(place, 0));
    } else {
      selection.append(QItemSelectionRange(_model.index(place, 0)));
    }
  }
  if (selection.size() > kMostRanges) {
    selection.resize(1);
  }
  selectionModel()->select(selection,
                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (!selection.isEmpty()) {
    const QModelIndex first = selection.first().topLeft();
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    scrollTo(first);
  }
}

void EntryTable::selectNext() {
  const int next = currentIndex().row() + 1;
  if (next < _model.rowCount()) {
    selectRow(next);
  }
}

void EntryTable::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2) {
    emit editRequested();
    return;
  }
  QTableView::keyPressEvent(event);
}

void EntryTable::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  emit selectedRowsChanged();
}

}  // namespace postwright::addressbook
