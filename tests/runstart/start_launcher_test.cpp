// Both forms of StartLauncher's call. In an installation's Bin, stand-ins for check and launcher
// lie beside it and say what they were started with; the last test takes the real ones.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/program/site.h"
#include "tests/runcheck/check_process.h"
#include "tests/support/program_path.h"
#include "version.h"

namespace qvx::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kCheck = "\"QVXRunCheck.exe\" ";
const std::string kLauncherArguments =
    "\"QVXSolverLauncher.exe$1\" \"<site>\\Home*<site>\\Work\\Sample*Sample*0*01\" "
    "\"Qvx3DFlow.exe\"\r\n";
const std::string kNotStarted = "StartLauncher: not started; --force starts it all the same\r\n";

class StartLauncher : public testing::Test {
 protected:
  StartLauncher() {
    InstallBuilt("StartLauncher.exe");
    site.InstallSolver("QVXRunCheck.exe");
    site.InstallSolver("QVXSolverLauncher.exe");
    CheckDoes("command-line;exit 0");
    LauncherDoes("command-line;exit 0");
    site.WriteCmx(kSerialCmx);
  }

  void InstallBuilt(const std::string& name) const {
    std::filesystem::copy_file(ProgramPath("bin\\" + name), site.Path("Home\\Bin\\" + name),
                               std::filesystem::copy_options::overwrite_existing);
  }
  void CheckDoes(const std::string& script) const {
    site.Write("Home\\Bin\\QVXRunCheck.script", script);
  }
  void LauncherDoes(const std::string& script) const {
    site.Write("Home\\Bin\\QVXSolverLauncher.script", script);
  }

  /// Afterwards `output`, `error` and `status` hold what came of it.
  void Start(Texts arguments) {
    for (std::string& argument : arguments) argument = site.Specific(argument);
    const CheckResult result = RunQvxRunCheck(arguments, site.Path("Home\\Bin\\StartLauncher.exe"));
    output = site.Generic(result.output);
    error = site.Generic(result.error);
    status = result.status;
  }

  /// The same with a run in words, `more` behind them.
  void StartRun(const Texts& more = {}) {
    Texts arguments = {"--project", "<site>\\Work\\Sample", "--run", "01",
                       "--solver",  "Qvx3DFlow.exe"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    Start(arguments);
  }

  Site site;
  std::string output;
  std::string error;
  int status = 0;
};

TEST_F(StartLauncher, AsksTheCheckAboutExactlyWhatItThenStarts) {
  StartRun();
  EXPECT_EQ(output, kCheck + "\"--\" " + kLauncherArguments + "\r\n" + kLauncherArguments +
                        "\r\nexit status 0\r\n");
  EXPECT_EQ(error, "");
  EXPECT_EQ(status, 0);
}

TEST_F(StartLauncher, ReturnsTheLaunchersStatusWhole) {
  for (const int code : {1, 259, 123456789, -1, -9876}) {
    LauncherDoes("exit " + std::to_string(code));
    StartRun();
    EXPECT_TRUE(output.ends_with("\r\nexit status " + std::to_string(code) + "\r\n")) << output;
    EXPECT_EQ(status, code);
  }
}

TEST_F(StartLauncher, StopsOnTheChecksErrors) {
  CheckDoes("print 1 error;exit 1");
  StartRun();
  EXPECT_EQ(output, "1 error\r\n");
  EXPECT_EQ(error, kNotStarted);
  EXPECT_EQ(status, 1);
}

TEST_F(StartLauncher, IsForcedPastTheChecksErrors) {
  CheckDoes("print 1 error;exit 1");
  LauncherDoes("print launched;exit 7");
  StartRun({"--force"});
  EXPECT_EQ(output, "1 error\r\n\r\nlaunched\r\n\r\nexit status 7\r\n");
  EXPECT_EQ(error, "");
  EXPECT_EQ(status, 7);
}

TEST_F(StartLauncher, StopsWithoutTheCheckUnlessForced) {
  site.Remove("Home\\Bin\\QVXRunCheck.exe");
  LauncherDoes("print launched");
  StartRun();
  EXPECT_EQ(output, "");
  EXPECT_EQ(error,
            "StartLauncher: cannot start <site>\\Home\\Bin\\QVXRunCheck.exe: system error 2\r\n");
  EXPECT_EQ(status, 1);
  StartRun({"--force"});
  EXPECT_EQ(output, "\r\nlaunched\r\n\r\nexit status 0\r\n");
}

TEST_F(StartLauncher, SaysThatTheLauncherIsMissing) {
  CheckDoes("");
  site.Remove("Home\\Bin\\QVXSolverLauncher.exe");
  StartRun();
  EXPECT_EQ(output, "\r\n");
  EXPECT_EQ(error,
            "StartLauncher: cannot start <site>\\Home\\Bin\\QVXSolverLauncher.exe: "
            "system error 2\r\n");
  EXPECT_EQ(status, 1);
}

TEST_F(StartLauncher, TakesEveryWordOfARun) {
  CheckDoes("");
  StartRun({"--home", "D:\\My Home", "--name", "Part", "--molding-type", "7", "--option", "3"});
  EXPECT_EQ(output,
            "\r\n\"QVXSolverLauncher.exe$7\" \"D:\\My Home*<site>\\Work\\Sample*Part*3*01\" "
            "\"Qvx3DFlow.exe\"\r\n\r\nexit status 0\r\n");
}

TEST_F(StartLauncher, GivesAShellSolverItsTokensInTheFirstArgument) {
  CheckDoes("");
  StartRun({"--solver", "QvxFlow.exe"});
  EXPECT_EQ(output, "") << "--solver twice";
  Start({"--project", "<site>\\Work\\Sample", "--run", "01", "--solver", "QvxFlow.exe"});
  EXPECT_EQ(output,
            "\r\n\"QVXSolverLauncher.exe$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*01\" \"-\" "
            "\"QvxFlow.exe\"\r\n\r\nexit status 0\r\n");
}

TEST_F(StartLauncher, HandsTheChecksOptionsOn) {
  LauncherDoes("");
  StartRun({"--timeout", "2", "--no-network"});
  EXPECT_EQ(output, kCheck + "\"--no-network\" \"--timeout\" \"2\" \"--\" " + kLauncherArguments +
                        "\r\n\r\nexit status 0\r\n");
}

TEST_F(StartLauncher, SaysWhatIsWrongWithItsCallAndStartsNothing) {
  const std::pair<Texts, std::string> calls[] = {
      {{"--run", "01", "--solver", "Qvx3DFlow.exe"}, "--project is missing"},
      {{"--project", "C:\\P", "--solver", "Qvx3DFlow.exe"}, "--run is missing"},
      {{"--project", "C:\\P", "--run", "01"}, "--solver is missing"},
      {{"--solvr", "Qvx3DFlow.exe"}, "--solvr is no option; it is written --solver"},
      {{"--solver", "--name", "Sample"}, "--solver is not followed by its value"},
      {{"--run", "01", "--run", "02"}, "--run stands twice"},
      {{"--option", "abc"}, "--option takes a whole number, not abc"},
      {{"lonely"}, "lonely belongs to no option; a text with blanks stands in quotation marks"},
  };
  for (const auto& [arguments, what] : calls) {
    Start(arguments);
    EXPECT_EQ(output, "");
    EXPECT_EQ(error, "StartLauncher: " + what + "\r\n");
    EXPECT_EQ(status, 2);
  }
}

TEST_F(StartLauncher, ShowsItsUsage) {
  Start({});
  const std::string usage = output;
  EXPECT_EQ(status, 2);
  for (const char* ask : {"/?", "--help", "-h"}) {
    Start({ask});
    EXPECT_EQ(output, usage);
    EXPECT_EQ(status, 0);
  }
  for (const char* part : {"--force", "--project DIR", "FIRST_ARGUMENT", "Exit status"}) {
    EXPECT_NE(usage.find(part), std::string::npos) << part;
  }
  Start({"--version"});
  EXPECT_EQ(output, "StartLauncher " QVX_VERSION "\r\n");
  EXPECT_EQ(error, "");
}

TEST_F(StartLauncher, StartsAnApplicationAsAFrontEndDoesAndChecksNothing) {
  LauncherDoes("command-line;exit -7000");
  Start({"<site>\\Home\\Bin\\QVXSolverLauncher.exe", "any name$7*x", "a*b c*", "", "say \"x\"",
         "d\\"});
  EXPECT_EQ(output,
            "\"any name$7*x\" \"a*b c*\" \"\" \"say \\\"x\\\"\" \"d\\\\\"\r\n\r\n"
            "exit status -7000\r\n");
  EXPECT_EQ(error, "");
  EXPECT_EQ(status, 0);
}

TEST_F(StartLauncher, LeavesWildcardsAlone) {
  LauncherDoes("command-line");
  Start({"<site>\\Home\\Bin\\QVXSolverLauncher.exe", "x$1", "<site>\\Home\\*", "<site>\\H?me"});
  EXPECT_EQ(output, "\"x$1\" \"<site>\\Home\\*\" \"<site>\\H?me\"\r\n\r\nexit status 0\r\n");
}

TEST_F(StartLauncher, RefusesAFirstArgumentWithAQuotationMark) {
  Start({"<site>\\Home\\Bin\\QVXSolverLauncher.exe", "a\"b"});
  EXPECT_EQ(output, "");
  EXPECT_EQ(error, "StartLauncher: FIRST_ARGUMENT must not hold a quote\r\n");
  EXPECT_EQ(status, 1);
}

TEST_F(StartLauncher, SaysThatAnApplicationIsMissing) {
  Start({"<site>\\no.exe", "x"});
  EXPECT_EQ(output, "");
  EXPECT_EQ(error, "StartLauncher: cannot start <site>\\no.exe: system error 2\r\n");
  EXPECT_EQ(status, 1);
}

std::string pressedFile;

BOOL WINAPI NotePressed(DWORD event) {
  if (event == CTRL_C_EVENT) std::ofstream(pressedFile) << "pressed";
  return TRUE;
}

TEST_F(StartLauncher, LeavesCtrlCToTheLauncher) {
  CheckDoes("");
  LauncherDoes(site.Specific("ctrl-c;await <site>\\pressed;exit -9876"));
  pressedFile = site.Path("pressed");
  // A console that this test shares with what it starts; what it had before is none to Wine.
  FreeConsole();
  ASSERT_NE(AllocConsole(), 0);
  SetConsoleCtrlHandler(NotePressed, TRUE);
  StartRun();
  SetConsoleCtrlHandler(NotePressed, FALSE);
  FreeConsole();
  EXPECT_EQ(output, "\r\n\r\nexit status -9876\r\n");
  EXPECT_EQ(status, -9876);
}

TEST_F(StartLauncher, ChecksAndLaunchesARealRun) {
  for (const char* name : {"QVXRunCheck.exe", "QVXSolverLauncher.exe", "QVXSolverArgumentTool.dll",
                           "QVXMPITool.dll", "QVXUnicodeTool.dll"}) {
    InstallBuilt(name);
  }
  site.Write("Home\\Bin\\Qvx3DFlow.script", "print solved;flush;exit 123456789");
  StartRun();
  const std::string check = output.substr(0, output.find("Launch serial computing"));
  EXPECT_TRUE(check.starts_with("Run 01 of <site>\\Work\\Sample: FLOW, serial\n")) << check;
  EXPECT_TRUE(check.ends_with("\n\nNothing stands in the way of this run.\n\r\n")) << check;
  EXPECT_EQ(output.substr(check.size()),
            "Launch serial computing\r\nsolved\r\n\r\n>>> Return value of "
            "<site>\\Home\\Bin\\Qvx3DFlow.exe = 123456789\r\n" +
                std::string(kCountdown) + "\r\nexit status 123456789\r\n");
  EXPECT_EQ(error, "");
  EXPECT_EQ(status, 123456789);
}

}  // namespace
}  // namespace qvx::test
