// The run driver: which compute mode it decides for, and the ends that come before a launch.
#include "launcher/run_driver.h"

#include <gtest/gtest.h>

#include <string>

#include "launcher/argument_record.h"
#include "launcher/process_wide_values.h"
#include "support/bounded_text.h"
#include "tests/windows/launch_fixture.h"

namespace qvx {
namespace {

constexpr const char* kCancelled = "Ctrl-break is captured. Computing is canceled.\r\n";

class RunDriverTest : public test::LaunchTest {
 protected:
  RunDriverTest() {
    folder.Write("Home\\acc.ini", "user=x\n");
    context.solverClass = SolverClass::Stress;
    SetTasks("0", "1");
  }

  void SetTasks(const char* taskMode, const char* localTasks) {
    CopyText(context.taskManagerSettings.IDTaskMode, "IDTaskMode", taskMode);
    CopyText(context.taskManagerSettings.ValueLocalNoTask, "ValueLocalNoTask", localTasks);
    CopyText(context.taskManagerSettings.ValueNoTask, "ValueNoTask", "2");
  }

  /// Fills the record of the solver class.
  void FillRecord() {
    VisitArgumentRecord(context, [&](QVXRunTexts& record) {
      CopyText(record.homeFolder, "home folder", home);
      CopyText(record.projectDirectory, "project directory", folder.Path("Project"));
      CopyText(record.runNumber, "run number", "01");
    });
  }

  test::Outcome Drive() {
    FillRecord();
    return Run(RunDriver);
  }

  /// A run that is cancelled behind its trace: `decision`, what else a distributed run traces, the
  /// solver arguments.
  void ExpectDecision(const std::string& decision, ComputeMode mode) {
    context.debugTraceFlag = 1;
    cancelFlag = 1;
    const test::Outcome outcome = Drive();
    EXPECT_EQ(context.computeMode, mode);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.console.written, decision + "Solver arguments = [" +
                                           context.solverArgumentString + "]\r\n" + kCancelled);
  }

  const std::string converted = "ConvertAcc2RegistryForIntelMPI(" + home + ")\r\n";
};

TEST_F(RunDriverTest, DecidesForDmpUnlessTheTaskModeIsExactlyZero) {
  for (const char* const taskMode : {"1", "00", "", "0 ", "NULL"}) {
    SetTasks(taskMode, "1");
    ExpectDecision("ComputeMode=DMP\r\n" + converted, ComputeMode::Dmp);
  }
}

TEST_F(RunDriverTest, DecidesForSmpUnlessTheLocalTaskCountIsExactlyOne) {
  for (const char* const localTasks : {"4", "", "01", "1 ", "0", "NULL"}) {
    SetTasks("0", localTasks);
    ExpectDecision("ComputeMode=SMP\r\n", ComputeMode::Smp);
  }
}

TEST_F(RunDriverTest, DecidesForSerialWithOneLocalTask) {
  context.computeMode = ComputeMode::Dmp;
  ExpectDecision("ComputeMode=Serial\r\n", ComputeMode::Serial);
}

TEST_F(RunDriverTest, LooksAtTheTasksOfTheClassesUpToStress) {
  SetTasks("0", "2");
  for (std::uint32_t solverClass = 0; solverClass <= 4; ++solverClass) {
    context.solverClass = SolverClass{solverClass};
    ExpectDecision("ComputeMode=SMP\r\n", ComputeMode::Smp);
  }
}

TEST_F(RunDriverTest, RunsOtherClassesSeriallyWithoutADecision) {
  for (std::uint32_t solverClass = 5; solverClass <= 12; ++solverClass) {
    context.solverClass = SolverClass{solverClass};
    context.computeMode = ComputeMode::Dmp;
    SetTasks("1", "4");
    ExpectDecision("", ComputeMode::Serial);
  }
}

TEST_F(RunDriverTest, PreparesTheRecordAndTheArgumentsInThatOrder) {
  SetTasks("0", "2");
  context.solverClass = SolverClass::Flow;
  ExpectDecision("ComputeMode=SMP\r\n", ComputeMode::Smp);
  EXPECT_EQ(context.solverArgumentString,
            "-home \"" + home + "\" -project \"" + folder.Path("Project") +
                "\" -name \" \" -run \"01\" -molding 0 -option 0 -parallel 1 -processes 2 -weights "
                "0.5,0.5");
}

TEST_F(RunDriverTest, StartsNothingWhenTheRunIsCancelled) {
  cancelFlag = 1;
  const test::Outcome outcome = Drive();
  EXPECT_EQ(outcome.result, 0);
  EXPECT_EQ(outcome.console.written, kCancelled);
  EXPECT_EQ(NamesIn(runFolder), Names{});
  EXPECT_EQ(childProcessIdentifier, 0U);
}

TEST_F(RunDriverTest, GivesUpBeforeAllElseWhenTheAccountsAreUnusable) {
  folder.Write("Home\\acc.ini", "");
  SetTasks("1", "1");
  cancelFlag = 1;
  const test::Outcome outcome = Drive();
  EXPECT_EQ(outcome.result, -1);
  EXPECT_EQ(outcome.console.written, "Error: Please check if acc.ini is properly configured!\r\n");
  EXPECT_EQ(context.warpArgument.homeFolder, home);
  EXPECT_EQ(context.warpArgument.parallelMode, 0);
  EXPECT_STREQ(context.solverArgumentString, "-a b");
}

TEST_F(RunDriverTest, AsksForTheAccountsInADistributedRunOnly) {
  folder.Write("Home\\acc.ini", "");
  ExpectDecision("ComputeMode=Serial\r\n", ComputeMode::Serial);
  SetTasks("0", "4");
  ExpectDecision("ComputeMode=SMP\r\n", ComputeMode::Smp);
}

TEST_F(RunDriverTest, LeavesOffWhileTheAbortFlagIsSet) {
  context.configurationAbortFlag = 1;
  const test::Outcome outcome = Drive();
  EXPECT_EQ(outcome.result, -1);
  EXPECT_EQ(outcome.console.written, "");
}

TEST_F(RunDriverTest, StartsTheSolverInASerialRun) {
  logName = "console_redirect_serial_Stress_<time>.txt";
  script.Set("exit 11");
  const test::Outcome outcome = Drive();
  ExpectOutcome(outcome, 11, solver, test::kSerialBanner,
                "Commandline=[" + solver + " " + context.solverArgumentString + "]\r\n");
}

TEST_F(RunDriverTest, StartsTheProcessLauncherInASharedMemoryRun) {
  logName = "console_redirect_smp_Stress_<time>.txt";
  SetTasks("0", "2");
  script.Set("exit 12");
  const test::Outcome outcome = Drive();
  ExpectOutcome(outcome, 12, impiexec, test::kParallelBanner,
                "Commandline=[" + impiexec + " -env 0 0 -localonly -n 2  \"" + solver + "\" " +
                    context.solverArgumentString + "]\r\n");
}

TEST_F(RunDriverTest, StartsTheProcessLauncherOnTheShareInADistributedRun) {
  // "\\?\C:\..." leads to this machine's drive as "\\node\share\..." leads to a share.
  CopyText(context.remoteMachineSettings.ValueStorageNode, "ValueStorageNode", "?");
  CopyText(context.remoteMachineSettings.ValueShareFolderName, "share", folder.Path("Share"));
  CopyText(context.remoteMachineSettings.ValueParallelWorkingFolder, "folder", folder.Path());
  CopyText(context.remoteMachineSettings.ValueNoMachine, "ValueNoMachine", "0");
  CopyText(context.remoteHomePath, "remote home path", "\\\\srv\\Quorvex");
  logFolder = folder.Path("Share\\project\\Analysis\\Run01");
  logName = "console_redirect_dmp_Stress_<time>.txt";
  MakeFiles(logFolder, {});
  SetTasks("1", "1");
  script.Set("exit 13");
  const test::Outcome outcome = Drive();
  ExpectOutcome(outcome, 13, impiexec, test::kParallelBanner,
                "Used compute nodes:\r\n\r\nCommandline=[" + impiexec +
                    " -env 0 0 -hosts 0   \"\\\\srv\\Quorvex\\Bin\\Qvx3DFlow.exe\" " +
                    context.solverArgumentString + "]\r\n");
}

}  // namespace
}  // namespace qvx
