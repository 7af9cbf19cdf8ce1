#ifndef POSTWRIGHT_CLIENT_BATCH_WORKER_POSTWRIGHTTHREAD_H_
#define POSTWRIGHT_CLIENT_BATCH_WORKER_POSTWRIGHTTHREAD_H_

#include <postwright/BatchResultRecord.h>
#include <postwright/PostwrightClient.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>

#include "client/batch/worker/Patience.h"
#include "client/suite/WorkerThread.h"

namespace postwright {

class TwinOutcomes;

// Keys of the worker's parameters besides PostwrightResultsKey (a BatchResultRecordList) and
// MachPortKey: the settings of its client, and what is absent in the plain case.
inline const QString RemovePunctuationKey = QStringLiteral("removePunctuation");
inline const QString CapitalizationKey = QStringLiteral("capitalization");
inline const QString MixedCaseKey = QStringLiteral("mixedCase");
inline const QString AskKey = QStringLiteral("ask");  // an AskFunction in place of the service
inline const QString ReviewKey = QStringLiteral("review");  // a LabelForm: asks with fixReviewed()
inline const QString FormKey = QStringLiteral("form");  // true: unchanged records are formed, too
inline const QString CandidatesKey = QStringLiteral("candidates");  // how many to ask for
inline const QString PatienceKey = QStringLiteral("patience");      // a Patience
inline const QString KeepsPendingKey = QStringLiteral("keeps");     // true: see abandon()

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
// text that is in the list several times is asked about once. Records may be changed by other
// threads at any time; the list itself is the worker's own.
//
// With a Patience, records that the service leaves without an answer are held: three in a row, or
// one that the service puts off until later, make the run pause until one of them or a new one gets
// an answer, and then all of them are asked about once more. Where none gets one for as long as the
// patience lasts, the time that the service asked for itself not counted, the run ends, they stay
// pending, and they and all after them have no message.
class PostwrightThread final : public WorkerThread {
 public:
  // An object serves one run: cancel() may come before the new thread has begun, and must not be
  // forgotten by it.
  PostwrightThread() = default;
  ~PostwrightThread() override;

  // Ends the run after the record that is being asked about, which still gets its outcome. Any
  // thread.
  void cancel();

  // The same, and does not let that record wait for a silent service: within about a second it
  // fails as one without a reply or, where KeepsPendingKey says so, stays pending. Any thread.
  void abandon();

  // Why the last record that was asked about had no answer, as its outcome's remark says; empty
  // where it had one. Any thread.
  QString whyUnanswered() const;

 private:
  struct Run;
  enum class Reply { kNone, kAnswer, kNobodyAsked };
  void threadTask(const QVariantMap& parameters) override;
  void fixRecords(const BatchResultRecordList& records, Run& run);
  void fixPatiently(const BatchResultRecordList& records, Run& run);
  void settle(BatchResultRecordList& held, Run& run);
  bool waitForService(const BatchResultRecordList& records, BatchResultRecordList& held, Run& run);
  bool hasAnswer(BatchResultRecord& record, Run& run);
  Reply ask(BatchResultRecord& record, bool finally, Run& run);
  bool pause(std::chrono::milliseconds length);

  mutable std::mutex _lock;
  std::condition_variable _cancelled;
  QString _whyUnanswered;
  std::atomic<bool> _cancel = false;
  const std::shared_ptr<std::atomic<bool>> _abandoned = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_WORKER_POSTWRIGHTTHREAD_H_
