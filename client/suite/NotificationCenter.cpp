#include <postwright/NotificationCenter.h>

namespace postwright {

NotificationCenter* NotificationCenter::defaultCenter() {
  static NotificationCenter center;
  return &center;
}

void NotificationCenter::postNotificationName(const QString& name, QObject* object) {
  emit notificationPosted(name, object);
}

}  // namespace postwright
