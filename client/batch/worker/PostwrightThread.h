#ifndef POSTWRIGHT_CLIENT_BATCH_WORKER_POSTWRIGHTTHREAD_H_
#define POSTWRIGHT_CLIENT_BATCH_WORKER_POSTWRIGHTTHREAD_H_

#include <postwright/BatchResultRecord.h>
#include <postwright/PostwrightClient.h>

#include <atomic>
#include <memory>

#include "client/suite/WorkerThread.h"

namespace postwright {

// Keys of the worker's parameters beside PostwrightResultsKey (a BatchResultRecordList) and
// MachPortKey: the settings of its client, the last two absent where there are none.
inline const QString RemovePunctuationKey = QStringLiteral("removePunctuation");
inline const QString CapitalizationKey = QStringLiteral("capitalization");
inline const QString MixedCaseKey = QStringLiteral("mixedCase");
inline const QString AskKey = QStringLiteral("ask");  // an AskFunction in place of the service

// The worker of a batch: asks about the pending records of a list, one after another and through a
// client of its own, and reports each.
//
//   PostwrightThread thread;
//   thread.detach({{PostwrightResultsKey, QVariant::fromValue(records)},
//                  {RemovePunctuationKey, true}, {CapitalizationKey, CapitalizationMixed},
//                  {MachPortKey, QVariant::fromValue(port.sender())}});
//
// Sends one PostwrightUpdateMessage for each record, in the list's order and after the record has
// its outcome, also for a record that it passed over because the user ignored or settled it
// meanwhile; then one ThreadStopMessage, whether the list was finished, cancelled or missing. A
// text that stands in the list several times is asked about once. Records may be changed by other
// threads at any time; the list itself is the worker's own.
class PostwrightThread final : public WorkerThread {
 public:
  // An object serves one run: cancel() may come before the new thread has begun, and must not be
  // forgotten by it.
  PostwrightThread() = default;
  ~PostwrightThread() override;

  // Ends the run after the record that is being asked about, which still gets its outcome. Any
  // thread.
  void cancel() { _cancel = true; }

  // The same, and does not let that record wait for a silent service: within about a second it
  // fails as one without a reply. Any thread.
  void abandon();

 private:
  void threadTask(const QVariantMap& parameters) override;
  void fixRecords(const BatchResultRecordList& records, const AskFunction& ask,
                  PostwrightClient& client);

  std::atomic<bool> _cancel = false;
  const std::shared_ptr<std::atomic<bool>> _abandoned = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_WORKER_POSTWRIGHTTHREAD_H_
