#ifndef POSTWRIGHT_CLIENT_BATCH_WORKER_TWINOUTCOMES_H_
#define POSTWRIGHT_CLIENT_BATCH_WORKER_TWINOUTCOMES_H_

#include <postwright/BatchResultRecord.h>

#include <QHash>
#include <functional>
#include <optional>

namespace postwright {

// Asks once about a text that is in a list several times.
//
//   TwinOutcomes twins(records);
//   record->fix([&](const QString& address) { return twins.outcomeFor(address, askService); });
//
// Remembers the outcomes of texts that have twins in the list, and of no others. Each caller gets
// candidates of its own: what the user names in one record does not show in its twin, and no two
// threads share one. Belongs to one thread.
class TwinOutcomes {
 public:
  explicit TwinOutcomes(const BatchResultRecordList& records);

  // Returns the outcome for `address`, from `ask` unless a twin was asked about before.
  AddressOutcome outcomeFor(const QString& address,
                            const std::function<AddressOutcome(const QString&)>& ask);

  // Has the next caller ask about `address` again.
  void forget(const QString& address);

 private:
  QHash<QString, std::optional<AddressOutcome>> _outcomes;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_WORKER_TWINOUTCOMES_H_
