#ifndef POSTWRIGHT_CLIENT_BATCH_WORKER_BATCHWORKER_H_
#define POSTWRIGHT_CLIENT_BATCH_WORKER_BATCHWORKER_H_

#include "client/batch/worker/PostwrightThread.h"
#include "client/suite/MessagePort.h"

namespace postwright {

// A running worker as the window sees it: the list that it works through, how far it has come, and
// the port on which it tells.
struct BatchWorker {
  explicit BatchWorker(BatchResultRecordList list) : records(std::move(list)) {}

  const BatchResultRecordList records;
  qsizetype done = 0;
  MessagePort port;
  PostwrightThread thread;  // ends before its port goes
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_WORKER_BATCHWORKER_H_
