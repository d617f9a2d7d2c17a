// The section REMOTE_MACHINES: its fields, the blocks of machine and weighting lines, the default
// of the storage node, the dump.
#include "runconfig/remote_machine_settings.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

void ReadFile(const std::string& bytes, RemoteMachineSettings& record) {
  // Static: a fault ends the process without leaving this scope.
  static const test::TemporaryFolder folder;
  EXPECT_EQ(ReadRemoteMachineSettings(folder.Write("run.cmx", bytes).c_str(), record), 0);
}

/// What the dump shows of the machines that `lines`, the section's content, give.
std::string MachinesOf(const std::string& lines) {
  RemoteMachineSettings record;
  // The line behind the section keeps the closing tag from being the last line.
  ReadFile("<REMOTE_MACHINES>\n" + lines + "</REMOTE_MACHINES>\n-", record);
  const std::string dump = test::PrintedBy([&] { DumpRemoteMachineSettings(record); });
  const std::size_t machines = dump.find("\n[");
  return machines == std::string::npos ? "" : dump.substr(machines + 1);
}

constexpr const char* kTwoMachines =
    "ValueNoMachine=2\nValueMachineSetting\n1=nodeA\t4\n2=nodeB\t2\n";

TEST(RemoteMachineSettings, AreReadByKeyAndDumpedInTheRecordsOrder) {
  RemoteMachineSettings record;
  ReadFile(
      "<REMOTE_MACHINES>\nValueStorageNode=srv\nVersion=1.1\nValueNoMachine=2\n"
      "ValueRemoteNoTask=6\nValueMap=m\nValueShareFolderName=sh\n"
      "ValueParallelWorkingFolder=D:\\Work\nValueLocalHost=me\n"
      "ValueMachineSetting=any\n1=nodeA\t4\tmore\tand more\n2=nodeB\t2\n"
      "ValueMachineWeighting=any\n1=0.6\n2= 0.4 a comment\n</REMOTE_MACHINES>\n",
      record);
  EXPECT_EQ(test::PrintedBy([&] { DumpRemoteMachineSettings(record); }),
            "Version                    = 1.1\n"
            "ValueNoMachine             = 2\n"
            "ValueRemoteNoTask          = 6\n"
            "ValueMap                   = m\n"
            "ValueShareFolderName       = sh\n"
            "ValueParallelWorkingFolder = D:\\Work\n"
            "ValueLocalHost             = me\n"
            "ValueStorageNode           = srv\n"
            "[0]nodeA\t:4\t0.6\n"
            "[1]nodeB\t:2\t0.4\n");
}

TEST(RemoteMachineSettings, TakeTheLocalHostAsStorageNodeWhenThereIsNone) {
  RemoteMachineSettings record;
  ReadFile("<REMOTE_MACHINES>\nValueLocalHost=me\n</REMOTE_MACHINES>\n", record);
  EXPECT_STREQ(record.ValueStorageNode, "me");
  RemoteMachineSettings both;
  ReadFile("<REMOTE_MACHINES>\nValueLocalHost=me\nValueStorageNode=N\n</REMOTE_MACHINES>\n", both);
  EXPECT_STREQ(both.ValueStorageNode, "N");
  RemoteMachineSettings withoutValue;
  ReadFile("<REMOTE_MACHINES>\nValueLocalHost=me\nValueStorageNode\n-", withoutValue);
  EXPECT_STREQ(withoutValue.ValueStorageNode, "NULL");
  RemoteMachineSettings emptyNode;
  ReadFile("<REMOTE_MACHINES>\nValueStorageNode=\nValueLocalHost\n-", emptyNode);
  EXPECT_STREQ(emptyNode.ValueStorageNode, "NULL");
  RemoteMachineSettings neither;
  ReadFile("", neither);
  EXPECT_STREQ(neither.ValueStorageNode, "");
}

TEST(RemoteMachineSettings, KeepTheTrailingBackslashOfAFolder) {
  RemoteMachineSettings record;
  ReadFile(
      "<REMOTE_MACHINES>\nValueShareFolderName=S\\\nValueParallelWorkingFolder=D:\\W\\\n"
      "</REMOTE_MACHINES>\n",
      record);
  EXPECT_STREQ(record.ValueShareFolderName, "S\\");
  EXPECT_STREQ(record.ValueParallelWorkingFolder, "D:\\W\\");
}

TEST(RemoteMachineSettings, KeepWhatTheFileDoesNotName) {
  RemoteMachineSettings record;
  CopyText(record.Version, "", "before");
  CopyText(record.ValueMap, "", "before");
  ReadFile("<REMOTE_MACHINES>\nValueMap=m\n</REMOTE_MACHINES>\n", record);
  EXPECT_STREQ(record.Version, "before");
  EXPECT_STREQ(record.ValueMap, "m");
}

TEST(RemoteMachineSettings, StayAsTheyAreWhenTheFileIsMissing) {
  RemoteMachineSettings record;
  record.ValueLocalHost[0] = 'h';
  EXPECT_EQ(
      test::PrintedBy([&] { EXPECT_EQ(ReadRemoteMachineSettings("missing.cmx", record), 0); }),
      " Read CMX file: missing.cmx failed!\n");
  EXPECT_STREQ(record.ValueStorageNode, "");
  EXPECT_TRUE(record.machines.empty());
}

TEST(RemoteMachineSettings, RefuseOverlongFields) {
  const auto read = [](const char* key, std::size_t length) {
    MachinesOf(std::string(key) + "=" + std::string(length, 'v') + "\n");
  };
  read("ValueMap", 31);
  read("ValueShareFolderName", 259);
  EXPECT_FAULT(read("ValueMap", 32), "ERROR: ValueMap is too long: width 32, length 32");
  EXPECT_FAULT(read("ValueNoMachine", 33),
               "ERROR: ValueNoMachine is too long: width 32, length 33");
  EXPECT_FAULT(read("ValueParallelWorkingFolder", 260),
               "ERROR: CMX value is too long: width 260, length 260");
}

TEST(MachineBlock, TakesTheWordNullForATaskCountThatIsMissing) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValueMachineSetting\n1=nodeA 4\n"),
            "[0]nodeA 4\t:NULL\t\n");
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValueMachineSetting\nnodeA\n"), "[0]NULL\t:NULL\t\n");
}

TEST(MachineBlock, TakesOnlyTheSpacesInFrontOfTheHostNameAway) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValueMachineSetting\n1=  node A \t 4 \n"),
            "[0]node A \t: 4 \t\n");
}

TEST(MachineBlock, TakesEveryLineWhateverItHolds) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=4 \nValueMachineSetting\n\n=\\\\a\t4\n3=a.b\t\t4\n4=\n"),
            "[0]NULL\t:NULL\t\n[1]\\\\a\t:4\t\n[2]a.b\t:\t\n[3]\t:NULL\t\n");
}

TEST(MachineBlock, OpensWithBlanksInItsKeyWhateverItsValue) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValue Machine Setting = 0\n1=a\t1\n"), "[0]a\t:1\t\n");
}

TEST(MachineBlock, ConsumesLinesThatLookLikeSettingsAndTags) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=3\nValueMachineSetting\nValueMap=m\t1\n<REMOTE_MACHINES>\n"
                       "ValueMachineWeighting=w\t3\n"),
            "[0]m\t:1\t\n[1]NULL\t:NULL\t\n[2]w\t:3\t\n");
}

TEST(MachineBlock, ConsumesTheClosingTagWhichStillClosesTheSectionAndGoesOnInTheNext) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=4\nValueMachineSetting\n1=a\t1\n</REMOTE_MACHINES>\n"
                       "2=ignored\t1\n<REMOTE_MACHINES>\n4=d\t4\n"),
            "[0]a\t:1\t\n[1]NULL\t:NULL\t\n[2]NULL\t:NULL\t\n[3]d\t:4\t\n");
}

TEST(MachineBlock, CountsOnWhenItOpensAgainAndIgnoresWhatIsPastTheList) {
  EXPECT_EQ(MachinesOf(std::string(kTwoMachines) + "ValueMachineSetting\n3=past\t9\nValueMap=x\n"),
            "[0]nodeA\t:4\t\n[1]nodeB\t:2\t\n");
}

TEST(MachineBlock, CountsOnBehindASecondCountOfMachines) {
  EXPECT_EQ(
      MachinesOf(std::string(kTwoMachines) + "ValueNoMachine=3\nValueMachineSetting\n3=c\t1\n"),
      "[0]\t:\t\n[1]\t:\t\n[2]c\t:1\t\n");
}

TEST(MachineBlock, BeforeTheCountIsIgnoredAndConsumesTheCountToo) {
  EXPECT_EQ(MachinesOf("ValueMachineSetting\n1=a\t1\nValueNoMachine=1\n"), "");
}

TEST(WeightingBlock, CutsTheWeightingAtItsFirstSpace) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=2\nValueMachineWeighting\n1=1.5 # a comment that is rather "
                       "longer than the field\n2=2\n"),
            "[0]\t:\t1.5\n[1]\t:\t2\n");
}

TEST(WeightingBlock, KeepsATabOfTheWeighting) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValueMachineWeighting=0\n1=1.5\tx y\n"),
            "[0]\t:\t1.5\tx\n");
}

TEST(WeightingBlock, TakesEveryLineWhateverItHolds) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=4\nValueMachineWeighting\n1=0,5\n=\n</REMOTE_MACHINES>\n"
                       "<REMOTE_MACHINES>\n"),
            "[0]\t:\t0,5\n[1]\t:\t\n[2]\t:\tNULL\n[3]\t:\tNULL\n");
}

TEST(WeightingBlock, TakesTheWordNullForALineWithoutAWeighting) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValueMachineWeighting\n1.5\n"), "[0]\t:\tNULL\n");
}

TEST(WeightingBlock, CountsOnWhenItOpensAgainAndIgnoresWhatIsPastTheList) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValueMachineWeighting\n1=0.5\nValueMachineWeighting\n"
                       "1=0.7\n"),
            "[0]\t:\t0.5\n");
}

TEST(WeightingBlock, WaitsForTheMachineBlockToClose) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=1\nValueMachineWeighting\nValueMachineSetting=0.5\n"
                       "ValueMachineSetting\n1=a\t1\n"),
            "[0]a\t:1\t0.5\n");
}

TEST(MachineList, IsEmptyForACountThatIsNoPositiveNumber) {
  for (const char* count : {"0", "-3", "two", ""}) {
    EXPECT_EQ(
        MachinesOf(std::string("ValueNoMachine=") + count + "\nValueMachineSetting\n1=a\t1\n"), "")
        << count;
  }
}

TEST(MachineList, HoldsEmptyEntriesForLinesThatDoNotCome) {
  EXPECT_EQ(MachinesOf("ValueNoMachine=2\n"), "[0]\t:\t\n[1]\t:\t\n");
}

TEST(MachineList, IsReplacedByASecondCount) {
  EXPECT_EQ(MachinesOf(std::string(kTwoMachines) + "ValueNoMachine=1\n"), "[0]\t:\t\n");
}

TEST(MachineList, RefusesTextsOf32Characters) {
  const std::string longest(31, 'x');
  const std::string start = "ValueNoMachine=1\nValueMachineSetting\n1=";
  EXPECT_EQ(MachinesOf(start + longest + "\t" + longest + "\n"),
            "[0]" + longest + "\t:" + longest + "\t\n");
  EXPECT_FAULT(MachinesOf(start + longest + "x\t1\n"),
               "ERROR: machine host name is too long: width 32, length 32");
  EXPECT_FAULT(MachinesOf(start + longest + "x\t" + longest + "x\n"),
               "ERROR: machine host name is too long: width 32, length 32");
  EXPECT_FAULT(MachinesOf(start + "a\t" + longest + "x\n"),
               "ERROR: machine task count is too long: width 32, length 32");
  EXPECT_FAULT(MachinesOf("ValueNoMachine=1\nValueMachineWeighting\n1=" + longest + "x\n"),
               "ERROR: machine weighting is too long: width 32, length 32");
}

TEST(MachineList, RefusesACountThatMemoryCannotHold) {
  EXPECT_FAULT(MachinesOf("ValueNoMachine=2147483647\n"),
               "ERROR: ValueNoMachine cannot be allocated: count 2147483647");
}

TEST(MachineList, TakesAMachineTwiceThatIsTheFilesLastLine) {
  RemoteMachineSettings record;
  ReadFile("<REMOTE_MACHINES>\nValueNoMachine=2\nValueMachineSetting\n1=a\t1\n", record);
  ASSERT_EQ(record.machines.size(), 2U);
  EXPECT_STREQ(record.machines[0].hostName, "a");
  EXPECT_STREQ(record.machines[1].hostName, "a");
}

}  // namespace
}  // namespace qvx
