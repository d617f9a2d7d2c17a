// Everyday mistakes of people who set up runs by hand, in calls, folders and the installation: each
// is said once and with its cure, and its near miss is not.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

constexpr const char* kNotMeant = "\n1 error: this run would not be the one that is meant.\n";
constexpr const char* kNoStart = "\n1 error: this run would not start.\n";
constexpr const char* kOrder =
    "    help: the order is home folder, project directory, project name, option, run number\n";

class RunCheckMistakes : public RunCheckTest {
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

TEST_F(RunCheckMistakes, BlanksAroundTheMoldingTypeAreInOrder) {
  EXPECT_EQ(Findings({"L$ 1 ", kTokens, kFlow}), kInOrder);
}

TEST_F(RunCheckMistakes, ABlankBeforeAMoldingTypeThatIsNone) {
  EXPECT_EQ(Findings({"L$ x", kTokens, kFlow}),
            "warning: x stands behind $, no number: the launcher would take 0 as the molding type "
            "[molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckMistakes, NameAndRunNumberSwapped) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*01*3*Sample"),
            std::string("error: the project name is 01 and the run number is Sample: the launcher "
                        "would go to other folders [call-token-order]\n") +
                kOrder + kNotMeant);
}

TEST_F(RunCheckMistakes, AProjectNamedByANumberIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\202401.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*2024*3*01"), kInOrder);
}

TEST_F(RunCheckMistakes, OptionAndRunNumberSwapped) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*01*3"),
            std::string("error: the option is 01 and the run number is 3: the launcher would go to "
                        "other folders [call-token-order]\n") +
                kOrder + kNotMeant);
}

TEST_F(RunCheckMistakes, AMissingRunFolderNamesTheOthers) {
  std::filesystem::create_directories(site.Path("Work\\Sample\\Analysis\\Run_02"));
  EXPECT_EQ(
      RunNumbered("02"),
      std::string(
          "error: the run folder <site>\\Work\\Sample\\Analysis\\Run02 does not "
          "exist: without its CMX file the run would be distributed and lose its log [run-folder]\n"
          "    help: Analysis holds Run01, Run_02\n") +
          kNotMeant);
}

TEST_F(RunCheckMistakes, ARunNumberOfThirtyTwoDigitsIsTooLongAlone) {
  EXPECT_EQ(
      RunNumbered(std::string(32, '0')),
      std::string("error: run number is too long: width 32, length 32: the launcher would end "
                  "with -2 [text-too-long]\n"
                  "    help: it is shortened to less than the width\n") +
          kNoStart);
}

TEST_F(RunCheckMistakes, ARunNumberThatIsNoneAndHasNoFolder) {
  EXPECT_EQ(RunNumbered("01.0"),
            std::string("error: the run number is 01.0, no number: the launcher would look in the "
                        "folder Run01.0, which does not exist [run-number]\n"
                        "    help: the run number stands as in the run folder's name\n") +
                kNotMeant);
}

TEST_F(RunCheckMistakes, ARunNumberThatIsNoneAndHasItsFolder) {
  site.Write("Work\\Sample\\Analysis\\Run1a\\Sample1a.cmx", kSerialCmx);
  EXPECT_EQ(RunNumbered("1a"),
            "warning: the run number is 1a, no number [run-number]\n"
            "    help: the run number stands as in the run folder's name\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckMistakes, AShellRunInAFolderWithZerosTooMany) {
  std::filesystem::create_directories(site.Path("Work\\Sample\\Analysis\\Run007"));
  EXPECT_EQ(ShellRunNumbered("007"),
            std::string("error: the run folder Run07 does not exist and Run007 does: the run would "
                        "lose its log [run-number]\n"
                        "    help: a shell solver's run folder is named Run07\n") +
                kNotMeant);
}

TEST_F(RunCheckMistakes, AShellRunNumberWithZerosTooManyIsInOrder) {
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

TEST_F(RunCheckMistakes, AShellRunsNameComesFromTheFolderThatTheLauncherTakes) {
  site.InstallSolver("QvxFlow.exe");
  site.Write("Work\\Sample\\Analysis\\Run07\\Part07.cmx", "x");
  for (const char* run : {"7", "07", "007"}) {
    EXPECT_EQ(CallMadeFor(run, "QvxFlow.exe"),
              std::string("QVXSolverLauncher.exe$1*<site>\\Home*<site>\\Work\\Sample*Part*0*") +
                  run + " - QvxFlow.exe");
    EXPECT_EQ(status, 0) << run;
  }
}

TEST_F(RunCheckMistakes, AnotherRunsNameComesFromTheFolderAsItIsWritten) {
  site.Write("Work\\Sample\\Analysis\\Run07\\Part07.cmx", kSerialCmx);
  EXPECT_EQ(CallMadeFor("7", kFlow),
            "QVXSolverLauncher.exe$1 <site>\\Home*<site>\\Work\\Sample*Sample*0*7 Qvx3DFlow.exe");
  EXPECT_EQ(CallMadeFor("07", kFlow),
            "QVXSolverLauncher.exe$1 <site>\\Home*<site>\\Work\\Sample*Part*0*07 Qvx3DFlow.exe");
}

TEST_F(RunCheckMistakes, ABackslashBeforeTheQuotationMarkOfTheProject) {
  EXPECT_EQ(Answer({"--project", "C:\\P\" --run 01 --solver Qvx3DFlow.exe"}),
            "error: --run is missing; a backslash before a quotation mark takes what follows with "
            "it: nothing was checked [wrong-call]\n"
            "    help: QVXRunCheck.exe --help shows both forms of call\n");
}

TEST_F(RunCheckMistakes, WhatIsNotExpectedIsNamedWithItsCure) {
  const auto wrong = [&](const std::vector<std::string>& arguments) {
    const std::string answer = Answer(arguments);
    return answer.substr(0, answer.find(": nothing was checked"));
  };
  EXPECT_EQ(wrong({"-project", "C:\\P", "-run", "01"}),
            "error: -project is no option; it is written --project");
  EXPECT_EQ(wrong({"/run", "01"}), "error: /run is no option; it is written --run");
  EXPECT_EQ(wrong({"--Solver", kFlow}), "error: --Solver is no option; it is written --solver");
  EXPECT_EQ(wrong({"--runs", "01"}), "error: --runs is no option");
  EXPECT_EQ(wrong({"--project", "C:\\My", "Projects\\Sample"}),
            "error: Projects\\Sample belongs to no option; a text with blanks stands in quotation "
            "marks");
}

TEST_F(RunCheckMistakes, ATimeoutOutsideItsLimits) {
  for (const char* seconds : {"0", "5s", "0,5", "700", "nan"}) {
    EXPECT_EQ(Answer({"--timeout", seconds, "--version"}),
              std::string("error: --timeout: ") + seconds +
                  " is no number from 0.1 to 600: nothing was checked [wrong-call]\n"
                  "    help: QVXRunCheck.exe --help shows both forms of call\n");
    EXPECT_EQ(status, 2);
  }
  for (const char* seconds : {"0.1", "600"}) {
    EXPECT_EQ(Answer({"--timeout", seconds, "--version"}).substr(0, 11), "QVXRunCheck") << seconds;
    EXPECT_EQ(status, 0);
  }
}

TEST_F(RunCheckMistakes, ASolverInQuotationMarks) {
  EXPECT_EQ(FindingsFor(kTokens, "\"Qvx3DFlow.exe\""),
            std::string("error: \"Qvx3DFlow.exe\" holds a quotation mark: the launcher would find "
                        "no solver and stop with -1 [call-quotation-mark]\n"
                        "    help: the solver is written Qvx3DFlow.exe\n") +
                kNotMeant);
}

TEST_F(RunCheckMistakes, ASolverThatIsABatchFileIsInOrder) {
  site.Write("Home\\Bin\\Qvx3DFlow.bat", "@exit /b 0\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow.bat"), kInOrder);
}

TEST_F(RunCheckMistakes, ASolverThatIsATextIsNone) {
  site.Write("Home\\Bin\\Qvx3DFlow.com", "@exit /b 0\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow.com"),
            std::string("error: <site>\\Home\\Bin\\Qvx3DFlow.com is no Windows program: it would "
                        "not start [solver-program]\n"
                        "    help: a solver is a Windows program for x86-64\n") +
                kNoStart);
}

TEST_F(RunCheckMistakes, ACmxFileUnderAnotherExtensionOrInAnotherFolder) {
  const auto found = [&](const std::string& help) {
    return "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx does not "
           "exist: the run would be distributed [cmx-file]\n    help: " +
           help + "\n" + kNotMeant;
  };
  site.Remove("Work\\Sample\\Analysis\\Run01\\Sample01.cmx");
  EXPECT_EQ(Findings(), found("it is the project name, the run number and .cmx in the run folder"));
  site.Write("Work\\Sample\\Sample01.cmx", kSerialCmx);
  EXPECT_EQ(Findings(), found("there is a file <site>\\Work\\Sample\\Sample01.cmx"));
  site.Write("Work\\Sample\\Analysis\\Run01\\Sample01.bak", kSerialCmx);
  EXPECT_EQ(Findings(), found("the run folder holds Sample01.bak"));
}

TEST_F(RunCheckMistakes, AFolderTooHigh) {
  site.Write("Work\\notes\\x", "");
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work*Sample*0*01"),
      std::string("error: the project directory <site>\\Work holds no folder Analysis: without its "
                  "CMX file the run would be distributed and lose its log [project-folder]\n"
                  "    help: <site>\\Work\\Sample holds one\n") +
          kNotMeant);
}

TEST_F(RunCheckMistakes, AFolderTooHighAboveSeveral) {
  site.Write("Work\\Other\\Analysis\\x", "");
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work*Sample*0*01"),
      std::string("error: the project directory <site>\\Work holds no folder Analysis: without its "
                  "CMX file the run would be distributed and lose its log [project-folder]\n"
                  "    help: the project directory is the one that holds Analysis\n") +
          kNotMeant);
}

TEST_F(RunCheckMistakes, LettersThatTheCodePageDoesNotHold) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\W??k\\Sample*Sample*0*01"),
      std::string("error: the project directory <site>\\W??k\\Sample does not exist: without its "
                  "CMX file the run would be distributed and lose its log [project-folder]\n"
                  "    help: a ? stands for a letter that the ANSI code page does not hold\n") +
          kNotMeant);
}

TEST_F(RunCheckMistakes, AProjectWhoseLastByteIsOneOfAByteOrderMarkIsInOrder) {
  if (GetACP() != 1252) GTEST_SKIP() << "another code page: " << GetACP();
  const std::filesystem::path run =
      std::filesystem::path(site.Path("Work")) / L"Sampl\u00EF" / "Analysis" / "Run01";
  std::filesystem::create_directories(run);
  std::ofstream(run / L"Sampl\u00EF01.cmx", std::ios::binary) << kSerialCmx;
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sampl\xEF*Sampl\xEF*0*01"), kInOrder);
}

TEST_F(RunCheckMistakes, AProjectIniWithAShareAndItsHost) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini",
             "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=\\\\NODE1\\Quorvex\r\n");
  EXPECT_EQ(Findings(),
            std::string("error: QVX_PARALLEL_FOLDER_NAME is \\\\NODE1\\Quorvex, no share's name: "
                        "the run would look for the installation in \\\\NODE1\\\\\\NODE1\\Quorvex "
                        "[project-ini]\n"
                        "    help: the value is written Quorvex\n") +
                kNotMeant);
}

TEST_F(RunCheckMistakes, AMisspeltKeyOfTheProjectIni) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "[Configuration]\r\nQVX_PARALEL_FOLDER_NAME = Q\r\n");
  EXPECT_EQ(
      Findings(),
      std::string("error: <site>\\Home\\Bin\\QVXProject.ini holds no QVX_PARALLEL_FOLDER_NAME "
                  "in its section Configuration: the run would go to a share without a name "
                  "[project-ini]\n"
                  "    help: QVX_PARALEL_FOLDER_NAME is written QVX_PARALLEL_FOLDER_NAME\n") +
          kNotMeant);
}

TEST_F(RunCheckMistakes, APreviousShotInQuotationMarksIsSaidOnce) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\n"
                "ValueShotProjectPath=\"C:\\x\"\r\n</SOLID_MCM>\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DWarp.exe"),
            "Sample01.cmx:8:22: warning: the value of ValueShotProjectPath stands in quotation "
            "marks [cmx-quoted-value]\n"
            "    8 | ValueShotProjectPath=\"C:\\x\"\n"
            "      |                      ^~ help: the value is written C:\\x\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckMistakes, AStorageNodeWithCharactersThatNoneHas) {
  const auto found = [&](const std::string& node, const std::string& help) {
    return "Sample01.cmx:6:16: error: ValueLocalHost is " + node +
           ", no host name: the run would go to folders that cannot be reached [storage-node]\n"
           "    6 | ValueLocalHost=" +
           node + "\n      |                ^~ help: " + help + "\n" + kNotMeant;
  };
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE1;"), found("NODE1;", "the host is written NODE1"));
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE1, NODE2"),
            found("NODE1, NODE2", "the host is written NODE1"));
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=C:"),
            found("C:", "ValueStorageNode, or ValueLocalHost, is a host name alone"));
  EXPECT_EQ(Replaced(FoundWith("Host=NODE1", "Host=."), "^ help", "^~ help"),
            found(".", "ValueStorageNode, or ValueLocalHost, is a host name alone"));
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE-1_a.example"), kInOrder);
}

TEST_F(RunCheckMistakes, AShareWithCharactersThatNoneHas) {
  const auto found = [&](const std::string& what, const std::string& share,
                         const std::string& help) {
    return "Sample01.cmx:7:22: error: " + what +
           ": the run would go to another folder [share-name]\n    7 | ValueShareFolderName=" +
           share + "\n      |                      ^~ help: " + help + "\n" + kNotMeant;
  };
  EXPECT_EQ(FoundWith("<name>\\Work", "Work;"),
            found("ValueShareFolderName is Work;, no share's name", "Work;",
                  "the share is written Work"));
  EXPECT_EQ(FoundWith("<name>\\Work", "C:"),
            found("ValueShareFolderName is C:, no share's name",
                  "C:", "it is the share's name, without backslashes around it"));
  EXPECT_EQ(FoundWith("<name>\\Work", "node1\\Work"),
            found("ValueShareFolderName begins with the storage node, node1\\Work", "node1\\Work",
                  "the share is written Work"));
  EXPECT_EQ(FoundWith("<name>\\Work", "C$\\My work\\2024"), kInOrder);
}

TEST_F(RunCheckMistakes, AWorkingFolderThatIsNearlyTheRightOne) {
  const auto found = [&](const std::string& folder, const std::string& what,
                         const std::string& help) {
    return "Sample01.cmx:8:28: error: " + folder +
           " is not in the project directory <site>\\Work\\Sample" + what +
           ": the run would go to another folder [working-folder]\n"
           "    8 | ValueParallelWorkingFolder=" +
           folder + "\n      |                            ^~ help: " + help + "\n" + kNotMeant;
  };
  const std::string right = "the working folder is written <site>\\Work";
  const std::string doubled = Replaced("<site>\\WORK", "\\WORK", "\\\\WORK");
  EXPECT_EQ(FoundWith("<site>\\WORK", doubled), found(doubled, "", right));
  EXPECT_EQ(FoundWith("<site>\\WORK", "<site>\\WROK"), found("<site>\\WROK", "", right));
  EXPECT_EQ(FoundWith("<site>\\WORK", "<site>\\WORK;"), found("<site>\\WORK;", "", right));
  EXPECT_EQ(FoundWith("<site>\\WORK", "%WORK%"),
            found("%WORK%", "", "a variable between % is not replaced here"));
  EXPECT_EQ(FoundWith("<site>\\WORK",
                      "C:\\Pr\xC3\xBC"
                      "f"),
            found("C:\\Pr\xC3\xBC"
                  "f",
                  ", and its letters beyond A to Z are UTF-8, not the ANSI code page",
                  "it is the shared folder above the project, without a backslash at its end"));
  EXPECT_EQ(FoundWith("<site>\\WORK",
                      "C:\\Pr\xFC"
                      "f"),
            found("C:\\Pr\xFC"
                  "f",
                  "; the case of letters beyond A to Z counts",
                  "it is the shared folder above the project, without a backslash at its end"));
}

}  // namespace
}  // namespace qvx::test
