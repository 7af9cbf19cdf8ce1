#include "client/batch/BatchKeys.h"

#include <postwright/PostwrightController.h>

#include <QAccessible>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QShortcut>
#include <QTimer>

#include "client/batch/BatchView.h"
#include "ui_Postwright.h"

namespace postwright {
namespace {

// Tells a screen reader of the row that the keyboard stands on in a table, which Qt does where the
// row changes, and not where the keyboard comes back to it.
void tellRow(QTableView& table) {
  const QModelIndex current = table.currentIndex();
  if (QAccessible::isActive() && table.hasFocus() && current.isValid()) {
    QItemSelectionModel& selection = *table.selectionModel();
    selection.clearCurrentIndex();
    selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  }
}

}  // namespace

BatchKeys::BatchKeys(PostwrightController& window, BatchView& view)
    : QObject(&window), _window(window), _view(view) {
  const auto onKey = [this](const QKeySequence& key, auto action) {
    connect(new QShortcut(key, &_window), &QShortcut::activated, this, action);
  };
  onKey(Qt::ALT | Qt::Key_Down, [this] { _window.selectRecord(1, false); });
  onKey(Qt::ALT | Qt::Key_Up, [this] { _window.selectRecord(-1, false); });
  onKey(Qt::Key_F8, [this] { _window.selectRecord(1, true); });
  onKey(Qt::SHIFT | Qt::Key_F8, [this] { _window.selectRecord(-1, true); });
  onKey(Qt::CTRL | Qt::Key_Return, [this] { checkAgain(); });
  onKey(Qt::CTRL | Qt::Key_Enter, [this] { checkAgain(); });
  for (QWidget* watched : _window.findChildren<QWidget*>()) {
    watched->installEventFilter(this);
  }
}

bool BatchKeys::eventFilter(QObject* watched, QEvent* event) {
  if (auto* table = qobject_cast<QTableView*>(watched);
      table != nullptr && event->type() == QEvent::FocusIn) {
    QTimer::singleShot(0, table, [table] { tellRow(*table); });  // when the table itself is told
  }
  if (event->type() == QEvent::KeyPress) {
    const auto* press = static_cast<QKeyEvent*>(event);
    const Ui::Postwright& layout = _view.layout();
    const bool plain = (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && watched == layout.leSearch && pressInSearch(press->key())) {
      return true;
    }
    if (plain && ((watched == layout.tvAddresses && pressInAddresses(press->key())) ||
                  (watched == layout.tvMatches && pressInMatches(press->key())))) {
      return true;
    }
    const bool isInWindow =
        static_cast<QWidget*>(watched)->window() == &_window;  // no list of a box
    // A key that the table leaves alone goes on to the widgets around it, which are watched too.
    const bool isAtTable = _window.focusWidget() == layout.tvAddresses;
    if (plain && press->key() == Qt::Key_Escape && !isAtTable && isInWindow &&
        layout.tvAddresses->isVisible()) {
      layout.tvAddresses->setFocus();
      _view.detail().leaveEditor();
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

bool BatchKeys::pressInAddresses(int key) {
  const bool noneSelected = _view.selectedRows().isEmpty();
  switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Up:
      // The table takes a first row for current before any is selected, and would pass over it.
      if (noneSelected) {
        _window.selectRecord(key == Qt::Key_Down ? 1 : -1, false);
      }
      return noneSelected;
    case Qt::Key_Home:
    case Qt::Key_End:
      if (const int rows = _view.addresses().rowCount(); rows > 0) {
        _view.selectRow(key == Qt::Key_Home ? 0 : rows - 1);
      }
      return true;
    case Qt::Key_Delete:
      _view.layout().bnIgnore->click();
      return true;
    case Qt::Key_F2:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      enterDetail();
      return true;
    default:
      return chooseByDigit(key);
  }
}

bool BatchKeys::pressInSearch(int key) {
  const Ui::Postwright& layout = _view.layout();
  switch (key) {
    case Qt::Key_Escape:
      if (layout.leSearch->text().isEmpty()) {
        return false;
      }
      layout.leSearch->clear();
      break;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (_view.addresses().rowCount() > 0 && _view.selectedRows().isEmpty()) {
        _view.selectRow(0);
      }
      break;
    default:
      return false;
  }
  layout.tvAddresses->setFocus();
  return true;
}

bool BatchKeys::pressInMatches(int key) {
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    _view.layout().bnChooseSelectedAddress->click();
    return true;
  }
  return chooseByDigit(key);
}

bool BatchKeys::chooseByDigit(int key) {
  const Ui::Postwright& layout = _view.layout();
  const int match = key - Qt::Key_1;
  if (key < Qt::Key_1 || key > Qt::Key_9 || !layout.vwMultiple->isVisible() ||
      match >= layout.tvMatches->model()->rowCount()) {
    return false;
  }
  layout.tvMatches->selectRow(match);
  layout.bnChooseSelectedAddress->click();
  return true;
}

void BatchKeys::checkAgain() {
  const Ui::Postwright& layout = _view.layout();
  for (QPushButton* button : {layout.bnFixErrorAddress, layout.bnFixMultipleAddress,
                              layout.bnFixEditedAddress, layout.bnAskAgain}) {
    if (button->isVisible()) {
      button->click();
      return;  // the page may be another by now
    }
  }
}

void BatchKeys::enterDetail() {
  _view.detail().showEditor();
  if (QWidget* control = _view.detail().firstControl()) {
    const Ui::Postwright& layout = _view.layout();
    if (control == layout.tvMatches && _view.detail().selectedMatch() < 0) {
      layout.tvMatches->selectRow(0);
    }
    control->setFocus();
  }
}

}  // namespace postwright
