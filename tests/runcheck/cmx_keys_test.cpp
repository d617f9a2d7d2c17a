// Keys of the CMX file that nothing reads, and what stands between a key and its value.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxKeys, AKeyInAnotherLetterCaseIsIgnored) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "idtaskmode = 0")),
            "Sample03.cmx:2:1: error: idtaskmode is not written IDTaskMode: the launcher would "
            "ignore the line and run distributed [cmx-key-case]\n"
            "    2 | idtaskmode = 0\n"
            "      | ^~~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxKeys, AMisspeltKeyIsIgnored) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMod = 0")),
            "Sample03.cmx:2:1: error: IDTaskMod is no key of TASKMANAGER: the launcher would "
            "ignore the line and run distributed [cmx-unknown-key]\n"
            "    2 | IDTaskMod = 0\n"
            "      | ^~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxKeys, AMisspeltKeyBesideTheRightOneIsAWarning) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = 0\nIDTaskMod = 0")),
            "Sample03.cmx:3:1: warning: IDTaskMod is no key of TASKMANAGER [cmx-unknown-key]\n"
            "    3 | IDTaskMod = 0\n"
            "      | ^~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxKeys, AMisspeltTaskCountIsSaidOnce) {
  EXPECT_EQ(Found(Local("ValueNoTask = 1\nValueLocalNoTask = 1",
                        "ValueNoTasks = 2\nValueLocalNoTask = 2")),
            "Sample03.cmx:3:1: error: ValueNoTasks is no key of TASKMANAGER: the launcher would "
            "ignore the line [cmx-unknown-key]\n"
            "    3 | ValueNoTasks = 2\n"
            "      | ^~~~~~~~~~~~ help: a key of this section is written ValueNoTask\n");
}

TEST(CmxKeys, AMisspeltWeightingBlock) {
  EXPECT_EQ(Found(Distributed("ValueMachineWeighting = weight", "ValueMachinWeighting = weight")),
            "Sample03.cmx:12:1: warning: ValueMachinWeighting is no key of REMOTE_MACHINES "
            "[cmx-unknown-key]\n"
            "   12 | ValueMachinWeighting = weight\n"
            "      | ^~~~~~~~~~~~~~~~~~~~ help: a key of this section is written "
            "ValueMachineWeighting\n");
}

TEST(CmxKeys, AMisspeltBlockWithoutAnEqualsSign) {
  EXPECT_EQ(Found(Distributed("ValueMachineWeighting = weight", "ValueMachinWeighting")),
            "Sample03.cmx:12:1: warning: ValueMachinWeighting is no key of REMOTE_MACHINES "
            "[cmx-unknown-key]\n"
            "   12 | ValueMachinWeighting\n"
            "      | ^~~~~~~~~~~~~~~~~~~~ help: a key of this section is written "
            "ValueMachineWeighting\n");
}

TEST(CmxKeys, AShortenedKey) {
  EXPECT_EQ(Found(Distributed("ValueParallelWorkingFolder = C:\\Projects",
                              "ValueWorkingFolder = C:\\Projects")),
            "Sample03.cmx:7:1: error: ValueWorkingFolder is no key of REMOTE_MACHINES: the "
            "launcher would ignore the line [cmx-unknown-key]\n"
            "    7 | ValueWorkingFolder = C:\\Projects\n"
            "      | ^~~~~~~~~~~~~~~~~~ help: a key of this section is written "
            "ValueParallelWorkingFolder\n");
}

TEST(CmxKeys, AShortenedKeyThatMayBeTwoIsANote) {
  EXPECT_EQ(Found(Distributed("</REMOTE_MACHINES>", "ValueFolder = C\n</REMOTE_MACHINES>")),
            "Sample03.cmx:15:1: note: ValueFolder is no key of REMOTE_MACHINES [cmx-unknown-key]\n"
            "   15 | ValueFolder = C\n"
            "      | ^~~~~~~~~~~ help: leave the line out\n");
}

TEST(CmxKeys, ASpaceInAKeyIsInOrder) {
  EXPECT_EQ(Found(Changed(Local("IDTaskMode", "  ID Task Mode"), "ValueLocal", "Value Local")), "");
}

TEST(CmxKeys, AnUnknownKeyIsANote) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "Colour = red\n</TASKMANAGER>")),
            "Sample03.cmx:5:1: note: Colour is no key of TASKMANAGER [cmx-unknown-key]\n"
            "    5 | Colour = red\n"
            "      | ^~~~~~ help: leave the line out\n");
}

TEST(CmxKeys, AKeyWithTwoMoreLettersOfSevenIsUnknown) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "Versions2 = 1\n</TASKMANAGER>")),
            "Sample03.cmx:5:1: note: Versions2 is no key of TASKMANAGER [cmx-unknown-key]\n"
            "    5 | Versions2 = 1\n"
            "      | ^~~~~~~~~ help: leave the line out\n");
}

TEST(CmxKeys, AKeyThatBeginsLikeAnotherIsNotThatOneWithAnotherSeparator) {
  EXPECT_EQ(
      Found(Local("</TASKMANAGER>", "Version Number = 3\nValueNoTask-Max = 4\n</TASKMANAGER>")),
      "Sample03.cmx:5:1: note: Version Number is no key of TASKMANAGER [cmx-unknown-key]\n"
      "    5 | Version Number = 3\n"
      "      | ^~~~~~~~~~~~~~ help: leave the line out\n"
      "Sample03.cmx:6:1: note: ValueNoTask-Max is no key of TASKMANAGER [cmx-unknown-key]\n"
      "    6 | ValueNoTask-Max = 4\n"
      "      | ^~~~~~~~~~~~~~~ help: leave the line out\n");
}

TEST(CmxKeys, AMisspeltWeightingBlockBesideTheRightOneChangesNothing) {
  EXPECT_EQ(
      Found(Distributed("</REMOTE_MACHINES>", "ValueMachinWeighting = weight\n</REMOTE_MACHINES>")),
      "Sample03.cmx:15:1: warning: ValueMachinWeighting is no key of REMOTE_MACHINES "
      "[cmx-unknown-key]\n"
      "   15 | ValueMachinWeighting = weight\n"
      "      | ^~~~~~~~~~~~~~~~~~~~ help: a key of this section is written "
      "ValueMachineWeighting\n");
}

TEST(CmxKeys, ARemarkIsInOrder) {
  EXPECT_EQ(
      Found(Local("<TASKMANAGER>", "<TASKMANAGER>\n; a remark\n# another = one\n\nfree text")), "");
}

TEST(CmxKeys, ATabBesideAKeyHidesIt) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode\t= 0")),
            "Sample03.cmx:2:1: error: a tab stands beside IDTaskMode: the launcher would ignore "
            "the line and run distributed [cmx-key-blank]\n"
            "    2 | IDTaskMode\t= 0\n"
            "      | ^~~~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxKeys, AKeyOfAnotherSectionIsIgnored) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "ValueNoMachine = 2\n</TASKMANAGER>")),
            "Sample03.cmx:5:1: warning: ValueNoMachine is a key of REMOTE_MACHINES, not of "
            "TASKMANAGER [cmx-key-section]\n"
            "    5 | ValueNoMachine = 2\n"
            "      | ^~~~~~~~~~~~~~ help: move it into REMOTE_MACHINES\n");
}

TEST(CmxKeys, AKeyThatTheRunNeedsInAnotherSection) {
  for (const std::string line :
       {"ValueNoMachine = 2\n", "ValueShareFolderName = Projects\n", "ValueLocalHost = NODE1\n"}) {
    const std::string key = line.substr(0, line.find(' '));
    EXPECT_EQ(
        FoundInShort(Changed(Distributed(line, ""), "</TASKMANAGER>", line + "</TASKMANAGER>")),
        "error cmx-key-section 3:1: " + key +
            " is a key of REMOTE_MACHINES, not of TASKMANAGER: the launcher would ignore the "
            "line\n  move it into REMOTE_MACHINES (REMOTE_MACHINES)\n");
  }
}

TEST(CmxKeys, AModeInAnotherSectionIsSaidOnce) {
  const std::string file =
      Local("IDTaskMode = 0\n", "") +
      "<SOLID_COOL>\nIDTaskMode = 0\nFlag3DSolidCoolingChannel = 0\n</SOLID_COOL>\n";
  EXPECT_EQ(FoundInShort(file, SolverClass::Cool),
            "error cmx-key-section 6:1: IDTaskMode is a key of TASKMANAGER, not of SOLID_COOL: the "
            "launcher would ignore the line and run distributed\n"
            "  move it into TASKMANAGER (TASKMANAGER)\n");
}

/// What is found with these two lines for the storage node.
std::string WithHosts(const std::string& localHost, const std::string& storageNode) {
  return FoundInShort(Distributed("ValueLocalHost = NODE1", localHost + "\n" + storageNode));
}

TEST(CmxKeys, OneOfTheTwoStorageNodesDoesWithoutTheOther) {
  EXPECT_EQ(WithHosts("ValueLocalHost = NODE1", "ValueStoragenode = NODE1"),
            "warning cmx-key-case 9:1: ValueStoragenode is not written ValueStorageNode: the "
            "launcher would ignore the line\n"
            "  a key of this section is written ValueStorageNode (ValueStorageNode)\n");
  EXPECT_EQ(WithHosts("ValueLocalhost = NODE1", "ValueStorageNode = NODE2"),
            "warning cmx-key-case 8:1: ValueLocalhost is not written ValueLocalHost: the launcher "
            "would ignore the line\n"
            "  a key of this section is written ValueLocalHost (ValueLocalHost)\n");
}

TEST(CmxKeys, AnotherStorageNodeThanTheLocalHostIsMissed) {
  EXPECT_EQ(WithHosts("ValueLocalHost = NODE1", "ValueStoragenode = NODE2"),
            "error cmx-key-case 9:1: ValueStoragenode is not written ValueStorageNode: the "
            "launcher would ignore the line\n"
            "  a key of this section is written ValueStorageNode (ValueStorageNode)\n");
}

TEST(CmxKeys, MachinesInTheTaskManagerAreNoUnknownKeys) {
  const auto told = [](const char* place, const char* key) {
    return "warning cmx-key-section " + std::string(place) + ": " + key +
           " is a key of REMOTE_MACHINES, not of TASKMANAGER: the launcher would ignore the line\n"
           "  move it into REMOTE_MACHINES (REMOTE_MACHINES)\n";
  };
  EXPECT_EQ(FoundInShort(Local("</TASKMANAGER>\n",
                               std::string(kMachineBlock) + kWeightingBlock + "</TASKMANAGER>\n")),
            told("5:1", "ValueMachineSetting") + told("8:1", "ValueMachineWeighting"));
}

TEST(CmxKeys, NumbersWithoutABlockAreUnknownKeys) {
  EXPECT_EQ(FoundInShort(Local("</TASKMANAGER>\n", "1 = NODE1\t2\n</TASKMANAGER>\n")),
            "note cmx-unknown-key 5:1: 1 is no key of TASKMANAGER: the launcher would ignore the "
            "line\n"
            "  leave the line out\n");
}

TEST(CmxKeys, AKeyOutsideItsSectionIsIgnored) {
  EXPECT_EQ(Found("IDTaskMode = 0\n" + Local("IDTaskMode = 0\n", "")),
            "Sample03.cmx:1:1: error: IDTaskMode stands outside TASKMANAGER: the launcher would "
            "ignore the line and run distributed [cmx-key-section]\n"
            "    1 | IDTaskMode = 0\n"
            "      | ^~~~~~~~~~ help: move it into TASKMANAGER\n");
}

std::string Cooling(const std::string& section, const std::string& flag) {
  return Local() + "<" + section + ">\nFlag3DSolidCoolingChannel = " + flag + "\n</" + section +
         ">\n";
}

TEST(CmxKeys, TheCoolingFlagInASectionThatIsNone) {
  EXPECT_EQ(FoundInShort(Cooling("SOLID_COOLING", "1"), SolverClass::Cool),
            "error cmx-key-section 7:1: Flag3DSolidCoolingChannel stands outside SOLID_COOL: the "
            "launcher would ignore the line and not run the flow solver first\n"
            "  move it into SOLID_COOL\n");
  EXPECT_EQ(FoundInShort(Cooling("SOLID_COOLING", "0"), SolverClass::Cool), "");
  EXPECT_EQ(FoundInShort(Cooling("SOLID_COOLING", "1")), "");
}

TEST(CmxKeys, TheCoolingFlagInAMisspeltSectionIsSaidOnce) {
  EXPECT_EQ(FoundInShort(Cooling("Solid_Cool", "1"), SolverClass::Cool),
            "error cmx-tag 6:1: <Solid_Cool> is not the tag <SOLID_COOL>: the launcher would see "
            "no such section\n"
            "  the tag is written <SOLID_COOL>, alone on its line (<SOLID_COOL>)\n");
}

TEST(CmxKeys, AForeignSectionMayUseTheSameKey) {
  EXPECT_EQ(Found(Local() + "<MESH>\nValueNoTask=99\n</MESH>\n"), "");
}

TEST(CmxKeys, TwoValuesOfAKey) {
  EXPECT_EQ(Found(Distributed("<TASKMANAGER>", "<TASKMANAGER>\nIDTaskMode = 0")),
            "Sample03.cmx:3:1: error: IDTaskMode is set to 0 in line 2 and to 1 here: the launcher "
            "would let the last value count [cmx-key-twice]\n"
            "    3 | IDTaskMode = 1\n"
            "      | ^~~~~~~~~~~~~~ help: it stands once\n");
}

TEST(CmxKeys, TheSameValueTwiceIsInOrder) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = 0\nIDTaskMode = 0")), "");
}

TEST(CmxKeys, AMissingTaskModeMeansDistributed) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0\n", "")),
            "Sample03.cmx:1:1: error: TASKMANAGER holds no IDTaskMode: the run would be "
            "distributed [cmx-key-missing]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the key is written into its section\n");
}

TEST(CmxKeys, AMissingTaskModeInALineThatNothingReads) {
  for (const char* line : {"\"IDTaskMode\": 0,", "<IDTaskMode>0</IDTaskMode>",
                           "<IDTaskMode value=\"0\"/>", "- IDTaskMode = 0", "* IDTaskMode 0"}) {
    EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", line)),
              "error cmx-key-missing 2:1: IDTaskMode stands in a line that nothing reads: the run "
              "would be distributed\n"
              "  the line is written IDTaskMode = 0 (IDTaskMode = 0)\n")
        << line;
  }
}

TEST(CmxKeys, AMissingTaskModeInAComment) {
  for (const char* line : {"#IDTaskMode = 0", "// IDTaskMode = 0", ";IDTaskMode = 0",
                           "' IDTaskMode=0", "<!-- IDTaskMode: 0 -->"}) {
    EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", line)),
              "error cmx-key-missing 2:1: IDTaskMode stands in a line that nothing reads: the "
              "run would be distributed\n"
              "  the line is written IDTaskMode = 0 (IDTaskMode = 0)\n")
        << line;
  }
}

TEST(CmxKeys, AMissingTaskModeInACommentWithoutItsNumber) {
  for (const char* line : {"# IDTaskMode", "# IDTaskMode is not 1", "# IDTaskMode: -1",
                           "# IDTaskMode of version 2.1", "# IDTaskMode 0.5"}) {
    EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", line)),
              "error cmx-key-missing 2:1: IDTaskMode stands in a line that nothing reads: the "
              "run would be distributed\n"
              "  the line is written IDTaskMode = NUMBER\n")
        << line;
  }
}

TEST(CmxKeys, ATaskModeMissingBesideOtherWords) {
  for (const char* line : {"# the IDTaskMode is 0", "# IDTaskModes = 0", "# old_IDTaskMode = 0"}) {
    EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", line)),
              "error cmx-key-missing 1:1: TASKMANAGER holds no IDTaskMode: the run would be "
              "distributed\n"
              "  the key is written into its section\n")
        << line;
  }
}

TEST(CmxKeys, ACommentOfATaskModeIsInOrder) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "# IDTaskMode = 1\nIDTaskMode = 0\n; IDTaskMode: 0")),
            "");
}

TEST(CmxKeys, AnUnknownKeyThatMayBeAMissingOne) {
  EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", "ValueTaskMode = 0")),
            "error cmx-key-missing 1:1: TASKMANAGER holds no IDTaskMode: the run would be "
            "distributed\n"
            "  the key is written into its section\n"
            "note cmx-unknown-key 2:1: ValueTaskMode is no key of TASKMANAGER: the launcher would "
            "ignore the line\n"
            "  the line may be meant for IDTaskMode, which is missing\n");
}

TEST(CmxKeys, AMissingMachineCountInAComment) {
  EXPECT_EQ(FoundInShort(Distributed("ValueNoMachine = 2", "; ValueNoMachine = 2")),
            "error cmx-key-missing 5:1: ValueNoMachine stands in a line that nothing reads: the "
            "run would be distributed over no machine\n"
            "  the line is written ValueNoMachine = 2 (ValueNoMachine = 2)\n");
}

TEST(CmxKeys, AMissingLocalTaskCountMeansSharedMemory) {
  EXPECT_EQ(Found(Local("ValueLocalNoTask = 1\n", "")),
            "Sample03.cmx:1:1: warning: TASKMANAGER holds no ValueLocalNoTask: the run would be "
            "shared-memory parallel [cmx-key-missing]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the key is written into its section\n");
}

TEST(CmxKeys, AColonForAnEqualsSign) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode: 0")),
            "Sample03.cmx:2:1: error: IDTaskMode is followed by : and not by =: the launcher would "
            "ignore the line and run distributed [cmx-separator]\n"
            "    2 | IDTaskMode: 0\n"
            "      | ^~~~~~~~~~~~~ help: the line is written IDTaskMode = 0\n");
}

TEST(CmxKeys, ABlockWithAColonIsSaidOnce) {
  EXPECT_EQ(
      Found(Distributed("ValueMachineSetting = host, tasks", "ValueMachineSetting: host")),
      "Sample03.cmx:9:1: error: ValueMachineSetting is followed by : and not by =: the launcher "
      "would ignore the line or take the rest into the value [cmx-separator]\n"
      "    9 | ValueMachineSetting: host\n"
      "      | ^~~~~~~~~~~~~~~~~~~~~~~~~ help: the line is written ValueMachineSetting = host\n");
}

TEST(CmxKeys, AColonWithinAValueIsInOrder) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "Version = 1:0\n</TASKMANAGER>")), "");
}

TEST(CmxKeys, ABlankForAnEqualsSign) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode 0")),
            "Sample03.cmx:2:1: error: no = stands between IDTaskMode and its value: the launcher "
            "would ignore the line and run distributed [cmx-separator]\n"
            "    2 | IDTaskMode 0\n"
            "      | ^~~~~~~~~~~~ help: the line is written IDTaskMode = 0\n");
}

TEST(CmxKeys, AColonBeforeAnEqualsSign) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode := 0")),
            "Sample03.cmx:2:1: error: IDTaskMode is followed by := and not by =: the launcher "
            "would ignore the line and run distributed [cmx-separator]\n"
            "    2 | IDTaskMode := 0\n"
            "      | ^~~~~~~~~~~~ help: the line is written IDTaskMode = 0\n");
}

TEST(CmxKeys, TwoEqualsSigns) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode == 0")),
            "Sample03.cmx:2:13: error: two separators stand between IDTaskMode and its value: the "
            "value is not 0 and the run would be distributed [cmx-separator]\n"
            "    2 | IDTaskMode == 0\n"
            "      |             ^ help: the value is written 0\n");
}

TEST(CmxKeys, AKeyWithoutAValue) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode")),
            "Sample03.cmx:2:1: error: IDTaskMode stands without =: the value is not 0 and the run "
            "would be distributed [cmx-no-equals]\n"
            "    2 | IDTaskMode\n"
            "      | ^~~~~~~~~~ help: key and value are separated by =\n");
}

}  // namespace
}  // namespace qvx::runcheck
