#ifndef POSTWRIGHT_CLIENT_SUITE_MODALRUN_H_
#define POSTWRIGHT_CLIENT_SUITE_MODALRUN_H_

#include <QDialog>

namespace postwright {

// What a modal run ends with: it was stopped (the user agreed) or aborted (the user took it back).
inline constexpr int RunStoppedResponse = -1000;
inline constexpr int RunAbortedResponse = -1001;

// The window side: closes `window` and ends its modal run with the one code or the other.
void stopModal(QDialog& window);
void abortModal(QDialog& window);

// Shows `window` centred above `relativeTo` (or where the system likes, when null), blocks that
// window and all others of the program until the run ends, and returns the code it ended with.
// Events, port messages among them, are handled meanwhile. `window` stays its owner's, who must not
// destroy it before the run has ended. Belongs to the thread of the windows.
int runModalForWindow(QDialog& window, QWidget* relativeTo = nullptr);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_SUITE_MODALRUN_H_
