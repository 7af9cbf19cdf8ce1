#ifndef POSTWRIGHT_TESTS_SUPPORT_SERVICEPROCESS_H_
#define POSTWRIGHT_TESTS_SUPPORT_SERVICEPROCESS_H_

#include <postwright/Deployment.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace postwright {

// The real service, as a process of its own on a free port; this process's fixes go there. Spawned,
// not forked as by QProcess: after a fork ThreadSanitizer stops checking.
class ServiceProcess {
 public:
  ServiceProcess() { start(); }
  ~ServiceProcess() { die(); }

  // Starts it, on the port it had before if any, and waits until it listens.
  void start() {
    int ends[2] = {};
    if (pipe(ends) != 0) {
      return;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    std::string program = POSTWRIGHT_VERIFYD;
    std::string option = "--listen";
    std::string address = "127.0.0.1:" + std::to_string(_port);
    char* arguments[] = {program.data(), option.data(), address.data(), nullptr};
    posix_spawn(&_process, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    _output = fdopen(ends[0], "r");
    if (fscanf(_output, "postwright-verifyd: listening on 127.0.0.1:%d", &_port) != 1) {
      std::abort();  // it has printed why
    }
    SetDeployment({.verifyHost = "127.0.0.1:" + std::to_string(_port),
                   .userId = "TEST",
                   .probeHost = "127.0.0.1"});
  }

  // Kills it.
  void die() {
    if (_process > 0) {
      kill(_process, SIGKILL);
      waitpid(_process, nullptr, 0);
      fclose(_output);
      _process = 0;
    }
  }

 private:
  pid_t _process = 0;
  int _port = 0;
  FILE* _output = nullptr;
};

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_SUPPORT_SERVICEPROCESS_H_
