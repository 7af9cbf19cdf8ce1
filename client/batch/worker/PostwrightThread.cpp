#include "client/batch/worker/PostwrightThread.h"

#include <algorithm>
#include <new>
#include <utility>

#include "client/batch/worker/TwinOutcomes.h"

namespace postwright {
namespace {

bool isDue(const BatchResultRecord& record) {
  const BatchResultRecord::Values values = record.values();
  return values.pending && !values.ignored;
}

}  // namespace

// What a run asks with.
struct PostwrightThread::Run {
  std::function<AddressOutcome(const QString&)> ask;
  TwinOutcomes twins;
  bool keepsPending;
  std::optional<Patience> patience;
};

PostwrightThread::~PostwrightThread() {
  waitForEnd();
}

void PostwrightThread::cancel() {
  const std::lock_guard guard(_lock);
  _cancel = true;
  _cancelled.notify_all();
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
    client.setCandidates(parameters.value(CandidatesKey).toInt());
    client.setAbandoned(_abandoned);
    const auto records = parameters.value(PostwrightResultsKey).value<BatchResultRecordList>();
    const auto ask = parameters.value(AskKey).value<AskFunction>();
    const QVariant patience = parameters.value(PatienceKey);
    Run run{[&](const QString& address) {
              if (ask) {
                return ask(client, address);
              }
              std::optional<AddressFix> answer = client.fixAddress(address);
              return AddressOutcome{.answer = std::move(answer),
                                    .message = client.lastResult().value_or(QString()),
                                    .confirmation = Confirmation(client.lastReport())};
            },
            TwinOutcomes(records), parameters.value(KeepsPendingKey).toBool(),
            patience.isValid() ? std::optional(patience.value<Patience>()) : std::nullopt};
    if (run.patience) {
      fixPatiently(records, run);
    } else {
      fixRecords(records, run);
    }
  } catch (const std::bad_alloc&) {
    // The run ends here: the records that were not reached keep the user's text and stay pending.
  }
  sendMessage(ThreadStopMessage);
}

void PostwrightThread::fixRecords(const BatchResultRecordList& records, Run& run) {
  for (const BatchResultRecordPointer& record : records) {
    if (_cancel) {
      return;
    }
    if (isDue(*record)) {
      isAnswered(*record, true, run);
      if (*_abandoned && run.keepsPending && isDue(*record)) {
        return;
      }
    }
    sendMessage(PostwrightUpdateMessage);
  }
}

// A record behind others that are held waits with them, whatever became of it: messages come in the
// list's order.
void PostwrightThread::fixPatiently(const BatchResultRecordList& records, Run& run) {
  constexpr int kInARow = 3;
  BatchResultRecordList held;
  int unanswered = 0;
  for (const BatchResultRecordPointer& record : records) {
    if (_cancel) {
      return;
    }
    const bool due = isDue(*record);
    const bool answered = !due || isAnswered(*record, false, run);
    held.append(record);
    unanswered = !answered ? unanswered + 1 : due ? 0 : unanswered;
    if (unanswered >= kInARow && !waitForService(held, run)) {
      return;
    }
    if (answered ? unanswered == 0 : unanswered >= kInARow) {
      settle(held, run);
      unanswered = 0;
    }
  }
  settle(held, run);
}

// Has every record of `held` its outcome, with one more question for those that had no answer: the
// service has been heard of, so what it leaves without one now is a matter of that address.
void PostwrightThread::settle(BatchResultRecordList& held, Run& run) {
  const BatchResultRecordList records = std::exchange(held, {});
  for (const BatchResultRecordPointer& record : records) {
    if (isDue(*record)) {
      if (_cancel) {
        return;
      }
      isAnswered(*record, true, run);
    }
    sendMessage(PostwrightUpdateMessage);
  }
}

// The records take turns at being asked about, so that one to which the service never answers does
// not stand for the service. False when the run is to end.
bool PostwrightThread::waitForService(const BatchResultRecordList& held, Run& run) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  std::chrono::milliseconds length = run.patience->firstPause;
  for (qsizetype turn = 0;; ++turn) {
    if (Clock::now() - start >= run.patience->giveUpAfter || !pause(length)) {
      return false;
    }
    BatchResultRecord& record = *held.at(turn % held.size());
    if (isDue(record) && isAnswered(record, false, run)) {
      return true;
    }
    length = std::min(2 * length, run.patience->longestPause);
  }
}

// Asks about a record that is due. One without an answer stays pending unless it is asked about
// `finally`.
bool PostwrightThread::isAnswered(BatchResultRecord& record, bool finally, Run& run) {
  bool answered = true;
  record.fix([&](const QString& address) -> std::optional<AddressOutcome> {
    AddressOutcome outcome = run.twins.outcomeFor(address, run.ask);
    answered = !outcome.isUnanswered();
    if (!answered && run.patience) {
      run.twins.forget(address);
    }
    const bool kept = !answered && (!finally || (*_abandoned && run.keepsPending));
    return kept ? std::nullopt : std::optional(std::move(outcome));
  });
  return answered;
}

// False when the run was cancelled meanwhile.
bool PostwrightThread::pause(std::chrono::milliseconds length) {
  std::unique_lock guard(_lock);
  return !_cancelled.wait_for(guard, length, [this] { return _cancel.load(); });
}

}  // namespace postwright
