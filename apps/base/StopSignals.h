#ifndef POSTWRIGHT_APPS_BASE_STOPSIGNALS_H_
#define POSTWRIGHT_APPS_BASE_STOPSIGNALS_H_

#include <atomic>
#include <chrono>

namespace postwright::postal {

// SIGINT and SIGTERM, which stop what is going on at a good place. For the one thread of the
// program.
class StopSignals {
 public:
  // From here on the signals set Flag() alone; from Release on they end the process again.
  static void Catch();
  static void Release();

  static const std::atomic<bool>& Flag();

  // Waits; returns false, and earlier, where one of the signals came.
  static bool Wait(std::chrono::seconds time);
};

}  // namespace postwright::postal

#endif  // POSTWRIGHT_APPS_BASE_STOPSIGNALS_H_
