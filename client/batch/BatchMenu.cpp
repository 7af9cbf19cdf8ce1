#include "client/batch/BatchMenu.h"

#include <postwright/PostwrightController.h>

#include <QMenu>

#include "client/LocalizedString.h"
#include "client/batch/BatchSummary.h"
#include "client/batch/BatchWindow.h"
#include "client/batch/review/SameChange.h"
#include "client/suite/StringHelpers.h"
#include "ui_Postwright.h"

namespace postwright {

BatchMenu::BatchMenu(PostwrightController& controller, BatchWindow& window)
    : QObject(&controller),
      _controller(controller),
      _window(window),
      _menu(new QMenu(&controller)) {
  Ui::Postwright& layout = window.view.layout();
  _undo = add("SUndo", QKeySequence::Undo);
  _redo = add("SRedo", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
  _menu->addSeparator();
  _copy = add("SCopy", QKeySequence::Copy);
  _copy->setShortcutContext(Qt::WidgetShortcut);
  layout.tvAddresses->addAction(_copy);
  QAction* find = add("SFind", QKeySequence::Find);
  _same = add("SSameForAll", {});
  _hostOrder = add("SHostOrder", {});
  _menu->addSeparator();
  _summary = add("SSummaryAction", {});
  layout.bnMore->setMenu(_menu);
  connect(_undo, &QAction::triggered, &controller, &PostwrightController::undo);
  connect(_redo, &QAction::triggered, &controller, &PostwrightController::redo);
  connect(_copy, &QAction::triggered, &controller, &PostwrightController::copy);
  connect(_same, &QAction::triggered, &controller, &PostwrightController::sameForAll);
  connect(find, &QAction::triggered, layout.leSearch, [&layout] {
    layout.leSearch->setFocus();
    layout.leSearch->selectAll();
  });
  connect(_hostOrder, &QAction::triggered, &controller, [this] {
    _window.view.sortByHost();
    _controller.filterWithStatus();
  });
  connect(layout.bnHostOrder, &QToolButton::clicked, _hostOrder, &QAction::trigger);
  connect(_summary, &QAction::triggered, this, &BatchMenu::showSummary);
  connect(layout.bnSummary, &QPushButton::clicked, this, &BatchMenu::showSummary);
  connect(_menu, &QMenu::aboutToShow, this, &BatchMenu::bringUpToDate);
}

QAction* BatchMenu::add(const char* text, const QKeySequence& key) {
  QAction* action = _menu->addAction(localizedString(text));
  action->setObjectName(QLatin1String(text));
  action->setShortcut(key);
  if (!key.isEmpty()) {
    _controller.addAction(action);
  }
  return action;
}

void BatchMenu::bringUpToDate() {
  const QUndoStack& steps = _window.steps.stack();
  const auto withStep = [](const char* plain, const char* named, const QString& step) {
    return step.isEmpty() ? localizedString(plain)
                          : StringHelpers::stringWithFormat(localizedString(named), {step});
  };
  _undo->setText(withStep("SUndo", "SUndoStep", steps.undoText()));
  _redo->setText(withStep("SRedo", "SRedoStep", steps.redoText()));
  const BatchResultRecordList selected = _window.view.selectedRecords();
  _copy->setEnabled(!selected.isEmpty());
  _same->setVisible(_window.options.selectsSeveral);
  _same->setEnabled(selected.size() == 1 && !_window.changesBy(*selected.first()).isEmpty());
  _hostOrder->setVisible(_window.options.findsProblems);
  _hostOrder->setEnabled(_window.view.query().order != RecordQuery::Order::Host);
  _summary->setVisible(_window.options.summarizes);
  _summary->setEnabled(!_window.runs.isListRunning());
}

void BatchMenu::showSummary() {
  BatchSummary summary(_window.records.all(), &_controller);
  summary.exec();
}

}  // namespace postwright
