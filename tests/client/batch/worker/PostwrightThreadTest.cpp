#include "client/batch/worker/PostwrightThread.h"

#include <QSemaphore>

#include "client/batch/worker/BatchWorker.h"
#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

BatchResultRecordList Records(const QStringList& addresses) {
  BatchResultRecordList records;
  for (const QString& address : addresses) {
    records.append(std::make_shared<BatchResultRecord>(address));
  }
  return records;
}

// Runs a worker to its end and returns its messages.
class Run {
 public:
  Run(const BatchResultRecordList& records, AskFunction ask) : _worker(records) {
    QObject::connect(&_worker.port, &MessagePort::messageReceived, &_worker.port,
                     [this](qint32 identifier) { messages.append(identifier); });
    _worker.thread.detach({{PostwrightResultsKey, QVariant::fromValue(records)},
                           {AskKey, QVariant::fromValue(std::move(ask))},
                           {MachPortKey, QVariant::fromValue(_worker.port.sender())}});
  }
  PostwrightThread& thread() { return _worker.thread; }
  bool hasEnded() const { return messages.contains(ThreadStopMessage); }

  QList<qint32> messages;

 private:
  BatchWorker _worker;
};

AddressOutcome Answer(const QString& text, const QList<PostwrightSelectorPointer>& matches = {}) {
  return {AddressFix{text, matches}, {}};
}

}  // namespace

class PostwrightThreadTest : public QObject {
  Q_OBJECT

 private slots:
  void cancelLeavesTheRestUntouched();
  void whatTheUserSettledIsPassedOver();
};

void PostwrightThreadTest::cancelLeavesTheRestUntouched() {
  QSemaphore asked;
  QSemaphore answer;
  const BatchResultRecordList records = Records({u"1 a"_qs, u"2 b"_qs, u"3 c"_qs});
  Run run(records, [&](PostwrightClient&, const QString&) {
    asked.release();
    answer.acquire();
    return Answer(u"9 Z"_qs);
  });
  asked.acquire();
  run.thread().cancel();
  answer.release(3);
  QTRY_VERIFY(run.hasEnded());
  QCOMPARE(run.messages, (QList<qint32>{PostwrightUpdateMessage, ThreadStopMessage}));
  QCOMPARE(records[0]->values().fixed, u"9 Z"_qs);  // the one under way is finished
  for (const BatchResultRecordPointer& record : records.mid(1)) {
    QCOMPARE(record->values().fixed, u"Processing…"_qs);
    QCOMPARE(record->values().status, AddressStatusUnchanged);
  }
}

void PostwrightThreadTest::whatTheUserSettledIsPassedOver() {
  QStringList asked;
  QSemaphore settled;
  const BatchResultRecordList records =
      Records({u"1 a"_qs, u"2 b"_qs, u"3 c"_qs, u"4 d"_qs, u"5 e"_qs});
  Run run(records, [&](PostwrightClient&, const QString& address) {
    asked.append(address);
    settled.acquire();
    return Answer(u"9 Z"_qs);
  });
  records[0]->setFixed(u"chosen meanwhile"_qs);
  records[1]->ignore();
  records[2]->setFixed(u"chosen"_qs);
  records[3]->setAddress(u"4 edited"_qs);
  settled.release(records.size());
  QTRY_VERIFY(run.hasEnded());
  QCOMPARE(asked.mid(asked.indexOf(u"1 a"_qs) + 1), (QStringList{u"4 edited"_qs, u"5 e"_qs}));
  QCOMPARE(run.messages.size(), 6);
  QCOMPARE(records[0]->values().fixed, u"chosen meanwhile"_qs);
  QCOMPARE(records[1]->values().fixed, u"Processing…"_qs);
  QCOMPARE(records[2]->values().fixed, u"chosen"_qs);
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, PostwrightThreadTest)
#include "PostwrightThreadTest.moc"
