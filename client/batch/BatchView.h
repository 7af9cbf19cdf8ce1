#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHVIEW_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHVIEW_H_

#include <QDialog>
#include <memory>
#include <optional>

#include "client/batch/BatchTableModel.h"
#include "client/batch/DetailView.h"
#include "client/batch/review/BatchReview.h"

namespace postwright {

// What the batch window shows. Reads records, changes none and starts nothing.
class BatchView {
 public:
  // Lays `window` out.
  explicit BatchView(QDialog& window);
  ~BatchView();

  Ui::Postwright& layout() { return *_layout; }
  BatchTableModel& addresses() { return _addresses; }
  DetailView& detail() { return *_detail; }

  StatusFilter filter() const;
  void selectAllSegments();

  // Shows `records` in the table, none of them selected.
  void showRecords(const BatchResultRecordList& records);
  // Takes a row out and selects the one that then stands in its place, or the last.
  void removeRow(int row);
  int selectedRow() const;
  void selectRow(int row);

  // Shows the numbers: filter, apply button, banner, and below the list the progress of a worker
  // or, without one, how the list stands.
  void showNumbers(const ReviewCounts& counts, const std::optional<QString>& progress);

  // The page that stands in place of an empty table, or the table.
  void showListOrReason(qsizetype total);

 private:
  void layTablesOut();
  void fitRows();

  QDialog& _window;
  BatchTableModel _addresses;
  std::unique_ptr<Ui::Postwright> _layout;
  std::unique_ptr<DetailView> _detail;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHVIEW_H_
