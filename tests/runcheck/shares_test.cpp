// Folders and accounts of a distributed run: a mistake that the check finds, message by message,
// and near misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckShares = RunCheckTest;

TEST_F(RunCheckShares, ADistributedRunIsInOrder) {
  site.WriteCmx(kDmpFile);
  const std::string text = Findings();
  std::printf("@@ADistributedRunIsInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AMissingAccountFile) {
  site.WriteCmx(kDmpFile);
  site.Remove("Home\\acc.ini");
  const std::string text = Findings();
  std::printf("@@AMissingAccountFile %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AnEmptyAccountFile) {
  site.WriteCmx(kDmpFile);
  site.Write("Home\\acc.ini", "");
  const std::string text = Findings();
  std::printf("@@AnEmptyAccountFile %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, ALocalRunNeedsNoAccounts) {
  site.Remove("Home\\acc.ini");
  const std::string text = Findings();
  std::printf("@@ALocalRunNeedsNoAccounts %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AMissingProjectIni) {
  site.WriteCmx(kDmpFile);
  site.Remove("Home\\Bin\\QVXProject.ini");
  const std::string text = Findings();
  std::printf("@@AMissingProjectIni %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AProjectIniWithoutItsKey) {
  site.WriteCmx(kDmpFile);
  site.Write("Home\\Bin\\QVXProject.ini", "[Configuration]\r\n");
  const std::string text = Findings();
  std::printf("@@AProjectIniWithoutItsKey %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AProjectIniWithAnotherSection) {
  site.WriteCmx(kDmpFile);
  site.Write("Home\\Bin\\QVXProject.ini", "[Config]\r\nQVX_PARALLEL_FOLDER_NAME=x\r\n");
  const std::string text = Findings();
  std::printf("@@AProjectIniWithAnotherSection %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AProjectIniThatNamesAPath) {
  site.WriteCmx(kDmpFile);
  site.Write("Home\\Bin\\QVXProject.ini",
             "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=C:\\Home\r\n");
  const std::string text = Findings();
  std::printf("@@AProjectIniThatNamesAPath %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, NoStorageNode) {
  site.WriteCmx(Replaced(kDmpFile, "ValueLocalHost=NODE1\r\n", ""));
  const std::string text = Findings();
  std::printf("@@NoStorageNode %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AStorageNodeWithBackslashes) {
  site.WriteCmx(Replaced(kDmpFile, "=NODE1\r\n", "=\\\\NODE1\r\n"));
  const std::string text = Findings();
  std::printf("@@AStorageNodeWithBackslashes %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, NoShare) {
  site.WriteCmx(Replaced(kDmpFile, "ValueShareFolderName=<name>\\Work\r\n", ""));
  const std::string text = Findings();
  std::printf("@@NoShare %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AShareThatIsAPath) {
  site.WriteCmx(Replaced(kDmpFile, "=<name>\\Work", "=C:\\Work"));
  const std::string text = Findings();
  std::printf("@@AShareThatIsAPath %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AShareWithABackslash) {
  site.WriteCmx(Replaced(kDmpFile, "=<name>\\Work", "=\\Work"));
  const std::string text = Findings();
  std::printf("@@AShareWithABackslash %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AWorkingFolderWithABackslashAtItsEnd) {
  site.WriteCmx(Replaced(kDmpFile, "<site>\\WORK", "<site>\\WORK\\"));
  const std::string text = Findings();
  std::printf("@@AWorkingFolderWithABackslashAtItsEnd %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AWorkingFolderElsewhere) {
  site.WriteCmx(Replaced(kDmpFile, "<site>\\WORK", "D:\\Work"));
  const std::string text = Findings();
  std::printf("@@AWorkingFolderElsewhere %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AWorkingFolderWithSlashes) {
  site.WriteCmx(Replaced(kDmpFile, "<site>\\WORK", "C:/NODE1"));
  const std::string text = Findings();
  std::printf("@@AWorkingFolderWithSlashes %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AWorkingFolderThatEndsWithinAName) {
  site.WriteCmx(Replaced(kDmpFile, "<site>\\WORK", "<site>\\Wo"));
  const std::string text = Findings();
  std::printf("@@AWorkingFolderThatEndsWithinAName %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, AWorkingFolderThatIsNoBeginning) {
  site.WriteCmx(Replaced(kDmpFile, "<site>\\WORK", "Work"));
  const std::string text = Findings();
  std::printf("@@AWorkingFolderThatIsNoBeginning %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, NoWorkingFolder) {
  site.WriteCmx(Replaced(kDmpFile, "ValueParallelWorkingFolder=<site>\\WORK\r\n", ""));
  const std::string text = Findings();
  std::printf("@@NoWorkingFolder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckShares, MachinesBeyondTheMemory) {
  site.WriteCmx(Replaced(kDmpFile, "ValueNoMachine=2", "ValueNoMachine=2000000000"));
  const std::string text = Findings();
  std::printf("@@MachinesBeyondTheMemory %d\n%s@@end\n", status, text.c_str());
}

}  // namespace
}  // namespace qvx::test
