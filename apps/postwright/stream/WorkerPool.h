#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_WORKERPOOL_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_WORKERPOOL_H_

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "apps/postwright/stream/LineWorkers.h"

namespace postwright {

// Worker processes, each of which answers one message at a time with one: a line with a line, or
// several with several.
//
//   WorkerPool pool(16, serve);
//
// A worker is a fork of this process: it has everything that was made before, and its memory to
// itself, as a fix needs that shares the parser with no other. So the process must have one thread.
// Workers are started when they are needed, outlive no destructor and none of the signals that end
// the process (EndingSignals.h), nor the process itself where it is killed. One that dies is
// replaced when it is needed again. One pool in a process.
class WorkerPool final : public LineWorkers {
 public:
  static constexpr int kLimit = 256;  // of workers

  // `serve` is run in a worker: it answers what comes on standard input on standard output, one
  // message after another, each as soon as it is known and as PackRecord() has it, until the input
  // ends. An answer, and nothing in it, ends in `answerEnd`. Its standard error is ours.
  WorkerPool(int workers, std::function<void()> serve, std::string_view answerEnd = "\n");
  ~WorkerPool() override;
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  // Starts a worker if there may be more. If the system allows no more, the existing ones suffice;
  // throws Failure if there is none.
  bool HasRoom() override;

  void Give(std::size_t ticket, const LabelLine& label, std::string_view line) override;
  Events Wait(int descriptor, int milliseconds) override;

 private:
  struct Worker {
    pid_t process;
    int channel;
    bool isBusy = false;
    std::size_t ticket = 0;
    std::string toSend = {};
    std::string received = {};
  };

  bool Start();
  [[noreturn]] void Serve(int channel, pid_t parent) const;
  bool Exchange(Worker& worker, short events, std::vector<Answer>& answers);
  static bool Send(Worker& worker);
  static bool Receive(Worker& worker);

  std::size_t limit_;
  std::function<void()> serve_;
  const std::string answerEnd_;
  std::list<Worker> workers_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_WORKERPOOL_H_
