#include "service/page/WorkQueue.h"

#include <utility>

namespace postwright::service {

WorkQueue::WorkQueue(size_t most) : most_(most), thread_(&WorkQueue::Run, this) {}

WorkQueue::~WorkQueue() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

bool WorkQueue::Add(Work work) {
  {
    const std::lock_guard lock(mutex_);
    if (waiting_.size() >= most_) {
      return false;
    }
    waiting_.push_back(std::move(work));
  }
  changed_.notify_one();
  return true;
}

void WorkQueue::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return isEnding_ || !waiting_.empty(); });
    if (isEnding_) {
      return;
    }
    const Work work = std::exchange(waiting_.front(), nullptr);
    waiting_.pop_front();
    lock.unlock();
    work();
    lock.lock();
  }
}

}  // namespace postwright::service
