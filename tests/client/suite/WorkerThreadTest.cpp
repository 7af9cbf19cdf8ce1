#include "client/suite/WorkerThread.h"

#include <array>

#include "tests/client/ClientTestMain.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

constexpr int kMostSteps = 1000;

// Writes what it found, then reports each of its steps.
class Counter final : public WorkerThread {
 public:
  ~Counter() override { waitForEnd(); }
  std::array<int, kMostSteps> written{};  // each read while the next is written

 private:
  void threadTask(const QVariantMap& parameters) override {
    for (int i = 0; i < parameters.value(QStringLiteral("steps")).toInt(); ++i) {
      written.at(i) = i + 1;
      sendMessage(i, QStringLiteral("step %1").arg(i));
    }
    sendMessage(ThreadStopMessage);
  }
};

}  // namespace

class WorkerThreadTest : public QObject {
  Q_OBJECT

 private slots:
  void messagesArriveInOrderInNestedLoops();
  void portMayGoFirst();
};

void WorkerThreadTest::messagesArriveInOrderInNestedLoops() {
  Counter counter;
  MessagePort port;
  QList<qint32> identifiers;
  QEventLoop outer;
  QEventLoop inner;
  connect(&port, &MessagePort::messageReceived, this, [&](qint32 identifier, const QVariant& data) {
    QCOMPARE(QThread::currentThread(), thread());
    identifiers.append(identifier);
    if (identifier == ThreadStopMessage) {
      inner.quit();
      outer.quit();
      return;
    }
    QCOMPARE(data.toString(), QStringLiteral("step %1").arg(identifier));
    QCOMPARE(counter.written.at(identifier), identifier + 1);  // published by the message
    if (identifier == 0) {
      inner.exec();
    }
  });
  counter.detach({{QStringLiteral("steps"), 3}, {MachPortKey, QVariant::fromValue(port.sender())}});
  QTimer::singleShot(std::chrono::seconds(30), &outer, &QEventLoop::quit);
  outer.exec();
  QCOMPARE(identifiers, (QList<qint32>{0, 1, 2, ThreadStopMessage}));
}

void WorkerThreadTest::portMayGoFirst() {
  auto port = std::make_unique<MessagePort>();
  const MessageSender sender = port->sender();
  QVERIFY(sender.sendMessage(1));
  port.reset();
  QVERIFY(!sender.sendMessage(2));
  QVERIFY(!MessageSender().sendMessage(3));
  QCoreApplication::processEvents();  // there is no receiver any more

  Counter counter;  // ends although it has no port
  counter.detach({{QStringLiteral("steps"), kMostSteps}});
}

POSTWRIGHT_CLIENT_TEST_MAIN(QCoreApplication, WorkerThreadTest)
#include "WorkerThreadTest.moc"
