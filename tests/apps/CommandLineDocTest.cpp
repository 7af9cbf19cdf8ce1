#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/apps/ProgramRun.h"

namespace postwright {

namespace {

struct Example {
  std::string command;
  std::string answer;  // what is printed, on either stream
};

// The commands of the page's console blocks and what it says they print.
std::vector<Example> ReadExamples() {
  std::vector<Example> examples;
  std::istringstream page(ReadFile(POSTWRIGHT_COMMAND_LINE_PAGE));
  bool isInside = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) {
      isInside = line == "```console";
    } else if (isInside && line.starts_with("$ ")) {
      examples.push_back({line.substr(2), ""});
    } else if (isInside) {
      examples.back().answer += line + '\n';
    }
  }
  return examples;
}

TEST(CommandLineDocTest, EveryExampleDoesWhatThePageSays) {
  const VerifyDaemon daemon;
  ASSERT_FALSE(daemon.Endpoint().empty());
  const std::string start =
      "cd $folder; postwright() { local command=$1; shift; $postwright $command " +
      ("$([ $command = fix ] && echo --server " + daemon.Endpoint() + ")") + " \"$@\"; }; ";
  const ScratchFolder folder;
  const std::vector<Example> examples = ReadExamples();
  EXPECT_GT(examples.size(), 10U);
  for (const Example& example : examples) {
    const ProgramRun run = RunCommand(start + example.command, "", folder);
    EXPECT_EQ(run.output + run.errors, example.answer) << example.command;
  }
}

}  // namespace

}  // namespace postwright
