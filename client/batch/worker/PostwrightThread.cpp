#include "client/batch/worker/PostwrightThread.h"

#include <postwright/ReviewedFix.h>

#include <algorithm>
#include <new>
#include <utility>

#include "client/batch/worker/TwinOutcomes.h"

namespace postwright {
namespace {

AddressOutcome askPlainly(PostwrightClient& client, const QString& address) {
  std::optional<AddressFix> answer = client.fixAddress(address);
  return {.answer = std::move(answer),
          .message = client.lastResult().value_or(QString()),
          .confirmation = Confirmation(client.lastReport()),
          .footnotes = client.lastReport().Footnotes()};
}

bool isDue(const BatchResultRecord& record) {
  const BatchResultRecord::Values values = record.values();
  return values.pending && !values.ignored;
}

AskFunction askFunctionOf(const QVariantMap& parameters, PostwrightClient& client) {
  if (AskFunction ask = parameters.value(AskKey).value<AskFunction>()) {
    return ask;
  }
  const QVariant form = parameters.value(ReviewKey);
  if (!form.isValid()) {
    return askPlainly;
  }
  client.setRemovePunctuation(false);
  client.setWantsSource(true);
  return [form = form.value<LabelForm>()](PostwrightClient& asking, const QString& label) {
    return fixReviewed(asking, label, {.form = form});
  };
}

}  // namespace

// What a run asks with.
struct PostwrightThread::Run {
  std::function<AddressOutcome(const QString&)> ask;
  TwinOutcomes twins;
  bool keepsPending;
  bool givesForm;
  std::optional<Patience> patience;
  std::chrono::seconds retryAfter{0};  // what the service wanted where it last gave no answer
  qsizetype next = 0;                  // of the records
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

QString PostwrightThread::whyUnanswered() const {
  const std::lock_guard guard(_lock);
  return _whyUnanswered;
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
    const AskFunction ask = askFunctionOf(parameters, client);
    const QVariant patience = parameters.value(PatienceKey);
    Run run{[&](const QString& address) {
              AddressOutcome outcome = ask(client, address);
              const bool isPutOff = outcome.isUnanswered();
              run.retryAfter =
                  std::chrono::seconds(isPutOff ? client.lastReport().Fetch().retryAfter : 0);
              const std::lock_guard guard(_lock);
              _whyUnanswered = isPutOff ? outcome.remark : QString();
              return outcome;
            },
            TwinOutcomes(records), parameters.value(KeepsPendingKey).toBool(),
            parameters.value(FormKey).toBool(),
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
      ask(*record, true, run);
      if (*_abandoned && run.keepsPending && isDue(*record)) {
        return;
      }
    }
    sendMessage(PostwrightUpdateMessage);
  }
}

// A record after others that are held waits with them, whatever became of it: messages come in the
// list's order. One that nobody was asked about says nothing of the service.
void PostwrightThread::fixPatiently(const BatchResultRecordList& records, Run& run) {
  constexpr int kInARow = 3;
  BatchResultRecordList held;
  int unanswered = 0;
  while (run.next < records.size()) {
    if (_cancel) {
      return;
    }
    const BatchResultRecordPointer& record = records.at(run.next++);
    const Reply reply = isDue(*record) ? ask(*record, false, run) : Reply::kNobodyAsked;
    held.append(record);
    unanswered = reply == Reply::kNone ? unanswered + 1 : reply == Reply::kAnswer ? 0 : unanswered;
    const bool isAway =
        reply == Reply::kNone && (unanswered >= kInARow || run.retryAfter.count() > 0);
    if (isAway && !waitForService(records, held, run)) {
      return;
    }
    if (isAway || unanswered == 0) {
      settle(held, run);
      unanswered = 0;
    }
  }
  settle(held, run);
}

// Has every record of `held` its outcome, with one more question for those that had no answer: the
// service has been heard of, so what it leaves without one now is a matter of that address, unless
// it puts it off once more.
void PostwrightThread::settle(BatchResultRecordList& held, Run& run) {
  const BatchResultRecordList records = std::exchange(held, {});
  for (const BatchResultRecordPointer& record : records) {
    if (isDue(*record)) {
      if (_cancel) {
        return;
      }
      while (ask(*record, true, run) == Reply::kNone && run.patience && isDue(*record)) {
        if (*_abandoned || !pause(run.retryAfter)) {
          return;
        }
      }
    }
    sendMessage(PostwrightUpdateMessage);
  }
}

// The records take turns at being asked about, and then a new one, so that those to which the
// service never answers do not stand for the service. False when the run is to end.
bool PostwrightThread::waitForService(const BatchResultRecordList& records,
                                      BatchResultRecordList& held, Run& run) {
  using Clock = std::chrono::steady_clock;
  Clock::time_point start = Clock::now();
  std::chrono::milliseconds length = run.patience->firstPause;
  for (qsizetype turn = 0;; ++turn) {
    if (run.retryAfter.count() > 0) {
      if (!pause(run.retryAfter)) {
        return false;
      }
      start = Clock::now();
      length = run.patience->firstPause;
    } else if (Clock::now() - start >= run.patience->giveUpAfter || !pause(length)) {
      return false;
    } else {
      length = std::min(2 * length, run.patience->longestPause);
    }
    const bool isNew = turn >= held.size() && run.next < records.size();
    if (isNew) {
      held.append(records.at(run.next++));
    }
    turn = isNew ? -1 : turn % held.size();
    if (hasAnswer(isNew ? *held.last() : *held.at(turn), run)) {
      return true;
    }
  }
}

bool PostwrightThread::hasAnswer(BatchResultRecord& record, Run& run) {
  return isDue(record) && ask(record, false, run) == Reply::kAnswer;
}

// Asks about a record that is due. One without an answer stays pending unless it is asked about
// `finally`.
PostwrightThread::Reply PostwrightThread::ask(BatchResultRecord& record, bool finally, Run& run) {
  Reply reply = Reply::kNobodyAsked;
  record.fix([&](const QString& address) -> std::optional<AddressOutcome> {
    AddressOutcome outcome = run.twins.outcomeFor(address, run.ask);
    outcome.givesForm |= run.givesForm;
    const bool answered = !outcome.isUnanswered();
    reply = !answered ? Reply::kNone : outcome.isAsked ? Reply::kAnswer : Reply::kNobodyAsked;
    if (!answered && run.patience) {
      run.twins.forget(address);
    }
    const bool isPutOff = run.patience && run.retryAfter.count() > 0;
    const bool kept = !answered && (!finally || isPutOff || (*_abandoned && run.keepsPending));
    return kept ? std::nullopt : std::optional(std::move(outcome));
  });
  return reply;
}

// False when the run was cancelled meanwhile.
bool PostwrightThread::pause(std::chrono::milliseconds length) {
  std::unique_lock guard(_lock);
  return !_cancelled.wait_for(guard, length, [this] { return _cancel.load(); });
}

}  // namespace postwright
