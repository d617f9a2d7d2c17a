// The solver's name and the program that it leads to: a mistake that the check finds, message by
// message, and near misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckSolver = RunCheckTest;

TEST_F(RunCheckSolver, ASolverWithAPath) {
  EXPECT_EQ(FindingsFor(kTokens, "<site>\\Home\\Bin\\Qvx3DFlow.exe"),
            "error: the solver <site>\\Home\\Bin\\Qvx3DFlow.exe holds a path: the launcher would "
            "look for it below Bin of the home folder [solver-path]\n"
            "    help: the solver is written Qvx3DFlow.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSolver, ASolverThatNoRuleFits) {
  site.InstallSolver("Solver.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Solver.exe"),
            "warning: no rule fits the solver's name Solver.exe, which runs as FLOW [solver-name]\n"
            "    help: a solver's name tells its family\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSolver, IcInsideAWord) {
  site.InstallSolver("Basic.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Basic.exe"),
            "warning: Basic.exe runs as IC because its name contains ic [solver-rule]\n"
            "    help: the first rule that fits the name decides\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSolver, IcAsAWord) {
  site.InstallSolver("QvxIC.exe");
  EXPECT_EQ(FindingsFor(kTokens, "QvxIC.exe"), kInOrder);
}

TEST_F(RunCheckSolver, Qvx3dicRunsAsWs) {
  site.InstallSolver("Qvx3DIC.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DIC.exe"),
            "note: Qvx3DIC.exe runs as WS because its name contains qvx3dic [solver-rule]\n"
            "    help: PS has names with qvx3dicps, IC names without qvx3d\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckSolver, TwoFamiliesInOneName) {
  site.InstallSolver("Qvx3DFlowCool.exe");
  EXPECT_EQ(
      FindingsFor(kTokens, "Qvx3DFlowCool.exe"),
      "warning: Qvx3DFlowCool.exe runs as FLOW although its name contains cool [solver-rule]\n"
      "    help: the first rule that fits the name decides\n"
      "\n"
      "1 warning: this run would start.\n");
}

TEST_F(RunCheckSolver, ASolverNameTooLong) {
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow" + std::string(51, 'x') + ".exe"),
            "error: solver executable name is too long: width 64, length 64: the launcher would "
            "end with -2 [text-too-long]\n"
            "    help: it is shortened to less than the width\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSolver, ASolverNameThatJustFits) {
  site.InstallSolver("Qvx3DFlow" + std::string(50, 'x') + ".exe");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow" + std::string(50, 'x') + ".exe"), kInOrder);
}

TEST_F(RunCheckSolver, AnEmptySolver) {
  EXPECT_EQ(Findings({"L$1", kTokens, ""}),
            "error: the solver's name is empty: the launcher would find no solver and stop with -1 "
            "[call-solver]\n"
            "    help: the solver's file name is the third argument\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSolver, ABlankBehindTheSolverIsTakenOffByTheSystem) {
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow.exe "),
            "warning: a blank stands beside the solver Qvx3DFlow.exe [call-blank]\n"
            "    help: it is written Qvx3DFlow.exe\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSolver, ABlankBeforeTheSolver) {
  EXPECT_EQ(FindingsFor(kTokens, " Qvx3DFlow.exe"),
            "error: a blank stands beside the solver Qvx3DFlow.exe: the launcher would take it as "
            "part of the name [call-blank]\n"
            "    help: it is written Qvx3DFlow.exe\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSolver, ASolverInQuotationMarks) {
  EXPECT_EQ(FindingsFor(kTokens, "\"Qvx3DFlow.exe\""),
            std::string("error: \"Qvx3DFlow.exe\" holds a quotation mark: the launcher would find "
                        "no solver and stop with -1 [call-quotation-mark]\n"
                        "    help: the solver is written Qvx3DFlow.exe\n") +
                kNotMeant);
}

TEST_F(RunCheckSolver, AMisspeltSolver) {
  EXPECT_EQ(
      FindingsFor(kTokens, "Qvx3DFlwo.exe"),
      "warning: no rule fits the solver's name Qvx3DFlwo.exe, which runs as FLOW [solver-name]\n"
      "    help: a solver's name tells its family\n"
      "error: the solver <site>\\Home\\Bin\\Qvx3DFlwo.exe does not exist: the launcher would stop "
      "with -1 [solver-file]\n"
      "    help: Bin holds Qvx3DFlow.exe\n"
      "\n"
      "1 error, 1 warning: this run would not start.\n");
}

TEST_F(RunCheckSolver, ASolverThatIsNotSimilar) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(FindingsFor(kTokens, "QvxBasics.exe"),
            "warning: QvxBasics.exe runs as IC because its name contains ic [solver-rule]\n"
            "    help: the first rule that fits the name decides\n"
            "error: the solver <site>\\Home\\Bin\\QvxBasics.exe does not exist: the launcher would "
            "stop with -1 [solver-file]\n"
            "    help: the solver lies in Bin of the home folder\n"
            "\n"
            "1 error, 1 warning: this run would not start.\n");
}

class RunCheckMissingSolver : public RunCheckTest {
 protected:
  /// The second line of what is found about a call of Qvx3DFlow.exe, or of another solver.
  std::string Help(const std::string& solver = kFlow) const {
    const std::string text = FindingsFor(kTokens, solver);
    EXPECT_EQ(text.substr(0, text.find(" does not exist")),
              "error: the solver <site>\\Home\\Bin\\" + solver);
    const std::size_t start = text.find('\n') + 1;
    return text.substr(start, text.find('\n', start) - start);
  }
};

TEST_F(RunCheckMissingSolver, LiesUnderAnotherNameOrInAnotherFolder) {
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  for (const char* place : {"Bin\\Qvx3DFlow.exe.exe", "Bin\\Qvx3DFlow.exe.txt", "Qvx3DFlow.exe"}) {
    const std::string path = std::string("Home\\") + place;
    site.Write(path, "");
    EXPECT_EQ(Help(), "    help: there is a file <site>\\" + path);
    site.Remove(path);
  }
  EXPECT_EQ(Help(), "    help: the solver lies in Bin of the home folder");
}

TEST_F(RunCheckMissingSolver, IsNamedWithAnExtensionTooMany) {
  EXPECT_EQ(Help("Qvx3DFlow.exe.exe"), "    help: Bin holds Qvx3DFlow.exe");
  EXPECT_EQ(Help("Qvx3DFlow.exe.txt"), "    help: Bin holds Qvx3DFlow.exe");
  EXPECT_EQ(Help("Qvx3DPacking.exe.txt"), "    help: the solver lies in Bin of the home folder");
}

TEST_F(RunCheckSolver, ASolverThatIsAFolder) {
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  site.Write("Home\\Bin\\Qvx3DFlow.exe\\x", "");
  EXPECT_EQ(FindingsFor(kTokens),
            std::string("error: the solver <site>\\Home\\Bin\\Qvx3DFlow.exe is a folder: the "
                        "launcher would stop with -1 [solver-file]\n"
                        "    help: the solver lies in Bin of the home folder\n") +
                kNoStart);
}

TEST_F(RunCheckSolver, ASolverWithoutItsExtensionIsInOrder) {
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow"), kInOrder);
}

TEST_F(RunCheckSolver, ASolverThatIsNoProgram) {
  site.Write("Home\\Bin\\Qvx3DPack.exe", "text");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DPack.exe"),
            "error: <site>\\Home\\Bin\\Qvx3DPack.exe is no Windows program: it would not start "
            "[solver-program]\n"
            "    help: a solver is a Windows program for x86-64\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSolver, ASolverThatIsABatchFileIsInOrder) {
  site.Write("Home\\Bin\\Qvx3DFlow.bat", "@exit /b 0\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow.bat"), kInOrder);
}

TEST_F(RunCheckSolver, ASolverThatIsATextIsNone) {
  site.Write("Home\\Bin\\Qvx3DFlow.com", "@exit /b 0\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow.com"),
            std::string("error: <site>\\Home\\Bin\\Qvx3DFlow.com is no Windows program: it would "
                        "not start [solver-program]\n"
                        "    help: a solver is a Windows program for x86-64\n") +
                kNoStart);
}

TEST_F(RunCheckSolver, ASolverForAnotherMachine) {
  std::string arm = site.Read("Home\\Bin\\Qvx3DFlow.exe");
  const auto at = arm.find(std::string("PE\0\0", 4));
  arm[at + 4] = '\x64';
  arm[at + 5] = '\xAA';
  site.Write("Home\\Bin\\Qvx3DPack.exe", arm);
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DPack.exe"),
            "error: <site>\\Home\\Bin\\Qvx3DPack.exe is a program for another machine: it would "
            "not start [solver-program]\n"
            "    help: a solver is a Windows program for x86-64\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSolver, BothSolversOfACoolingRun) {
  site.InstallSolver("Qvx3DCool.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel=1\r\n</SOLID_COOL>\r\n");
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DCool.exe"),
            "error: the solver <site>\\Home\\Bin\\Qvx3DFlow.exe does not exist: the launcher would "
            "stop with -1 [solver-file]\n"
            "    help: the solver lies in Bin of the home folder\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSolver, ACoolingRunWithoutChannelsNeedsOneSolver) {
  site.InstallSolver("Qvx3DCool.exe");
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DCool.exe"), kInOrder);
}

TEST_F(RunCheckSolver, AnotherProgramBeforeABlank) {
  site.Write("My home\\Bin\\Qvx3DFlow.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  site.Write("My.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  EXPECT_EQ(FindingsFor("<site>\\My home*<site>\\Work\\Sample*Sample*0*01"),
            "error: <site>\\My.exe exists, and <site>\\My home\\Bin\\Qvx3DFlow.exe stands without "
            "quotation marks: the system would start another program [other-program]\n"
            "    help: the other program is moved away\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSolver, ABlankInTheHomeFolderAloneIsInOrder) {
  site.Write("My home\\Bin\\Qvx3DFlow.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  EXPECT_EQ(FindingsFor("<site>\\My home*<site>\\Work\\Sample*Sample*0*01"), kInOrder);
}

}  // namespace
}  // namespace qvx::test
