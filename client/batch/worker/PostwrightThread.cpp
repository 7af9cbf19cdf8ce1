#include "client/batch/worker/PostwrightThread.h"

#include <new>

#include "client/batch/worker/TwinOutcomes.h"

namespace postwright {

PostwrightThread::~PostwrightThread() {
  waitForEnd();
}

void PostwrightThread::abandon() {
  cancel();
  *_abandoned = true;
}

void PostwrightThread::threadTask(const QVariantMap& parameters) {
  try {
    PostwrightClient client;
    client.setRemovePunctuation(parameters.value(RemovePunctuationKey).toBool());
    client.setCapitalization(parameters.value(CapitalizationKey).toInt());
    const QVariant mixedCase = parameters.value(MixedCaseKey);
    client.setMixedCase(mixedCase.isValid() ? std::optional(mixedCase.toString()) : std::nullopt);
    client.setAbandoned(_abandoned);
    fixRecords(parameters.value(PostwrightResultsKey).value<BatchResultRecordList>(),
               parameters.value(AskKey).value<AskFunction>(), client);
  } catch (const std::bad_alloc&) {
    // The run ends here: the records that were not reached keep the user's text and stay pending.
  }
  sendMessage(ThreadStopMessage);
}

void PostwrightThread::fixRecords(const BatchResultRecordList& records, const AskFunction& ask,
                                  PostwrightClient& client) {
  const auto askService = [&](const QString& address) {
    if (ask) {
      return ask(client, address);
    }
    std::optional<AddressFix> answer = client.fixAddress(address);
    return AddressOutcome{std::move(answer), client.lastResult().value_or(QString())};
  };
  TwinOutcomes twins(records);
  for (const BatchResultRecordPointer& record : records) {
    if (_cancel) {
      return;
    }
    const BatchResultRecord::Values values = record->values();
    if (values.pending && !values.ignored) {
      record->fix([&](const QString& address) { return twins.outcomeFor(address, askService); });
    }
    sendMessage(PostwrightUpdateMessage);
  }
}

}  // namespace postwright
