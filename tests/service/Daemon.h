#ifndef POSTWRIGHT_TESTS_SERVICE_DAEMON_H_
#define POSTWRIGHT_TESTS_SERVICE_DAEMON_H_

#include <sys/types.h>

#include <string>
#include <vector>

namespace postwright::service {

// The daemon as a program, its output read through a pipe. Nothing here waits for more than twenty
// seconds, and the program ends with the object.
class Daemon {
 public:
  explicit Daemon(std::vector<std::string> arguments);
  ~Daemon();
  Daemon(const Daemon&) = delete;
  Daemon& operator=(const Daemon&) = delete;

  // Returns the next line of its output; empty at the end.
  std::string ReadLine();

  // Reads the line that says where it listens.
  std::string ReadAddress();

  void Signal(int number) const;

  // Returns the exit status; -1 if a signal ended it or it did not end.
  int Wait();

  long ResidentKilobytes() const;
  size_t OpenFiles() const;  // descriptors, connections among them

 private:
  pid_t process_ = 0;
  int output_ = -1;
};

}  // namespace postwright::service

#endif  // POSTWRIGHT_TESTS_SERVICE_DAEMON_H_
