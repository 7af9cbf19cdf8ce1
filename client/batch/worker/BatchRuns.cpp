#include "client/batch/worker/BatchRuns.h"

#include <system_error>
#include <utility>

#include "client/batch/worker/BatchWorker.h"

namespace postwright {

BatchRuns::BatchRuns() = default;

BatchRuns::~BatchRuns() {
  abandon();
}

std::unique_ptr<BatchWorker> BatchRuns::startWorker(const BatchResultRecordList& records,
                                                    QVariantMap parameters,
                                                    void (BatchRuns::*handle)(qint32)) {
  auto worker = std::make_unique<BatchWorker>(records);
  connect(&worker->port, &MessagePort::messageReceived, this, handle);
  parameters.insert(PostwrightResultsKey, QVariant::fromValue(worker->records));
  parameters.insert(MachPortKey, QVariant::fromValue(worker->port.sender()));
  try {
    worker->thread.detach(parameters);
  } catch (const std::system_error&) {
    return nullptr;  // the records stay pending, with the texts that the user typed
  }
  return worker;
}

void BatchRuns::start(const BatchResultRecordList& records) {
  _list = startWorker(records, _settings, &BatchRuns::handleListMessage);
}

void BatchRuns::handleListMessage(qint32 identifier) {
  if (identifier == PostwrightUpdateMessage) {
    emit recordDone(_list->records.at(_list->done++));
    emit listAdvanced(static_cast<int>(_list->done));
  } else if (identifier == ThreadStopMessage) {
    const bool finished = done() == total();
    _whyUnanswered = whyUnanswered();
    _list.reset();
    emit listEnded(finished);
  }
}

void BatchRuns::askAgain(const BatchResultRecordList& records) {
  if (!_closed) {
    _againToCome += records;
    runAgain();
  }
}

void BatchRuns::runAgain() {
  if (_again == nullptr && !_againToCome.isEmpty()) {
    QVariantMap settings = _settings;
    settings.remove(PatienceKey);  // a person waits, and can ask again
    _again = startWorker(std::exchange(_againToCome, {}), settings, &BatchRuns::handleAgainMessage);
  }
}

void BatchRuns::handleAgainMessage(qint32 identifier) {
  if (identifier == PostwrightUpdateMessage) {
    emit recordDone(_again->records.at(_again->done++));
  } else if (identifier == ThreadStopMessage) {
    _again.reset();
    runAgain();
    emit askedAgain();
  }
}

void BatchRuns::close() {
  _closed = true;
  _againToCome.clear();
}

qsizetype BatchRuns::done() const {
  return _list != nullptr ? _list->done : 0;
}

qsizetype BatchRuns::total() const {
  return _list != nullptr ? _list->records.size() : 0;
}

QString BatchRuns::whyUnanswered() const {
  return _list != nullptr ? _list->thread.whyUnanswered() : _whyUnanswered;
}

QSet<const BatchResultRecord*> BatchRuns::ahead() const {
  QSet<const BatchResultRecord*> records;
  for (qsizetype i = done(); i < total(); ++i) {
    records.insert(_list->records.at(i).get());
  }
  return records;
}

void BatchRuns::cancelList() {
  if (_list != nullptr) {
    _list->thread.cancel();
  }
}

void BatchRuns::abandonList() {
  if (_list != nullptr) {
    _list->thread.abandon();
  }
}

void BatchRuns::cancel() {
  cancelList();
  if (_again != nullptr) {
    _again->thread.cancel();
  }
}

void BatchRuns::abandon() {
  abandonList();
  if (_again != nullptr) {
    _again->thread.abandon();
  }
}

}  // namespace postwright
