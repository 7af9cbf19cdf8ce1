// The batch call of PostwrightClient, apart from the rest of it: programs without a window link
// that and not this.

#include <postwright/NotificationCenter.h>
#include <postwright/PostwrightClient.h>
#include <postwright/PostwrightController.h>

#include "client/suite/ModalRun.h"

namespace postwright {

std::optional<QString> PostwrightClient::fixAddressWithDialog(
    const QList<std::shared_ptr<AddressEntry>>& entries, bool punctuation, qint32 capitalization,
    const std::optional<QString>& mixedCase) {
  PostwrightController controller(entries, punctuation, capitalization, mixedCase);
  if (runModalForWindow(controller) != RunStoppedResponse) {
    return std::nullopt;
  }
  std::optional<QString> first;
  for (const BatchResultRecordPointer& record : controller.results()) {
    record->entry()->setValue(record->values().fixed);
    if (!first) {
      first = record->entry()->value();
    }
  }
  NotificationCenter::defaultCenter()->postNotificationName(ReloadAddressBookNotification, this);
  return first;
}

}  // namespace postwright
