#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHTABLEMODEL_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHTABLEMODEL_H_

#include <postwright/BatchResultRecord.h>

#include <QAbstractTableModel>
#include <QHash>
#include <memory>

#include "client/batch/DifferenceCache.h"
#include "client/batch/DifferenceFormat.h"

namespace postwright {

// What is marked in the text of a cell: the words that go or that are new, and those that moved.
struct CellMarks {
  MarkKind kind = MarkKind::Removed;  // of what changed
  QList<TextMark> changed;
  QList<TextMark> moved;
};

// The records that the window shows, one a row: address as typed, address as fixed, status. Reads
// records and changes none; the controller says when one has changed.
class BatchTableModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { AddressColumn, FixedColumn, StatusColumn, ColumnCount };
  enum Role {
    HintRole = Qt::UserRole,  // QString to show, set apart, where the cell's own text is empty
    MarksRole,                // CellMarks of the cell's text, once they are worked out
  };

  explicit BatchTableModel(QObject* parent = nullptr);

  const BatchResultRecordList& records() const { return _records; }
  void setRecords(const BatchResultRecordList& records);
  // Rows keep their order and all other rows their place.
  void removeRow(int row);
  void recordChanged(const BatchResultRecord& record);
  // The differences of a record's two texts, as far as their lines are shown.
  const Differences& differencesOf(const BatchResultRecord& record) const {
    return _differences->get(record);
  }
  // The row of `record`, -1 where it is not shown.
  int rowOf(const BatchResultRecord& record) const { return _rows.value(&record, -1); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QStringList changesOf(const BatchResultRecord& record) const;
  QVariant marksOf(const QModelIndex& index, const BatchResultRecord::Values& values) const;

  BatchResultRecordList _records;
  QHash<const BatchResultRecord*, int> _rows;
  const std::unique_ptr<DifferenceCache> _differences;
};

}  // namespace postwright

Q_DECLARE_METATYPE(postwright::CellMarks)

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHTABLEMODEL_H_
