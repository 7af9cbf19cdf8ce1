#include "tests/service/Daemon.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace postwright::service {
namespace {

constexpr int kPatience = 20'000;  // ms, to keep a fault from hanging the run

}  // namespace

Daemon::Daemon(std::vector<std::string> arguments) {
  int ends[2] = {};
  EXPECT_EQ(pipe(ends), 0);
  arguments.insert(arguments.begin(), POSTWRIGHT_VERIFYD);
  std::vector<char*> raw;
  for (std::string& argument : arguments) {
    raw.push_back(argument.data());
  }
  raw.push_back(nullptr);
  process_ = fork();
  if (process_ == 0) {
    dup2(ends[1], STDERR_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    close(ends[0]);
    execv(raw[0], raw.data());
    _exit(127);
  }
  close(ends[1]);
  output_ = ends[0];
}

Daemon::~Daemon() {
  if (process_ > 0) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  close(output_);
}

std::string Daemon::ReadLine() {
  std::string line;
  pollfd state = {output_, POLLIN, 0};
  for (char c = 0; poll(&state, 1, kPatience) == 1 && read(output_, &c, 1) == 1 && c != '\n';) {
    line += c;
  }
  return line;
}

std::string Daemon::ReadAddress() {
  const std::string prefix = "postwright-verifyd: listening on ";
  const std::string line = ReadLine();
  EXPECT_TRUE(line.starts_with(prefix)) << line;
  return line.starts_with(prefix) ? line.substr(prefix.size()) : "127.0.0.1:0";
}

void Daemon::Signal(int number) const {
  kill(process_, number);
}

int Daemon::Wait() {
  int status = 0;
  for (int waited = 0; waited < kPatience; waited += 10) {
    if (waitpid(process_, &status, WNOHANG) == process_) {
      process_ = 0;
      return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    usleep(10'000);
  }
  return -1;
}

size_t Daemon::OpenFiles() const {
  const std::filesystem::directory_iterator files("/proc/" + std::to_string(process_) + "/fd");
  return static_cast<size_t>(std::distance(begin(files), end(files)));
}

long Daemon::ResidentKilobytes() const {
  std::ifstream status("/proc/" + std::to_string(process_) + "/status");
  for (std::string word; status >> word;) {
    if (word == "VmRSS:") {
      long kilobytes = 0;
      status >> kilobytes;
      return kilobytes;
    }
  }
  return 0;
}

}  // namespace postwright::service
