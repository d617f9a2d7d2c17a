// Values of the CMX file that are not what they look like, in the task manager's section above all.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxValues, ASerialRunInOrder) { EXPECT_EQ(Found(Local()), ""); }

TEST(CmxValues, ASharedMemoryRunInOrder) { EXPECT_EQ(Found(LocalTasks("4", "4")), ""); }

TEST(CmxValues, ABlankBehindTheTaskModeMeansDistributed) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = 0 ")),
            "Sample03.cmx:2:15: error: 1 blank stands behind the value of IDTaskMode: the value is "
            "not 0 and the run would be distributed [cmx-trailing-blank]\n"
            "    2 | IDTaskMode = 0 \n"
            "      |               ^ help: the value is written 0\n");
}

TEST(CmxValues, ANoBreakSpaceBehindAValue) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = 0\240")),
            "Sample03.cmx:2:15: error: 1 invisible character stands behind the value of "
            "IDTaskMode: the value is not 0 and the run would be distributed [cmx-trailing-blank]\n"
            "    2 | IDTaskMode = 0\240\n"
            "      |               ^ help: the value is written 0\n");
}

TEST(CmxValues, InvisibleCharactersOfUtf8BehindAValue) {
  const auto told = [](const char* what) {
    return std::string("error cmx-trailing-blank 2:15: ") + what +
           " behind the value of IDTaskMode: the value is not 0 and the run would be distributed\n"
           "  the value is written 0 (0)\n";
  };
  EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", "IDTaskMode = 0\302\240")),
            told("1 invisible character stands"));
  EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", "IDTaskMode = 0\342\200\213\302\240")),
            told("2 invisible characters stand"));
}

TEST(CmxValues, InvisibleCharactersOfUtf8BeforeAValue) {
  for (const char* character : {"\302\240", "\342\200\213", "\357\273\277"}) {
    EXPECT_EQ(
        FoundInShort(Local("IDTaskMode = 0", std::string("IDTaskMode = ") + character + "0")),
        "error cmx-leading-tab 2:14: an invisible character stands before 0: the value is not 0 "
        "and the run would be distributed\n"
        "  the value is written 0 (0)\n");
  }
}

TEST(CmxValues, ATabBehindTheLocalTaskCount) {
  EXPECT_EQ(Found(Local("ValueLocalNoTask = 1", "ValueLocalNoTask = 1\t")),
            "Sample03.cmx:4:21: warning: 1 tab stands behind the value of ValueLocalNoTask "
            "[cmx-trailing-blank]\n"
            "    4 | ValueLocalNoTask = 1\t\n"
            "      |                     ^ help: the value is written 1\n");
}

TEST(CmxValues, ABlankBehindTheStorageNode) {
  EXPECT_EQ(
      Found(Distributed("</REMOTE_MACHINES>", "ValueStorageNode = NODE1 \n</REMOTE_MACHINES>")),
      "Sample03.cmx:15:25: error: 1 blank stands behind the value of ValueStorageNode: the "
      "launcher would take it as part of the value [cmx-trailing-blank]\n"
      "   15 | ValueStorageNode = NODE1 \n"
      "      |                         ^ help: the value is written NODE1\n");
}

TEST(CmxValues, ABlankBehindAValueThatIsOnlyShownIsInOrder) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>\nVersion = 1.0 ")), "");
}

TEST(CmxValues, ATabBeforeAValue) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode =\t0")),
            "Sample03.cmx:2:13: error: a tab stands before 0: the value is not 0 and the run would "
            "be distributed [cmx-leading-tab]\n"
            "    2 | IDTaskMode =\t0\n"
            "      |             ^ help: the value is written 0\n");
}

TEST(CmxValues, BlanksBeforeAValueAreInOrder) {
  EXPECT_EQ(Found(Changed(Local(" = 1", " =1"), "= 0", "=    0")), "");
}

TEST(CmxValues, ACommentBehindAValue) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = 0 ; local")),
            "Sample03.cmx:2:16: error: a comment stands behind the value of IDTaskMode: the value "
            "is not 0 and the run would be distributed [cmx-comment]\n"
            "    2 | IDTaskMode = 0 ; local\n"
            "      |                ^~~~~~~ help: the value is written 0\n");
}

TEST(CmxValues, AnXmlCommentBehindAValue) {
  EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", "IDTaskMode = 0 <!-- local -->")),
            "error cmx-comment 2:16: a comment stands behind the value of IDTaskMode: the value is "
            "not 0 and the run would be distributed\n"
            "  the value is written 0 (0)\n");
}

TEST(CmxValues, ASemicolonWithinAPathIsInOrder) {
  EXPECT_EQ(Found(Distributed("ValueParallelWorkingFolder = C:\\Projects",
                              "ValueParallelWorkingFolder = C:\\Pro;jects#1")),
            "");
}

TEST(CmxValues, QuotationMarksAroundAValue) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = \"0\"")),
            "Sample03.cmx:2:14: error: the value of IDTaskMode stands in quotation marks: the "
            "value is not 0 and the run would be distributed [cmx-quoted-value]\n"
            "    2 | IDTaskMode = \"0\"\n"
            "      |              ^~~ help: the value is written 0\n");
}

TEST(CmxValues, QuotationMarksAroundTheShare) {
  EXPECT_EQ(
      Found(Distributed("ValueShareFolderName = Projects", "ValueShareFolderName = \"Projects\"")),
      "Sample03.cmx:6:24: error: the value of ValueShareFolderName stands in quotation marks: the "
      "launcher would take them as part of the value [cmx-quoted-value]\n"
      "    6 | ValueShareFolderName = \"Projects\"\n"
      "      |                        ^~~~~~~~~~ help: the value is written Projects\n");
}

TEST(CmxValues, QuotationMarksAroundAValueThatIsOnlyShownAreInOrder) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "Version = \"1.0\"\n</TASKMANAGER>")), "");
}

TEST(CmxValues, ATaskModeOfTwoZeros) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = 00")),
            "Sample03.cmx:2:14: error: IDTaskMode is 00, neither 0 nor 1: the value is not 0 and "
            "the run would be distributed [cmx-mode]\n"
            "    2 | IDTaskMode = 00\n"
            "      |              ^~ help: a run on this machine is written 0\n");
}

TEST(CmxValues, ATaskModeThatIsAWord) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = local")),
            "Sample03.cmx:2:14: error: IDTaskMode is local, neither 0 nor 1: the value is not 0 "
            "and the run would be distributed [cmx-mode]\n"
            "    2 | IDTaskMode = local\n"
            "      |              ^~~~~ help: a run on this machine is written 0\n");
}

TEST(CmxValues, ATaskModeOfTwo) {
  EXPECT_EQ(Found(Distributed("IDTaskMode = 1", "IDTaskMode = 2")),
            "Sample03.cmx:2:14: warning: IDTaskMode is 2, neither 0 nor 1: the run would be "
            "distributed, as with 1 [cmx-mode]\n"
            "    2 | IDTaskMode = 2\n"
            "      |              ^ help: 0 is this machine, 1 is several\n");
}

TEST(CmxValues, AnEmptyTaskMode) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode =")),
            "Sample03.cmx:2:13: error: IDTaskMode is empty, neither 0 nor 1: the value is not 0 "
            "and the run would be distributed [cmx-mode]\n"
            "    2 | IDTaskMode =\n"
            "      |             ^ help: a run on this machine is written 0\n");
}

TEST(CmxValues, ALocalTaskCountWithALeadingZero) {
  EXPECT_EQ(Found(Local("ValueLocalNoTask = 1", "ValueLocalNoTask = 01")),
            "Sample03.cmx:4:20: warning: ValueLocalNoTask is 01, no plain number above 0: the "
            "launcher would not read 1 and run shared-memory parallel [cmx-number]\n"
            "    4 | ValueLocalNoTask = 01\n"
            "      |                    ^~ help: the value is written 1\n");
}

TEST(CmxValues, NoTasks) {
  EXPECT_EQ(Found(LocalTasks("0", "4")),
            "Sample03.cmx:3:15: error: ValueNoTask is 0, no number above 0: the MPI process "
            "launcher would be asked for no process [task-count]\n"
            "    3 | ValueNoTask = 0\n"
            "      |               ^ help: ValueNoTask is 1 or more\n");
}

TEST(CmxValues, TasksThatAreText) {
  EXPECT_EQ(Found(LocalTasks("four", "4")),
            "Sample03.cmx:3:15: error: ValueNoTask is four, no number above 0: the MPI process "
            "launcher would be asked for no process [task-count]\n"
            "    3 | ValueNoTask = four\n"
            "      |               ^~~~ help: ValueNoTask is 1 or more\n");
}

TEST(CmxValues, ATaskCountBesideAnotherSlipOfALocalRun) {
  EXPECT_EQ(Found(Changed(LocalTasks("-3", "2"), "IDTaskMode = 0", "IDTaskMode = 0 # local")),
            "Sample03.cmx:2:16: error: a comment stands behind the value of IDTaskMode: the value "
            "is not 0 and the run would be distributed [cmx-comment]\n"
            "    2 | IDTaskMode = 0 # local\n"
            "      |                ^~~~~~~ help: the value is written 0\n"
            "Sample03.cmx:3:15: error: ValueNoTask is -3, no number above 0: the MPI process "
            "launcher would be asked for no process [task-count]\n"
            "    3 | ValueNoTask = -3\n"
            "      |               ^~ help: ValueNoTask is 1 or more\n");
}

TEST(CmxValues, AMissingTaskCount) {
  EXPECT_EQ(Found(Local("ValueNoTask = 1\nValueLocalNoTask = 1", "ValueLocalNoTask = 4")),
            "Sample03.cmx:1:1: error: TASKMANAGER holds no ValueNoTask: the MPI process launcher "
            "would be asked for no process [task-count]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: ValueNoTask is 1 or more\n");
}

TEST(CmxValues, ASerialRunNeedsNoTaskCount) {
  EXPECT_EQ(Found(Local("ValueNoTask = 1\n", "")), "");
}

TEST(CmxValues, SeveralTasksInASerialRunAreANote) {
  EXPECT_EQ(Found(Local("ValueNoTask = 1", "ValueNoTask = 4")),
            "Sample03.cmx:3:15: note: ValueNoTask is 4 and ValueLocalNoTask is 1 [tasks-differ]\n"
            "    3 | ValueNoTask = 4\n"
            "      |               ^ help: ValueLocalNoTask holds the number of tasks too\n");
}

TEST(CmxValues, OneTaskInASharedMemoryRunIsANote) {
  EXPECT_EQ(Found(LocalTasks("1", "4")),
            "Sample03.cmx:3:15: note: ValueNoTask is 1 and ValueLocalNoTask is 4 [tasks-differ]\n"
            "    3 | ValueNoTask = 1\n"
            "      |               ^ help: ValueNoTask holds the number of tasks too\n");
}

TEST(CmxValues, ACoolingFlagOfTwo) {
  EXPECT_EQ(Found(Local() + "<SOLID_COOL>\nFlag3DSolidCoolingChannel = 2\n</SOLID_COOL>\n",
                  SolverClass::Cool),
            "Sample03.cmx:7:29: warning: Flag3DSolidCoolingChannel is 2, neither 0 nor 1: the flow "
            "solver would not run first [cmx-number]\n"
            "    7 | Flag3DSolidCoolingChannel = 2\n"
            "      |                             ^ help: the value is 0 or 1\n");
}

TEST(CmxValues, ACoolingFlagWithBlanksIsInOrder) {
  EXPECT_EQ(Found(Local() + "<SOLID_COOL>\nFlag3DSolidCoolingChannel =  1\n</SOLID_COOL>\n",
                  SolverClass::Cool),
            "");
}

TEST(CmxValues, APreviousShotThatIsNoNumber) {
  EXPECT_EQ(Found(Local() + "<SOLID_MCM>\n"
                            "FlagPrevShot = 1\n"
                            "ValueShotRunID = first\n"
                            "ValueShotProjectPath = D:\\Shots\n"
                            "ValueShotProjectName = First\n"
                            "</SOLID_MCM>\n",
                  SolverClass::Warp),
            "Sample03.cmx:8:18: warning: ValueShotRunID is first, no number: the launcher would "
            "read it as 0 [cmx-number]\n"
            "    8 | ValueShotRunID = first\n"
            "      |                  ^~~~~ help: the value is a plain decimal number\n");
}

TEST(CmxValues, LettersOfAnotherCaseInAValueAreInOrder) {
  EXPECT_EQ(Found(Changed(Distributed("= NODE1\n", "= node1\n"), "= NODE1\t", "= Node1\t")), "");
}

TEST(CmxValues, AModeOfZeroWithMoreBehindItIsMeantLocally) {
  for (const char* mode : {"0 local", "0/1", "0 = local", "0, ValueNoTask = 1", "{0}"}) {
    EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", std::string("IDTaskMode = ") + mode)),
              std::string("error cmx-mode 2:14: IDTaskMode is ") + mode +
                  ", neither 0 nor 1: the value is not 0 and the run would be distributed\n"
                  "  a run on this machine is written 0 (0)\n");
  }
}

TEST(CmxValues, AModeOfTenIsNotMeantLocally) {
  EXPECT_EQ(FoundInShort(Distributed("IDTaskMode = 1", "IDTaskMode = 10")),
            "warning cmx-mode 2:14: IDTaskMode is 10, neither 0 nor 1: the run would be "
            "distributed, as with 1\n"
            "  0 is this machine, 1 is several\n");
}

TEST(CmxValues, ALocalModeThatIsOverwrittenNeedsNoMachines) {
  EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", "IDTaskMode = 0\nIDTaskMode = 1")),
            "error cmx-key-twice 3:1: IDTaskMode is set to 0 in line 2 and to 1 here: the launcher "
            "would let the last value count\n"
            "  it stands once\n");
}

TEST(CmxValues, ADistributedModeAloneNeedsMachines) {
  EXPECT_EQ(FoundInShort(Local("IDTaskMode = 0", "IDTaskMode = 1")),
            "error cmx-section-missing: Sample03.cmx holds no <REMOTE_MACHINES>: the run would be "
            "distributed over no machine\n"
            "  the section is written into the CMX file\n");
}

TEST(CmxValues, WhatStandsAroundTheTasksReachesTheProcessLauncher) {
  EXPECT_EQ(FoundInShort(LocalTasks("2 # two", "2")),
            "error cmx-comment 3:17: a comment stands behind the value of ValueNoTask: the MPI "
            "process launcher would be given it as it stands\n"
            "  the value is written 2 (2)\n");
  EXPECT_EQ(FoundInShort(LocalTasks("\"2\"", "2")),
            "error cmx-quoted-value 3:15: the value of ValueNoTask stands in quotation marks: the "
            "MPI process launcher would be given it as it stands\n"
            "  the value is written 2 (2)\n");
}

TEST(CmxValues, ABlankBehindTheTasksReachesNobody) {
  EXPECT_EQ(FoundInShort(LocalTasks("2 ", "2")),
            "warning cmx-trailing-blank 3:16: 1 blank stands behind the value of ValueNoTask: the "
            "launcher would take it as part of the value\n"
            "  the value is written 2 (2)\n");
}

constexpr const char* kCooling = "<SOLID_COOL>\nFlag3DSolidCoolingChannel = 1\n</SOLID_COOL>\n";

TEST(CmxValues, ACoolingFlagInAWord) {
  EXPECT_EQ(
      FoundInShort(Changed(Local() + kCooling, "Channel = 1", "Channel = true"), SolverClass::Cool),
      "error cmx-number 7:29: Flag3DSolidCoolingChannel is true, neither 0 nor 1: the flow "
      "solver would not run first\n"
      "  the value is written 1 (1)\n");
}

TEST(CmxValues, ACoolingFlagThatMeansNoIsNoError) {
  EXPECT_EQ(
      FoundInShort(Changed(Local() + kCooling, "Channel = 1", "Channel = no"), SolverClass::Cool),
      "warning cmx-number 7:29: Flag3DSolidCoolingChannel is no, neither 0 nor 1: the flow "
      "solver would not run first\n"
      "  the value is 0 or 1\n");
}

TEST(CmxValues, ACoolingFlagInTheWrongSectionLosesThePass) {
  const std::string inTasks =
      Local("ValueNoTask = 1", "Flag3DSolidCoolingChannel = 1\nValueNoTask = 1");
  EXPECT_EQ(FoundInShort(inTasks, SolverClass::Cool),
            "error cmx-key-section 3:1: Flag3DSolidCoolingChannel is a key of SOLID_COOL, not of "
            "TASKMANAGER: the launcher would ignore the line and not run the flow solver first\n"
            "  move it into SOLID_COOL (SOLID_COOL)\n");
  EXPECT_EQ(FoundInShort(inTasks + kCooling, SolverClass::Cool),
            "warning cmx-key-section 3:1: Flag3DSolidCoolingChannel is a key of SOLID_COOL, not of "
            "TASKMANAGER: the launcher would ignore the line\n"
            "  move it into SOLID_COOL (SOLID_COOL)\n");
}

}  // namespace
}  // namespace qvx::runcheck
