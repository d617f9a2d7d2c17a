// Runs that cannot be what they should: each says why, and ends with the status for it.
#include "tests/program/expected_run.h"
#include "tests/program/tests.h"

namespace qvx::test {

void AddTroubles(PlannedTests& tests) {
  const RunPlan noArgument = {.arguments = std::vector<std::string>{}};
  tests.Add("NoArgument", "IsRefusedWithoutCountdown", noArgument, [](const RunResult& run) {
    EXPECT_EQ(run.output, "incorrect argument\r\n");
    EXPECT_EQ(run.status, -1);
  });

  const RunPlan noSolver = {.prepare = [](const Site& site) {
    site.Remove("Home\\Bin\\Qvx3DFlow.exe");
    site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_old.txt", "old");
  }};
  tests.Add("MissingSolver", "IsReportedWithTheSystemErrorAndLeavesNoLog", noSolver, ExpectNoStart);

  const RunPlan noMpi = {.machine = Machine::WithoutMpi, .cmx = kSmpCmx};
  tests.Add("MissingMpiInstallation", "FailsToStartTheProcessLauncher", noMpi, ExpectNoStart);

  const RunPlan noRunFolder = {
      .solver = "QvxOptics.exe",  // reads no CMX file
      .script = "print x;flush;exit 5",
      .prepare = [](const Site& site) { site.Remove("Work\\Sample\\Analysis\\Run01"); },
  };
  tests.Add("MissingRunFolder", "LeavesTheRunWithoutALog", noRunFolder, [](const RunResult& run) {
    const std::string output = WithoutTimestamps(run.output);
    // The line about the log is not flushed, and so it may come before or behind the solver's.
    const std::string line =
        "CreateFile(<site>\\Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Optics_<time>"
        ".txt)::INVALID_HANDLE_VALUE LastError=3\r\n";
    EXPECT_NE(output.find(line), std::string::npos) << output;
    EXPECT_EQ(Replaced(output, line, ""),
              "Launch serial computing\r\nx\r\n\r\n"
              ">>> Return value of <site>\\Home\\Bin\\QvxOptics.exe = 5\r\n" +
                  std::string(kCountdown));
    EXPECT_EQ(run.status, 5);
  });

  const RunPlan noCmx = {.prepare = [](const Site& site) {
    site.Remove("Work\\Sample\\Analysis\\Run01\\Sample01.cmx");
    site.Remove("Home\\acc.ini");
  }};
  tests.Add(
      "MissingCmxFile", "MeansADistributedRunWhichNeedsAccounts", noCmx, [](const RunResult& run) {
        const std::string message =
            " Read CMX file: <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx failed!\r\n";
        EXPECT_EQ(run.output, message + message +
                                  "Error: Please check if acc.ini is properly configured!\r\n" +
                                  kCountdown);
        EXPECT_EQ(run.status, -1);
        EXPECT_EQ(run.logs.size(), 0U);
      });

  const auto arguments = [](const std::string& tokens, const std::string& solver) {
    return RunPlan{.arguments = std::vector<std::string>{tokens, solver}};
  };
  const std::vector<RunPlan> tooLong = {
      arguments("h*p*n*0*1", std::string(64, 'x')),
      arguments(std::string(215, 'h') + "*p*n*0*1", "optics" + std::string(40, 'x')),
      arguments("h*" + std::string(250, 'p') + "*n*0*1", "Qvx3DFlow.exe"),
      {.cmx = "<TASKMANAGER>\nValueNoTask=" + std::string(40, '1') + "\n"},
  };
  tests.Add("OverlongText", "EndsTheLauncherAtOnce", tooLong, [](const Results& runs) {
    for (const RunResult& run : runs) ExpectFault(run);
  });

  const RunPlan beyondMemory = {
      .cmx = "<REMOTE_MACHINES>\nValueNoMachine=2147483647\n</REMOTE_MACHINES>\n"};
  tests.Add(
      "MachineCountBeyondMemory", "EndsTheLauncherAtOnce", beyondMemory, [](const RunResult& run) {
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, "ERROR: ValueNoMachine cannot be allocated: count 2147483647\r\n");
        EXPECT_EQ(run.status, -2);
      });
}

}  // namespace qvx::test
