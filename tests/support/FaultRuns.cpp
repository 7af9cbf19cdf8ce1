#include "tests/support/FaultRuns.h"

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "tests/support/FaultShim.h"
#include "tests/support/TempFolder.h"

namespace postwright {

namespace {

constexpr int kMostCalls = 5000;  // a run that never ends is an error too
#ifdef POSTWRIGHT_SANITIZED
constexpr int kStep = 5;  // a process under a sanitizer takes a quarter of a second to begin
#else
constexpr int kStep = 1;
#endif

void Empty(const std::string& folder) {
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    std::filesystem::remove(file);
  }
}

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

bool FaultRuns::End::NamesCause() const {
  constexpr std::array<const char*, 6> kCauses = {"Input/output error",  "disk I/O error",
                                                  "No space left",       "disk is full",
                                                  "unable to open data", "readonly database"};
  for (const char* const cause : kCauses) {
    if (said.find(cause) != std::string::npos) {
      return true;
    }
  }
  return false;
}

std::string FaultRuns::Run() const {
  return RunKind("fail") + RunKind("full") + RunKind("kill");
}

std::string FaultRuns::RunKind(const std::string& kind) const {
  const TempFolder own;
  const std::string report = own.File("report");
  setenv("POSTWRIGHT_FAULT_FOLDER", folder.c_str(), 1);
  setenv("POSTWRIGHT_FAULT_KIND", kind.c_str(), 1);
  setenv("POSTWRIGHT_FAULT_REPORT", report.c_str(), 1);
  std::string wrong;
  int call = 1;
  for (; call < kMostCalls; call += kStep) {
    unlink(report.c_str());
    Empty(folder);
    prepare();
    setenv("POSTWRIGHT_FAULT_CALL", std::to_string(call).c_str(), 1);
    FaultShimBegin();
    const End end = RunOne(kind == "kill");
    unsetenv("POSTWRIGHT_FAULT_CALL");
    FaultShimBegin();
    const std::string which = Content(report);
    if (which.empty()) {
      break;
    }
    if (const std::string complaint = check(end); !complaint.empty()) {
      wrong += kind + " at " + std::to_string(call) + ", " + which + "  " + complaint +
               "\n  said: " + end.said + '\n';
    }
  }
  return call == 1 || call >= kMostCalls
             ? wrong + kind + ": " + std::to_string(call - 1) + " calls\n"
             : wrong;
}

std::string FaultRuns::Files() const {
  std::set<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    names.insert(file.path().filename());
  }
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "" : " ") + name;
  }
  return text;
}

FaultRuns::End FaultRuns::RunOne(bool isToDie) const {
  if (!isToDie) {
    return {false, work()};
  }
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL, ""};
}

}  // namespace postwright
