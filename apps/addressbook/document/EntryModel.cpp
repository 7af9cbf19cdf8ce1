#include "apps/addressbook/document/EntryModel.h"

#include <algorithm>
#include <numeric>

#include "apps/tables/LabelText.h"

namespace postwright::addressbook {

namespace {

// Removing more runs of rows than this one by one is slower than laying the table out again.
constexpr qsizetype kMostRuns = 50;

}  // namespace

EntryModel::EntryModel(const Book& book, QObject* parent)
    : QAbstractTableModel(parent), _book(book) {
  connect(&book, &Book::wasReset, this, &EntryModel::bookWasReset);
  connect(&book, &Book::changed, this, &EntryModel::bookChanged);
  connect(&book, &Book::inserted, this, &EntryModel::bookInserted);
  connect(&book, &Book::removed, this, &EntryModel::bookRemoved);
  arrange();
}

void EntryModel::search(const QString& text, const Filter& filter) {
  _words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
  _filter = filter;
  showAnew();
}

bool EntryModel::hasKinds() const {
  const QList<Entry>& entries = _book.entries();
  return std::any_of(entries.begin(), entries.end(),
                     [](const Entry& entry) { return !entry.kind.isEmpty(); });
}

bool EntryModel::hasConfirmations() const {
  const QList<Entry>& entries = _book.entries();
  return std::any_of(entries.begin(), entries.end(),
                     [](const Entry& entry) { return entry.check.known != Known::NotTold; });
}

void EntryModel::sort(int column, Qt::SortOrder order) {
  _sortColumn = column;
  _sortOrder = order;
  showAnew();
}

// Lays the rows out again; what the views have selected goes with its entry.
void EntryModel::showAnew() {
  emit layoutAboutToBeChanged();
  const QModelIndexList before = persistentIndexList();
  QList<int> rows;
  for (const QModelIndex& index : before) {
    rows.append(bookRow(index));
  }
  arrange();
  QList<int> places(_book.size(), -1);
  for (int place = 0; place < _shown.size(); ++place) {
    places[_shown[place]] = place;
  }
  QModelIndexList after;
  for (qsizetype each = 0; each < before.size(); ++each) {
    const int place = places[rows[each]];
    after.append(place < 0 ? QModelIndex() : index(place, before[each].column()));
  }
  changePersistentIndexList(before, after);
  emit layoutChanged();
}

bool EntryModel::passes(int bookRow) const {
  if (!passesFilter(bookRow)) {
    return false;
  }
  const QString& label = _book.at(bookRow).label;
  return std::all_of(_words.begin(), _words.end(), [&label](const QString& word) {
    return label.contains(word, Qt::CaseInsensitive);
  });
}

bool EntryModel::passesFilter(int bookRow) const {
  const CheckState state = _book.stateAt(bookRow);
  const Check& check = _book.at(bookRow).check;
  switch (_filter.kind) {
    case Filter::ToCheck:
      return state == CheckState::NotChecked || state == CheckState::DueAgain;
    case Filter::Failed:
      return state == CheckState::Failed;
    case Filter::Confirmation:
      return saysConfirmation(state) && check.known == _filter.known;
    case Filter::Reason:
      return state == CheckState::Failed && check.failure == _filter.reason;
    case Filter::Shared:
      return _book.sharing(bookRow) > 1;
    case Filter::All:
      break;
  }
  return true;
}

QList<int> EntryModel::bookRows(const QModelIndexList& indexes) const {
  QList<int> rows;
  rows.reserve(indexes.size());
  for (const QModelIndex& index : indexes) {
    rows.append(bookRow(index));
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

QModelIndex EntryModel::indexOf(int bookRow, int column) const {
  const auto place = _shown.indexOf(bookRow);
  return place < 0 ? QModelIndex() : index(static_cast<int>(place), column);
}

int EntryModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_shown.size());
}

int EntryModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant EntryModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) {
    return {};
  }
  const int row = bookRow(index);
  const bool isOfService = index.column() == Checked || index.column() == Confirmed;
  const bool hasTip = isOfService || !_book.at(row).label.isEmpty();
  switch (role) {
    case Qt::DisplayRole:
      return text(row, index.column());
    case Qt::ToolTipRole:
      return !hasTip       ? QVariant()
             : isOfService ? serviceTip(row, index.column())
                           : toolTip(_book.at(row).label);
    case kStateRole:
      return static_cast<int>(_book.stateAt(row));
    default:
      return {};
  }
}

QString EntryModel::text(int bookRow, int column) const {
  const Entry& entry = _book.at(bookRow);
  if (column == Checked) {
    return stateText(entry, _book.stateAt(bookRow));
  }
  if (column == Confirmed) {
    return confirmationText(entry, _book.stateAt(bookRow));
  }
  if (column == Sharing) {
    return sharingText(_book.sharing(bookRow));
  }
  if (column == Kind) {
    return entry.kind;
  }
  const tables::LabelSummary summary = tables::summarizeLabel(entry.label);
  switch (column) {
    case Name:
      return summary.name;
    case Street:
      return summary.street;
    case Place:
      return summary.place;
    default:
      return summary.zip;
  }
}

void EntryModel::bookWasReset() {
  beginResetModel();
  arrange();
  endResetModel();
}

void EntryModel::bookChanged(const QList<int>& rows) {
  if (rows.size() == 1) {
    const QModelIndex index = indexOf(rows.first());
    if (index.isValid()) {
      emit dataChanged(index, index.siblingAtColumn(kColumns - 1));
      // Others may have its address now, or no longer.
      emit dataChanged(this->index(0, Sharing), this->index(rowCount() - 1, Sharing));
    }
  } else if (!_shown.isEmpty()) {
    emit dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
  }
}

void EntryModel::bookInserted(const QList<int>& rows) {
  // First the rows that are shown take their new numbers, then the new ones come in.
  QList<int> numbers;
  numbers.reserve(_book.size());
  auto added = rows.cbegin();
  for (int row = 0; row < _book.size(); ++row) {
    if (added != rows.cend() && *added == row) {
      ++added;
    } else {
      numbers.append(row);
    }
  }
  for (int& row : _shown) {
    row = numbers[row];
  }
  if (_sortColumn == kBookOrder && rows.size() > 1) {
    beginResetModel();
    _shown += rows;
    std::sort(_shown.begin(), _shown.end());
    endResetModel();
    return;
  }
  const auto place = _sortColumn == kBookOrder
                         ? std::lower_bound(_shown.begin(), _shown.end(), rows.first())
                         : _shown.end();
  const int first = static_cast<int>(place - _shown.begin());
  beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
  _shown.insert(place, rows.size(), 0);
  std::copy(rows.begin(), rows.end(), _shown.begin() + first);
  endInsertRows();
}

void EntryModel::bookRemoved(const QList<int>& rows) {
  const auto isRemoved = [&rows](int row) {
    return std::binary_search(rows.begin(), rows.end(), row);
  };
  // What is left is numbered again at once; until a run of removed rows has gone, its rows keep a
  // number that the book still has, so that a view that looks at one finds something.
  QList<bool> gone;
  for (int& row : _shown) {
    gone.append(isRemoved(row));
    row -= static_cast<int>(std::lower_bound(rows.begin(), rows.end(), row) - rows.begin());
    row = std::clamp(row, 0, std::max(_book.size() - 1, 0));
  }
  QList<std::pair<int, int>> runs;  // first and last place, the last run first
  for (int place = rowCount() - 1; place >= 0; --place) {
    if (!gone[place]) {
      continue;
    }
    if (!runs.isEmpty() && runs.last().first == place + 1) {
      runs.last().first = place;
    } else {
      runs.append({place, place});
    }
  }
  if (runs.size() > kMostRuns || _book.size() == 0) {
    beginResetModel();
    arrange();
    endResetModel();
    return;
  }
  for (const auto& [first, last] : runs) {
    beginRemoveRows({}, first, last);
    _shown.remove(first, last - first + 1);
    endRemoveRows();
  }
}

}  // namespace postwright::addressbook
