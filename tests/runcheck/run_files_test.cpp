// The files of a run, CMX file, logs and previous shot, and the debug trace's switch: a mistake
// that the check finds, message by message, and near misses.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckRunFiles = RunCheckTest;

TEST_F(RunCheckRunFiles, AMissingCmxFileNamesItsNeighbour) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sampel*0*01"),
            "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sampel01.cmx does not "
            "exist: the run would be distributed [cmx-file]\n"
            "    help: the run folder holds Sample01.cmx\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunFiles, ACmxFileUnderAnotherExtensionOrInAnotherFolder) {
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

TEST_F(RunCheckRunFiles, ACmxFileThatIsAFolder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\Other01.cmx\\x", "");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Other*0*01"),
            "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Other01.cmx is a folder: "
            "the run would be distributed [cmx-file]\n"
            "    help: it is the project name, the run number and .cmx in the run folder\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunFiles, AnEmptyCmxFile) {
  site.WriteCmx("");
  EXPECT_EQ(Findings(),
            "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx is empty: the "
            "run would be distributed [cmx-file]\n"
            "    help: it is the project name, the run number and .cmx in the run folder\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckRunFiles, AMissingCmxFileOfASolverThatReadsNone) {
  site.InstallSolver("QvxOptics.exe");
  site.Remove("Work\\Sample\\Analysis\\Run01\\Sample01.cmx");
  EXPECT_EQ(FindingsFor(kTokens, "QvxOptics.exe"),
            "warning: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx does not "
            "exist: the solver would not find it [cmx-file]\n"
            "    help: it is the project name, the run number and .cmx in the run folder\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckRunFiles, AFileNamedLikeALog) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_notes.txt", "");
  EXPECT_EQ(Findings(),
            "warning: console_redirect_serial_Flow_notes.txt is no log of the launcher and would "
            "be deleted [deletes-other-file]\n"
            "    help: move or rename it before the run\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckRunFiles, AnEarlierLogIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_2024-03-05_09-07-02.txt",
             "");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckRunFiles, AReadOnlyLogIsNotDeleted) {
  const std::string log =
      "Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_2024-03-05_09-07-02.txt";
  site.Write(log, "");
  const std::string deleted = Answer({"--", "L$1", kTokens, kFlow});
  EXPECT_NE(deleted.find("  deletes       1 earlier log in"), std::string::npos) << deleted;
  SetFileAttributesA(site.Path(log).c_str(), FILE_ATTRIBUTE_READONLY);
  const std::string kept = Answer({"--", "L$1", kTokens, kFlow});
  SetFileAttributesA(site.Path(log).c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(kept.find("  deletes"), std::string::npos) << kept;
}

TEST_F(RunCheckRunFiles, ALogOfAnotherModeStays) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_smp_Flow_notes.txt", "");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckRunFiles, APreviousShotThatIsNotThere) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\nValueShotProjectPath=<site>"
                "\\Shot\r\n</SOLID_MCM>\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DWarp.exe"),
            "note: the previous shot's project <site>\\Shot does not exist [previous-shot]\n"
            "    help: ValueShotProjectPath is the folder of the previous shot's project\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckRunFiles, APreviousShotWithoutItsProject) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\n</SOLID_MCM>\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DWarp.exe"),
            "note: FlagPrevShot is set and ValueShotProjectPath is empty [previous-shot]\n"
            "    help: ValueShotProjectPath is the folder of the previous shot's project\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckRunFiles, APreviousShotThatIsThere) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\nValueShotProjectPath=<site>"
                "\\Work\r\n</SOLID_MCM>\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DWarp.exe"), kInOrder);
}

TEST_F(RunCheckRunFiles, APreviousShotThatIsTooLongIsSaidOnce) {
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

TEST_F(RunCheckRunFiles, APreviousShotInQuotationMarksIsSaidOnce) {
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

TEST_F(RunCheckRunFiles, TheDebugTraceIsOn) {
  const DebugTraceSwitchFile traceSwitch;
  std::ofstream{traceSwitch.Path()};
  EXPECT_EQ(Findings(),
            "note: the debug trace is switched on by "
            "C:\\ProgramData\\NelvornSystem\\qvxsolverlauncherdebug.txt [debug-trace]\n"
            "    help: without the file there is no trace\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckRunFiles, AFolderSwitchesNoDebugTraceOn) {
  const DebugTraceSwitchFile traceSwitch;
  std::filesystem::create_directories(traceSwitch.Path());
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckRunFiles, AFileOfAnotherNameSwitchesNoDebugTraceOn) {
  const DebugTraceSwitchFile traceSwitch;
  std::filesystem::path other = traceSwitch.Path();
  other += ".txt";
  std::ofstream{other};
  EXPECT_EQ(Findings(), kInOrder);
  std::filesystem::remove(other);
}

}  // namespace
}  // namespace qvx::test
