#ifndef POSTWRIGHT_APPS_VERIFYD_PROCESS_H_
#define POSTWRIGHT_APPS_VERIFYD_PROCESS_H_

#include <csignal>
#include <functional>

namespace postwright::service {

// What a daemon asks of the system before it begins, and while it waits for its end. All for the
// main thread.

// Sees to it that so many connections can be open besides the service's own files, by raising the
// process's limit of descriptors as far as it may. Throws std::runtime_error where that is not far
// enough.
void ReserveDescriptors(unsigned connections);

// Blocks the signals that are meant for the service, in this thread and in those that it starts:
// they wait for WaitForEnd.
sigset_t BlockSignals();

// Waits for a signal that ends the service; calls `onHangUp` for each SIGHUP until then.
void WaitForEnd(const sigset_t& signals, const std::function<void()>& onHangUp);

}  // namespace postwright::service

#endif  // POSTWRIGHT_APPS_VERIFYD_PROCESS_H_
