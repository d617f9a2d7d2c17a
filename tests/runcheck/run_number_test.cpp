// The run number and the folder that it leads to: a mistake that the check finds, message by
// message, and near misses.
#include <filesystem>
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

class RunCheckRunNumber : public RunCheckTest {
 protected:
  std::string RunNumbered(const std::string& run) const {
    return FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*3*" + run);
  }
  std::string ShellRunNumbered(const std::string& run) const {
    site.InstallSolver("QvxFlow.exe");
    return Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*3*" + run, "-", "QvxFlow.exe"});
  }
  /// The answer of the second form of call, up to the end of its first line.
  std::string CallMadeFor(const std::string& run, const std::string& solver) const {
    const std::string answer = Answer({"--project", "<site>\\Work\\Sample", "--run", run,
                                       "--solver", solver, "--home", "<site>\\Home"});
    return answer.substr(0, answer.find('\n'));
  }
};

TEST_F(RunCheckRunNumber, ARunNumberWithoutItsZero) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*1"),
            "error: the run folder Run1 does not exist and Run01 does: without its CMX file the "
            "run would be distributed and lose its log "
            "[run-number]\n"
            "    help: the run number is written 01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunNumber, AMissingRunFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*07"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run07 does not exist: without "
            "its CMX file the run would be distributed and lose its log [run-folder]\n"
            "    help: Analysis holds Run01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunNumber, AMissingRunFolderNamesTheOthers) {
  std::filesystem::create_directories(site.Path("Work\\Sample\\Analysis\\Run_02"));
  EXPECT_EQ(
      RunNumbered("02"),
      std::string(
          "error: the run folder <site>\\Work\\Sample\\Analysis\\Run02 does not "
          "exist: without its CMX file the run would be distributed and lose its log [run-folder]\n"
          "    help: Analysis holds Run01, Run_02\n") +
          kNotMeant);
}

TEST_F(RunCheckRunNumber, AMissingRunFolderOfASolverThatReadsNoCmxFile) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*07", "QvxOptics.exe"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run07 does not exist: the run "
            "would lose its log [run-folder]\n"
            "    help: Analysis holds Run01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunNumber, ARunFolderThatIsAFile) {
  site.Write("Work\\Sample\\Analysis\\Run02", "");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*02"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run02 is a file: without its "
            "CMX file the run would be distributed and lose its log [run-folder]\n"
            "    help: the run folder is Analysis\\Run and the run number\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunNumber, ARunNumberOfThirtyTwoDigitsIsTooLongAlone) {
  EXPECT_EQ(
      RunNumbered(std::string(32, '0')),
      std::string("error: run number is too long: width 32, length 32: the launcher would end "
                  "with -2 [text-too-long]\n"
                  "    help: it is shortened to less than the width\n") +
          kNoStart);
}

TEST_F(RunCheckRunNumber, ARunNumberThatIsNoneAndHasNoFolder) {
  EXPECT_EQ(RunNumbered("01.0"),
            std::string("error: the run number is 01.0, no number: the launcher would look in the "
                        "folder Run01.0, which does not exist [run-number]\n"
                        "    help: the run number stands as in the run folder's name\n") +
                kNotMeant);
}

TEST_F(RunCheckRunNumber, ARunNumberThatIsNoneAndHasItsFolder) {
  site.Write("Work\\Sample\\Analysis\\Run1a\\Sample1a.cmx", kSerialCmx);
  EXPECT_EQ(RunNumbered("1a"),
            "warning: the run number is 1a, no number [run-number]\n"
            "    help: the run number stands as in the run folder's name\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckRunNumber, TheFoldersNameForTheRunNumber) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*Run01"),
            "error: the run number is Run01, no number: the launcher would look in the folder "
            "RunRun01 [run-number]\n"
            "    help: the run number is written 01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunNumber, AShellRunNumberThatIsAWord) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*one", "-", "QvxFlow.exe"}),
            "error: the run number is one, no number: the launcher would take the folder Run00 "
            "[run-number]\n"
            "    help: the run number stands as in the run folder's name\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunNumber, AMoldingTypeBehindAShellRunNumber) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(
      Findings({std::string("L*") + kTokens + "$1", "-", "QvxFlow.exe"}),
      "warning: the run number is 01$1, no number: the launcher would take the folder Run01 "
      "[run-number]\n"
      "    help: the first argument is written L$1*<site>\\Home*<site>\\Work\\Sample*Sample*3*"
      "01\n"
      "\n"
      "1 warning: this run would start.\n");
}

TEST_F(RunCheckRunNumber, AShellRunNumberWithLettersBehindIt) {
  EXPECT_EQ(ShellRunNumbered("1a"),
            "warning: the run number is 1a, no number: the launcher would take the folder Run01 "
            "[run-number]\n"
            "    help: the run number stands as in the run folder's name\n"
            "\n"
            "1 warning: this run would start.\n");
  std::filesystem::create_directories(site.Path("Work\\Sample\\Analysis\\Run1a"));
  EXPECT_EQ(ShellRunNumbered("1a"),
            std::string("error: the run number is 1a, no number: the launcher would take the "
                        "folder Run01 [run-number]\n"
                        "    help: the run number stands as in the run folder's name\n") +
                kNotMeant);
}

TEST_F(RunCheckRunNumber, AShellRunNumberWithLettersBehindItAndNoFolder) {
  EXPECT_EQ(ShellRunNumbered("7a"),
            std::string("error: the run number is 7a, no number: the launcher would look in the "
                        "folder Run07, which does not exist [run-number]\n"
                        "    help: the run number stands as in the run folder's name\n") +
                kNotMeant);
}

TEST_F(RunCheckRunNumber, AShellRunNumberNeedsNoZero) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*1", "-", "QvxFlow.exe"}),
            kInOrder);
}

TEST_F(RunCheckRunNumber, AShellRunInAFolderWithZerosTooMany) {
  std::filesystem::create_directories(site.Path("Work\\Sample\\Analysis\\Run007"));
  EXPECT_EQ(ShellRunNumbered("007"),
            std::string("error: the run folder Run07 does not exist and Run007 does: the run would "
                        "lose its log [run-number]\n"
                        "    help: a shell solver's run folder is named Run07\n") +
                kNotMeant);
}

TEST_F(RunCheckRunNumber, AShellRunNumberWithZerosTooManyIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run07\\Sample07.cmx", "");
  EXPECT_EQ(Replaced(ShellRunNumbered("007"), "Sample07.cmx is empty", "<empty>"),
            "warning: the CMX file <site>\\Work\\Sample\\Analysis\\Run07\\<empty>: the solver "
            "would not find it [cmx-file]\n"
            "    help: it is the project name, the run number and .cmx in the run folder\n"
            "\n"
            "1 warning: this run would start.\n");
  site.Write("Work\\Sample\\Analysis\\Run07\\Sample07.cmx", "x");
  EXPECT_EQ(ShellRunNumbered("007"), kInOrder);
}

TEST_F(RunCheckRunNumber, AShellRunsNameComesFromTheFolderThatTheLauncherTakes) {
  site.InstallSolver("QvxFlow.exe");
  site.Write("Work\\Sample\\Analysis\\Run07\\Part07.cmx", "x");
  for (const char* run : {"7", "07", "007"}) {
    EXPECT_EQ(CallMadeFor(run, "QvxFlow.exe"),
              std::string("QVXSolverLauncher.exe$1*<site>\\Home*<site>\\Work\\Sample*Part*0*") +
                  run + " - QvxFlow.exe");
    EXPECT_EQ(status, 0) << run;
  }
}

TEST_F(RunCheckRunNumber, AnotherRunsNameComesFromTheFolderAsItIsWritten) {
  site.Write("Work\\Sample\\Analysis\\Run07\\Part07.cmx", kSerialCmx);
  EXPECT_EQ(CallMadeFor("7", kFlow),
            "QVXSolverLauncher.exe$1 <site>\\Home*<site>\\Work\\Sample*Sample*0*7 Qvx3DFlow.exe");
  EXPECT_EQ(CallMadeFor("07", kFlow),
            "QVXSolverLauncher.exe$1 <site>\\Home*<site>\\Work\\Sample*Part*0*07 Qvx3DFlow.exe");
}

}  // namespace
}  // namespace qvx::test
