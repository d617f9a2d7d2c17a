// The serial launch: its command line, and what the solver gets and gives back.
#include "execution/serial_launch.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/texts.h"
#include "tests/windows/launch_fixture.h"
#include "tests/windows/open_handles.h"

namespace qvx {
namespace {

class SerialLaunch : public test::LaunchTest {
 protected:
  SerialLaunch() { logName = "console_redirect_serial_Flow_<time>.txt"; }

  /// Runs `commands` in the solver, which prints `output`.
  void ExpectRun(const std::string& commands, const std::string& output, int result) {
    script.Set(commands);
    const test::Outcome outcome = Run(LaunchSerial);
    const std::string solverPath = std::string(context.homeFolder) + "\\Bin\\Qvx3DFlow.exe";
    ExpectOutcome(
        outcome, result, solverPath, test::kSerialBanner + output,
        "Commandline=[" + solverPath + " " + context.solverArgumentString + "]\r\n" + output);
  }
};

TEST_F(SerialLaunch, EchoesAndLogsWhatTheSolverPrints) {
  ExpectRun("command-line;args;error to standard error;raw 80FF0A;flush",
            solver +
                " -a b\r\nargument 1: -a\r\nargument 2: b\r\nto standard error\r\n"
                "\x80\xFF\n",
            0);
}

TEST_F(SerialLaunch, ReturnsTheSolversExitCodeUnchanged) {
  for (const int exitCode : {0, 1, -1, 255, 256, 259, -7000, -9876, 2147483647}) {
    ExpectRun("exit " + std::to_string(exitCode), "", exitCode);
  }
}

TEST_F(SerialLaunch, GivesTheSolverAnInputThatIsAtItsEnd) {
  ExpectRun("stdin;flush", "stdin: 0 bytes\r\n", 0);
}

TEST_F(SerialLaunch, StartsTheSolverInTheLaunchersFolder) {
  const test::CurrentFolder currentFolder(folder.Path());
  ExpectRun("folder;flush", folder.Path() + "\r\n", 0);
}

TEST_F(SerialLaunch, GivesTheSolverTheLaunchersEnvironmentAsItIs) {
  const test::EnvironmentVariable variable("QVX_TEST");
  variable.Set("seen");
  ExpectRun("variable QVX_TEST;variable I_MPI_SMPD_VERSION_CHECK;flush",
            "QVX_TEST=seen\r\nI_MPI_SMPD_VERSION_CHECK is not set\r\n", 0);
}

TEST_F(SerialLaunch, EndsTheCommandLineInABlankWithoutArguments) {
  context.solverArgumentString[0] = '\0';
  ExpectRun("command-line;flush", solver + " \r\n", 0);
}

TEST_F(SerialLaunch, LeavesAHomeFolderWithBlanksUnquoted) {
  CopyText(context.homeFolder, "home folder", folder.Path("Quorvex Home"));
  Install("QuorvexFakeSolver.exe", folder.Path("Quorvex Home\\Bin\\Qvx3DFlow.exe"));
  ExpectRun("exit 4", "", 4);
}

TEST_F(SerialLaunch, ReplacesTheLogsOfItsModeAndClassOnly) {
  MakeFiles(runFolder, {"console_redirect_serial_Flow_2024-03-05_09-07-02.txt",
                        "console_redirect_serial_Warp_a.txt", "console_redirect_smp_Flow_a.txt"});
  EXPECT_EQ(Run(LaunchSerial).result, 0);
  Names names = NamesIn(runFolder);
  EXPECT_EQ(names.size(), 3U);
  EXPECT_NE(names[0], "console_redirect_serial_Flow_2024-03-05_09-07-02.txt");
  names[0] = test::WithoutTimestamps(names[0]);
  EXPECT_EQ(names,
            (Names{"console_redirect_serial_Flow_<time>.txt", "console_redirect_serial_Warp_a.txt",
                   "console_redirect_smp_Flow_a.txt"}));
}

TEST_F(SerialLaunch, NamesItsLogWithoutALabelForAnUnknownClassAndDeletesThoseOfAllClasses) {
  context.solverClass = SolverClass{13};
  logName = "console_redirect_serial__<time>.txt";
  MakeFiles(runFolder, {"console_redirect_serial_Pack_a.txt"});
  ExpectRun("exit 2", "", 2);
}

TEST_F(SerialLaunch, TracesTheCommandLine) {
  context.debugTraceFlag = 1;
  const std::string commandLine = "Commandline=[" + solver + " -a b]\r\n";
  ExpectOutcome(Run(LaunchSerial), 0, solver,
                test::kSerialBanner + ("\r\n\r\n" + commandLine) + "\r\n", commandLine);
}

TEST_F(SerialLaunch, FailsWithoutTheSolverAndWithoutANewLog) {
  MakeFiles(runFolder,
            {"console_redirect_serial_Flow_a.txt", "console_redirect_serial_Pack_a.txt"});
  CopyText(context.solverExecutableName, "solver executable name", "Missing.exe");
  ExpectFailure(Run(LaunchSerial), test::kSerialBanner, home + "\\Bin\\Missing.exe -a b");
  EXPECT_EQ(NamesIn(runFolder), Names{"console_redirect_serial_Pack_a.txt"});
}

TEST_F(SerialLaunch, LeavesItsReadEndToTheSystem) {
  const test::PipeEnds before = test::OpenPipeEnds();
  Run(LaunchSerial);
  EXPECT_EQ(test::OpenPipeEnds() - before, (test::PipeEnds{.inheritable = 0, .own = 1}));
}

TEST_F(SerialLaunch, RefusesASolverPathOf260Characters) {
  const std::string longest(259 - std::string("\\Bin\\Qvx3DFlow.exe").size(), 'h');
  CopyText(context.homeFolder, "home folder", longest);
  EXPECT_EQ(Run(LaunchSerial).result, -1);
  CopyText(context.homeFolder, "home folder", longest + "h");
  EXPECT_FAULT(LaunchSerial(context), "ERROR: solver path is too long: width 260, length 260");
}

}  // namespace
}  // namespace qvx
