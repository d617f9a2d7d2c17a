// What lies on this machine: a mistake that the check finds, message by message, and near misses.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckPlaces = RunCheckTest;

/// The number of processors is the machine's.
std::string Processors(const std::string& text) {
  return Replaced(text, std::to_string(std::thread::hardware_concurrency()) + " processors",
                  "<n> processors");
}

constexpr const char* kMpiKey = "SOFTWARE\\NelvornSystem";
constexpr const char* kMpiValue = "IntelMPI_InstallPath";

/// The value, where the launcher does not look for it.
class MisplacedMpiPath {
 public:
  MisplacedMpiPath(HKEY root, REGSAM view) {
    RegCreateKeyExA(root, kMpiKey, 0, nullptr, 0, KEY_WRITE | view, nullptr, &key_, nullptr);
    RegSetValueExA(key_, kMpiValue, 0, REG_SZ, reinterpret_cast<const BYTE*>("C:"), 3);
  }
  ~MisplacedMpiPath() {
    RegDeleteValueA(key_, kMpiValue);
    RegCloseKey(key_);
  }
  MisplacedMpiPath(const MisplacedMpiPath&) = delete;
  MisplacedMpiPath& operator=(const MisplacedMpiPath&) = delete;

 private:
  HKEY key_ = nullptr;
};

TEST_F(RunCheckPlaces, ARelativeHomeFolder) {
  EXPECT_EQ(FindingsFor("Home*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder Home is relative: the launcher would look below the folder "
            "that it is started in [home-folder]\n"
            "    help: the home folder is the one that holds Bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AMisspeltHomeFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Hoem*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\Hoem does not exist: the launcher would find no solver "
            "and stop with -1 [home-folder]\n"
            "    help: there is a folder <site>\\Home\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AHomeFolderThatIsAFile) {
  site.Write("File", "");
  EXPECT_EQ(FindingsFor("<site>\\File*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\File is a file: the launcher would find no solver and "
            "stop with -1 [home-folder]\n"
            "    help: the home folder is the one that holds Bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AHomeFolderThatIsItsBin) {
  EXPECT_EQ(FindingsFor("<site>\\Home\\Bin*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\Home\\Bin holds no folder Bin: the launcher would find "
            "no solver and stop with -1 [home-folder]\n"
            "    help: it is written <site>\\Home\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AHomeFolderWithABackslashBehindIt) {
  EXPECT_EQ(FindingsFor("<site>\\Home\\*<site>\\Work\\Sample*Sample*0*01"), kInOrder);
}

TEST_F(RunCheckPlaces, AMissingProjectDirectory) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Other*Sample*0*01"),
            "error: the project directory <site>\\Work\\Other does not exist: without its CMX file "
            "the run would be distributed and lose its log [project-folder]\n"
            "    help: the project directory is the one that holds Analysis\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AMisspeltProjectDirectoryWithSlashes) {
  EXPECT_EQ(FindingsFor("<site>\\Home*C:/NODE1/<name>\\Work/Sampel*Sample*0*01"),
            "error: the project directory C:/NODE1/<name>\\Work/Sampel does not exist: without its "
            "CMX file the run would be distributed and lose its log [project-folder]\n"
            "    help: there is a folder C:/NODE1/<name>\\Work/Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AProjectDirectoryThatIsItsAnalysis) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis*Sample*0*01"),
            "error: the project directory <site>\\Work\\Sample\\Analysis holds no folder Analysis: "
            "without its CMX file the run would be distributed and lose its log [project-folder]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ARunNumberWithoutItsZero) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*1"),
            "error: the run folder Run1 does not exist and Run01 does: without its CMX file the "
            "run would be distributed and lose its log "
            "[run-number]\n"
            "    help: the run number is written 01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AMissingRunFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*07"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run07 does not exist: without "
            "its CMX file the run would be distributed and lose its log [run-folder]\n"
            "    help: Analysis holds Run01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AMissingRunFolderOfASolverThatReadsNoCmxFile) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*07", "QvxOptics.exe"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run07 does not exist: the run "
            "would lose its log [run-folder]\n"
            "    help: Analysis holds Run01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ARunFolderThatIsAFile) {
  site.Write("Work\\Sample\\Analysis\\Run02", "");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*02"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run02 is a file: without its "
            "CMX file the run would be distributed and lose its log [run-folder]\n"
            "    help: the run folder is Analysis\\Run and the run number\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AMissingCmxFileNamesItsNeighbour) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sampel*0*01"),
            "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sampel01.cmx does not "
            "exist: the run would be distributed [cmx-file]\n"
            "    help: the run folder holds Sample01.cmx\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ACmxFileThatIsAFolder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\Other01.cmx\\x", "");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Other*0*01"),
            "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Other01.cmx is a folder: "
            "the run would be distributed [cmx-file]\n"
            "    help: it is the project name, the run number and .cmx in the run folder\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AnEmptyCmxFile) {
  site.WriteCmx("");
  EXPECT_EQ(Findings(),
            "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx is empty: the "
            "run would be distributed [cmx-file]\n"
            "    help: it is the project name, the run number and .cmx in the run folder\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AMissingCmxFileOfASolverThatReadsNone) {
  site.InstallSolver("QvxOptics.exe");
  site.Remove("Work\\Sample\\Analysis\\Run01\\Sample01.cmx");
  EXPECT_EQ(FindingsFor(kTokens, "QvxOptics.exe"),
            "warning: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx does not "
            "exist: the solver would not find it [cmx-file]\n"
            "    help: it is the project name, the run number and .cmx in the run folder\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckPlaces, AMisspeltSolver) {
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

TEST_F(RunCheckPlaces, ASolverWithoutItsExtensionIsInOrder) {
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow"), kInOrder);
}

TEST_F(RunCheckPlaces, ASolverThatIsNoProgram) {
  site.Write("Home\\Bin\\Qvx3DPack.exe", "text");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DPack.exe"),
            "error: <site>\\Home\\Bin\\Qvx3DPack.exe is no Windows program: it would not start "
            "[solver-program]\n"
            "    help: a solver is a Windows program for x86-64\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, ASolverForAnotherMachine) {
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

TEST_F(RunCheckPlaces, BothSolversOfACoolingRun) {
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

TEST_F(RunCheckPlaces, ACoolingRunWithoutChannelsNeedsOneSolver) {
  site.InstallSolver("Qvx3DCool.exe");
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DCool.exe"), kInOrder);
}

TEST_F(RunCheckPlaces, AnotherProgramBeforeABlank) {
  site.Write("My home\\Bin\\Qvx3DFlow.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  site.Write("My.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  EXPECT_EQ(FindingsFor("<site>\\My home*<site>\\Work\\Sample*Sample*0*01"),
            "error: <site>\\My.exe exists, and <site>\\My home\\Bin\\Qvx3DFlow.exe stands without "
            "quotation marks: the system would start another program [other-program]\n"
            "    help: the other program is moved away\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ABlankInTheHomeFolderAloneIsInOrder) {
  site.Write("My home\\Bin\\Qvx3DFlow.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  EXPECT_EQ(FindingsFor("<site>\\My home*<site>\\Work\\Sample*Sample*0*01"), kInOrder);
}

TEST_F(RunCheckPlaces, AFileNamedLikeALog) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_notes.txt", "");
  EXPECT_EQ(Findings(),
            "warning: console_redirect_serial_Flow_notes.txt is no log of the launcher and would "
            "be deleted [deletes-other-file]\n"
            "    help: move or rename it before the run\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckPlaces, AnEarlierLogIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_2024-03-05_09-07-02.txt",
             "");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckPlaces, AReadOnlyLogIsNotDeleted) {
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

TEST_F(RunCheckPlaces, ALogOfAnotherModeStays) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_smp_Flow_notes.txt", "");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckPlaces, NoKeyForTheMpiInstallation) {
  // As many tasks as every machine has processors for.
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=1\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  mpiPath.Remove();
  EXPECT_EQ(
      Findings(),
      "Sample01.cmx:3:13: note: ValueNoTask is 1 and ValueLocalNoTask is 2 [tasks-differ]\n"
      "    3 | ValueNoTask=1\n"
      "      |             ^ help: ValueNoTask holds the number of tasks too\n"
      "error: the registry holds no value IntelMPI_InstallPath in "
      "HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem: the launcher would stop with -1 [mpi-path]\n"
      "    help: IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a text, "
      "the folder of impiexec.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

class RunCheckRegistry : public RunCheckTest {
 protected:
  RunCheckRegistry() { site.WriteCmx(kDmpCmx); }

  static std::string Wrong(const std::string& summary, const std::string& help = kIsAText) {
    return "error: " + summary + ": the launcher would stop with -1 [mpi-path]\n    help: " + help +
           "\n\n1 error: this run would not start.\n";
  }

  static constexpr const char* kIsAText =
      "IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a text, the folder "
      "of "
      "impiexec.exe";
  static constexpr const char* kNoValue =
      "the registry holds no value IntelMPI_InstallPath in "
      "HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem";
};

TEST_F(RunCheckRegistry, AValueThatIsANumber) {
  const DWORD number = 1;
  RegSetKeyValueA(HKEY_LOCAL_MACHINE, kMpiKey, kMpiValue, REG_DWORD, &number, sizeof number);
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is no plain text (REG_SZ)"));
}

TEST_F(RunCheckRegistry, AValueWithAVariable) {
  constexpr std::string_view kPath("%ProgramFiles%\\Mpi\0", 19);
  RegSetKeyValueA(HKEY_LOCAL_MACHINE, kMpiKey, kMpiValue, REG_EXPAND_SZ, kPath.data(),
                  static_cast<DWORD>(kPath.size()));
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is no plain text (REG_SZ)"));
}

TEST_F(RunCheckRegistry, NoKey) {
  mpiPath.RemoveKey();
  EXPECT_EQ(Findings(),
            Wrong("the registry holds no key HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem"));
}

TEST_F(RunCheckRegistry, AnEmptyValue) {
  mpiPath.Set("");
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is empty"));
}

TEST_F(RunCheckRegistry, ARelativeFolder) {
  mpiPath.Set("Mpi");
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is relative, Mpi"));
}

TEST_F(RunCheckRegistry, AValueOf32BitPrograms) {
  mpiPath.Remove();
  const MisplacedMpiPath misplaced(HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY);
  EXPECT_EQ(Findings(),
            Wrong(kNoValue, "the value stands in the registry of 32-bit programs (WOW6432Node)"));
}

TEST_F(RunCheckRegistry, AValueOfTheUser) {
  mpiPath.Remove();
  const MisplacedMpiPath misplaced(HKEY_CURRENT_USER, 0);
  EXPECT_EQ(
      Findings(),
      Wrong(kNoValue, "the value stands in HKEY_CURRENT_USER and belongs into HKEY_LOCAL_MACHINE"));
}

TEST_F(RunCheckPlaces, QuotationMarksInTheRegistry) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set("\"" + site.Path("Mpi") + "\"");
  EXPECT_EQ(Findings(),
            "error: IntelMPI_InstallPath holds quotation marks, \"<site>\\Mpi\": the launcher "
            "would stop with -1 [mpi-path]\n"
            "    help: the value is written <site>\\Mpi\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AFileForAFolderInTheRegistry) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Mpi\\impiexec.exe"));
  EXPECT_EQ(Findings(),
            "error: IntelMPI_InstallPath is a file, <site>\\Mpi\\impiexec.exe: the launcher would "
            "stop with -1 [mpi-path]\n"
            "    help: the value is the folder <site>\\Mpi\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AFolderWithoutImpiexecInTheRegistry) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Home"));
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\impiexec.exe does not exist: the launcher would stop with -1 "
            "[mpi-launcher]\n"
            "    help: IntelMPI_InstallPath names the folder that holds impiexec.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, ASubfolderHoldsImpiexec) {
  site.WriteCmx(kDmpCmx);
  site.Write("Mpi2\\bin\\impiexec.exe", "");
  mpiPath.Set(site.Path("Mpi2"));
  EXPECT_EQ(Findings(),
            "error: <site>\\Mpi2\\impiexec.exe does not exist: the launcher would stop with -1 "
            "[mpi-launcher]\n"
            "    help: impiexec.exe lies in <site>\\Mpi2\\bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, ABackslashBehindTheMpiFolderIsInOrder) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Mpi") + "\\");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckPlaces, ASerialRunNeedsNoMpi) {
  mpiPath.Remove();
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckPlaces, TooManyTasksForTheProcessors) {
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=5000\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  EXPECT_EQ(Processors(Findings()),
            "note: 5000 tasks share <n> processors [processors]\n"
            "    help: a task for each processor is the most\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckPlaces, ACountBeyondTheMemory) {
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=2000000000\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  EXPECT_EQ(Findings(),
            "Sample01.cmx:3:13: error: process weights cannot be allocated: count 2000000000: the "
            "launcher would end with -2 [cannot-allocate]\n"
            "    3 | ValueNoTask=2000000000\n"
            "      |             ^~ help: the count is a small number\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, APreviousShotThatIsNotThere) {
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

TEST_F(RunCheckPlaces, APreviousShotWithoutItsProject) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\n</SOLID_MCM>\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DWarp.exe"),
            "note: FlagPrevShot is set and ValueShotProjectPath is empty [previous-shot]\n"
            "    help: ValueShotProjectPath is the folder of the previous shot's project\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckPlaces, APreviousShotThatIsThere) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\nValueShotProjectPath=<site>"
                "\\Work\r\n</SOLID_MCM>\r\n");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DWarp.exe"), kInOrder);
}

TEST_F(RunCheckPlaces, TheDebugTraceIsOn) {
  const DebugTraceSwitchFile traceSwitch;
  std::ofstream{traceSwitch.Path()};
  EXPECT_EQ(Findings(),
            "note: the debug trace is switched on by "
            "C:\\ProgramData\\NelvornSystem\\qvxsolverlauncherdebug.txt [debug-trace]\n"
            "    help: without the file there is no trace\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckPlaces, AProjectDirectoryThatIsItsRunFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis\\Run01*Sample*0*01"),
            "error: the project directory <site>\\Work\\Sample\\Analysis\\Run01 holds no folder "
            "Analysis: without its CMX file the run would be distributed and lose its log "
            "[project-folder]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ABlankBehindTheMpiFolder) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Mpi") + " ");
  EXPECT_EQ(
      Findings(),
      "error: a blank stands beside IntelMPI_InstallPath, <site>\\Mpi : the launcher would stop "
      "with -1 [mpi-path]\n"
      "    help: IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a text, "
      "the folder of impiexec.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

}  // namespace
}  // namespace qvx::test
