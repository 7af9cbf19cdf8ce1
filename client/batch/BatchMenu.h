#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHMENU_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHMENU_H_

#include <QObject>

class QAction;
class QMenu;

namespace postwright {

class BatchWindow;
class PostwrightController;

// The menu of the batch window: what has no button of its own, with its keys.
//
//   Ctrl+Z, Ctrl+Shift+Z  undo, redo
//   Ctrl+C                copy the selected rows            (in the table)
//   Ctrl+F                search
class BatchMenu final : public QObject {
  Q_OBJECT

 public:
  // Becomes a child of `controller`, whose parts `window` are.
  BatchMenu(PostwrightController& controller, BatchWindow& window);

 private:
  QAction* add(const char* text, const QKeySequence& key);
  void bringUpToDate();
  void showSummary();

  PostwrightController& _controller;
  BatchWindow& _window;
  QMenu* _menu;
  QAction* _undo;
  QAction* _redo;
  QAction* _copy;
  QAction* _same;
  QAction* _hostOrder;
  QAction* _summary;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHMENU_H_
