#include "apps/verifyd/Process.h"

#include <pthread.h>
#include <sys/resource.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace postwright::service {

void ReserveDescriptors(unsigned connections) {
  constexpr rlim_t kOwn = 256;  // the server's loops, the cache, the base, calls of an upstream
  const rlim_t needed = connections + kOwn;
  rlimit limit = {};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= needed) {
    return;
  }
  limit.rlim_cur = std::min(needed, limit.rlim_max);
  if (limit.rlim_cur < needed || setrlimit(RLIMIT_NOFILE, &limit) != 0) {
    throw std::runtime_error(std::to_string(connections) + " connections need " +
                             std::to_string(needed) + " descriptors, and this process may have " +
                             std::to_string(limit.rlim_max) +
                             ": raise its limit (ulimit -n, LimitNOFILE), or lower --connections");
  }
}

sigset_t BlockSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  signal(SIGPIPE, SIG_IGN);  // a client or a log's reader that has gone away is no reason to end
  signal(SIGXFSZ, SIG_IGN);  // nor is a file that may not grow: writing it fails, and that is told
  return signals;
}

void WaitForEnd(const sigset_t& signals, const std::function<void()>& onHangUp) {
  for (int number = 0; sigwait(&signals, &number) != 0 || number == SIGHUP;) {
    onHangUp();
  }
}

}  // namespace postwright::service
