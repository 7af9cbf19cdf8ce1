#ifndef POSTWRIGHT_CLIENT_SUITE_NOTIFICATIONCENTER_H_
#define POSTWRIGHT_CLIENT_SUITE_NOTIFICATIONCENTER_H_

#include <postwright/ClientExport.h>

#include <QObject>
#include <QString>

namespace postwright {

// Where parts of a program that do not know one another leave word. The library posts, hosts
// listen:
//
//   QObject::connect(NotificationCenter::defaultCenter(), &NotificationCenter::notificationPosted,
//                    this, [this](const QString& name) {
//                      if (name == ReloadAddressBookNotification) reload();
//                    });
class POSTWRIGHT_CLIENT_EXPORT NotificationCenter : public QObject {
  Q_OBJECT

 public:
  // The one centre of the process; never null, lives until the process ends. Any thread may ask.
  static NotificationCenter* defaultCenter();

  // Emits notificationPosted once, on the calling thread, before it returns: directly connected
  // listeners have then run, queued ones have not. `object` says who posts; it is passed on as it
  // is, may be null, and is not kept.
  void postNotificationName(const QString& name, QObject* object);

 signals:
  void notificationPosted(const QString& name, QObject* object);

 private:
  NotificationCenter() = default;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_SUITE_NOTIFICATIONCENTER_H_
