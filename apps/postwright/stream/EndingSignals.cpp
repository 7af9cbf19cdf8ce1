#include "apps/postwright/stream/EndingSignals.h"

#include <algorithm>
#include <array>
#include <atomic>

namespace postwright {

namespace {

constexpr int kEndingSignals[] = {SIGHUP, SIGINT, SIGTERM};

using Action = void (*)();
std::array<std::atomic<Action>, 4> gActions = {};  // from the first on; the handler reads them

void End(int signal) {
  std::for_each(gActions.rbegin(), gActions.rend(), [](const std::atomic<Action>& action) {
    if (action != nullptr) {
      action.load()();
    }
  });
  std::signal(signal, SIG_DFL);
  raise(signal);
}

}  // namespace

void BeforeEndingBySignal(void (*action)()) {
  for (std::atomic<Action>& slot : gActions) {
    if (slot == action) {
      return;
    }
    if (slot == nullptr) {
      slot = action;
      break;
    }
  }
  for (const int signal : kEndingSignals) {
    struct sigaction present {};
    if (sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_DFL) {
      struct sigaction ending {};
      ending.sa_handler = End;
      for (const int other : kEndingSignals) {
        sigaddset(&ending.sa_mask, other);  // the first signal to come is the one that ends it
      }
      sigaction(signal, &ending, nullptr);
    }
  }
}

EndingSignalsHeld::EndingSignalsHeld() {
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : kEndingSignals) {
    sigaddset(&held, signal);
  }
  sigprocmask(SIG_BLOCK, &held, &before_);
}

EndingSignalsHeld::~EndingSignalsHeld() {
  sigprocmask(SIG_SETMASK, &before_, nullptr);
}

void IgnoreEndingSignals() {
  for (const int signal : kEndingSignals) {
    std::signal(signal, SIG_IGN);
  }
}

}  // namespace postwright
