#include "client/suite/WorkerThread.h"

namespace postwright {

WorkerThread::~WorkerThread() {
  Q_ASSERT_X(!_thread.joinable(), "WorkerThread", "a worker's destructor must call waitForEnd()");
}

void WorkerThread::detach(const QVariantMap& parameters) {
  waitForEnd();
  _thread = std::thread([this, parameters] { instanceThreadMethod(parameters); });
}

void WorkerThread::instanceThreadMethod(const QVariantMap& parameters) {
  _port = parameters.value(MachPortKey).value<MessageSender>();
  threadTask(parameters);
}

void WorkerThread::sendMessage(qint32 identifier, const QVariant& data) {
  _port.sendMessage(identifier, data);
}

void WorkerThread::waitForEnd() {
  if (_thread.joinable()) {
    _thread.join();
  }
}

}  // namespace postwright
