#include "client/FixGate.h"

#include <postwright/Deployment.h>
#include <postwright/PostwrightClient.h>

#include <QApplication>
#include <QWidget>
#include <atomic>
#include <future>
#include <thread>

#include "tests/client/ClientTestMain.h"
#include "tests/support/LoopbackServer.h"

using namespace postwright;  // NOLINT(google-build-using-namespace)

namespace {

// A thread that holds the gate from construction until it is told to leave.
class Holder {
 public:
  Holder()
      : _thread([this] {
          const FixGate::Pass pass;
          _holds.set_value();
          _leave.get_future().wait_for(std::chrono::seconds(30));  // a hanging wait fails
        }) {
    _holds.get_future().wait();
  }
  ~Holder() { _thread.join(); }
  void leave() { _leave.set_value(); }

 private:
  std::promise<void> _holds;
  std::promise<void> _leave;
  std::thread _thread;
};

class Window : public QWidget {
 public:
  int paints = 0;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
};

}  // namespace

class FixGateTest : public QObject {
  Q_OBJECT

 private slots:
  void clientsOfManyThreadsTakeTurns();
  void waitingWindowIsPainted();
  void waitersInsideOneAnotherAllGetTheirTurn();
  void busyThreadKeepsNobodyWaiting();
};

void FixGateTest::clientsOfManyThreadsTakeTurns() {
  const LoopbackServer server([](const std::string& request) {
    const bool first = request.find("AUSTIN") != std::string::npos;
    return LoopbackServer::Page("<R><Address><City>" + std::string(first ? "AUSTIN" : "DALLAS") +
                                "</City></Address></R>");
  });
  SetDeployment({.verifyHost = server.GetEndpoint(), .userId = "T", .probeHost = "127.0.0.1"});
  std::atomic<int> right = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&right, city = i % 2 == 0 ? u"AUSTIN"_qs : u"DALLAS"_qs] {
      PostwrightClient client;
      for (int fix = 0; fix < 10; ++fix) {
        const std::optional<QString> text =
            client.fixAddressQuick(u"12 main st\n"_qs + city + u" tx 78701"_qs);
        right += text.value_or(QString()).startsWith(city) ? 1 : 0;
      }
    });
  }
  PostwrightClient client;  // and the thread of the windows among them
  QCOMPARE(client.fixAddressQuick(u"12 main st\naustin tx 78701"_qs).value_or(QString()),
           u"AUSTIN"_qs);
  for (std::thread& thread : threads) {
    thread.join();
  }
  QCOMPARE(right.load(), 40);
}

void FixGateTest::waitingWindowIsPainted() {
  Window window;
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));
  Holder holder;
  int paintsInside = 0;
  QTimer timer;
  connect(&timer, &QTimer::timeout, this, [&] {
    window.update();
    paintsInside = paintsInside == 0 ? window.paints : paintsInside;
    if (window.paints >= paintsInside + 2) {
      timer.stop();
      holder.leave();
    }
  });
  timer.start(0);
  const FixGate::Pass pass;
  QVERIFY(!timer.isActive());
}

void FixGateTest::waitersInsideOneAnotherAllGetTheirTurn() {
  Holder holder;
  QStringList order;
  QTimer::singleShot(0, this, [&] {
    QTimer::singleShot(0, this, [&holder] { holder.leave(); });
    const FixGate::Pass pass;
    order.append(u"inner"_qs);
  });
  {
    const FixGate::Pass pass;
    order.append(u"outer"_qs);
  }
  QCOMPARE(order, (QStringList{u"inner"_qs, u"outer"_qs}));
}

void FixGateTest::busyThreadKeepsNobodyWaiting() {
  std::atomic<int> passes = 0;
  std::atomic<bool> stop = false;
  std::thread busy([&] {
    while (!stop) {
      const FixGate::Pass pass;
      ++passes;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  });
  int waitingSince = -1;
  for (int i = 0; i < 20; ++i) {
    waitingSince = -1;
    QTimer::singleShot(0, this, [&] { waitingSince = passes; });  // runs inside the wait
    const FixGate::Pass pass;
    QVERIFY(waitingSince < 0 || passes <= waitingSince + 1);
    QCoreApplication::processEvents();
  }
  stop = true;
  busy.join();
}

POSTWRIGHT_CLIENT_TEST_MAIN(QApplication, FixGateTest)
#include "FixGateTest.moc"
