#include "apps/postwright/stream/WorkerPool.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>
#include <system_error>
#include <utility>

#include "apps/postwright/stream/EndingSignals.h"
#include "apps/postwright/stream/Failure.h"

namespace postwright {

namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10U;

// The living workers, for the signal handler; 0 is none.
std::array<std::atomic<pid_t>, WorkerPool::kLimit> gProcesses = {};

void Enlist(pid_t process) {
  *std::find(gProcesses.begin(), gProcesses.end(), 0) = process;
}

// Waits for the end of a worker and says how it came.
int Reap(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) == -1 && errno == EINTR) {
  }
  std::replace(gProcesses.begin(), gProcesses.end(), process, 0);
  return status;
}

void KillWorkers() {
  for (const std::atomic<pid_t>& process : gProcesses) {
    if (process != 0) {
      kill(process, SIGKILL);
    }
  }
  for (const std::atomic<pid_t>& process : gProcesses) {
    if (process != 0) {
      waitpid(process, nullptr, 0);
    }
  }
}

std::string Ending(int status) {
  if (WIFSIGNALED(status)) {
    const int signal = WTERMSIG(status);
    return "was ended by signal " + std::to_string(signal) + " (" + strsignal(signal) + ")";
  }
  return "ended with exit status " + std::to_string(WEXITSTATUS(status));
}

// In a worker: whether the parent is gone. It may have left answers unread, which makes the
// worker's next read fail where it would otherwise find the end.
bool IsAbandoned() {
  pollfd channel{STDIN_FILENO, 0, 0};
  return poll(&channel, 1, 0) == 1 && (channel.revents & POLLHUP) != 0;
}

bool IsToBeTriedAgain(int error) {
  return error == EAGAIN || error == EINTR;
}

}  // namespace

WorkerPool::WorkerPool(int workers, std::function<void()> serve, std::string_view answerEnd)
    : limit_(workers), serve_(std::move(serve)), answerEnd_(answerEnd) {
  BeforeEndingBySignal(KillWorkers);
}

WorkerPool::~WorkerPool() {
  for (const Worker& worker : workers_) {
    kill(worker.process, SIGKILL);
    close(worker.channel);
    Reap(worker.process);
  }
}

bool WorkerPool::HasRoom() {
  const auto isFree = [](const Worker& worker) { return !worker.isBusy; };
  if (std::any_of(workers_.begin(), workers_.end(), isFree)) {
    return true;
  }
  if (workers_.size() < limit_ && !Start()) {
    if (workers_.empty()) {
      throw Failure("cannot start a worker process: " + std::generic_category().message(errno));
    }
    limit_ = workers_.size();
  }
  return std::any_of(workers_.begin(), workers_.end(), isFree);
}

bool WorkerPool::Start() {
  int channel[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, channel) == -1) {
    return false;
  }
  const pid_t parent = getpid();
  const EndingSignalsHeld held;  // a worker must not act on one as its parent does
  const pid_t process = fork();
  if (process == 0) {
    Serve(channel[1], parent);
  }
  close(channel[1]);
  if (process == -1) {
    close(channel[0]);
    return false;
  }
  Enlist(process);
  workers_.push_back({process, channel[0]});
  return true;
}

// In the worker, which leaves without the destructors of what belongs to its parent.
void WorkerPool::Serve(int channel, pid_t parent) const {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  IgnoreEndingSignals();
  dup2(channel, STDIN_FILENO);
  dup2(channel, STDOUT_FILENO);
  close_range(STDERR_FILENO + 1, ~0U, 0);
  if (getppid() != parent) {
    _exit(kExitClosedPipe);
  }
  try {
    serve_();
    _exit(kExitDone);
  } catch (const ClosedPipe&) {
    _exit(kExitClosedPipe);
  } catch (const std::exception& failure) {
    if (IsAbandoned()) {
      _exit(kExitClosedPipe);
    }
    // The label has its record all the same: the parent says there how the worker ended.
    std::cerr << "postwright: a worker process stopped: " << failure.what() << '\n';
    _exit(kExitFailed);
  }
}

void WorkerPool::Give(std::size_t ticket, const LabelLine&, std::string_view line) {
  const auto worker = std::find_if(workers_.begin(), workers_.end(),
                                   [](const Worker& other) { return !other.isBusy; });
  worker->isBusy = true;
  worker->ticket = ticket;
  worker->toSend = std::string(line) + '\n';
  Send(*worker);  // one that has died says so when it is waited for
}

LineWorkers::Events WorkerPool::Wait(int descriptor, int milliseconds) {
  std::vector<pollfd> polled = {{descriptor, POLLIN, 0}};  // a negative one is passed over
  for (const Worker& worker : workers_) {
    const int wanted = worker.toSend.empty() ? POLLIN : POLLIN | POLLOUT;
    polled.push_back({worker.channel, static_cast<short>(wanted), 0});
  }
  Events events;
  if (poll(polled.data(), polled.size(), milliseconds) <= 0) {
    return events;
  }
  events.isReadable = polled.front().revents != 0;
  auto found = polled.begin() + 1;
  for (auto worker = workers_.begin(); worker != workers_.end(); ++found) {
    worker = Exchange(*worker, found->revents, events.answers) ? std::next(worker)
                                                               : workers_.erase(worker);
  }
  return events;
}

// Does for a worker what can be done without waiting. False where it has died; an answer that it
// had given whole before counts all the same.
bool WorkerPool::Exchange(Worker& worker, short events, std::vector<Answer>& answers) {
  bool isAlive = true;
  if (events != 0) {
    const bool isSent = Send(worker);
    isAlive = Receive(worker) && isSent;
  }
  if (worker.received.ends_with(answerEnd_)) {
    answers.push_back({worker.ticket, UnpackRecord(std::exchange(worker.received, {})), ""});
    worker.isBusy = false;
  }
  if (isAlive) {
    return true;
  }
  close(worker.channel);
  const int status = Reap(worker.process);
  if (worker.isBusy) {
    answers.push_back({worker.ticket, {}, Ending(status)});
  }
  return false;
}

// Both are false where the worker is not there any more.
bool WorkerPool::Send(Worker& worker) {
  while (!worker.toSend.empty()) {
    const ssize_t count = send(worker.channel, worker.toSend.data(), worker.toSend.size(),
                               MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count == -1) {
      return IsToBeTriedAgain(errno);
    }
    worker.toSend.erase(0, count);
  }
  return true;
}

bool WorkerPool::Receive(Worker& worker) {
  char block[kBlock];
  for (;;) {
    const ssize_t count = recv(worker.channel, block, sizeof block, MSG_DONTWAIT);
    if (count <= 0) {
      return count == -1 && IsToBeTriedAgain(errno);
    }
    worker.received.append(block, count);
  }
}

}  // namespace postwright
