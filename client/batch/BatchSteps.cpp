#include "client/batch/BatchSteps.h"

#include <QUndoCommand>
#include <utility>

namespace postwright {

using Values = BatchResultRecord::Values;

// Both directions put the values in place that the other direction found.
class BatchStep final : public QUndoCommand {
 public:
  BatchStep(BatchSteps& steps, const QString& words, BatchResultRecordList records,
            QList<Values> values)
      : QUndoCommand(words),
        _steps(steps),
        _records(std::move(records)),
        _values(std::move(values)) {}

  void undo() override { exchange(true); }
  void redo() override { exchange(false); }

 private:
  void exchange(bool back) {
    for (qsizetype i = 0; i < _records.size(); ++i) {
      _values[i] = _records[i]->exchange(_values[i]);
    }
    _steps.settle(_records, back);
  }

  BatchSteps& _steps;
  const BatchResultRecordList _records;
  QList<Values> _values;  // those that are not in place
};

void BatchSteps::take(const QString& words, const BatchResultRecordList& records,
                      const Edit& edit) {
  if (records.isEmpty()) {
    return;
  }
  QList<Values> values;
  values.reserve(records.size());
  for (const BatchResultRecordPointer& record : records) {
    values.append(record->values());
    edit(values.last());
  }
  _stack.push(new BatchStep(*this, words, records, std::move(values)));
}

// A record that was pending before the step may have been passed over meanwhile, and is asked about
// again unless the run still comes to it.
void BatchSteps::settle(const BatchResultRecordList& records, bool back) {
  const BatchResultRecordList returned = _records.settle(records);
  const QSet<const BatchResultRecord*> ahead =
      back ? _runs.ahead() : QSet<const BatchResultRecord*>();
  BatchResultRecordList toAsk;
  for (const BatchResultRecordPointer& record : records) {
    const Values values = record->values();
    if (values.pending && !values.ignored && !(back && _stopped) && !ahead.contains(record.get())) {
      toAsk.append(record);
    }
  }
  if (!toAsk.isEmpty()) {
    _runs.askAgain(toAsk);
  }
  emit changed(records, returned);
}

}  // namespace postwright
