// The count and the lines of the machine block in a distributed run's CMX file.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxMachines, ADistributedRunInOrder) { EXPECT_EQ(Found(Distributed()), ""); }

TEST(CmxMachines, OneMachineIsInOrder) {
  EXPECT_EQ(Found(Changed(Changed(Distributed("ValueNoMachine = 2", "ValueNoMachine = 1"),
                                  "2 = NODE2\t1\n", ""),
                          "1 = 0.6\n2 = 0.4", "1 = 1")),
            "");
}

TEST(CmxMachines, ALocalRunsMachinesAreNotLookedAt) {
  EXPECT_EQ(Found(Local() + "<REMOTE_MACHINES>\n"
                            "ValueNoMachine = 2\n"
                            "ValueMachinSetting\n"
                            "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxMachines, MoreMachinesThanCounted) {
  EXPECT_EQ(
      Found(Changed(Distributed("ValueNoMachine = 2", "ValueNoMachine = 1"), "1 = 0.6", "1 = 1.0")),
      "Sample03.cmx:11:1: error: ValueNoMachine is 1 and the machine block has 2 lines: the "
      "launcher would drop 1 line of it [machine-count]\n"
      "   11 | 2 = NODE2\t1\n"
      "      | ^~~~~~~~~~~ help: ValueNoMachine is the number of lines in each of the two blocks\n"
      "Sample03.cmx:14:1: warning: ValueNoMachine is 1 and the weighting block has 2 lines: the "
      "launcher would drop 1 line of it [weighting-count]\n"
      "   14 | 2 = 0.4\n"
      "      | ^~~~~~~ help: ValueNoMachine is the number of lines in each of the two blocks\n");
}

TEST(CmxMachines, FewerMachinesThanCounted) {
  EXPECT_EQ(Found(Changed(Distributed("2 = NODE2\t1\n", ""), "1 = 0.6\n2 = 0.4", "1 = 1")),
            "Sample03.cmx:11:1: error: ValueMachineWeighting = weight is taken as machine 2 of 2: "
            "the run would go to other machines than listed [machine-line]\n"
            "   11 | ValueMachineWeighting = weight\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: ValueNoMachine is the number of lines in "
            "each of the two blocks, which follow one another without a gap\n");
}

TEST(CmxMachines, ASecondMachineBlock) {
  const auto told = [](const char* place) {
    return std::string(place) +
           ": ValueMachineSetting opens its block again: the launcher would keep the first block "
           "and drop the lines after this one\n"
           "  it stands once\n";
  };
  const std::string other = Changed(kMachineBlock, "NODE2", "NODE3");
  EXPECT_EQ(FoundInShort(Distributed("</REMOTE_MACHINES>", other + "</REMOTE_MACHINES>")),
            told("error cmx-key-twice 15:1"));
  EXPECT_EQ(FoundInShort(Distributed("</REMOTE_MACHINES>",
                                     std::string(kMachineBlock) + "</REMOTE_MACHINES>")),
            told("warning cmx-key-twice 15:1"));
  EXPECT_EQ(
      FoundInShort(Distributed(kWeightingBlock, std::string(kMachineBlock) + kWeightingBlock)),
      told("error cmx-key-twice 12:1"));
}

TEST(CmxMachines, ASecondWeightingBlock) {
  EXPECT_EQ(FoundInShort(Distributed(
                "</REMOTE_MACHINES>",
                "ValueMachineWeighting = weight\n1 = 0.5\n2 = 0.5\n</REMOTE_MACHINES>")),
            "warning cmx-key-twice 15:1: ValueMachineWeighting opens its block again: the launcher "
            "would keep the first block and drop the lines after this one\n"
            "  it stands once\n");
}

TEST(CmxMachines, AnEmptyLineInTheMachineBlock) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "1 = NODE1\t2\n")),
            "Sample03.cmx:11:1: error: an empty line is taken as machine 2 of 2: the run would go "
            "to other machines than listed [machine-line]\n"
            "   11 | \n"
            "      | ^ help: ValueNoMachine is the number of lines in each of the two blocks, "
            "which follow "
            "one another without a gap\n");
}

TEST(CmxMachines, AMachineBehindASemicolonIsTakenNevertheless) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "; 1 = NODE1\t2")),
            "Sample03.cmx:10:1: error: ; 1 = NODE1\t2 is taken as machine 1 of 2: the run would go "
            "to other machines than listed [machine-line]\n"
            "   10 | ; 1 = NODE1\t2\n"
            "      | ^~~~~~~~~~~~~ help: ValueNoMachine is the number of lines in each of the two "
            "blocks, "
            "which follow one another without a gap\n");
}

TEST(CmxMachines, ACountAfterItsBlocks) {
  EXPECT_EQ(Found(Changed(Distributed("ValueNoMachine = 2\n", ""), "</REMOTE_MACHINES>",
                          "ValueNoMachine = 2\n</REMOTE_MACHINES>")),
            "Sample03.cmx:14:18: error: ValueNoMachine stands after a block, which takes it: the "
            "launcher would leave the machines empty [machine-count-late]\n"
            "   14 | ValueNoMachine = 2\n"
            "      |                  ^ help: it stands before both blocks\n");
}

TEST(CmxMachines, ACountOfTheTwoBlocksBesideOtherKeysIsInOrder) {
  EXPECT_EQ(Found(Distributed("</REMOTE_MACHINES>",
                              "ValueMap = 1\nValueRemoteNoTask = 3\n</REMOTE_MACHINES>")),
            "");
}

TEST(CmxMachines, NoMachines) {
  EXPECT_EQ(Found(Changed(
                Changed(Distributed("ValueNoMachine = 2", "ValueNoMachine = 0"), kMachineBlock, ""),
                kWeightingBlock, "")),
            "Sample03.cmx:5:18: error: ValueNoMachine is 0, no number above 0: the run would be "
            "distributed over no machine [machine-count]\n"
            "    5 | ValueNoMachine = 0\n"
            "      |                  ^ help: ValueNoMachine is the number of lines in each of the "
            "two blocks\n");
}

TEST(CmxMachines, AMachineCountThatIsAWord) {
  EXPECT_EQ(Found(Distributed("ValueNoMachine = 2", "ValueNoMachine = two")),
            "Sample03.cmx:5:18: error: ValueNoMachine is two, no number above 0: the run would be "
            "distributed over no machine [machine-count]\n"
            "    5 | ValueNoMachine = two\n"
            "      |                  ^~~ help: ValueNoMachine is the number of lines in each of "
            "the two blocks\n");
}

TEST(CmxMachines, AMissingMachineBlock) {
  EXPECT_EQ(Found(Changed(Distributed(kMachineBlock, ""), "ValueMachineWeighting = weight",
                          "ValueMachineWeighting")),
            "Sample03.cmx:5:18: error: there is no line ValueMachineSetting: the machines would "
            "have no names [machine-count]\n"
            "    5 | ValueNoMachine = 2\n"
            "      |                  ^ help: the line ValueMachineSetting opens the block\n");
}

TEST(CmxMachines, AMissingMachineCount) {
  EXPECT_EQ(Found(Distributed("ValueNoMachine = 2\n", "")),
            "Sample03.cmx:4:1: error: REMOTE_MACHINES holds no ValueNoMachine: the run would be "
            "distributed over no machine [cmx-key-missing]\n"
            "    4 | <REMOTE_MACHINES>\n"
            "      | ^~~~~~~~~~~~~~~~~ help: the key is written into its section\n");
}

TEST(CmxMachines, ABlankForTheTab) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "1 = NODE1 2")),
            "Sample03.cmx:10:1: error: no tab stands between host and tasks in NODE1 2: the "
            "launcher would take the whole text as the host, with NULL tasks [machine-separator]\n"
            "   10 | 1 = NODE1 2\n"
            "      | ^~~~~~~~~~~ help: one tab, no blank and no other character, stands between "
            "host and tasks\n");
}

TEST(CmxMachines, AMachineWithoutAnEqualsSign) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "NODE1\t2")),
            "Sample03.cmx:10:1: error: no = stands before the machine: the launcher would take the "
            "whole text as the host, with NULL tasks [machine-separator]\n"
            "   10 | NODE1\t2\n"
            "      | ^~~~~~~ help: one tab stands between host and tasks\n");
}

TEST(CmxMachines, AMachineWithoutTasks) {
  EXPECT_EQ(
      Found(Distributed("1 = NODE1\t2", "1 = NODE1\t0")),
      "Sample03.cmx:10:5: error: NODE1 has 0 tasks: no process would run there [machine-tasks]\n"
      "   10 | 1 = NODE1\t0\n"
      "      |     ^~~~~~~ help: tasks are a number of 1 or more\n");
}

TEST(CmxMachines, NoHost) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "1 = \t2")),
            "Sample03.cmx:10:5: error: the host name is empty: the MPI process launcher would ask "
            "for another machine [machine-host]\n"
            "   10 | 1 = \t2\n"
            "      |     ^~ help: a host name stands alone, without backslashes and blanks\n");
}

TEST(CmxMachines, TasksThatAreAWord) {
  EXPECT_EQ(Found(Distributed("2 = NODE2\t1", "2 = NODE2\tall")),
            "Sample03.cmx:11:5: error: the tasks of NODE2 are all, no number above 0: no process "
            "would run there [machine-tasks]\n"
            "   11 | 2 = NODE2\tall\n"
            "      |     ^~~~~~~~~ help: tasks are a number of 1 or more\n");
}

TEST(CmxMachines, HostAndTasksSwapped) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "1 = 2\tNODE1")),
            "Sample03.cmx:10:5: error: the tasks stand before the host in 2 NODE1: no process "
            "would run there [machine-tasks]\n"
            "   10 | 1 = 2\tNODE1\n"
            "      |     ^~~~~~~ help: tasks are a number of 1 or more\n");
}

TEST(CmxMachines, TwoTabsLeaveNoTasks) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "1 = NODE1\t\t2")),
            "Sample03.cmx:10:5: error: NODE1 has no task count: no process would run there "
            "[machine-tasks]\n"
            "   10 | 1 = NODE1\t\t2\n"
            "      |     ^~~~~~~~ help: tasks are a number of 1 or more\n");
}

TEST(CmxMachines, AFurtherTextBehindTheTasksIsInOrder) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "1 = NODE1\t2\tfast")), "");
}

TEST(CmxMachines, ABlankBesideAHost) {
  EXPECT_EQ(Found(Distributed("1 = NODE1\t2", "1 = NODE1 \t2")),
            "Sample03.cmx:10:5: warning: a blank stands beside the host name NODE1 [machine-host]\n"
            "   10 | 1 = NODE1 \t2\n"
            "      |     ^~~~~~~~ help: the name is written NODE1\n");
}

TEST(CmxMachines, AHostWithBackslashes) {
  EXPECT_EQ(
      Found(Distributed("1 = NODE1\t2", "1 = \\\\NODE1\t2")),
      "Sample03.cmx:10:5: error: \\\\NODE1 is no host name: the MPI process launcher would ask for "
      "another machine [machine-host]\n"
      "   10 | 1 = \\\\NODE1\t2\n"
      "      |     ^~~~~~~~~ help: the name is written NODE1\n");
}

TEST(CmxMachines, HostsWithDigitsDotsAndDashesAreInOrder) {
  EXPECT_EQ(
      Found(Distributed("1 = NODE1\t2\n2 = NODE2\t1", "1 = 10.0.0.7\t2\n2 = node-2.local_x\t1")),
      "");
}

TEST(CmxMachines, AHostTwice) {
  EXPECT_EQ(Found(Distributed("2 = NODE2\t1", "2 = node1\t1")),
            "Sample03.cmx:11:5: warning: node1 is also in line 10 [machine-twice]\n"
            "   11 | 2 = node1\t1\n"
            "      |     ^~~~~~~ help: a host has one line with all its tasks\n");
}

TEST(CmxMachines, HostsThatBeginAlikeAreInOrder) {
  EXPECT_EQ(Found(Distributed("2 = NODE2\t1", "2 = NODE10\t1")), "");
}

TEST(CmxMachines, ACountOfMachinesGoesIntoTheCommandLineAsItStands) {
  EXPECT_EQ(
      FoundInShort(Distributed("Machine = 2", "Machine = 2 ; both")),
      "error machine-count 5:18: ValueNoMachine is 2 ; both, no plain number: the MPI process "
      "launcher would be given it as it stands\n"
      "  the value is written 2 (2)\n");
}

TEST(CmxMachines, ABlankBehindTheCountOfMachinesIsNoError) {
  EXPECT_EQ(
      FoundInShort(Distributed("Machine = 2", "Machine = 2 ")),
      "warning cmx-number 5:18: ValueNoMachine is 2 , no plain number: the launcher would read "
      "it as 2\n"
      "  the value is written 2 (2)\n");
}

TEST(CmxMachines, QuotationMarksAroundAHost) {
  EXPECT_EQ(FoundInShort(Distributed("NODE1\t", "\"NODE1\"\t")),
            "warning machine-host 10:5: quotation marks stand around the host name NODE1: the "
            "launcher would hand them on as they stand\n"
            "  the name is written NODE1 (NODE1)\n");
}

TEST(CmxMachines, APortBehindAHost) {
  EXPECT_EQ(FoundInShort(Distributed("1 = NODE1", "1 = NODE1:8676")),
            "error machine-host 10:5: NODE1:8676 is no host name: the MPI process launcher would "
            "ask for another machine\n"
            "  the name is written NODE1 (NODE1)\n");
}

TEST(CmxMachines, AnAddressWithColonsIsInOrder) {
  EXPECT_EQ(FoundInShort(Distributed("1 = NODE1", "1 = fe80::1")), "");
}

TEST(CmxMachines, BackslashesBeforeAHost) {
  EXPECT_EQ(
      FoundInShort(Distributed("NODE1\t", "\\\\NODE1\t")),
      "error machine-host 10:5: \\\\NODE1 is no host name: the MPI process launcher would ask "
      "for another machine\n"
      "  the name is written NODE1 (NODE1)\n");
}

TEST(CmxMachines, ATabBeforeAHost) {
  EXPECT_EQ(FoundInShort(Distributed("= NODE1\t", "= \tNODE1\t")),
            "error machine-host 10:5: a tab stands before the host name NODE1: the MPI process "
            "launcher would ask for another machine\n"
            "  the host name stands first (NODE1)\n");
}

TEST(CmxMachines, ARemarkBehindTheTasks) {
  EXPECT_EQ(FoundInShort(Distributed("NODE1\t2", "NODE1\t2 ; fast")),
            "error machine-tasks 10:5: the tasks of NODE1 are 2 ; fast, no plain number: the MPI "
            "process launcher would be given it as it stands\n"
            "  the tasks are written 2 (2)\n");
}

TEST(CmxMachines, ARemarkBehindTheTasksAndATab) {
  EXPECT_EQ(FoundInShort(Distributed("NODE1\t2", "NODE1\t2\t; fast")), "");
}

TEST(CmxMachines, AMachineOnTheLineThatOpensTheBlock) {
  EXPECT_EQ(
      FoundInShort(Distributed("host, tasks\n1 = NODE1", "NODE1")),
      "error machine-line 11:1: ValueMachineWeighting = weight is taken as machine 2 of 2: the "
      "run would go to other machines than listed\n"
      "  the first machine stands in the line after ValueMachineSetting\n");
}

}  // namespace
}  // namespace qvx::runcheck
