#include "tests/apps/CommandRows.h"

#include <gtest/gtest.h>

namespace postwright {

void CheckCommands(const std::vector<CommandRow>& rows, const ScratchFolder& folder) {
  for (const CommandRow& row : rows) {
    SCOPED_TRACE(row.name);
    const ProgramRun run = RunCommand(row.command, "1 a st\nAustin TX 78701\n", folder);
    EXPECT_EQ(run.status, row.status);
    EXPECT_EQ(run.output.empty(), row.output.empty()) << run.output;
    EXPECT_NE(run.output.find(row.output), std::string::npos) << run.output;
    EXPECT_EQ(run.errors.empty(), row.errors.empty()) << run.errors;
    EXPECT_NE(run.errors.find(row.errors), std::string::npos) << run.errors;
  }
}

}  // namespace postwright
