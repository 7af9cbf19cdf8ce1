#ifndef POSTWRIGHT_CLIENT_SUITE_MESSAGEPORT_H_
#define POSTWRIGHT_CLIENT_SUITE_MESSAGEPORT_H_

#include <QMetaType>
#include <QObject>
#include <QVariant>
#include <memory>

namespace postwright {

class MessagePort;

// The sending end of a MessagePort: a small value that any number of threads may copy and use.
class MessageSender {
 public:
  // A sender without a port: sends nothing.
  MessageSender() = default;

  // Hands `identifier` and `data` to the port and returns at once, from any thread; false when the
  // port is gone or there never was one. Messages of one thread arrive in the order of sending, and
  // whatever that thread wrote before is seen by the thread that receives.
  bool sendMessage(qint32 identifier, const QVariant& data = {}) const;

 private:
  friend class MessagePort;
  struct Channel;
  explicit MessageSender(std::shared_ptr<Channel> channel) : _channel(std::move(channel)) {}

  std::shared_ptr<Channel> _channel;
};

// A port: messages sent from any thread come out in the thread that owns it.
//
//   MessagePort port;
//   QObject::connect(&port, &MessagePort::messageReceived, this, &Window::handlePortMessage);
//   startWorker(port.sender());
//
// Delivery is by event, so the owner's thread needs an event loop, and a nested one (a modal
// window, a dialog above it) serves as well as the first. Each message is delivered once or, when
// the port is destroyed first, never.
class MessagePort : public QObject {
  Q_OBJECT

 public:
  explicit MessagePort(QObject* parent = nullptr);
  // Belongs to the owner's thread. Messages that were not delivered are dropped.
  ~MessagePort() override;

  MessageSender sender() const;

 signals:
  void messageReceived(qint32 identifier, const QVariant& data);

 protected:
  bool event(QEvent* event) override;

 private:
  std::shared_ptr<MessageSender::Channel> _channel;
};

}  // namespace postwright

Q_DECLARE_METATYPE(postwright::MessageSender)

#endif  // POSTWRIGHT_CLIENT_SUITE_MESSAGEPORT_H_
