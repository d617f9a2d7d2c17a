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
  const std::string text = FindingsFor("Home*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@ARelativeHomeFolder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AMisspeltHomeFolder) {
  const std::string text = FindingsFor("<site>\\Hoem*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@AMisspeltHomeFolder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AHomeFolderThatIsAFile) {
  site.Write("File", "");
  const std::string text = FindingsFor("<site>\\File*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@AHomeFolderThatIsAFile %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AHomeFolderThatIsItsBin) {
  const std::string text = FindingsFor("<site>\\Home\\Bin*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@AHomeFolderThatIsItsBin %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AHomeFolderWithABackslashBehindIt) {
  const std::string text = FindingsFor("<site>\\Home\\*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@AHomeFolderWithABackslashBehindIt %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AMissingProjectDirectory) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Other*Sample*0*01");
  std::printf("@@AMissingProjectDirectory %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AProjectDirectoryThatIsItsAnalysis) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis*Sample*0*01");
  std::printf("@@AProjectDirectoryThatIsItsAnalysis %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ARunNumberWithoutItsZero) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*1");
  std::printf("@@ARunNumberWithoutItsZero %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AMissingRunFolder) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*07");
  std::printf("@@AMissingRunFolder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ARunFolderThatIsAFile) {
  site.Write("Work\\Sample\\Analysis\\Run02", "");
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*02");
  std::printf("@@ARunFolderThatIsAFile %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AMissingCmxFileNamesItsNeighbour) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sampel*0*01");
  std::printf("@@AMissingCmxFileNamesItsNeighbour %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ACmxFileThatIsAFolder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\Other01.cmx\\x", "");
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Other*0*01");
  std::printf("@@ACmxFileThatIsAFolder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AnEmptyCmxFile) {
  site.WriteCmx("");
  const std::string text = Findings();
  std::printf("@@AnEmptyCmxFile %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AMissingCmxFileOfASolverThatReadsNone) {
  site.InstallSolver("QvxOptics.exe");
  site.Remove("Work\\Sample\\Analysis\\Run01\\Sample01.cmx");
  const std::string text = FindingsFor(kRun, "QvxOptics.exe");
  std::printf("@@AMissingCmxFileOfASolverThatReadsNone %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AMisspeltSolver) {
  const std::string text = FindingsFor(kRun, "Qvx3DFlwo.exe");
  std::printf("@@AMisspeltSolver %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ASolverWithoutItsExtensionIsInOrder) {
  const std::string text = FindingsFor(kRun, "Qvx3DFlow");
  std::printf("@@ASolverWithoutItsExtensionIsInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ASolverThatIsNoProgram) {
  site.Write("Home\\Bin\\Qvx3DPack.exe", "text");
  const std::string text = FindingsFor(kRun, "Qvx3DPack.exe");
  std::printf("@@ASolverThatIsNoProgram %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ASolverForAnotherMachine) {
  std::string arm = site.Read("Home\\Bin\\Qvx3DFlow.exe");
  const auto at = arm.find(std::string("PE\0\0", 4));
  arm[at + 4] = '\x64';
  arm[at + 5] = '\xAA';
  site.Write("Home\\Bin\\Qvx3DPack.exe", arm);
  const std::string text = FindingsFor(kRun, "Qvx3DPack.exe");
  std::printf("@@ASolverForAnotherMachine %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, BothSolversOfACoolingRun) {
  site.InstallSolver("Qvx3DCool.exe");
  site.WriteCmx(std::string(kSerialFile) +
                "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel=1\r\n</SOLID_COOL>\r\n");
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  const std::string text = FindingsFor(kRun, "Qvx3DCool.exe");
  std::printf("@@BothSolversOfACoolingRun %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ACoolingRunWithoutChannelsNeedsOneSolver) {
  site.InstallSolver("Qvx3DCool.exe");
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  const std::string text = FindingsFor(kRun, "Qvx3DCool.exe");
  std::printf("@@ACoolingRunWithoutChannelsNeedsOneSolver %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AnotherProgramBeforeABlank) {
  site.Write("My home\\Bin\\Qvx3DFlow.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  site.Write("My.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  const std::string text = FindingsFor("<site>\\My home*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@AnotherProgramBeforeABlank %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ABlankInTheHomeFolderAloneIsInOrder) {
  site.Write("My home\\Bin\\Qvx3DFlow.exe", site.Read("Home\\Bin\\Qvx3DFlow.exe"));
  const std::string text = FindingsFor("<site>\\My home*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@ABlankInTheHomeFolderAloneIsInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AFileNamedLikeALog) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_notes.txt", "");
  const std::string text = Findings();
  std::printf("@@AFileNamedLikeALog %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AnEarlierLogIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_2024-03-05_09-07-02.txt",
             "");
  const std::string text = Findings();
  std::printf("@@AnEarlierLogIsInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ALogOfAnotherModeStays) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_smp_Flow_notes.txt", "");
  const std::string text = Findings();
  std::printf("@@ALogOfAnotherModeStays %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, NoKeyForTheMpiInstallation) {
  site.WriteCmx(kSmpFile);
  mpiPath.Remove();
  const std::string text = Findings();
  std::printf("@@NoKeyForTheMpiInstallation %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, QuotationMarksInTheRegistry) {
  site.WriteCmx(kSmpFile);
  mpiPath.Set("\"" + site.Path("Mpi") + "\"");
  const std::string text = Findings();
  std::printf("@@QuotationMarksInTheRegistry %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AFileForAFolderInTheRegistry) {
  site.WriteCmx(kSmpFile);
  mpiPath.Set(site.Path("Mpi\\impiexec.exe"));
  const std::string text = Findings();
  std::printf("@@AFileForAFolderInTheRegistry %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, AFolderWithoutImpiexecInTheRegistry) {
  site.WriteCmx(kSmpFile);
  mpiPath.Set(site.Path("Home"));
  const std::string text = Findings();
  std::printf("@@AFolderWithoutImpiexecInTheRegistry %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ASubfolderHoldsImpiexec) {
  site.WriteCmx(kSmpFile);
  site.Write("Mpi2\\bin\\impiexec.exe", "");
  mpiPath.Set(site.Path("Mpi2"));
  const std::string text = Findings();
  std::printf("@@ASubfolderHoldsImpiexec %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ABackslashBehindTheMpiFolderIsInOrder) {
  site.WriteCmx(kSmpFile);
  mpiPath.Set(site.Path("Mpi") + "\\");
  const std::string text = Findings();
  std::printf("@@ABackslashBehindTheMpiFolderIsInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ASerialRunNeedsNoMpi) {
  mpiPath.Remove();
  const std::string text = Findings();
  std::printf("@@ASerialRunNeedsNoMpi %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, TooManyTasksForTheProcessors) {
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=5000\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  const std::string text = Processors(Findings());
  std::printf("@@TooManyTasksForTheProcessors %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, ACountBeyondTheMemory) {
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=2000000000\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  const std::string text = Findings();
  std::printf("@@ACountBeyondTheMemory %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, APreviousShotThatIsNotThere) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialFile) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\nValueShotProjectPath=<site>"
                "\\Shot\r\n</SOLID_MCM>\r\n");
  const std::string text = FindingsFor(kRun, "Qvx3DWarp.exe");
  std::printf("@@APreviousShotThatIsNotThere %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, APreviousShotThatIsThere) {
  site.InstallSolver("Qvx3DWarp.exe");
  site.WriteCmx(std::string(kSerialFile) +
                "<SOLID_MCM>\r\nFlagPrevShot=1\r\nValueShotRunID=1\r\nValueShotProjectPath=<site>"
                "\\Work\r\n</SOLID_MCM>\r\n");
  const std::string text = FindingsFor(kRun, "Qvx3DWarp.exe");
  std::printf("@@APreviousShotThatIsThere %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckPlaces, TheDebugTraceIsOn) {
  const DebugTraceSwitchFile traceSwitch;
  std::ofstream{traceSwitch.Path()};
  const std::string text = Findings();
  std::printf("@@TheDebugTraceIsOn %d\n%s@@end\n", status, text.c_str());
}

}  // namespace
}  // namespace qvx::test
