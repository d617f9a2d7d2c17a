// Runs that cannot be what they should: each says why, and ends with the status for it.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"

namespace qvx::test {
namespace {

using Logs = std::map<std::string, std::string>;

const std::string kSolver = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kCommandLine = kSolver + " " + FlowArguments(kSerialSettings);

const PlannedRun kNoArgument({.arguments = std::vector<std::string>{}});

RUN_TEST(NoArgument, IsRefusedWithoutCountdown, &kNoArgument) {
  EXPECT_EQ(kNoArgument->output, "incorrect argument\r\n");
  EXPECT_EQ(kNoArgument->status, -1);
}

const PlannedRun kTwoArguments({
    .script = "print x;flush",
    .arguments = std::vector<std::string>{"<site>\\Home*p*n*0*1"},
    .prepare = [](const Site& site) { site.Remove("Home\\acc.ini"); },
});

RUN_TEST(TwoArguments, TakeTheTokensAsSolverNameToo, &kTwoArguments) {
  // The path makes the name no known family's, so FLOW; there is no CMX file, so distributed.
  EXPECT_EQ(kTwoArguments->output,
            " Read CMX file: p\\Analysis\\Run1\\n1.cmx failed!\r\n"
            " Read CMX file: p\\Analysis\\Run1\\n1.cmx failed!\r\n"
            "Error: Please check if acc.ini is properly configured!\r\n" +
                std::string(kCountdown));
  EXPECT_EQ(kTwoArguments->status, -1);
}

const PlannedRun kNoSolver({.prepare = [](const Site& site) {
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_old.txt", "old");
}});

RUN_TEST(MissingSolver, IsReportedWithTheSystemErrorAndLeavesNoLog, &kNoSolver) {
  EXPECT_EQ(kNoSolver->output, "Launch serial computing\r\nCreateProcess [" + kCommandLine +
                                   "] failed. system error(2)\r\n" + kCountdown);
  EXPECT_EQ(kNoSolver->status, -1);
  EXPECT_EQ(kNoSolver->logs, Logs{});
}

const PlannedRun kNoRunFolder({
    .solver = "QvxOptics.exe",  // reads no CMX file
    .script = "print x;flush;exit 5",
    .prepare = [](const Site& site) { site.Remove("Work\\Sample\\Analysis\\Run01"); },
});

RUN_TEST(MissingRunFolder, LeavesTheRunWithoutALog, &kNoRunFolder) {
  const std::size_t name = kNoRunFolder->output.find("console_redirect");
  ASSERT_NE(name, std::string::npos) << kNoRunFolder->output;
  std::string output = kNoRunFolder->output;
  const std::string prefix = "console_redirect_serial_Optics_";
  output.replace(name, prefix.size() + std::string("2024-03-05_09-07-02").size(), "<log>");
  // The line about the log is not flushed, and so it may come before or behind the solver's.
  const std::string line =
      "CreateFile(<site>\\Work\\Sample\\Analysis\\Run01\\<log>.txt)::INVALID_HANDLE_VALUE "
      "LastError=3\r\n";
  const std::size_t at = output.find(line);
  ASSERT_NE(at, std::string::npos) << output;
  EXPECT_EQ(output.erase(at, line.size()),
            SerialConsole("x\r\n", "<site>\\Home\\Bin\\QvxOptics.exe", 5) + kCountdown);
  EXPECT_EQ(kNoRunFolder->status, 5);
}

const PlannedRun kNoCmxNoAccounts({.prepare = [](const Site& site) {
  site.Remove("Work\\Sample\\Analysis\\Run01\\Sample01.cmx");
  site.Remove("Home\\acc.ini");
}});

RUN_TEST(MissingCmxFile, MeansADistributedRunWhichNeedsAccounts, &kNoCmxNoAccounts) {
  const std::string message =
      " Read CMX file: <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx failed!\r\n";
  EXPECT_EQ(kNoCmxNoAccounts->output,
            message + message + "Error: Please check if acc.ini is properly configured!\r\n" +
                kCountdown);
  EXPECT_EQ(kNoCmxNoAccounts->status, -1);
  EXPECT_EQ(kNoCmxNoAccounts->logs, Logs{});
}

const PlannedRun kEmptyAccounts({
    .cmx = kDmpCmx,
    .prepare = [](const Site& site) { site.Write("Home\\acc.ini", ""); },
});

RUN_TEST(EmptyAccountFile, EndsADistributedRun, &kEmptyAccounts) {
  EXPECT_EQ(kEmptyAccounts->output,
            std::string("Error: Please check if acc.ini is properly configured!\r\n") + kCountdown);
  EXPECT_EQ(kEmptyAccounts->status, -1);
}

const PlannedRun kNoMpi({.machine = Machine::WithoutMpi, .cmx = kSmpCmx});

RUN_TEST(MissingMpiInstallation, FailsToStartTheProcessLauncher, &kNoMpi) {
  EXPECT_EQ(kNoMpi->output,
            "Launch parallel computing\r\nCreateProcess [\\impiexec.exe -env 0 0 -localonly -n 2  "
            "\"<site>\\Home\\Bin\\Qvx3DFlow.exe\" " +
                FlowArguments("-parallel 1 -processes 2 -weights 0.5,0.5") +
                "] failed. system error(2)\r\n" + kCountdown);
  EXPECT_EQ(kNoMpi->status, -1);
}

void ExpectFault(const PlannedRun& run, const std::string& line) {
  EXPECT_EQ(run->output, "");
  EXPECT_EQ(run->error, line + "\r\n");
  EXPECT_EQ(run->status, -2);
  EXPECT_EQ(run->logs, Logs{});
}

const PlannedRun kLongName({.arguments = std::vector<std::string>{"<site>\\Home*p*n*0*1",
                                                                  std::string(64, 'x')}});
const PlannedRun kLongValue({.cmx = "<TASKMANAGER>\nValueNoTask=" + std::string(40, '1') + "\n"});
const PlannedRun kLongProject({.arguments = std::vector<std::string>{
                                   "<site>\\Home*" + std::string(250, 'p') + "*n*0*1",
                                   "Qvx3DFlow.exe"}});

RUN_TEST(OverlongText, EndsTheLauncherAtOnce, &kLongName, &kLongValue, &kLongProject) {
  ExpectFault(kLongName, "ERROR: solver executable name is too long: width 64, length 64");
  ExpectFault(kLongValue, "ERROR: ValueNoTask is too long: width 32, length 40");
  ExpectFault(kLongProject, "ERROR: CMX path is too long: width 260, length 271");
}

const PlannedRun kHugeMachineCount(
    {.cmx = "<REMOTE_MACHINES>\nValueNoMachine=2147483647\n</REMOTE_MACHINES>\n"});

RUN_TEST(MachineCountBeyondMemory, EndsTheLauncherAtOnce, &kHugeMachineCount) {
  ExpectFault(kHugeMachineCount, "ERROR: ValueNoMachine cannot be allocated: count 2147483647");
}

}  // namespace
}  // namespace qvx::test
