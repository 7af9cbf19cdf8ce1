#include "client/batch/BatchWindow.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "client/LocalizedString.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/review/SameChange.h"
#include "client/batch/worker/PostwrightThread.h"
#include "ui_Postwright.h"

namespace postwright {

BatchWindow::BatchWindow(QDialog& window, const QList<std::shared_ptr<AddressEntry>>& entries,
                         const QVariantMap& workerSettings)
    : settings(workerSettings), records(entries), steps(records, runs), view(window) {
  constexpr std::chrono::milliseconds kUpdatesApart{40};
  _changesTimer.setSingleShot(true);
  _changesTimer.setInterval(kUpdatesApart);
  QObject::connect(&_changesTimer, &QTimer::timeout, [this] { showChanges(); });
  constexpr std::chrono::seconds kTold{1};
  _waitTimer.setInterval(kTold);
  QObject::connect(&_waitTimer, &QTimer::timeout, [this] { showNumbers(); });
  view.detail().setCountTwins(
      [this](const BatchResultRecord& record) { return records.twinsOf(record).size(); });
}

void BatchWindow::setOptions(const BatchOptions& chosen) {
  options = chosen;
  view.setOptions(chosen);
  if (chosen.keepsWork) {
    settings.insert(KeepsPendingKey, true);
  }
  if (chosen.reviewsCorrections) {
    settings.insert(ReviewKey, QVariant::fromValue(chosen.form));
  }
  if (chosen.sameFormForAll) {
    settings.insert(FormKey, true);
  }
  if (chosen.offersCandidates) {
    settings.insert(CandidatesKey, static_cast<int>(VerifyCandidate::kMost));
  }
  if (chosen.waitsForService) {
    settings.insert(PatienceKey, QVariant::fromValue(Patience{
                                     chosen.firstPause, chosen.longestPause, chosen.giveUpAfter}));
  }
}

BatchResultRecordPointer BatchWindow::selectedRecord() const {
  const int row = view.selectedRow();
  return row < 0 ? nullptr : view.records().at(row);
}

void BatchWindow::showList() {
  personSelects = false;
  view.showRecords(findRecords(records.all(), view.query()));
  personSelects = true;
  view.showListOrReason(records.all().size());
  showDetail();
}

void BatchWindow::showDetail() {
  const BatchResultRecordList selected = view.selectedRecords();
  view.layout().bnIgnore->setEnabled(!selected.isEmpty());
  if (selected.isEmpty()) {
    view.detail().showNothing();
  } else if (selected.size() > 1) {
    const ReviewCounts counts = countRecords(selected);
    view.detail().showSeveral(severalText(counts), counts.doubtful);
  } else {
    const BatchResultRecordPointer& record = selected.first();
    view.detail().showRecord(record);
    const bool isMendable = !record->values().proposal.isEmpty();
    view.detail().showProposal(*record, isMendable ? records.withProposalLike(*record).size() : 0);
  }
}

void BatchWindow::recordDone(const BatchResultRecordPointer& record) {
  if (record->entry() == nullptr) {
    return;  // a candidate that is being asked about, which is none of the list
  }
  _sinceAnswer.restart();
  _changed.append(record);
  if (!_changesTimer.isActive()) {
    _changesTimer.start();
  }
}

void BatchWindow::recordsChanged(const BatchResultRecordList& changed,
                                 const BatchResultRecordList& back) {
  BatchResultRecordList out;
  std::copy_if(changed.begin(), changed.end(), std::back_inserter(out),
               [this](const BatchResultRecordPointer& record) {
                 return record->values().ignored && view.addresses().rowOf(*record) >= 0;
               });
  _changed += changed;
  if (!out.isEmpty()) {
    takeOut(out);
  }
  if (!back.isEmpty()) {
    takeIn(back);
  }
  view.layout().bnUpdate->setEnabled(!runs.isBusy());
  showChanges();
}

void BatchWindow::takeOut(const BatchResultRecordList& out) {
  if (out.size() == 1) {
    view.removeRow(view.addresses().rowOf(*out.first()));
  } else {
    const QList<int> rows = view.selectedRows();
    BatchResultRecordList left = view.records();
    left.removeIf([](const BatchResultRecordPointer& record) { return record->values().ignored; });
    view.replaceRecords(left);
    if (!left.isEmpty() && !rows.isEmpty()) {
      view.selectRow(std::min(rows.first(), static_cast<int>(left.size()) - 1));
    }
  }
  if (view.records().isEmpty()) {
    view.layout().bnIgnore->setEnabled(false);
    view.showListOrReason(records.all().size());
  }
}

// In their places, where the list is in the host's order, and only those that the filter lets
// through: the others stay as they are until it is used.
void BatchWindow::takeIn(const BatchResultRecordList& back) {
  const RecordQuery query = view.query();
  const BatchResultRecordList found = findRecords(back, query);
  BatchResultRecordList shown = view.records() + found;
  if (query.order == RecordQuery::Order::Host) {
    records.sort(shown);
  }
  view.replaceRecords(shown);
  view.showListOrReason(records.all().size());
  if (!found.isEmpty()) {
    view.selectRow(view.addresses().rowOf(*found.first()));
  }
}

void BatchWindow::showChanges() {
  _changesTimer.stop();
  const BatchResultRecordList selected = view.selectedRecords();
  bool selectedChanged = false;
  for (const BatchResultRecordPointer& record : std::exchange(_changed, {})) {
    if (record->values().ignored) {
      continue;
    }
    records.update(*record);
    view.addresses().recordChanged(*record);
    selectedChanged |= selected.size() == 1 && record == selected.first();
  }
  if (selectedChanged || selected.size() > 1) {
    showDetail();
  }
  if (options.findsProblems && !personHasSelected && selected.isEmpty()) {
    const int row = nextProblem(-1);
    if (row >= 0) {
      personSelects = false;
      view.selectRow(row);
      personSelects = true;
    }
  }
  showNumbers();
}

// How long the run has waited for the service, where that is long enough to be told.
std::optional<std::chrono::seconds> BatchWindow::waited() const {
  constexpr std::chrono::seconds kNoticed{5};
  const auto waited =
      std::chrono::floor<std::chrono::seconds>(std::chrono::milliseconds(_sinceAnswer.elapsed()));
  const bool waits = options.waitsForService && runs.isListRunning() && waited >= kNoticed;
  return waits ? std::optional(waited) : std::nullopt;
}

std::optional<QString> BatchWindow::progress() const {
  if (closing) {
    return localizedString("SStopping");
  }
  if (runs.isListRunning()) {
    const qsizetype total = runs.total();
    const std::chrono::milliseconds elapsed(_elapsed.elapsed());
    if (const auto since = waited()) {
      return progressText(runs.done(), total, std::nullopt) + QStringLiteral(". ") +
             waitingText(*since);
    }
    return progressText(runs.done(), total, timeLeft(runs.done(), total, elapsed));
  }
  if (runs.isAskingAgain()) {
    return localizedString("SAskingAgain");
  }
  return stopped
             ? std::optional(stoppedText(records.counts()) + u' ' + summaryText(records.counts()))
             : std::nullopt;
}

QString BatchWindow::banner() const {
  const ReviewCounts& counts = records.counts();
  if (_gaveUp && counts.pending > 0) {
    return bannerText(counts, runs.whyUnanswered(), options.giveUpAfter);
  }
  return bannerText(counts, waited() ? runs.whyUnanswered() : records.whyUnanswered());
}

void BatchWindow::showNumbers() {
  const ReviewCounts& counts = records.counts();
  const bool running = runs.isListRunning();
  view.showNumbers(counts, progress(), banner());
  view.showReasons(records.reasons());
  Ui::Postwright& layout = view.layout();
  layout.bnStop->setVisible(options.keepsWork && running && !closing);
  layout.bnStop->setEnabled(!stopped);
  layout.bnGoOn->setVisible(options.keepsWork && !running && stopped && counts.pending > 0);
  layout.bnSummary->setVisible(options.summarizes && !running && counts.total() > 0);
}

void BatchWindow::startRun() {
  const BatchResultRecordList pending = records.pending();
  stopped = false;
  steps.setStopped(false);
  _gaveUp = false;
  Ui::Postwright& layout = view.layout();
  layout.scFilter->setEnabled(false);
  layout.bnUpdate->setEnabled(false);
  layout.piProgress->setMaximum(std::max(1, static_cast<int>(pending.size())));
  layout.piProgress->setValue(0);
  layout.piProgress->show();
  _elapsed.start();
  _sinceAnswer.start();
  if (options.waitsForService) {
    _waitTimer.start();
  }
  runs.setSettings(settings);
  runs.start(pending);
  showNumbers();
}

void BatchWindow::runEnded(bool finished) {
  _waitTimer.stop();
  Ui::Postwright& layout = view.layout();
  layout.scFilter->setEnabled(true);
  layout.bnUpdate->setEnabled(!runs.isBusy());
  layout.piProgress->hide();
  _gaveUp = options.waitsForService && !finished && !stopped && !closing && !retryWhenStopped;
  showChanges();
}

int BatchWindow::nextProblem(int row) const {
  const BatchResultRecordList& shown = view.records();
  const auto count = static_cast<int>(shown.size());
  for (int passed = 1; passed <= count; ++passed) {
    const int at = (row + passed) % count;
    if (at >= 0 && needsPerson(shown.at(at)->values())) {
      return at;
    }
  }
  return -1;
}

void BatchWindow::goOnToProblem() {
  const int row = options.editsAnyRecord ? nextProblem(view.selectedRow()) : -1;
  if (row >= 0) {
    view.selectRow(row);
  }
}

BatchResultRecordList BatchWindow::withTwins(const BatchResultRecordPointer& record) const {
  BatchResultRecordList found{record};
  if (view.detail().isTwinsChecked()) {
    found += records.twinsOf(*record);
  }
  return found;
}

QList<Change> BatchWindow::changesBy(const BatchResultRecord& record) const {
  const BatchResultRecord::Values values = record.values();
  const QString typed = record.entry()->value();
  return wordChanges(typed, values.own ? values.fixed : values.address);
}

bool BatchWindow::hasWork() const {
  return records.counts().toApply() > 0 || view.detail().hasDrafts() || steps.hasSteps();
}

}  // namespace postwright
