#include "service/http/ShortTurns.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <thread>

namespace postwright::service {
namespace {

constexpr std::chrono::nanoseconds kTurn = std::chrono::microseconds(500);

// struct sched_attr as the system's first version has it; the C library has none yet.
struct SchedulingAttributes {
  uint32_t size = sizeof(SchedulingAttributes);
  uint32_t policy = 0;
  uint64_t flags = 0;
  int32_t nice = 0;
  uint32_t priority = 0;
  uint64_t runtime = 0;  // of a turn, for ordinary threads too
  uint64_t deadline = 0;
  uint64_t period = 0;
};

// Asks for turns of kTurn for the calling thread and those that it starts from now on.
bool ShortenTurns() {
  SchedulingAttributes attributes;
  if (syscall(SYS_sched_getattr, 0, &attributes, sizeof(attributes), 0) != 0) {
    return false;
  }
  attributes.runtime = static_cast<uint64_t>(kTurn.count());
  return syscall(SYS_sched_setattr, 0, &attributes, 0) == 0;
}

}  // namespace

ShortTurns::ShortTurns() : areShort_(ShortenTurns()) {}

// Of a long turn, giving up would take away all the rest.
void ShortTurns::Answered() const {
  using Clock = std::chrono::steady_clock;
  thread_local Clock::time_point end;
  if (!areShort_) {
    return;
  }
  if (const Clock::time_point now = Clock::now(); now >= end) {
    std::this_thread::yield();
    end = now + kTurn;
  }
}

}  // namespace postwright::service
