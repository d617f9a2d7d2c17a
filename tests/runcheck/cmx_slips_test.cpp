// More slips in CMX files: what the rules say, message by message, and near misses that they let
// pass.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxSlips, AWeightingOfZero) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0\n"
                  "2 = 1\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:13:5: warning: the weighting is 0: the solver would get the weight 0 for "
            "each process of this machine [weighting-value]\n"
            "   13 | 1 = 0\n"
            "      |     ^ help: a weighting is a number such as 0.6\n");
}

TEST(CmxSlips, ASmallWeightingIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.001\n"
                  "2 = 0.999\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxSlips, EachWeightingThatIsNoneIsSaid) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = much\n"
                  "2 = 0\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:13:5: warning: much is no weighting: the launcher would read it as 0 "
            "[weighting-value]\n"
            "   13 | 1 = much\n"
            "      |     ^~~~ help: a weighting is a number such as 0.6\n"
            "Sample03.cmx:14:5: warning: the weighting is 0: the solver would get the weight 0 for "
            "each process of this machine [weighting-value]\n"
            "   14 | 2 = 0\n"
            "      |     ^ help: a weighting is a number such as 0.6\n");
}

TEST(CmxSlips, AShortenedKey) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:7:1: error: ValueWorkingFolder is no key of REMOTE_MACHINES: the "
            "launcher would ignore the line [cmx-unknown-key]\n"
            "    7 | ValueWorkingFolder = C:\\Projects\n"
            "      | ^~~~~~~~~~~~~~~~~~ help: a key of this section is written "
            "ValueParallelWorkingFolder\n");
}

TEST(CmxSlips, AShortenedKeyThatMayBeTwoIsANote) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "ValueFolder = C\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:15:1: note: ValueFolder is no key of REMOTE_MACHINES [cmx-unknown-key]\n"
            "   15 | ValueFolder = C\n"
            "      | ^~~~~~~~~~~ help: the line is left out\n");
}

TEST(CmxSlips, AKeyWithTwoMoreLettersOfSevenIsUnknown) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "Versions2 = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:5:1: note: Versions2 is no key of TASKMANAGER [cmx-unknown-key]\n"
            "    5 | Versions2 = 1\n"
            "      | ^~~~~~~~~ help: the line is left out\n");
}

TEST(CmxSlips, AttributesInATag) {
  EXPECT_EQ(Found("<TASKMANAGER version=\"1\">\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: <TASKMANAGER version=\"1\"> is not the tag <TASKMANAGER>: "
            "the launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER version=\"1\">\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on "
            "its line\n");
}

TEST(CmxSlips, TextBehindATag) {
  EXPECT_EQ(Found("<TASKMANAGER>Version = 1.0\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: <TASKMANAGER>Version = 1.0 is not the tag <TASKMANAGER>: the "
            "launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER>Version = 1.0\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on "
            "its line\n");
}

TEST(CmxSlips, TextBehindAClosingTag) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER> ; end = 1\n"),
            "Sample03.cmx:5:1: warning: </TASKMANAGER> ; end = 1 is not the tag </TASKMANAGER>: "
            "the launcher would read on to the end of the file [cmx-tag]\n"
            "    5 | </TASKMANAGER> ; end = 1\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on "
            "its line\n");
}

TEST(CmxSlips, TextBehindAnotherSectionsTagIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<TASKMANAGERS version=\"1\">\n"),
            "");
}

TEST(CmxSlips, ANoBreakSpaceBehindATag) {
  EXPECT_EQ(Found("<TASKMANAGER>\240\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: an invisible character stands beside <TASKMANAGER>: the "
            "launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER>\240\n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxSlips, ANoBreakSpaceBehindAValue) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\240\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:15: error: 1 invisible character stands behind the value of "
            "IDTaskMode: the value is not 0 and the run would be distributed [cmx-trailing-blank]\n"
            "    2 | IDTaskMode = 0\240\n"
            "      |               ^ help: the value is written 0\n");
}

TEST(CmxSlips, TheLastLineTooLongIsSaidOnce) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 11111111111111111111111111111111\n"),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n"
            "Sample03.cmx:4:20: error: ValueLocalNoTask is too long: width 32, length 32: the "
            "launcher would end with -2 [text-too-long]\n"
            "    4 | ValueLocalNoTask = 11111111111111111111111111111111\n"
            "      |                    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to "
            "less than the width\n");
}

TEST(CmxSlips, TheLastLineThatJustFits) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "Version = 1111111111111111111111111111111\n"),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n");
}

TEST(CmxSlips, AMissingWeightingBlockBesideAMachineBlockWithAnEqualsSign) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:5:18: warning: there is no line ValueMachineWeighting: all weights would "
            "be 0 [weighting-count]\n"
            "    5 | ValueNoMachine = 2\n"
            "      |                  ^ help: the line ValueMachineWeighting opens the block\n");
}

TEST(CmxSlips, AMisspeltBlockWithoutAnEqualsSign) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachinWeighting\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:12:1: warning: ValueMachinWeighting is no key of REMOTE_MACHINES "
            "[cmx-unknown-key]\n"
            "   12 | ValueMachinWeighting\n"
            "      | ^~~~~~~~~~~~~~~~~~~~ help: a key of this section is written "
            "ValueMachineWeighting\n");
}

TEST(CmxSlips, TheBytesOfAMarkWithinTheFileAreInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<NOTE>\n"
                  "\357\273\277text\n"
                  "</NOTE>\n"),
            "");
}

TEST(CmxSlips, LettersBeyondAsciiAreNoUtf16) {
  EXPECT_EQ(Found("<NOTE>\n"
                  "\377\376 \344\366\n"
                  "</NOTE>\n"
                  "<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxSlips, AForeignSectionTwiceIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<NOTE>\n"
                  "</NOTE>\n"
                  "<NOTE>\n"
                  "</NOTE>\n"),
            "");
}

TEST(CmxSlips, LettersOfAnotherCaseInAValueAreInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = node1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = Node1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxSlips, ASerialRunNeedsNoTaskCount) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxSlips, AColonWithinAValueIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "Version = 1:0\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxSlips, BlanksBeforeAValueAreInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode =    0\n"
                  "ValueNoTask =1\n"
                  "ValueLocalNoTask =1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxSlips, ASemicolonWithinAPathIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Pro;jects#1\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxSlips, QuotationMarksAroundAValueThatIsOnlyShownAreInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "Version = \"1.0\"\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxSlips, OneMachineIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 1\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 1\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxSlips, HostsWithDigitsDotsAndDashesAreInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = 10.0.0.7\t2\n"
                  "2 = node-2.local_x\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxSlips, HostsThatBeginAlikeAreInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE10\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxSlips, ACountOfTheTwoBlocksBesideOtherKeysIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "ValueMap = 1\n"
                  "ValueRemoteNoTask = 3\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxSlips, AZeroByteAfterTheLastTagIsInOrder) {
  EXPECT_EQ(Found(std::string("<TASKMANAGER>\n"
                              "IDTaskMode = 0\n"
                              "ValueNoTask = 1\n"
                              "ValueLocalNoTask = 1\n"
                              "</TASKMANAGER>\n"
                              "\032\000\000\000",
                              85)),
            "");
}

TEST(CmxSlips, AClosingTagWithItsSlashAtTheEnd) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "<TASKMANAGER/>\n"),
            "Sample03.cmx:5:1: warning: <TASKMANAGER/> is not the tag </TASKMANAGER>: the launcher "
            "would read on to the end of the file [cmx-tag]\n"
            "    5 | <TASKMANAGER/>\n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on its line\n");
}

TEST(CmxSlips, AMisspeltTaskCountIsSaidOnce) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTasks = 2\n"
                  "ValueLocalNoTask = 2\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:3:1: error: ValueNoTasks is no key of TASKMANAGER: the launcher would "
            "ignore the line [cmx-unknown-key]\n"
            "    3 | ValueNoTasks = 2\n"
            "      | ^~~~~~~~~~~~ help: a key of this section is written ValueNoTask\n");
}

TEST(CmxSlips, HostAndTasksSwapped) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = 2\tNODE1\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:10:5: error: the tasks stand before the host in 2 NODE1: no process "
            "would run there [machine-tasks]\n"
            "   10 | 1 = 2\tNODE1\n"
            "      |     ^~~~~~~ help: tasks are a number of 1 or more\n");
}

TEST(CmxSlips, AMachineBehindASemicolonIsTakenNevertheless) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "; 1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:10:1: error: ; 1 = NODE1\t2 is taken as machine 1 of 2: the run would go "
            "to other machines than listed [machine-line]\n"
            "   10 | ; 1 = NODE1\t2\n"
            "      | ^~~~~~~~~~~~~ help: ValueNoMachine is the number of lines in both blocks, "
            "which follow one another without a gap\n");
}

TEST(CmxSlips, ASectionThatIsNeverClosedBeforeAnotherIsSaidOnce) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n");
}

TEST(CmxSlips, ABlockWithAColonIsSaidOnce) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 1\n"
            "</TASKMANAGER>\n"
            "<REMOTE_MACHINES>\n"
            "ValueNoMachine = 2\n"
            "ValueShareFolderName = Projects\n"
            "ValueParallelWorkingFolder = C:\\Projects\n"
            "ValueLocalHost = NODE1\n"
            "ValueMachineSetting: host\n"
            "1 = NODE1\t2\n"
            "2 = NODE2\t1\n"
            "ValueMachineWeighting = weight\n"
            "1 = 0.6\n"
            "2 = 0.4\n"
            "</REMOTE_MACHINES>\n"),
      "Sample03.cmx:9:1: error: ValueMachineSetting is followed by : and not by =: the launcher "
      "would ignore the line or take the rest into the value [cmx-separator]\n"
      "    9 | ValueMachineSetting: host\n"
      "      | ^~~~~~~~~~~~~~~~~~~~~~~~~ help: the line is written ValueMachineSetting = host\n");
}

TEST(CmxSlips, AWeightingTooManyHasNoSum) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 1\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:13:1: warning: ValueNoMachine is 1 and the weighting block has 2 lines: "
            "the launcher would drop 1 line of it [weighting-count]\n"
            "   13 | 2 = 0.4\n"
            "      | ^~~~~~~ help: ValueNoMachine is the number of lines in both blocks\n");
}

TEST(CmxSlips, ATaskCountBesideAnotherSlipOfALocalRun) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 0 # local\n"
            "ValueNoTask = -3\n"
            "ValueLocalNoTask = 2\n"
            "</TASKMANAGER>\n"),
      "Sample03.cmx:2:16: error: a comment stands behind the value of IDTaskMode: the value is "
      "not 0 and the run would be distributed [cmx-comment]\n"
      "    2 | IDTaskMode = 0 # local\n"
      "      |                ^~~~~~~ help: the value is written 0\n"
      "Sample03.cmx:3:15: error: ValueNoTask is -3, no number above 0: the MPI process launcher "
      "would be asked for no process [task-count]\n"
      "    3 | ValueNoTask = -3\n"
      "      |               ^~ help: ValueNoTask is 1 or more\n");
}

TEST(CmxSlips, ALineThatStopsTwoReadersInTwoFieldsIsSaidForBoth) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "Version = 123456789012345678901234567890123\n"),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n"
            "Sample03.cmx:3:1: warning: REMOTE_MACHINES is never closed [cmx-section-open]\n"
            "    3 | <REMOTE_MACHINES>\n"
            "      | ^~~~~~~~~~~~~~~~~ help: the section ends with </REMOTE_MACHINES>\n"
            "Sample03.cmx:4:18: warning: there is no line ValueMachineWeighting: all weights would "
            "be 0 [weighting-count]\n"
            "    4 | ValueNoMachine = 1\n"
            "      |                  ^ help: the line ValueMachineWeighting opens the block\n"
            "Sample03.cmx:6:1: error: Version = 123456789012345678901234567890123 is taken as "
            "machine 1 of 1: the run would go to other machines than listed [machine-line]\n"
            "    6 | Version = 123456789012345678901234567890123\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: ValueNoMachine is the "
            "number of lines in both blocks, which follow one another without a gap\n"
            "Sample03.cmx:6:11: error: Version is too long: width 32, length 33: the launcher "
            "would end with -2 [text-too-long]\n"
            "    6 | Version = 123456789012345678901234567890123\n"
            "      |           ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less "
            "than the width\n"
            "Sample03.cmx:6:11: error: machine host name is too long: width 32, length 33: the "
            "launcher would end with -2 [text-too-long]\n"
            "    6 | Version = 123456789012345678901234567890123\n"
            "      |           ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less "
            "than the width\n");
}

}  // namespace
}  // namespace qvx::runcheck
