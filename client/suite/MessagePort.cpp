#include "client/suite/MessagePort.h"

#include <QCoreApplication>
#include <QEvent>
#include <deque>
#include <mutex>
#include <utility>

namespace postwright {

// The messages wait here, under a lock of our own, and the event that announces them is empty: what
// the sender wrote is thus published by the lock and not by the event queue.
struct MessageSender::Channel {
  struct Message {
    qint32 identifier;
    QVariant data;
  };

  // Called under the lock, which the port's destructor takes too: the port cannot go away
  // meanwhile.
  void announce() {
    announced = true;
    QCoreApplication::postEvent(port, new QEvent(QEvent::User));
  }

  std::mutex lock;
  std::deque<Message> messages;
  bool announced = false;  // an event is under way
  MessagePort* port = nullptr;
};

bool MessageSender::sendMessage(qint32 identifier, const QVariant& data) const {
  if (!_channel) {
    return false;
  }
  const std::lock_guard guard(_channel->lock);
  if (_channel->port == nullptr) {
    return false;
  }
  _channel->messages.push_back({identifier, data});
  if (!_channel->announced) {
    _channel->announce();
  }
  return true;
}

MessagePort::MessagePort(QObject* parent)
    : QObject(parent), _channel(std::make_shared<MessageSender::Channel>()) {
  _channel->port = this;
}

MessagePort::~MessagePort() {
  std::deque<MessageSender::Channel::Message> dropped;
  const std::lock_guard guard(_channel->lock);
  _channel->port = nullptr;
  dropped.swap(_channel->messages);
}

MessageSender MessagePort::sender() const {
  return MessageSender(_channel);
}

bool MessagePort::event(QEvent* event) {
  if (event->type() != QEvent::User) {
    return QObject::event(event);
  }
  MessageSender::Channel::Message message;
  {
    const std::lock_guard guard(_channel->lock);
    message = std::move(_channel->messages.front());
    _channel->messages.pop_front();
    _channel->announced = false;
    // The next is announced again, before this one is handled: an event that was posted before a
    // nested loop began would not wake that loop.
    if (!_channel->messages.empty()) {
      _channel->announce();
    }
  }
  emit messageReceived(message.identifier, message.data);  // may destroy this port
  return true;
}

}  // namespace postwright
