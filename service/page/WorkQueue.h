#ifndef POSTWRIGHT_SERVICE_PAGE_WORKQUEUE_H_
#define POSTWRIGHT_SERVICE_PAGE_WORKQUEUE_H_

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace postwright::service {

// A thread that does one piece of work after another: what uses the process's only parser is given
// to it, and nobody else has to wait.
//
//   WorkQueue queue(16);
//   if (!queue.Add([respond] { respond(Reply()); })) { respond(Busy()); }
class WorkQueue {
 public:
  using Work = std::function<void()>;  // throws nothing

  // Up to `most` pieces wait.
  explicit WorkQueue(size_t most);

  // Ends with the piece that is under way; those that wait are not done.
  ~WorkQueue();
  WorkQueue(const WorkQueue&) = delete;
  WorkQueue& operator=(const WorkQueue&) = delete;

  // Returns false, and drops `work`, where too much waits already. Never waits. Any thread.
  bool Add(Work work);

 private:
  void Run();

  const size_t most_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Work> waiting_;
  bool isEnding_ = false;
  std::thread thread_;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_SERVICE_PAGE_WORKQUEUE_H_
