#ifndef POSTWRIGHT_CLIENT_BATCH_WORKER_PATIENCE_H_
#define POSTWRIGHT_CLIENT_BATCH_WORKER_PATIENCE_H_

#include <QMetaType>
#include <chrono>

namespace postwright {

// How long a worker waits for a service that does not answer (BatchOptions::waitsForService).
struct Patience {
  std::chrono::milliseconds firstPause;
  std::chrono::milliseconds longestPause;
  std::chrono::milliseconds giveUpAfter;
};

}  // namespace postwright

Q_DECLARE_METATYPE(postwright::Patience)

#endif  // POSTWRIGHT_CLIENT_BATCH_WORKER_PATIENCE_H_
