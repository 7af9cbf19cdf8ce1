#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHVIEW_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHVIEW_H_

#include <QDialog>
#include <QMap>
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

  // Before the window is shown.
  void setOptions(const BatchOptions& options);

  Ui::Postwright& layout() { return *_layout; }
  BatchTableModel& addresses() { return _addresses; }
  DetailView& detail() { return *_detail; }
  const DetailView& detail() const { return *_detail; }
  // The records in the table, a row each.
  const BatchResultRecordList& records() const { return _addresses.records(); }

  // What the filter, the search and the sorting ask for.
  RecordQuery query() const;
  void selectAllSegments();
  // Sorts by `column`, the other way round if it does so already, and no more at the third time.
  void sortBy(int column);
  void sortByHost();

  // Shows `records` in the table, none of them selected.
  void showRecords(const BatchResultRecordList& records);
  // The same, and keeps those selected that are, and what is on the screen.
  void replaceRecords(const BatchResultRecordList& records);
  // Takes a row out and selects the one that takes its place, or the last.
  void removeRow(int row);
  // The row of the one record that is selected; -1 where none or several are.
  int selectedRow() const;
  QList<int> selectedRows() const;
  // The same where one is selected; of several the one that the keyboard is at.
  int currentRow() const;
  BatchResultRecordList selectedRecords() const;
  void selectRow(int row);

  // Shows the numbers: filter, reasons, apply button, banner, and below the list the progress of a
  // worker or, without one, how the list stands.
  void showNumbers(const ReviewCounts& counts, const std::optional<QString>& progress,
                   const QString& banner);
  void showReasons(const QMap<QString, qsizetype>& reasons);

  // The page shown in place of an empty table, or the table.
  void showListOrReason(qsizetype total);

 private:
  void layFilterOut();
  void layTablesOut();
  void layDetailOut();
  void fitRows();

  QDialog& _window;
  BatchTableModel _addresses;
  std::unique_ptr<Ui::Postwright> _layout;
  std::unique_ptr<DetailView> _detail;
  RecordQuery::Order _order = RecordQuery::Order::Host;
  bool _descending = false;
  bool _findsProblems = false;
  int _leastLines = 1;
  QMap<QString, qsizetype> _reasons;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHVIEW_H_
