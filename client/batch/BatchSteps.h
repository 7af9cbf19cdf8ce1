#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHSTEPS_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHSTEPS_H_

#include <QObject>
#include <QUndoStack>
#include <functional>

#include "client/batch/BatchRecords.h"
#include "client/batch/worker/BatchRuns.h"

namespace postwright {

// What the person does to records, each a step that can be taken back: the values that the step
// found are put back as they were, whatever the service has answered since, and a step that is
// done again asks again.
class BatchSteps final : public QObject {
  Q_OBJECT

 public:
  using Edit = std::function<void(BatchResultRecord::Values&)>;

  // Records that a step leaves pending are asked about by `runs`.
  BatchSteps(BatchRecords& records, BatchRuns& runs) : _records(records), _runs(runs) {}

  // Does `edit` to each of `records`; `words` say what it is, for "Undo Ignore of 5".
  void take(const QString& words, const BatchResultRecordList& records, const Edit& edit);

  QUndoStack& stack() { return _stack; }
  // Something was done that was not taken back.
  bool hasSteps() const { return _stack.index() > 0; }

  // Has records that are pending again without being asked about stay so: the run was stopped.
  void setStopped(bool stopped) { _stopped = stopped; }

 signals:
  // These records have other values now, or are ignored; `back` are those that were ignored and are
  // so no longer.
  void changed(const BatchResultRecordList& records, const BatchResultRecordList& back);

 private:
  friend class BatchStep;
  void settle(const BatchResultRecordList& records, bool back);

  BatchRecords& _records;
  BatchRuns& _runs;
  QUndoStack _stack;
  bool _stopped = false;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHSTEPS_H_
