// What a fault finds traced already, which tells what came before it. Native only: a death test's
// process prints lines of its own on Windows.
#include <gtest/gtest.h>

#include <string>

#include "execution/parallel_settings.h"
#include "launcher/command_line.h"
#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"

namespace qvx {
namespace {

struct TraceBeforeAFaultDeathTest : testing::Test {
  TraceBeforeAFaultDeathTest() { context.debugTraceFlag = 1; }
  LauncherContext context;
};

TEST_F(TraceBeforeAFaultDeathTest, HoldsTheTokenThatIsTooLong) {
  const std::string name(256, 'x');
  std::string program = "L$1";
  std::string tokens = "h*p*" + name;
  std::string solver = "Qvx3DFlow.exe";
  char* arguments[] = {program.data(), tokens.data(), solver.data()};
  const std::string printed = test::PrintedBy([&] {
    EXPECT_FAULT(InterpretCommandLine(context, 3, arguments),
                 "ERROR: project name is too long: width 256, length 256");
  });
  EXPECT_EQ(printed.substr(printed.find("SolverClass")),
            "SolverClass=FLOW\nParse argv[1]=[" + tokens + "]\nh\np\n" + name + "\n");
}

TEST_F(TraceBeforeAFaultDeathTest, HoldsTheFoldersOfWeightsThatMemoryCannotHold) {
  context.computeMode = ComputeMode::Dmp;
  CopyText(context.flowArgument.projectDirectory, "", "D:\\Work\\P");
  CopyText(context.remoteMachineSettings.ValueParallelWorkingFolder, "", "D:\\WORK");
  CopyText(context.remoteMachineSettings.machines.emplace_back().taskCount, "", "2000000000");
  const std::string printed = test::PrintedBy([&] {
    EXPECT_FAULT(PrepareParallelSettings(context),
                 "ERROR: process weights cannot be allocated: count 2000000000");
  });
  EXPECT_EQ(printed,
            "Before, strProjectDirLocal=[D:\\Work\\P]\nAfter, strProjectDirLocal=[d:\\work\\p]\n"
            "Before, strParallelWorkingFolder=[D:\\WORK]\n"
            "After, strParallelWorkingFolder=[d:\\work]\n");
}

}  // namespace
}  // namespace qvx
