// Folders and accounts of a distributed run: a mistake that the check finds, message by message,
// and near misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckShares = RunCheckTest;

TEST_F(RunCheckShares, ADistributedRunIsInOrder) {
  site.WriteCmx(kDmpCmx);
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckShares, AStorageNodeThatEachMachineTakesForItself) {
  std::string file = kDmpCmx;
  file.replace(file.find("ValueLocalHost=NODE1"), 20, "ValueLocalHost=localhost");
  site.WriteCmx(file);
  EXPECT_EQ(Findings(),
            "Sample01.cmx:6:16: error: ValueLocalHost is localhost, which each machine takes for "
            "itself: the other machines would look for the shares at themselves [storage-node]\n"
            "    6 | ValueLocalHost=localhost\n"
            "      |                ^~ help: it is this machine's name in the network\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AMissingAccountFile) {
  site.WriteCmx(kDmpCmx);
  site.Remove("Home\\acc.ini");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\acc.ini is missing: the launcher would stop with -1 [account-file]\n"
      "    help: it holds the MPI accounts and lies in the home folder\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckShares, AnEmptyAccountFile) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\acc.ini", "");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\acc.ini is empty: the launcher would stop with -1 [account-file]\n"
      "    help: it holds the MPI accounts and lies in the home folder\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckShares, ALocalRunNeedsNoAccounts) {
  site.Remove("Home\\acc.ini");
  site.Remove("Home\\Bin\\QVXProject.ini");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckShares, AMissingProjectIni) {
  site.WriteCmx(kDmpCmx);
  site.Remove("Home\\Bin\\QVXProject.ini");
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\Bin\\QVXProject.ini is missing: the run would go to a share "
            "without a name [project-ini]\n"
            "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AProjectIniWithoutItsKey) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "[Configuration]\r\n");
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\Bin\\QVXProject.ini holds no QVX_PARALLEL_FOLDER_NAME in its "
            "section Configuration: the run would go to a share without a name [project-ini]\n"
            "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AProjectIniWithAnotherSection) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "[Config]\r\nQVX_PARALLEL_FOLDER_NAME=x\r\n");
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\Bin\\QVXProject.ini holds QVX_PARALLEL_FOLDER_NAME without a "
            "value or outside its section Configuration: the run would go to a share without a "
            "name [project-ini]\n"
            "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AProjectIniThatNamesAPath) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini",
             "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=C:\\Home\r\n");
  EXPECT_EQ(Findings(),
            "error: QVX_PARALLEL_FOLDER_NAME is C:\\Home, no share's name: the run would look "
            "for the installation in \\\\NODE1\\C:\\Home [project-ini]\n"
            "    help: it is the share's name, without backslashes around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, NoStorageNode) {
  EXPECT_EQ(FoundWith("ValueLocalHost=NODE1\r\n", ""),
            "Sample01.cmx:4:1: error: neither ValueStorageNode nor ValueLocalHost is set: the run "
            "would go to folders that cannot be reached [storage-node]\n"
            "    4 | <REMOTE_MACHINES>\n"
            "      | ^~ help: ValueStorageNode, or ValueLocalHost, is a host name alone\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AStorageNodeWithBackslashes) {
  EXPECT_EQ(FoundWith("=NODE1\r\n", "=\\\\NODE1\r\n"),
            "Sample01.cmx:6:16: error: ValueLocalHost is \\\\NODE1, no host name: the run would go "
            "to folders that cannot be reached [storage-node]\n"
            "    6 | ValueLocalHost=\\\\NODE1\n"
            "      |                ^~ help: the host is written NODE1\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, NoShare) {
  EXPECT_EQ(FoundWith("ValueShareFolderName=<name>\\Work\r\n", ""),
            "Sample01.cmx:4:1: error: ValueShareFolderName is empty: the run would go to another "
            "folder [share-name]\n"
            "    4 | <REMOTE_MACHINES>\n"
            "      | ^~ help: it is the share's name, without backslashes around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AShareThatIsAPath) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=C:\\Work"),
            "Sample01.cmx:7:22: error: ValueShareFolderName is a path, C:\\Work: the run would go "
            "to another folder [share-name]\n"
            "    7 | ValueShareFolderName=C:\\Work\n"
            "      |                      ^~ help: it is the share's name, without backslashes "
            "around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AShareWithABackslash) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=\\Work"),
            "Sample01.cmx:7:22: error: a backslash stands beside the share's name in \\Work: the "
            "run would go to another folder [share-name]\n"
            "    7 | ValueShareFolderName=\\Work\n"
            "      |                      ^~ help: the share is written Work\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderWithABackslashAtItsEnd) {
  EXPECT_EQ(
      FoundWith("<site>\\WORK", "<site>\\WORK\\"),
      "Sample01.cmx:8:28: error: ValueParallelWorkingFolder ends in a backslash and makes the "
      "project ample: the run would go to another folder [working-folder]\n"
      "    8 | ValueParallelWorkingFolder=<site>\\WORK\\\n"
      "      |                            ^~ help: the working folder is written <site>\\WORK\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderElsewhere) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "D:\\Work"),
            "Sample01.cmx:8:28: error: D:\\Work is not in the project directory "
            "<site>\\Work\\Sample: the run would go to another folder [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=D:\\Work\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderWithSlashes) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "C:/NODE1"),
            "Sample01.cmx:8:28: error: C:/NODE1 is not in the project directory "
            "<site>\\Work\\Sample: the run would go to another folder [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=C:/NODE1\n"
            "      |                            ^~ help: the working folder is written C:\\NODE1\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatEndsWithinAName) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "<site>\\Wo"),
            "Sample01.cmx:8:28: error: <site>\\Wo ends within a name of the project directory and "
            "makes the project k\\sample: the run would go to another folder [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=<site>\\Wo\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatIsNoBeginning) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "Work"),
            "Sample01.cmx:8:28: warning: Work is not where the project directory begins: the "
            "launcher would cut the project directory at the first place [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=Work\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatBeginsWithinAName) {
  EXPECT_EQ(
      FoundWith("<site>\\WORK", "ork"),
      "Sample01.cmx:8:28: error: ork is not where the project directory begins: the run would "
      "go to another folder [working-folder]\n"
      "    8 | ValueParallelWorkingFolder=ork\n"
      "      |                            ^~ help: it is the shared folder above the "
      "project, without a backslash at its end\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatStandsThereTwice) {
  site.Write("Work\\NODE1\\Sample\\Analysis\\Run01\\Sample01.cmx",
             site.Specific(Replaced(kDmpCmx, "<site>\\WORK", "\\\\NODE1")));
  EXPECT_EQ(FindingsFor("<site>\\Home*<share>\\Work\\\\NODE1\\Sample*Sample*3*01"),
            "Sample01.cmx:8:28: warning: \\\\NODE1 stands in the project directory twice, and the "
            "first place counts: the launcher would cut the project directory at the first place "
            "[working-folder]\n"
            "    8 | ValueParallelWorkingFolder=\\\\NODE1\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckShares, AShareThatIsAMachineAlone) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=\\\\NODE1"),
            "Sample01.cmx:7:22: error: ValueShareFolderName is a path, \\\\NODE1: the run would go "
            "to another folder [share-name]\n"
            "    7 | ValueShareFolderName=\\\\NODE1\n"
            "      |                      ^~ help: it is the share's name, without backslashes "
            "around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AProjectIniWithAByteOrderMark) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "\xEF\xBB\xBF[Configuration]\r\n");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\Bin\\QVXProject.ini begins with a byte-order mark, which hides its "
      "first section: the run would go to a share without a name [project-ini]\n"
      "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, NoWorkingFolder) {
  EXPECT_EQ(
      FoundWith("ValueParallelWorkingFolder=<site>\\WORK\r\n", ""),
      "Sample01.cmx:4:1: error: ValueParallelWorkingFolder is empty: the run would go to another "
      "folder [working-folder]\n"
      "    4 | <REMOTE_MACHINES>\n"
      "      | ^~ help: it is the shared folder above the project, without a backslash at its end\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, MachinesBeyondTheMemory) {
  EXPECT_EQ(FoundWith("ValueNoMachine=2", "ValueNoMachine=2000000000"),
            "Sample01.cmx:5:16: error: ValueNoMachine cannot be allocated: count 2000000000: the "
            "launcher would end with -2 [cannot-allocate]\n"
            "    5 | ValueNoMachine=2000000000\n"
            "      |                ^~ help: the count is a small number\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckShares, AnAccountFileWithAHiddenExtension) {
  site.WriteCmx(kDmpCmx);
  site.Remove("Home\\acc.ini");
  site.Write("Home\\acc.ini.txt", "account\r\n");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\acc.ini is missing: the launcher would stop with -1 [account-file]\n"
      "    help: there is a file <site>\\Home\\acc.ini.txt\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckShares, AProjectIniOutsideBin) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\QVXProject.ini", site.Read("Home\\Bin\\QVXProject.ini"));
  site.Remove("Home\\Bin\\QVXProject.ini");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\Bin\\QVXProject.ini is missing: the run would go to a share without "
      "a name [project-ini]\n"
      "    help: there is a file <site>\\Home\\QVXProject.ini\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

}  // namespace
}  // namespace qvx::test
