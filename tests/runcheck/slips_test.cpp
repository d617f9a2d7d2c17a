// More slips around a run, each said once and in its own words, and near misses that stay silent.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

class RunCheckSlips : public RunCheckTest {
 protected:
  /// kTokens with its project directory written otherwise.
  std::string RunIn(const std::string& project) const {
    return Replaced(site.Specific(kTokens), "\\Work\\Sample", project);
  }
};

TEST_F(RunCheckSlips, AnEmptySolver) {
  EXPECT_EQ(Findings({"L$1", kTokens, ""}),
            "error: the solver's name is empty: the launcher would find no solver and stop with -1 "
            "[call-solver]\n"
            "    help: the solver's file name is the third argument\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, NoFirstArgument) {
  EXPECT_EQ(Findings({kTokens, kFlow}),
            "error: the first argument is missing: the launcher would take the token list for it "
            "and the solver's name for the tokens [call-first-argument]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, TokensInFiveArguments) {
  EXPECT_EQ(Findings({"L$1", "C:\\Quorvex", "C:\\My projects\\Sample", "Sample", "0", "01", kFlow}),
            "error: the 5 tokens stand in 5 arguments, not in one: the launcher would take the "
            "first of them as the whole list [call-separator]\n"
            "    help: they stand in one argument, separated by *: L$1 \"C:\\Quorvex*C:\\My "
            "projects\\Sample*Sample*0*01\" Qvx3DFlow.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, AShellSolversTokensInFiveArguments) {
  EXPECT_EQ(
      Findings({"L$1", "C:\\Quorvex", "C:\\Projects\\Sample", "Sample", "0", "01", "QvxFlow.exe"}),
      "error: the 5 tokens stand in 5 arguments, not in one: the launcher would take the first of "
      "them as the whole list [call-separator]\n"
      "    help: they stand in one argument, separated by *: "
      "L$1*C:\\Quorvex*C:\\Projects\\Sample*Sample*0*01 - QvxFlow.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, ExtraArgumentsThatAreNoTokens) {
  EXPECT_EQ(Findings({"L$1", kTokens, kFlow, "0", "01", "more"}),
            "warning: the call has 6 arguments [call-extra-arguments]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSlips, TheMissingTokenIsNamedAsFarAsItCanBeTold) {
  std::string summaries;
  for (const char* tokens : {"C:\\P\\S*S*0*01", "C:\\Q*C:\\P\\S*0*01", "C:\\Q*C:\\P\\S*S*0",
                             "C:\\Q*C:\\P\\S*S*x", "S*S*0*01", "C:\\Q*C:\\P\\S*S"}) {
    const std::string text = FindingsFor(tokens);
    summaries += text.substr(0, text.find(": the launcher")) + "\n";
  }
  EXPECT_EQ(summaries,
            "error: the token list holds 4 of 5 tokens: the home folder or the project directory "
            "is missing\n"
            "error: the token list holds 4 of 5 tokens: the project name is missing\n"
            "error: the token list holds 4 of 5 tokens: the option or the run number is missing\n"
            "error: the token list holds 4 of 5 tokens: the run number is missing\n"
            "error: the token list holds 4 of 5 tokens: one of the 5 is missing\n"
            "error: the token list holds 3 of 5 tokens\n");
}

TEST_F(RunCheckSlips, AQuotationMarkInANameThatNothingIsReadBy) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01", "QvxOptics.exe"),
            "warning: <site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01 holds a quotation mark: "
            "the launcher would hand it on as it stands [call-quotation-mark]\n"
            "    help: a backslash before a closing quotation mark is left out\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSlips, AQuotationMarkInTheNameOfACmxFile) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01"),
            "error: <site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01 holds a quotation mark: the "
            "launcher would go to a folder that cannot exist [call-quotation-mark]\n"
            "    help: a backslash before a closing quotation mark is left out\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AQuotationMarkInTheFirstArgument) {
  EXPECT_EQ(Findings({"\"L\"$1", kTokens, kFlow}),
            "warning: \"L\"$1 holds a quotation mark: the launcher would hand it on as it stands "
            "[call-quotation-mark]\n"
            "    help: a backslash before a closing quotation mark is left out\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSlips, AnOptionThatIsAPathMovesNothing) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*C:\\x*01"),
      "warning: the option is C:\\x, a path: the launcher would hand it on as it stands "
      "[call-token-order]\n"
      "    help: the order is home folder, project directory, project name, option, run number\n"
      "\n"
      "1 warning: this run would start.\n");
}

TEST_F(RunCheckSlips, ABlankBehindTheSolverIsTakenOffByTheSystem) {
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow.exe "),
            "warning: a blank stands beside the solver Qvx3DFlow.exe [call-blank]\n"
            "    help: it is written Qvx3DFlow.exe\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSlips, ABlankBeforeTheSolver) {
  EXPECT_EQ(FindingsFor(kTokens, " Qvx3DFlow.exe"),
            "error: a blank stands beside the solver Qvx3DFlow.exe: the launcher would take it as "
            "part of the name [call-blank]\n"
            "    help: it is written Qvx3DFlow.exe\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, ATabBehindAToken) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample\t*Sample*3*01"),
            "error: a tab stands beside the project directory <site>\\Work\\Sample: the launcher "
            "would take it as part of the name [call-blank]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, ABlankBehindANameThatNothingIsReadBy) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample *3*01", "QvxOptics.exe"),
            "warning: a blank stands beside the project name Sample [call-blank]\n"
            "    help: it is written Sample\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckSlips, AHomeFolderThatIsNotSimilar) {
  site.Write("NODE1\\x", "");
  EXPECT_EQ(FindingsFor("<site>\\Nope*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\Nope does not exist: the launcher would find no solver "
            "and stop with -1 [home-folder]\n"
            "    help: the home folder is the one that holds Bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, ASolverThatIsNotSimilar) {
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

TEST_F(RunCheckSlips, AMisspeltShareIsSaidOnce) {
  EXPECT_EQ(FoundWith("ValueShareFolderName", "ValueShareFolder"),
            "Sample01.cmx:7:1: error: ValueShareFolder is no key of REMOTE_MACHINES: the launcher "
            "would ignore the line [cmx-unknown-key]\n"
            "    7 | ValueShareFolder=<name>\\Work\n"
            "      | ^~ help: a key of this section is written ValueShareFolderName\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AHostsKeyInAnotherLetterCaseIsSaidOnce) {
  EXPECT_EQ(FoundWith("ValueLocalHost", "valuelocalhost"),
            "Sample01.cmx:6:1: error: valuelocalhost is not written ValueLocalHost: the launcher "
            "would ignore the line [cmx-key-case]\n"
            "    6 | valuelocalhost=NODE1\n"
            "      | ^~ help: a key of this section is written ValueLocalHost\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AShortenedWorkingFolderIsSaidOnce) {
  EXPECT_EQ(FoundWith("ValueParallelWorkingFolder", "ValueWorkingFolder"),
            "Sample01.cmx:8:1: error: ValueWorkingFolder is no key of REMOTE_MACHINES: the "
            "launcher would ignore the line [cmx-unknown-key]\n"
            "    8 | ValueWorkingFolder=<site>\\WORK\n"
            "      | ^~ help: a key of this section is written ValueParallelWorkingFolder\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AShareWithASlash) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=/Work"),
            "Sample01.cmx:7:22: error: a slash stands beside the share's name in /Work: the run "
            "would go to another folder [share-name]\n"
            "    7 | ValueShareFolderName=/Work\n"
            "      |                      ^~ help: the share is written Work\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AShareWithItsHost) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=\\\\NODE1\\Work"),
            "Sample01.cmx:7:22: error: ValueShareFolderName is a path, \\\\NODE1\\Work: the run "
            "would go to another folder [share-name]\n"
            "    7 | ValueShareFolderName=\\\\NODE1\\Work\n"
            "      |                      ^~ help: the share is written Work\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AProjectDirectoryWithSlashes) {
  site.WriteCmx(Replaced(kDmpCmx, "\\WORK", "\\WORK\\SAMPLE"));
  EXPECT_EQ(FindingsFor(RunIn("\\Work/Sample")),
            "Sample01.cmx:8:28: error: <site>\\WORK\\SAMPLE is not in the project directory "
            "<site>\\Work/Sample, "
            "which holds slashes: the run would go to another folder [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=<site>\\WORK\\SAMPLE\n"
            "      |                            ^~ help: the project directory is written "
            "<site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AProjectDirectoryWithSlashesOfALocalRunIsInOrder) {
  EXPECT_EQ(FindingsFor(RunIn("\\Work/Sample")), kInOrder);
}

TEST_F(RunCheckSlips, TasksBeyondTheMemory) {
  EXPECT_EQ(FoundWith("NODE2\t1", "NODE2\t1000000000"),
            "Sample01.cmx:11:3: error: process weights cannot be allocated: count 1000000002: the "
            "launcher would end with -2 [cannot-allocate]\n"
            "   11 | 2=NODE2\t1000000000\n"
            "      |   ^~ help: the count is a small number\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, AnMpiFolderThatIsTooLong) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set("C:\\" + std::string(257, 'm'));
  EXPECT_EQ(
      Findings(),
      "error: IntelMPI_InstallPath is too long: 246 bytes fit, it has 260: the launcher would stop "
      "with -1 [mpi-path]\n"
      "    help: IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a "
      "text, the folder of impiexec.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, AnMpiFolderThatJustFits) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set("C:\\" + std::string(243, 'm'));
  EXPECT_EQ(Replaced(Findings(), std::string(243, 'm'), "<m>"),
            "error: C:\\<m>\\impiexec.exe does not exist: the launcher would stop with -1 "
            "[mpi-launcher]\n"
            "    help: IntelMPI_InstallPath names the folder that holds impiexec.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, APreviousShotThatIsTooLongIsSaidOnce) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\nValueShotProjectPath=" +
                std::string(260, 's') + "\r\n</SOLID_MCM>\r\n");
  EXPECT_EQ(Replaced(FindingsFor(kTokens, "Qvx3DWarp.exe"), std::string(139, 's'), "<s>"),
            "Sample01.cmx:8:22: error: CMX value is too long: width 260, length 260: the launcher "
            "would end with -2 [text-too-long]\n"
            "    8 | ValueShotProjectPath=<s>\n"
            "      |                      ^~ help: it is shortened to less than the width\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, QuotationMarksAroundTheTokensAreSaidOnce) {
  EXPECT_EQ(FindingsFor("\"" + std::string(kTokens) + "\""),
            "error: \"<site>\\Home*<site>\\Work\\Sample*Sample*3*01\" holds a quotation mark: the "
            "launcher would go to a folder that cannot exist [call-quotation-mark]\n"
            "    help: a backslash before a closing quotation mark is left out\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, SlashesBetweenTheTokens) {
  EXPECT_EQ(FindingsFor("C:\\Q/C:\\P\\S/S/0/01"),
            "error: the tokens are separated by / and not by *: the launcher would take the whole "
            "list as the home folder [call-separator]\n"
            "    help: the list is written C:\\Q*C:\\P\\S*S*0*01\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckSlips, AProjectDirectoryThatIsAFileOfIt) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx*Sample*0*01"),
      "error: the project directory <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx is a file: "
      "without its CMX file the run would be distributed and lose its log [project-folder]\n"
      "    help: it is written <site>\\Work\\Sample\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSlips, AVariableForTheHomeFolder) {
  EXPECT_EQ(FindingsFor("%HOME%*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder %HOME% is relative: the launcher would look below the folder "
            "that it is started in [home-folder]\n"
            "    help: a variable between % is not replaced here\n"
            "\n"
            "1 error: this run would not start.\n");
}

}  // namespace
}  // namespace qvx::test
