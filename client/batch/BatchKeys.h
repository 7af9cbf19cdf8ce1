#ifndef POSTWRIGHT_CLIENT_BATCH_BATCHKEYS_H_
#define POSTWRIGHT_CLIENT_BATCH_BATCHKEYS_H_

#include <QObject>

namespace postwright {

class BatchView;
class PostwrightController;

// The keys of the batch window besides the mnemonics of its buttons. They do what the window's
// operations do; a key whose button is disabled does nothing.
//
//   Alt+Down, Alt+Up      the next record, the one before      (anywhere; in the table the arrows)
//   F8, Shift+F8          the next error or choice, the one before
//   Home, End             the first record, the last           (in the table)
//   Delete                ignore                               (in the table)
//   F2, Enter             edit or choose: into the detail      (in the table)
//   1 to 9                choose that candidate                (in both tables)
//   Enter                 choose the selected candidate        (in the table of candidates)
//   Ctrl+Enter            check the edited address again       (anywhere)
//   Enter, Down           to the table                         (in the search)
//   Escape                back to the table, out of the search with all shown, and there cancel
class BatchKeys final : public QObject {
  Q_OBJECT

 public:
  // Becomes a child of `window`; `view` is its view.
  BatchKeys(PostwrightController& window, BatchView& view);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool pressInAddresses(int key);
  bool pressInSearch(int key);
  bool pressInMatches(int key);
  bool chooseByDigit(int key);
  void checkAgain();
  void enterDetail();

  PostwrightController& _window;
  BatchView& _view;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_BATCHKEYS_H_
