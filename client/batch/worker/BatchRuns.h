#ifndef POSTWRIGHT_CLIENT_BATCH_WORKER_BATCHRUNS_H_
#define POSTWRIGHT_CLIENT_BATCH_WORKER_BATCHRUNS_H_

#include <postwright/BatchResultRecord.h>

#include <QObject>
#include <QSet>
#include <QVariantMap>
#include <memory>

namespace postwright {

struct BatchWorker;

// The workers of a batch window: one for the list, and one for records that were put up again
// meanwhile, which takes turns with the other at the engine's gate, so that a person waits for one
// answer and not for the rest of the list. Belongs to the window's thread.
class BatchRuns final : public QObject {
  Q_OBJECT

 public:
  BatchRuns();
  // Cuts short what still runs.
  ~BatchRuns() override;

  // What every worker is given besides its list and its port; before the first one.
  void setSettings(const QVariantMap& settings) { _settings = settings; }

  // Starts the run of the list. Where the system grants no thread, nothing is asked.
  void start(const BatchResultRecordList& records);

  // Asks about `records` as soon as those that were put up before are done.
  void askAgain(const BatchResultRecordList& records);

  // Drops what askAgain() has not begun and takes no more.
  void close();

  bool isListRunning() const { return _list != nullptr; }
  bool isAskingAgain() const { return _again != nullptr; }
  bool isBusy() const { return isListRunning() || isAskingAgain(); }

  // How far the list's run has come.
  qsizetype done() const;
  qsizetype total() const;
  // Why the list's run, or the last one, last had no answer (PostwrightThread::whyUnanswered).
  QString whyUnanswered() const;
  // The records that the list's run has still before it.
  QSet<const BatchResultRecord*> ahead() const;

  // Ends the list's run after the record under way, or without waiting for that.
  void cancelList();
  void abandonList();
  // The same for both.
  void cancel();
  void abandon();

 signals:
  // A record has its outcome, or was passed over; after done() has gone on.
  void recordDone(const BatchResultRecordPointer& record);
  void listAdvanced(int done);
  // `finished`: with its last record, and not before.
  void listEnded(bool finished);
  void askedAgain();

 private:
  std::unique_ptr<BatchWorker> startWorker(const BatchResultRecordList& records,
                                           QVariantMap parameters,
                                           void (BatchRuns::*handle)(qint32));
  void runAgain();
  void handleListMessage(qint32 identifier);
  void handleAgainMessage(qint32 identifier);

  QVariantMap _settings;
  std::unique_ptr<BatchWorker> _list;
  std::unique_ptr<BatchWorker> _again;
  BatchResultRecordList _againToCome;  // after those of _again
  QString _whyUnanswered;              // of the list's last run
  bool _closed = false;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_WORKER_BATCHRUNS_H_
