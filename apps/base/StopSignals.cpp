#include "apps/base/StopSignals.h"

#include <csignal>
#include <thread>

namespace postwright::postal {
namespace {

std::atomic<bool> gStop = false;

void Stop(int) {
  gStop = true;
}

void OnSignals(void (*action)(int)) {
  for (const int number : {SIGINT, SIGTERM}) {
    std::signal(number, action);
  }
}

}  // namespace

void StopSignals::Catch() {
  OnSignals(Stop);
}

void StopSignals::Release() {
  OnSignals(SIG_DFL);
}

const std::atomic<bool>& StopSignals::Flag() {
  return gStop;
}

bool StopSignals::Wait(std::chrono::seconds time) {
  constexpr std::chrono::milliseconds kStep(50);
  const auto end = std::chrono::steady_clock::now() + time;
  while (!gStop && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kStep);
  }
  return !gStop;
}

}  // namespace postwright::postal
