#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHWINDOW_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHWINDOW_H_

#include <postwright/BatchOptions.h>

#include <QElapsedTimer>
#include <QTimer>
#include <QVariantMap>

#include "client/batch/BatchRecords.h"
#include "client/batch/BatchSteps.h"
#include "client/batch/BatchView.h"
#include "client/batch/worker/BatchRuns.h"

namespace postwright {

// What a PostwrightController holds, and how what changes in it comes to be shown. Results come in
// faster than a person reads: what has changed is shown in one go, soon.
class BatchWindow {
 public:
  BatchWindow(QDialog& window, const QList<std::shared_ptr<AddressEntry>>& entries,
              const QVariantMap& workerSettings);

  // Before the window is shown.
  void setOptions(const BatchOptions& options);

  BatchResultRecordPointer selectedRecord() const;

  // Shows the records that pass the filter and the search, none of them selected.
  void showList();
  // Shows the detail of what is selected.
  void showDetail();
  // A worker has done a record.
  void recordDone(const BatchResultRecordPointer& record);
  // The person has changed records, taken some out or brought some back.
  void recordsChanged(const BatchResultRecordList& changed, const BatchResultRecordList& back);
  void showChanges();
  void showNumbers();

  // Starts the run of all records that have no outcome yet.
  void startRun();
  // It has ended: with every record of it, or before.
  void runEnded(bool finished);

  // The next record that needs the person, from the row after `row` and round the end; -1 where
  // there is none.
  int nextProblem(int row) const;
  // Selects it where the options say so.
  void goOnToProblem();

  // A record, and those of the same text where the person has ticked that.
  BatchResultRecordList withTwins(const BatchResultRecordPointer& record) const;

  // The change of words that the person made in a record.
  QList<Change> changesBy(const BatchResultRecord& record) const;

  // There is something that closing would lose.
  bool hasWork() const;

  BatchOptions options;
  QVariantMap settings;  // of every worker
  BatchRecords records;
  BatchRuns runs;
  BatchSteps steps;
  BatchView view;
  bool loaded = false;
  bool closing = false;
  bool stopped = false;           // by the person, after the record under way
  bool retryWhenStopped = false;  // the run under way is being cut short for a new one
  bool personSelects = true;      // what is selected now is not the window's own doing
  bool personHasSelected = false;

 private:
  void takeOut(const BatchResultRecordList& out);
  void takeIn(const BatchResultRecordList& back);
  std::optional<QString> progress() const;
  std::optional<std::chrono::seconds> waited() const;
  QString banner() const;

  bool _gaveUp = false;
  QElapsedTimer _elapsed;
  QElapsedTimer _sinceAnswer;
  BatchResultRecordList _changed;  // since the window was last brought up to date
  QTimer _changesTimer;
  QTimer _waitTimer;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHWINDOW_H_
