#include <postwright/PostwrightController.h>

#include <QEventLoop>
#include <QItemSelectionModel>
#include <QTimer>
#include <chrono>

#include "client/batch/BatchKeys.h"
#include "client/batch/BatchMenu.h"
#include "client/batch/BatchQuestions.h"
#include "client/batch/BatchWindow.h"
#include "client/batch/StatusIcons.h"
#include "client/batch/worker/PostwrightThread.h"
#include "client/suite/ModalRun.h"
#include "ui_Postwright.h"

// The window's life: its list, its runs and its end. What the person does to records is in
// PostwrightReview.cpp.

namespace postwright {
namespace {

QVariantMap workerSettings(bool removePunctuation, qint32 capitalization,
                           const std::optional<QString>& mixedCase) {
  QVariantMap settings{{RemovePunctuationKey, removePunctuation},
                       {CapitalizationKey, capitalization}};
  if (mixedCase) {
    settings.insert(MixedCaseKey, *mixedCase);
  }
  return settings;
}

}  // namespace

PostwrightController::PostwrightController(const QList<std::shared_ptr<AddressEntry>>& addresses,
                                           bool removePunctuation, qint32 capitalization,
                                           const std::optional<QString>& mixedCase, QWidget* parent)
    : QDialog(parent),
      _window(std::make_unique<BatchWindow>(
          *this, addresses, workerSettings(removePunctuation, capitalization, mixedCase))) {}

PostwrightController::~PostwrightController() = default;

void PostwrightController::setAsk(AskFunction ask) {
  _window->settings.insert(AskKey, QVariant::fromValue(ask));
}

void PostwrightController::setOptions(const BatchOptions& options) {
  _window->setOptions(options);
}

BatchResultRecordList PostwrightController::results() const {
  return _window->records.fixed();
}

BatchResultRecordList PostwrightController::records() const {
  return _window->records.all();
}

void PostwrightController::setVisible(bool visible) {
  if (visible && !_window->loaded) {
    _window->loaded = true;
    windowDidLoad();
  }
  QDialog::setVisible(visible);
}

void PostwrightController::windowDidLoad() {
  BatchWindow& window = *_window;
  Ui::Postwright& layout = window.view.layout();
  connect(layout.tvAddresses->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &PostwrightController::updateContent);
  connect(layout.scFilter, &SegmentedControl::clicked, this, &PostwrightController::scFilterClick);
  connect(layout.leSearch, &QLineEdit::textChanged, this, &PostwrightController::filterWithStatus);
  connect(layout.cbReason, &QComboBox::activated, this, &PostwrightController::filterWithStatus);
  connect(layout.bnDoubtful, &QToolButton::clicked, this, &PostwrightController::filterWithStatus);
  connect(layout.tvAddresses->horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this](int column) {
            _window->view.sortBy(column);
            filterWithStatus();
          });
  connectButtons();
  new BatchKeys(*this, window.view);
  new BatchMenu(*this, window);
  connect(&window.steps, &BatchSteps::changed, this,
          [&window](const BatchResultRecordList& changed, const BatchResultRecordList& back) {
            window.recordsChanged(changed, back);
          });
  connect(&window.runs, &BatchRuns::recordDone, this,
          [&window](const BatchResultRecordPointer& record) { window.recordDone(record); });
  connect(&window.runs, &BatchRuns::listAdvanced, layout.piProgress, &QProgressBar::setValue);
  connect(&window.runs, &BatchRuns::listEnded, this, [this](bool finished) {
    _window->runEnded(finished);
    if (std::exchange(_window->retryWhenStopped, false) && !_window->closing) {
      bnRetryClick();
    }
    emit workerStopped();
  });
  connect(&window.runs, &BatchRuns::askedAgain, this, [this] {
    _window->view.layout().bnUpdate->setEnabled(!_window->runs.isBusy());
    _window->showChanges();
    emit workerStopped();
  });
  filterWithStatus();
  layout.tvAddresses->setFocus();
  runPostwrightThread();
}

void PostwrightController::connectButtons() {
  Ui::Postwright& layout = _window->view.layout();
  const std::pair<QPushButton*, void (PostwrightController::*)()> buttons[] = {
      {layout.bnFixErrorAddress, &PostwrightController::bnFixErrorAddressClick},
      {layout.bnFixMultipleAddress, &PostwrightController::bnFixMultipleAddressClick},
      {layout.bnFixEditedAddress, &PostwrightController::bnFixEditedAddressClick},
      {layout.bnKeepError, &PostwrightController::bnKeepTextClick},
      {layout.bnKeepMultiple, &PostwrightController::bnKeepTextClick},
      {layout.bnKeepEdit, &PostwrightController::bnKeepTextClick},
      {layout.bnUseProposal, &PostwrightController::bnUseProposalClick},
      {layout.bnUseProposals, &PostwrightController::bnUseProposalsClick},
      {layout.bnAskAgain, &PostwrightController::bnAskAgainClick},
      {layout.bnTakeTyped, &PostwrightController::bnTakeTypedClick},
      {layout.bnAcceptDoubtful, &PostwrightController::bnAcceptDoubtfulClick},
      {layout.bnChooseSelectedAddress, &PostwrightController::bnChooseSelectedAddressClick},
      {layout.bnUseAddress, &PostwrightController::bnUseAddressClick},
      {layout.bnShowAll, &PostwrightController::bnShowAllClick},
      {layout.bnRetry, &PostwrightController::bnRetryClick},
      {layout.bnStop, &PostwrightController::bnStopClick},
      {layout.bnGoOn, &PostwrightController::bnGoOnClick},
      {layout.bnIgnore, &PostwrightController::bnIgnoreClick},
      {layout.bnUpdate, &PostwrightController::bnUpdateClick},
      {layout.bnCancel, &PostwrightController::leave},
  };
  for (const auto& [button, click] : buttons) {
    connect(button, &QPushButton::clicked, this, click);
  }
}

void PostwrightController::filterWithStatus() {
  _window->showList();
}

void PostwrightController::scFilterClick() {
  filterWithStatus();
}

void PostwrightController::bnShowAllClick() {
  _window->view.selectAllSegments();
  filterWithStatus();
}

void PostwrightController::updateContent() {
  _window->personHasSelected |= _window->personSelects;
  _window->showDetail();
}

// Records that have an outcome are passed over by the worker and so not listed for it.
void PostwrightController::runPostwrightThread() {
  _window->startRun();
}

// The records for which the service failed become pending again and have a run of their own, after
// the one that is under way, which is cut short.
void PostwrightController::bnRetryClick() {
  if (_window->runs.isListRunning()) {
    _window->retryWhenStopped = true;
    _window->runs.abandonList();
    return;
  }
  for (const BatchResultRecordPointer& record : _window->records.unanswered()) {
    record->restart();
    _window->recordDone(record);
  }
  _window->showChanges();
  runPostwrightThread();
}

void PostwrightController::bnStopClick() {
  if (!_window->runs.isListRunning()) {
    return;
  }
  _window->stopped = true;
  _window->steps.setStopped(true);
  _window->runs.cancelList();
  constexpr std::chrono::seconds kPatience{5};
  QTimer::singleShot(kPatience, this, [this] {
    if (_window->stopped) {
      _window->runs.abandonList();
    }
  });
  _window->showNumbers();
}

void PostwrightController::bnGoOnClick() {
  if (!_window->runs.isListRunning()) {
    runPostwrightThread();
  }
}

void PostwrightController::leave() {
  if (!_window->options.keepsWork || !_window->hasWork()) {
    bnCancelClick();
    return;
  }
  if (_window->closing) {
    return;
  }
  switch (askHowToLeave(*this, _window->records.counts())) {
    case Leaving::Apply:
      waitForWorkers();
      bnUpdateClick();
      break;
    case Leaving::Discard:
      bnCancelClick();
      break;
    case Leaving::Stay:
      break;
  }
}

void PostwrightController::bnCancelClick() {
  if (!_window->closing) {
    waitForWorkers();
    abortModal(*this);
  }
}

// Ends what runs; a fix under way has a second.
void PostwrightController::waitForWorkers() {
  _window->closing = true;
  _window->runs.close();
  _window->runs.cancel();
  constexpr std::chrono::seconds kPatience{1};
  QTimer patience;
  connect(&patience, &QTimer::timeout, this, [this] { _window->runs.abandon(); });
  patience.start(kPatience);
  _window->showNumbers();
  while (_window->runs.isBusy()) {
    QEventLoop loop;
    connect(this, &PostwrightController::workerStopped, &loop, &QEventLoop::quit);
    if (loop.exec() < 0) {
      break;  // the application is ending and handles no events; the destructor waits
    }
  }
}

void PostwrightController::bnUpdateClick() {
  stopModal(*this);
}

void PostwrightController::selectRecord(int by, bool errors) {
  const BatchResultRecordList& shown = _window->view.records();
  const int selected = _window->view.currentRow();
  const int count = static_cast<int>(shown.size());
  for (int row = selected < 0 && by < 0 ? count - 1 : selected + by; row >= 0 && row < count;
       row += by) {
    if (!errors || needsPerson(shown.at(row)->values())) {
      _window->view.selectRow(row);
      return;
    }
  }
}

QIcon PostwrightController::iconForStatus(qint32 status) {
  return statusIcon(status);
}

}  // namespace postwright
