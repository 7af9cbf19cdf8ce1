#ifndef POSTWRIGHT_TESTS_APPS_COMMANDROWS_H_
#define POSTWRIGHT_TESTS_APPS_COMMANDROWS_H_

#include <string>
#include <vector>

#include "tests/apps/ProgramRun.h"

namespace postwright {

// One command for bash, as RunCommand takes it, and what it must do.
struct CommandRow {
  const char* name;
  std::string command;
  int status;
  std::string output;  // part of each; "" for silence
  std::string errors;
};

// Runs each with a label as standard input, and compares.
void CheckCommands(const std::vector<CommandRow>& rows, const ScratchFolder& folder);

}  // namespace postwright

#endif  // POSTWRIGHT_TESTS_APPS_COMMANDROWS_H_
