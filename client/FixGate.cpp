#include "client/FixGate.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <condition_variable>
#include <list>
#include <mutex>
#include <thread>

namespace postwright {
namespace {

struct Waiter {
  std::thread::id thread = std::this_thread::get_id();
  bool granted = false;
  QEventLoop* loop = nullptr;  // where the waiter handles events
  std::condition_variable wake;
};

struct Gate {
  std::mutex lock;
  bool taken = false;
  std::list<Waiter*> waiters;  // in the order of asking
};

Gate& TheGate() {
  static Gate gate;
  return gate;
}

// The client part knows no QGuiApplication (a program without windows links none), so the
// application is asked what it is.
bool IsWindowThread() {
  const QCoreApplication* application = QCoreApplication::instance();
  return application != nullptr && application->thread() == QThread::currentThread() &&
         application->inherits("QGuiApplication");
}

// Handles events until the turn has come or the loop is told to quit with the application.
void WaitHandlingEvents(Waiter& waiter, std::unique_lock<std::mutex>& guard) {
  QEventLoop loop;
  waiter.loop = &loop;
  guard.unlock();
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  guard.lock();
  waiter.loop = nullptr;
}

void Enter(Gate& gate) {
  std::unique_lock guard(gate.lock);
  if (!gate.taken) {
    gate.taken = true;
    return;
  }
  Waiter waiter;
  gate.waiters.push_back(&waiter);
  if (IsWindowThread()) {
    WaitHandlingEvents(waiter, guard);
  }
  waiter.wake.wait(guard, [&waiter] { return waiter.granted; });
}

// Hands the gate to the thread that has waited longest, there to the innermost waiter.
void Leave(Gate& gate) {
  const std::lock_guard guard(gate.lock);
  if (gate.waiters.empty()) {
    gate.taken = false;
    return;
  }
  const std::thread::id thread = gate.waiters.front()->thread;
  const auto innermost =
      std::find_if(gate.waiters.rbegin(), gate.waiters.rend(),
                   [thread](const Waiter* waiter) { return waiter->thread == thread; });
  Waiter* next = *innermost;
  gate.waiters.erase(std::next(innermost).base());
  next->granted = true;
  next->wake.notify_one();
  if (next->loop != nullptr) {
    QCoreApplication::postEvent(next->loop, new QEvent(QEvent::Quit));
  }
}

}  // namespace

FixGate::Pass::Pass() {
  Enter(TheGate());
}

FixGate::Pass::~Pass() {
  Leave(TheGate());
}

}  // namespace postwright
