// The compute mode that follows from the solver class and the task-manager settings.
#include "launcher/compute_mode.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bounded_text.h"
#include "tests/support/printed_by.h"

namespace qvx {
namespace {

struct DecidedComputeMode : testing::Test {
  ComputeMode Decide(SolverClass solverClass, const char* taskMode, const char* localTasks) {
    context.solverClass = solverClass;
    CopyText(context.taskManagerSettings.IDTaskMode, "", taskMode);
    CopyText(context.taskManagerSettings.ValueLocalNoTask, "", localTasks);
    ComputeMode mode = {};
    printed = test::PrintedBy([&] { mode = DecideComputeMode(context); });
    return mode;
  }

  LauncherContext context;
  std::string printed;
};

TEST_F(DecidedComputeMode, IsSerialForOneLocalTaskExactly) {
  EXPECT_EQ(Decide(SolverClass::Flow, "0", "1"), ComputeMode::Serial);
  for (const char* tasks : {"", "0", "4", "10", "01", "1 ", "NULL"}) {
    EXPECT_EQ(Decide(SolverClass::Flow, "0", tasks), ComputeMode::Smp) << tasks;
  }
}

TEST_F(DecidedComputeMode, DoesNotFollowTheNumberOfAllTasks) {
  CopyText(context.taskManagerSettings.ValueNoTask, "", "1");
  EXPECT_EQ(Decide(SolverClass::Flow, "0", "4"), ComputeMode::Smp);
}

TEST_F(DecidedComputeMode, IsDistributedForEveryTaskModeButZero) {
  for (const char* taskMode : {"", "1", "00", "0=1", " 0"}) {
    EXPECT_EQ(Decide(SolverClass::Stress, taskMode, "1"), ComputeMode::Dmp) << taskMode;
  }
}

TEST_F(DecidedComputeMode, IsDistributedOnASingleMachineToo) {
  context.remoteMachineSettings.machines.resize(1);
  EXPECT_EQ(Decide(SolverClass::Flow, "1", "1"), ComputeMode::Dmp);
}

TEST_F(DecidedComputeMode, IsTraced) {
  context.debugTraceFlag = 1;
  Decide(SolverClass::Pack, "0", "1");
  EXPECT_EQ(printed, "ComputeMode=Serial\n");
  Decide(SolverClass::Pack, "0", "4");
  EXPECT_EQ(printed, "ComputeMode=SMP\n");
  Decide(SolverClass::Pack, "1", "4");
  EXPECT_EQ(printed, "ComputeMode=DMP\n");
}

TEST_F(DecidedComputeMode, IsSilentWithoutTrace) {
  Decide(SolverClass::Flow, "1", "4");
  EXPECT_EQ(printed, "");
}

TEST_F(DecidedComputeMode, IsSerialAndUntracedForClassesThatAlwaysRunSerially) {
  context.debugTraceFlag = 1;
  for (const SolverClass solverClass : {SolverClass::ShellFlow, SolverClass::Optics}) {
    EXPECT_EQ(Decide(solverClass, "1", "4"), ComputeMode::Serial);
    EXPECT_EQ(printed, "");
  }
}

TEST_F(DecidedComputeMode, FollowsTheSettingsForANumberThatNamesNoFamily) {
  EXPECT_EQ(Decide(static_cast<SolverClass>(13), "0", "1"), ComputeMode::Serial);
  EXPECT_EQ(Decide(static_cast<SolverClass>(13), "1", "1"), ComputeMode::Dmp);
}

}  // namespace
}  // namespace qvx
