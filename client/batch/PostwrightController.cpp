#include <postwright/AddressBookDesignatorController.h>
#include <postwright/PostwrightController.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QItemSelectionModel>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <system_error>

#include "client/LocalizedString.h"
#include "client/batch/BatchKeys.h"
#include "client/batch/BatchView.h"
#include "client/batch/StatusIcons.h"
#include "client/batch/review/BatchTexts.h"
#include "client/batch/worker/BatchWorker.h"
#include "client/suite/ModalRun.h"
#include "ui_Postwright.h"

namespace postwright {

// Everything that the window holds. The worker's list is a copy of _results, so that a record can
// leave the window while the worker runs; the records themselves are shared.
class PostwrightController::Window {
 public:
  Window(PostwrightController& window, bool removePunctuation, qint32 capitalization,
         const std::optional<QString>& mixedCase)
      : _capitalization(capitalization),
        _removePunctuation(removePunctuation),
        _mixedCase(mixedCase),
        _view(window) {}

  QVariantMap workerParameters(const BatchWorker& worker) const;
  bool isBusy() const { return _thread != nullptr || _reFix != nullptr; }
  BatchResultRecordPointer selectedRecord();
  BatchResultRecordList twinsOf(const BatchResultRecord& record) const;
  void recordChanged(const BatchResultRecordPointer& record);
  void showChanges();
  void showNumbers();

  BatchResultRecordList _results;
  const qint32 _capitalization;
  const bool _removePunctuation;
  const std::optional<QString> _mixedCase;
  AskFunction _ask;
  std::unique_ptr<BatchWorker> _thread;
  std::unique_ptr<BatchWorker> _reFix;   // for records whose text was edited
  BatchResultRecordList _reFixesToCome;  // behind those of _reFix
  bool _loaded = false;
  bool _closing = false;
  bool _retryWhenStopped = false;
  QElapsedTimer _elapsed;

  ReviewTally _tally;
  BatchResultRecordList _changed;  // since the window was last brought up to date
  QTimer _changesTimer;
  BatchView _view;
};

QVariantMap PostwrightController::Window::workerParameters(const BatchWorker& worker) const {
  QVariantMap parameters{{PostwrightResultsKey, QVariant::fromValue(worker.records)},
                         {RemovePunctuationKey, _removePunctuation},
                         {CapitalizationKey, _capitalization},
                         {MachPortKey, QVariant::fromValue(worker.port.sender())}};
  if (_mixedCase) {
    parameters.insert(MixedCaseKey, *_mixedCase);
  }
  if (_ask) {
    parameters.insert(AskKey, QVariant::fromValue(_ask));
  }
  return parameters;
}

BatchResultRecordPointer PostwrightController::Window::selectedRecord() {
  const int row = _view.selectedRow();
  return row < 0 ? nullptr : _view.addresses().records().at(row);
}

// The other records of the same text that wait for the same choice.
BatchResultRecordList PostwrightController::Window::twinsOf(const BatchResultRecord& record) const {
  const QString address = record.values().address;
  BatchResultRecordList twins;
  std::copy_if(_results.begin(), _results.end(), std::back_inserter(twins),
               [&](const BatchResultRecordPointer& other) {
                 const BatchResultRecord::Values values = other->values();
                 return other.get() != &record && !values.pending &&
                        values.status == AddressStatusMultiple && values.address == address;
               });
  return twins;
}

// Results come in faster than a person reads: what has changed is shown in one go, soon.
void PostwrightController::Window::recordChanged(const BatchResultRecordPointer& record) {
  _changed.append(record);
  if (!_changesTimer.isActive()) {
    _changesTimer.start();
  }
}

void PostwrightController::Window::showChanges() {
  _changesTimer.stop();
  const BatchResultRecordPointer selected = selectedRecord();
  bool selectedChanged = false;
  for (const BatchResultRecordPointer& record : std::exchange(_changed, {})) {
    if (record->values().ignored) {
      continue;
    }
    _tally.update(*record);
    _view.addresses().recordChanged(*record);
    selectedChanged |= record == selected;
  }
  if (selectedChanged) {
    const bool multiple = selected->values().status == AddressStatusMultiple;
    _view.detail().showRecord(selected, multiple ? twinsOf(*selected).size() : 0);
  }
  showNumbers();
}

void PostwrightController::Window::showNumbers() {
  std::optional<QString> progress;
  if (_closing) {
    progress = localizedString("SStopping");
  } else if (_thread != nullptr) {
    const std::chrono::milliseconds elapsed(_elapsed.elapsed());
    const qsizetype total = _thread->records.size();
    progress = progressText(_thread->done, total, timeLeft(_thread->done, total, elapsed));
  } else if (_reFix != nullptr) {
    progress = localizedString("SAskingAgain");
  }
  _view.showNumbers(_tally.counts(), progress);
}

PostwrightController::PostwrightController(const QList<std::shared_ptr<AddressEntry>>& addresses,
                                           bool removePunctuation, qint32 capitalization,
                                           const std::optional<QString>& mixedCase, QWidget* parent)
    : QDialog(parent),
      _window(std::make_unique<Window>(*this, removePunctuation, capitalization, mixedCase)) {
  _window->_results.reserve(addresses.size());
  for (const std::shared_ptr<AddressEntry>& entry : addresses) {
    _window->_results.append(std::make_shared<BatchResultRecord>(entry));
  }
  constexpr std::chrono::milliseconds kUpdatesApart{40};
  _window->_changesTimer.setSingleShot(true);
  _window->_changesTimer.setInterval(kUpdatesApart);
  connect(&_window->_changesTimer, &QTimer::timeout, this, [this] { _window->showChanges(); });
}

PostwrightController::~PostwrightController() {
  for (const auto* worker : {&_window->_thread, &_window->_reFix}) {
    if (*worker != nullptr) {
      (*worker)->thread.abandon();
    }
  }
}

void PostwrightController::setAsk(AskFunction ask) {
  _window->_ask = std::move(ask);
}

BatchResultRecordList PostwrightController::results() const {
  BatchResultRecordList fixed;
  std::copy_if(_window->_results.begin(), _window->_results.end(), std::back_inserter(fixed),
               [](const BatchResultRecordPointer& record) {
                 return record->values().status == AddressStatusFixed;
               });
  return fixed;
}

BatchResultRecordList PostwrightController::records() const {
  return _window->_results;
}

void PostwrightController::setVisible(bool visible) {
  if (visible && !_window->_loaded) {
    _window->_loaded = true;
    windowDidLoad();
  }
  QDialog::setVisible(visible);
}

void PostwrightController::windowDidLoad() {
  Ui::Postwright& layout = _window->_view.layout();
  connect(layout.tvAddresses->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &PostwrightController::updateContent);
  connect(layout.scFilter, &SegmentedControl::clicked, this, &PostwrightController::scFilterClick);
  const std::pair<QPushButton*, void (PostwrightController::*)()> buttons[] = {
      {layout.bnFixErrorAddress, &PostwrightController::bnFixErrorAddressClick},
      {layout.bnFixMultipleAddress, &PostwrightController::bnFixMultipleAddressClick},
      {layout.bnChooseSelectedAddress, &PostwrightController::bnChooseSelectedAddressClick},
      {layout.bnUseAddress, &PostwrightController::bnUseAddressClick},
      {layout.bnShowAll, &PostwrightController::bnShowAllClick},
      {layout.bnRetry, &PostwrightController::bnRetryClick},
      {layout.bnIgnore, &PostwrightController::bnIgnoreClick},
      {layout.bnUpdate, &PostwrightController::bnUpdateClick},
      {layout.bnCancel, &PostwrightController::bnCancelClick},
  };
  for (const auto& [button, click] : buttons) {
    connect(button, &QPushButton::clicked, this, click);
  }
  new BatchKeys(*this, _window->_view);
  for (const BatchResultRecordPointer& record : _window->_results) {
    _window->_tally.update(*record);
  }
  filterWithStatus();
  layout.tvAddresses->setFocus();
  runPostwrightThread();
}

void PostwrightController::filterWithStatus() {
  BatchView& view = _window->_view;
  view.showRecords(filterRecords(_window->_results, view.filter()));
  view.showListOrReason(_window->_results.size());
  updateContent();
}

void PostwrightController::scFilterClick() {
  filterWithStatus();
}

void PostwrightController::bnShowAllClick() {
  _window->_view.selectAllSegments();
  filterWithStatus();
}

void PostwrightController::updateContent() {
  BatchView& view = _window->_view;
  const BatchResultRecordPointer record = _window->selectedRecord();
  view.layout().bnIgnore->setEnabled(record != nullptr);
  if (record == nullptr) {
    view.detail().showNothing();
    return;
  }
  const bool multiple = record->values().status == AddressStatusMultiple;
  view.detail().showRecord(record, multiple ? _window->twinsOf(*record).size() : 0);
}

// Records that have an outcome are passed over by the worker and so not listed for it.
void PostwrightController::runPostwrightThread() {
  BatchResultRecordList pending;
  std::copy_if(_window->_results.begin(), _window->_results.end(), std::back_inserter(pending),
               [](const BatchResultRecordPointer& record) { return record->values().pending; });
  Ui::Postwright& layout = _window->_view.layout();
  layout.scFilter->setEnabled(false);
  layout.bnUpdate->setEnabled(false);
  layout.piProgress->setMaximum(std::max(1, static_cast<int>(pending.size())));
  layout.piProgress->setValue(0);
  layout.piProgress->show();
  _window->_elapsed.start();

  auto worker = std::make_unique<BatchWorker>(pending);
  connect(&worker->port, &MessagePort::messageReceived, this,
          &PostwrightController::handlePortMessage);
  try {
    worker->thread.detach(_window->workerParameters(*worker));
    _window->_thread = std::move(worker);
  } catch (const std::system_error&) {
    // The system grants no thread: nothing is asked or changed, and the user can only cancel.
  }
  _window->showNumbers();
}

void PostwrightController::handlePortMessage(qint32 identifier) {
  Ui::Postwright& layout = _window->_view.layout();
  if (identifier == PostwrightUpdateMessage) {
    layout.piProgress->setValue(layout.piProgress->value() + 1);
    _window->recordChanged(_window->_thread->records.at(_window->_thread->done++));
  } else if (identifier == ThreadStopMessage) {
    _window->_thread.reset();
    layout.scFilter->setEnabled(true);
    layout.bnUpdate->setEnabled(!_window->isBusy());
    layout.piProgress->hide();
    _window->showChanges();
    if (std::exchange(_window->_retryWhenStopped, false) && !_window->_closing) {
      bnRetryClick();
    }
    emit workerStopped();
  }
}

void PostwrightController::reFixAddress(const QString& address) {
  const BatchResultRecordPointer record = _window->selectedRecord();
  if (record == nullptr) {
    return;
  }
  record->setAddress(address);
  _window->_view.detail().forgetDraft(*record);
  _window->_reFixesToCome.append(record);
  _window->recordChanged(record);
  runReFixes();
}

// Edited records have a worker of their own, which takes turns with the other at the engine's gate:
// a person waits for one answer and not for the rest of the list.
void PostwrightController::runReFixes() {
  if (_window->_reFix == nullptr && !_window->_reFixesToCome.isEmpty() && !_window->_closing) {
    auto worker = std::make_unique<BatchWorker>(std::exchange(_window->_reFixesToCome, {}));
    connect(&worker->port, &MessagePort::messageReceived, this,
            &PostwrightController::handleReFixMessage);
    try {
      worker->thread.detach(_window->workerParameters(*worker));
      _window->_reFix = std::move(worker);
    } catch (const std::system_error&) {
      // The system grants no thread: the records stay pending, with the texts that the user typed.
    }
  }
  _window->_view.layout().bnUpdate->setEnabled(!_window->isBusy());
  _window->showChanges();
}

void PostwrightController::handleReFixMessage(qint32 identifier) {
  if (identifier == PostwrightUpdateMessage) {
    _window->recordChanged(_window->_reFix->records.at(_window->_reFix->done++));
  } else if (identifier == ThreadStopMessage) {
    _window->_reFix.reset();
    runReFixes();
    emit workerStopped();
  }
}

void PostwrightController::bnFixErrorAddressClick() {
  reFixAddress(_window->_view.layout().tvErrorAddress->toPlainText());
}

void PostwrightController::bnFixMultipleAddressClick() {
  reFixAddress(_window->_view.layout().tvMultipleAddress->toPlainText());
}

void PostwrightController::bnChooseSelectedAddressClick() {
  const BatchResultRecordPointer record = _window->selectedRecord();
  const int match = _window->_view.detail().selectedMatch();
  if (record == nullptr || match < 0) {
    return;
  }
  const QList<PostwrightSelectorPointer> matches = record->values().matches;
  if (match >= matches.size()) {
    return;  // the record has changed and the list of candidates not yet
  }
  const PostwrightSelectorPointer& candidate = matches.at(match);
  const bool forTwins = _window->_view.detail().isTwinsChecked();
  if (candidate->hasRange()) {
    AddressBookDesignatorController designator(candidate);
    runModalForWindow(designator, this);
  }
  const std::optional<QString> address = candidate->fixedAddress();
  if (!address) {
    return;
  }
  BatchResultRecordList chosen{record};
  if (forTwins) {
    chosen += _window->twinsOf(*record);
  }
  for (const BatchResultRecordPointer& one : chosen) {
    one->setFixed(*address);
    _window->recordChanged(one);
  }
  _window->showChanges();
}

void PostwrightController::bnUseAddressClick() {
  const BatchResultRecordPointer record = _window->selectedRecord();
  if (record != nullptr) {
    record->setFixed(record->values().address);
    _window->recordChanged(record);
    _window->showChanges();
  }
}

void PostwrightController::bnIgnoreClick() {
  const BatchResultRecordPointer record = _window->selectedRecord();
  if (record == nullptr) {
    return;
  }
  record->ignore();
  _window->_tally.remove(*record);
  _window->_results.removeOne(record);
  BatchView& view = _window->_view;
  view.detail().forgetDraft(*record);
  view.removeRow(view.selectedRow());
  if (view.addresses().rowCount() == 0) {
    view.layout().bnIgnore->setEnabled(false);
    view.showListOrReason(_window->_results.size());
  }
  _window->showNumbers();
}

// The records for which the service failed become pending again and have a run of their own, after
// the one that is under way, which is cut short.
void PostwrightController::bnRetryClick() {
  if (_window->_thread != nullptr) {
    _window->_retryWhenStopped = true;
    _window->_thread->thread.abandon();
    return;
  }
  for (const BatchResultRecordPointer& record : _window->_results) {
    if (record->values().isUnanswered()) {
      record->restart();
      _window->_changed.append(record);
    }
  }
  runPostwrightThread();
  _window->showChanges();
}

void PostwrightController::bnCancelClick() {
  if (_window->_closing) {
    return;  // an earlier click is at it
  }
  _window->_closing = true;
  const auto tell = [this](void (PostwrightThread::*what)()) {
    for (const auto* worker : {&_window->_thread, &_window->_reFix}) {
      if (*worker != nullptr) {
        ((*worker)->thread.*what)();
      }
    }
  };
  tell(&PostwrightThread::cancel);
  constexpr std::chrono::seconds kPatience{1};
  QTimer patience;
  connect(&patience, &QTimer::timeout, this, [&tell] { tell(&PostwrightThread::abandon); });
  patience.start(kPatience);
  _window->showNumbers();
  while (_window->isBusy()) {
    QEventLoop loop;
    connect(this, &PostwrightController::workerStopped, &loop, &QEventLoop::quit);
    if (loop.exec() < 0) {
      break;  // the application is ending and handles no events; the destructor waits
    }
  }
  abortModal(*this);
}

void PostwrightController::bnUpdateClick() {
  stopModal(*this);
}

void PostwrightController::selectRecord(int by, bool errors) {
  const BatchResultRecordList& shown = _window->_view.addresses().records();
  const int selected = _window->_view.selectedRow();
  const int count = static_cast<int>(shown.size());
  for (int row = selected < 0 && by < 0 ? count - 1 : selected + by; row >= 0 && row < count;
       row += by) {
    const BatchResultRecord::Values values = shown.at(row)->values();
    if (!errors || (!values.pending && values.status >= AddressStatusMultiple)) {
      _window->_view.selectRow(row);
      return;
    }
  }
}

QIcon PostwrightController::iconForStatus(qint32 status) {
  return statusIcon(status);
}

}  // namespace postwright
