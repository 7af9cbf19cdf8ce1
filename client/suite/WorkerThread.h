#ifndef POSTWRIGHT_CLIENT_SUITE_WORKERTHREAD_H_
#define POSTWRIGHT_CLIENT_SUITE_WORKERTHREAD_H_

#include <QString>
#include <QVariant>
#include <thread>

#include "client/suite/MessagePort.h"

namespace postwright {

// Under this key the parameters of a worker hold the MessageSender of the port that it reports to.
inline const QString MachPortKey = QStringLiteral("MachPort");

// Identifier of the message with which a worker says that it has ended: 'thst'.
inline constexpr qint32 ThreadStopMessage = 0x74687374;

// A worker: one task on a thread of its own, which talks back through a message port.
//
//   class Counter final : public WorkerThread {
//    public:
//     ~Counter() override { waitForEnd(); }
//    private:
//     void threadTask(const QVariantMap& parameters) override {
//       ...
//       sendMessage(ThreadStopMessage);
//     }
//   };
//   counter->detach({{MachPortKey, QVariant::fromValue(port.sender())}});
//
// Nobody has to join the thread while it works: its owner hears from it through the port and lets
// go of it after the last message. Only the object waits for its thread, so that none outlives the
// library's code or the worker's own fields. Everything but sendMessage belongs to the owner's
// thread.
class WorkerThread {
 public:
  WorkerThread() = default;
  WorkerThread(const WorkerThread&) = delete;
  WorkerThread& operator=(const WorkerThread&) = delete;
  // The most derived destructor must have called waitForEnd().
  virtual ~WorkerThread();

  // Starts a thread that runs instanceThreadMethod(parameters); at most once for each object, or
  // again after the earlier run has ended. Throws std::system_error when the system grants no
  // thread.
  void detach(const QVariantMap& parameters);

  // The thread's entry: looks the port up under MachPortKey (without one, messages go nowhere) and
  // runs threadTask(parameters).
  void instanceThreadMethod(const QVariantMap& parameters);

 protected:
  // The task, on the worker's thread. Must not throw: an exception ends the process.
  virtual void threadTask(const QVariantMap& parameters) = 0;

  // Sends one message to the port; from threadTask() alone. A port that is gone swallows it.
  void sendMessage(qint32 identifier, const QVariant& data = {});

  // Blocks until the thread, if one was started, has ended. Never call it from threadTask().
  void waitForEnd();

 private:
  std::thread _thread;
  MessageSender _port;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_SUITE_WORKERTHREAD_H_
