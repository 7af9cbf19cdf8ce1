// What the person does to the records of a batch window: the other half of PostwrightController.

#include <postwright/AddressBookDesignatorController.h>
#include <postwright/PostwrightController.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

#include "client/LocalizedString.h"
#include "client/batch/BatchQuestions.h"
#include "client/batch/BatchWindow.h"
#include "client/batch/CandidateChoice.h"
#include "client/batch/review/BatchReport.h"
#include "client/batch/review/SameChange.h"
#include "client/suite/ModalRun.h"
#include "ui_Postwright.h"

namespace postwright {

using Values = BatchResultRecord::Values;

namespace {

// The text as typed, offered beside a doubtful correction, is nothing to write back.
void takeMatch(Values& values, const QString& address) {
  values.own = values.isDoubtful() && address == values.address;
  values.fixed = address;
  values.status = values.own ? AddressStatusUnchanged : AddressStatusFixed;
  values.pending = false;
}

}  // namespace

void PostwrightController::reFixAddress(const QString& address) {
  const BatchResultRecordPointer record = _window->selectedRecord();
  if (record == nullptr) {
    return;
  }
  const BatchResultRecordList asked =
      _window->options.selectsSeveral ? _window->withTwins(record) : BatchResultRecordList{record};
  _window->view.detail().forgetDraft(*record);
  _window->steps.take(localizedString("SStepAsk", asked.size()), asked, [&](Values& values) {
    values.address = address;
    values.mended = false;
    values.pending = true;
  });
}

void PostwrightController::bnUseProposalClick() {
  if (const BatchResultRecordPointer record = _window->selectedRecord()) {
    takeProposals({record});
  }
}

void PostwrightController::bnUseProposalsClick() {
  if (const BatchResultRecordPointer record = _window->selectedRecord()) {
    takeProposals(_window->records.withProposalLike(*record));
  }
}

// The faults are mended as the window says, and what comes of that is asked about.
void PostwrightController::takeProposals(const BatchResultRecordList& records) {
  for (const BatchResultRecordPointer& record : records) {
    _window->view.detail().forgetDraft(*record);
  }
  _window->steps.take(localizedString("SStepAsk", records.size()), records, [](Values& values) {
    values.address = values.proposal;
    values.mended = true;
    values.pending = true;
  });
  _window->goOnToProblem();
}

// The person has settled a record and goes on to the next; the keyboard stays where it is.
void PostwrightController::reFix(const QString& address) {
  reFixAddress(address);
  _window->goOnToProblem();
}

void PostwrightController::bnFixErrorAddressClick() {
  reFix(_window->view.detail().editedText());
}

void PostwrightController::bnFixMultipleAddressClick() {
  reFix(_window->view.detail().editedText());
}

void PostwrightController::bnFixEditedAddressClick() {
  reFix(_window->view.detail().editedText());
}

void PostwrightController::bnAskAgainClick() {
  const BatchResultRecordList records = _window->view.selectedRecords();
  _window->steps.take(localizedString("SStepAsk", records.size()), records,
                      [](Values& values) { values.pending = true; });
}

void PostwrightController::bnChooseSelectedAddressClick() {
  const BatchResultRecordPointer record = _window->selectedRecord();
  const int match = _window->view.detail().selectedMatch();
  if (record == nullptr || match < 0) {
    return;
  }
  const QList<PostwrightSelectorPointer> matches = record->values().matches;
  if (match >= matches.size()) {
    return;  // the record has changed and the list of candidates not yet
  }
  if (const QList<AddressMatch> candidates = record->values().candidates; !candidates.isEmpty()) {
    chooseCandidate(*this, *_window, record, candidates.at(match));
    return;
  }
  const PostwrightSelectorPointer& candidate = matches.at(match);
  const BatchResultRecordList chosen = _window->withTwins(record);
  if (candidate->hasRange()) {
    AddressBookDesignatorController designator(candidate);
    runModalForWindow(designator, this);
  }
  const std::optional<QString> address = candidate->fixedAddress();
  if (!address) {
    return;
  }
  _window->steps.take(localizedString("SStepChoose", chosen.size()), chosen,
                      [&](Values& values) { takeMatch(values, *address); });
}

void PostwrightController::bnAcceptDoubtfulClick() {
  BatchResultRecordList doubtful = _window->view.selectedRecords();
  doubtful.removeIf([](const BatchResultRecordPointer& record) {
    const Values values = record->values();
    return values.pending || !values.isDoubtful();
  });
  _window->steps.take(localizedString("SStepAccept", doubtful.size()), doubtful,
                      [](Values& values) { takeMatch(values, values.standard); });
}

void PostwrightController::bnUseAddressClick() {
  if (const BatchResultRecordPointer record = _window->selectedRecord()) {
    _window->steps.take(localizedString("SStepUse", 1), {record}, [](Values& values) {
      values.own = !values.isWellWritten();
      values.fixed = values.own ? values.address : values.fixed;
      values.status = AddressStatusFixed;
      values.pending = false;
    });
  }
}

void PostwrightController::bnKeepTextClick() {
  const BatchResultRecordPointer record = _window->selectedRecord();
  if (record == nullptr) {
    return;
  }
  const QString text = _window->view.detail().ownText();
  const BatchResultRecordList kept = _window->withTwins(record);
  _window->view.detail().forgetDraft(*record);
  _window->steps.take(localizedString("SStepUse", kept.size()), kept, [&](Values& values) {
    values.fixed = text;
    values.status = AddressStatusFixed;
    values.pending = false;
    values.own = true;
  });
  _window->goOnToProblem();
}

void PostwrightController::bnTakeTypedClick() {
  const BatchResultRecordList records = _window->view.selectedRecords();
  _window->steps.take(localizedString("SStepTyped", records.size()), records, [](Values& values) {
    values.own = !values.isWellWritten();
    values.fixed = values.address;
    values.status = AddressStatusUnchanged;
    values.pending = false;
  });
}

void PostwrightController::bnIgnoreClick() {
  const BatchResultRecordList records = _window->view.selectedRecords();
  for (const BatchResultRecordPointer& record : records) {
    _window->view.detail().forgetDraft(*record);
  }
  _window->steps.take(localizedString("SStepIgnore", records.size()), records,
                      [](Values& values) { values.ignored = true; });
}

void PostwrightController::sameForAll() {
  const BatchResultRecordPointer record = _window->selectedRecord();
  const QList<Change> changes = record != nullptr ? _window->changesBy(*record) : QList<Change>();
  const BatchResultRecordList records =
      record != nullptr ? recordsToChange(_window->records.all(), changes, *record)
                        : BatchResultRecordList();
  QStringList texts;
  for (const BatchResultRecordPointer& one : records) {
    texts.append(one->values().address);
  }
  if (records.isEmpty() || !askSameForAll(*this, changes, texts)) {
    return;
  }
  _window->steps.take(localizedString("SStepSame", records.size()), records, [&](Values& values) {
    values.address = withChanges(values.address, changes);
    values.mended = false;
    values.pending = true;
  });
}

void PostwrightController::undo() {
  _window->steps.stack().undo();
}

void PostwrightController::redo() {
  _window->steps.stack().redo();
}

void PostwrightController::copy() const {
  const BatchResultRecordList records = _window->view.selectedRecords();
  if (records.isEmpty()) {
    return;
  }
  auto* rows = new QMimeData;
  rows->setText(labelsOf(records));
  rows->setData(QStringLiteral("text/csv"), csvReport(records).toUtf8());
  QApplication::clipboard()->setMimeData(rows);
}

}  // namespace postwright
