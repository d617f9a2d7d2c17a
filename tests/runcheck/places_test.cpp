// What lies on this machine: a mistake that the check finds, message by message, and near misses.
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
            "error: the project directory <site>\\Work\\Other does not exist: the run would lose "
            "its log [project-folder]\n"
            "    help: the project directory is the one that holds Analysis\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AProjectDirectoryThatIsItsAnalysis) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis*Sample*0*01"),
            "error: the project directory <site>\\Work\\Sample\\Analysis holds no folder Analysis: "
            "the run would lose its log [project-folder]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ARunNumberWithoutItsZero) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*1"),
            "error: the run folder Run1 does not exist and Run01 does: the run would lose its log "
            "[run-number]\n"
            "    help: the run number is written 01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, AMissingRunFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*07"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run07 does not exist: the run "
            "would lose its log [run-folder]\n"
            "    help: Analysis holds Run01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ARunFolderThatIsAFile) {
  site.Write("Work\\Sample\\Analysis\\Run02", "");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*02"),
            "error: the run folder <site>\\Work\\Sample\\Analysis\\Run02 is a file: the run would "
            "lose its log [run-folder]\n"
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

TEST_F(RunCheckPlaces, ALogOfAnotherModeStays) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_smp_Flow_notes.txt", "");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckPlaces, NoKeyForTheMpiInstallation) {
  site.WriteCmx(kOneTaskSmpCmx);
  mpiPath.Remove();
  EXPECT_EQ(
      Findings(),
      "error: the registry holds no value IntelMPI_InstallPath in "
      "HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem: the launcher would stop with -1 [mpi-path]\n"
      "    help: IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a text, "
      "the folder of impiexec.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, QuotationMarksInTheRegistry) {
  site.WriteCmx(kOneTaskSmpCmx);
  mpiPath.Set("\"" + site.Path("Mpi") + "\"");
  EXPECT_EQ(Findings(),
            "error: IntelMPI_InstallPath holds quotation marks, \"<site>\\Mpi\": the launcher "
            "would stop with -1 [mpi-path]\n"
            "    help: the value is written <site>\\Mpi\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AFileForAFolderInTheRegistry) {
  site.WriteCmx(kOneTaskSmpCmx);
  mpiPath.Set(site.Path("Mpi\\impiexec.exe"));
  EXPECT_EQ(Findings(),
            "error: IntelMPI_InstallPath is a file, <site>\\Mpi\\impiexec.exe: the launcher would "
            "stop with -1 [mpi-path]\n"
            "    help: the value is the folder <site>\\Mpi\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, AFolderWithoutImpiexecInTheRegistry) {
  site.WriteCmx(kOneTaskSmpCmx);
  mpiPath.Set(site.Path("Home"));
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\impiexec.exe does not exist: the launcher would stop with -1 "
            "[mpi-launcher]\n"
            "    help: IntelMPI_InstallPath names the folder that holds impiexec.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckPlaces, ASubfolderHoldsImpiexec) {
  site.WriteCmx(kOneTaskSmpCmx);
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
  site.WriteCmx(kOneTaskSmpCmx);
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
            "Analysis: the run would lose its log [project-folder]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckPlaces, ABlankBehindTheMpiFolder) {
  site.WriteCmx(kOneTaskSmpCmx);
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
