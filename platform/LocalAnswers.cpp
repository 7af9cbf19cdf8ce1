#include <postwright/LocalAnswers.h>

#include <mutex>
#include <utility>

namespace postwright {

namespace {

struct Slot {
  std::mutex mutex;
  LocalAnswers answers;
};

// Never destroyed: threads may fetch while the process ends.
Slot& TheSlot() {
  static Slot* const slot = new Slot;
  return *slot;
}

}  // namespace

void SetLocalAnswers(LocalAnswers answers) {
  Slot& slot = TheSlot();
  const std::lock_guard lock(slot.mutex);
  slot.answers.swap(answers);  // the old one's state is released with the argument, after the lock
}

LocalAnswers GetLocalAnswers() {
  Slot& slot = TheSlot();
  const std::lock_guard lock(slot.mutex);
  return slot.answers;
}

}  // namespace postwright
