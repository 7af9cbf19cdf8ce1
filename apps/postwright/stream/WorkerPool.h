#ifndef POSTWRIGHT_APPS_POSTWRIGHT_STREAM_WORKERPOOL_H_
#define POSTWRIGHT_APPS_POSTWRIGHT_STREAM_WORKERPOOL_H_

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace postwright {

// Worker processes, each of which answers one line at a time with one line.
//
//   WorkerPool pool(16, serve);
//   if (pool.HasRoom()) pool.Give(0, "a line");
//   for (const WorkerPool::Answer& answer : pool.Wait(-1, -1).answers) ...
//
// A worker is a fork of this process: it has everything that was made before, and its memory to
// itself, as a fix needs that shares the parser with no other. So the process must have one thread.
// Workers are started when they are needed, outlive no destructor and none of the signals that end
// the process (EndingSignals.h), nor the process itself where it is killed. One that dies is
// replaced when it is needed again. One pool in a process.
class WorkerPool {
 public:
  static constexpr int kLimit = 256;  // of workers

  struct Answer {
    std::size_t ticket;
    std::string line;    // with its line feed; empty where the worker died over it
    std::string ending;  // how it died: "was ended by signal 9 (Killed)"
  };

  struct Events {
    std::vector<Answer> answers;
    bool isReadable = false;  // the descriptor that was waited for beside the workers
  };

  // `serve` is run in a worker: it answers the lines of standard input on standard output, one
  // after another, each as soon as it is known, until the input ends. Its standard error is ours.
  WorkerPool(int workers, std::function<void()> serve);
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  // Whether a worker is free; starts one where there may be more. Where the system allows no more,
  // those that there are do; throws Failure where there is none.
  bool HasRoom();

  // Gives a free worker a line, without its line feed. `ticket` tells which line was answered.
  void Give(std::size_t ticket, std::string_view line);

  // Waits for answers, for `descriptor` to be readable (-1: none) or until `milliseconds` have gone
  // by (-1: for ever); returns with at least one of them, or with none where a signal came.
  Events Wait(int descriptor, int milliseconds);

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
  std::list<Worker> workers_;
};

}  // namespace postwright

#endif  // POSTWRIGHT_APPS_POSTWRIGHT_STREAM_WORKERPOOL_H_
