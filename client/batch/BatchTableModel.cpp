#include "client/batch/BatchTableModel.h"

#include "client/LocalizedString.h"
#include "client/batch/StatusIcons.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/review/Explanations.h"

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

}  // namespace

BatchTableModel::BatchTableModel(QObject* parent)
    : QAbstractTableModel(parent), _differences(std::make_unique<DifferenceCache>()) {
  connect(_differences.get(), &DifferenceCache::ready, this,
          [this](const BatchResultRecordPointer& record) {
            const int row = rowOf(*record);
            if (row >= 0) {
              emit dataChanged(index(row, AddressColumn), index(row, FixedColumn), {MarksRole});
            }
          });
}

void BatchTableModel::setRecords(const BatchResultRecordList& records) {
  beginResetModel();
  _differences->clear();
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
  for (int later = row; later < rowCount(); ++later) {
    _rows[_records.at(later).get()] = later;
  }
  endRemoveRows();
}

void BatchTableModel::recordChanged(const BatchResultRecord& record) {
  _differences->forget(record);
  const int row = rowOf(record);
  if (row >= 0) {
    emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
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
      return index.column() == AddressColumn  ? values.address
             : index.column() == StatusColumn ? spokenStatus(values)
             : isMarked(values) ? spokenText(values.fixed, changesOf(*_records.at(index.row())))
             : values.fixed.isEmpty() ? hintText(values)
                                      : values.fixed;
    case Qt::ToolTipRole:
      return toolTipText(values, changesOf(*_records.at(index.row())));
    case Qt::DecorationRole:
      return index.column() == StatusColumn && !values.pending ? QVariant(statusIcon(values.status))
                                                               : QVariant();
    case HintRole:
      return index.column() == FixedColumn ? hintText(values) : QString();
    case MarksRole:
      return marksOf(index, values);
    default:
      return {};
  }
}

QStringList BatchTableModel::changesOf(const BatchResultRecord& record) const {
  const Values values = record.values();
  return changeTexts(values, isMarked(values) ? differencesOf(record) : Differences());
}

QVariant BatchTableModel::marksOf(const QModelIndex& index, const Values& values) const {
  const Differences* differences =
      isMarked(values) ? _differences->find(_records.at(index.row())) : nullptr;
  if (differences == nullptr || index.column() == StatusColumn) {
    return {};
  }
  return QVariant::fromValue(
      index.column() == AddressColumn
          ? CellMarks{MarkKind::Removed, differences->removed, differences->movedFrom}
          : CellMarks{MarkKind::Added, differences->added, differences->movedTo});
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
