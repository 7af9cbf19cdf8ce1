#include "client/suite/ModalRun.h"

#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace postwright {
namespace {

// Centres `window` above `above`, moved as far as needed to lie on its screen. The window has no
// frame yet; the other's tells how wide one is.
void MoveAbove(QDialog& window, const QWidget& above) {
  QRect frame({}, window.size() + above.frameGeometry().size() - above.size());
  frame.moveCenter(above.frameGeometry().center());
  const QRect screen = above.screen()->availableGeometry();
  frame.moveRight(std::min(frame.right(), screen.right()));
  frame.moveBottom(std::min(frame.bottom(), screen.bottom()));
  frame.moveLeft(std::max(frame.left(), screen.left()));
  frame.moveTop(std::max(frame.top(), screen.top()));
  window.move(frame.topLeft());
}

}  // namespace

void stopModal(QDialog& window) {
  window.done(RunStoppedResponse);
}

void abortModal(QDialog& window) {
  window.done(RunAbortedResponse);
}

int runModalForWindow(QDialog& window, QWidget* relativeTo) {
  window.setWindowModality(Qt::ApplicationModal);
  if (relativeTo != nullptr) {
    QWidget* above = relativeTo->window();
    window.adjustSize();
    MoveAbove(window, *above);
    window.winId();  // creates the native window, which alone can be kept above another
    if (above->windowHandle() != nullptr) {
      window.windowHandle()->setTransientParent(above->windowHandle());
    }
  }
  return window.exec();
}

}  // namespace postwright
