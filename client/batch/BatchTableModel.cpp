#include "client/batch/BatchTableModel.h"

#include <QStringList>

#include "client/LocalizedString.h"
#include "client/batch/StatusIcons.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/review/Differences.h"
#include "client/suite/StringHelpers.h"

namespace postwright {
namespace {

using Values = BatchResultRecord::Values;

bool isMarked(const Values& values) {
  return !values.pending && values.status == AddressStatusFixed && !values.fixed.isEmpty();
}

QString cellText(const Values& values, int column) {
  switch (column) {
    case BatchTableModel::AddressColumn:
      return values.address;
    case BatchTableModel::FixedColumn:
      return values.fixed;
    case BatchTableModel::StatusColumn:
      return statusText(values);
    default:
      return {};
  }
}

// What a screen reader says of a cell: of the corrected text, what became of each word.
QString spokenText(const Values& values, int column) {
  const QString text = cellText(values, column);
  if (column != BatchTableModel::FixedColumn) {
    return text;
  }
  if (!isMarked(values)) {
    return text.isEmpty() ? hintText(values) : text;
  }
  QStringList spoken{text};
  for (const Change& change : findDifferences(values.address, values.fixed).changes) {
    const char* key = change.from.isEmpty() ? "SSpokenAdded"
                      : change.to.isEmpty() ? "SSpokenRemoved"
                                            : "SSpokenChanged";
    const QStringList words =
        change.from.isEmpty() ? QStringList{change.to} : QStringList{change.from, change.to};
    spoken.append(StringHelpers::stringWithFormat(localizedString(key), words));
  }
  return spoken.join(QStringLiteral(". "));
}

}  // namespace

void BatchTableModel::setRecords(const BatchResultRecordList& records) {
  beginResetModel();
  _records = records;
  _rows.clear();
  _rows.reserve(records.size());
  for (int row = 0; row < rowCount(); ++row) {
    _rows.insert(_records.at(row).get(), row);
  }
  endResetModel();
}

void BatchTableModel::removeRow(int row) {
  beginRemoveRows({}, row, row);
  _rows.remove(_records.at(row).get());
  _records.removeAt(row);
  for (int behind = row; behind < rowCount(); ++behind) {
    _rows[_records.at(behind).get()] = behind;
  }
  endRemoveRows();
}

void BatchTableModel::recordChanged(const BatchResultRecord& record) {
  const int row = rowOf(record);
  if (row >= 0) {
    emit dataChanged(index(row, AddressColumn), index(row, StatusColumn));
  }
}

int BatchTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_records.size());
}

int BatchTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant BatchTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) {
    return {};
  }
  const Values values = _records.at(index.row())->values();
  switch (role) {
    case Qt::DisplayRole:
      return cellText(values, index.column());
    case Qt::AccessibleTextRole:
      return spokenText(values, index.column());
    case Qt::DecorationRole:
      return index.column() == StatusColumn && !values.pending ? QVariant(statusIcon(values.status))
                                                               : QVariant();
    case HintRole:
      return index.column() == FixedColumn ? hintText(values) : QString();
    case MarkedRole:
      return isMarked(values);
    default:
      return {};
  }
}

QVariant BatchTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
    return {};
  }
  switch (section) {
    case AddressColumn:
      return localizedString("SColumnAddress");
    case FixedColumn:
      return localizedString("SColumnFixed");
    case StatusColumn:
      return localizedString("SColumnStatus");
    default:
      return {};
  }
}

}  // namespace postwright
