// What the rules over the CMX file say would follow from a mistake: it has to be what the launcher
// then does. And mistakes that have to be said once, or not at all.
#include <gtest/gtest.h>

#include <string>

#include "runcheck/cmx_rules.h"

namespace qvx::runcheck {
namespace {

/// A line for each finding: severity, code, what is wrong, what follows, the suggestion.
std::string Said(const std::string& file, SolverClass solverClass = SolverClass::Flow) {
  std::string text;
  const CmxFacts facts({"Sample03.cmx", file}, solverClass);
  for (const Diagnostic& diagnostic : CheckCmxFile(facts)) {
    text += std::string(NameOf(diagnostic.severity)) + " " + std::string(diagnostic.code) + ": " +
            diagnostic.summary + ": " + diagnostic.consequence;
    if (diagnostic.suggestion) text += " -> " + *diagnostic.suggestion;
    text += "\n";
  }
  return text;
}

std::string Local(const std::string& tasks, const std::string& localTasks,
                  const std::string& mode = "0") {
  return "<TASKMANAGER>\nIDTaskMode = " + mode + "\nValueNoTask = " + tasks +
         "\nValueLocalNoTask = " + localTasks + "\n</TASKMANAGER>\n";
}

std::string Distributed(const std::string& count, const std::string& secondTasks,
                        const std::string& firstWeighting, const std::string& end) {
  return "<TASKMANAGER>\nIDTaskMode = 1\n</TASKMANAGER>\n<REMOTE_MACHINES>\nValueNoMachine = " +
         count +
         "\nValueShareFolderName = Projects\nValueParallelWorkingFolder = C:\\Projects\n"
         "ValueLocalHost = NODE1\nValueMachineSetting = host, tasks\n1 = NODE1\t2\n2 = NODE2\t" +
         secondTasks + "\nValueMachineWeighting = weight\n1 =" + firstWeighting + "\n2 = 0.4\n" +
         end;
}

constexpr const char* kEnd = "</REMOTE_MACHINES>\n";

TEST(CmxFacts, AZeroByteBehindAValueCutsNothing) {
  EXPECT_EQ(
      Said(Local("1", "1", std::string("0\0", 2))),
      "warning cmx-zero-byte: the line holds a zero byte: the launcher would read the line up "
      "to it\n");
  EXPECT_EQ(Said(Local("1", "1", std::string("0\0001", 3))),
            "error cmx-zero-byte: the line holds a zero byte: the launcher would read the line up "
            "to it\n");
}

TEST(CmxFacts, TasksThatAreNoPlainNumberAreHandedOn) {
  EXPECT_EQ(Said(Local("2.0", "2")),
            "error task-count: ValueNoTask is 2.0, no plain number: the MPI process launcher would "
            "be given it as it stands\n");
  EXPECT_EQ(
      Said(Local("-1", "2")),
      "error task-count: ValueNoTask is -1, no number above 0: the MPI process launcher would "
      "be asked for no process\n");
  EXPECT_EQ(Said(Local("02", "2")), "");
}

TEST(CmxFacts, TasksTooLongForTheirFieldAreSaidOnce) {
  EXPECT_EQ(Said(Local(std::string(32, '2'), "2")),
            "error text-too-long: ValueNoTask is too long: width 32, length 32: the launcher would "
            "end with -2\n");
}

TEST(CmxFacts, AMachineCountWithABlankIsReadAsItStands) {
  EXPECT_EQ(Said(Distributed("2 ", "1", " 0.6", kEnd)),
            "warning cmx-number: ValueNoMachine is 2 , no plain number: the launcher would read it "
            "as 2 -> 2\n");
  EXPECT_EQ(Said(Distributed("02", "1", " 0.6", kEnd)), "");
}

TEST(CmxFacts, HalfATaskIsHandedOn) {
  EXPECT_EQ(Said(Distributed("2", "1.5", " 0.6", kEnd)),
            "error machine-tasks: the tasks of NODE2 are 1.5, no plain number: the MPI process "
            "launcher would be given it as it stands -> 1\n");
  EXPECT_EQ(Said(Distributed("2", "0.5", " 0.6", kEnd)),
            "error machine-tasks: NODE2 has 0.5 tasks: no process would run there\n");
}

TEST(CmxFacts, TabsAroundAWeightingDoNoHarm) {
  EXPECT_EQ(Said(Distributed("2", "1", "\t0.6\t", kEnd)), "");
  EXPECT_EQ(Said(Distributed("2", "1", "\tx0.6", kEnd)),
            "warning weighting-value: x0.6 is no weighting: the launcher would read it as 0\n");
}

TEST(CmxFacts, TheLastLineOfAnOpenSectionIsNoThirdWeighting) {
  EXPECT_EQ(Said(Distributed("2", "1", " 0.6", "")),
            "warning cmx-section-open: REMOTE_MACHINES is never closed: the launcher would read on "
            "to the end of the file -> </REMOTE_MACHINES>\n");
  EXPECT_EQ(Said(Distributed("2", "1", " 0.6", std::string("2 = 0.4\n") + kEnd)),
            "warning weighting-count: ValueNoMachine is 2 and the weighting block has 3 lines: the "
            "launcher would drop 1 line of it -> 3\n");
}

TEST(CmxFacts, BothTagsInAnotherCaseAreSaidOnce) {
  EXPECT_EQ(Said("<TaskManager>\nIDTaskMode = 0\nValueLocalNoTask = 1\n</TaskManager>\n"),
            "error cmx-tag: <TaskManager> is not the tag <TASKMANAGER>: the launcher would see no "
            "such section and run distributed -> <TASKMANAGER>\n");
  EXPECT_EQ(
      Said("<TASKMANAGER>\nIDTaskMode = 0\nValueLocalNoTask = 1\n</TaskManager>\n"),
      "warning cmx-tag: </TaskManager> is not the tag </TASKMANAGER>: the launcher would read "
      "on to the end of the file -> </TASKMANAGER>\n");
}

TEST(CmxFacts, ACtrlZInASectionIsSaidOnce) {
  EXPECT_EQ(Said("<TASKMANAGER>\n\x1AIDTaskMode = 0\nValueLocalNoTask = 1\n</TASKMANAGER>\n"),
            "error cmx-control-z: a Ctrl-Z (1A) stands before the end of the file: the launcher "
            "would read the file up to it\n");
}

TEST(CmxFacts, TheModeAmongTheMachinesIsToldThere) {
  EXPECT_EQ(Said("<TASKMANAGER>\nValueLocalNoTask = 1\n</TASKMANAGER>\n<REMOTE_MACHINES>\n"
                 "IDTaskMode = 0\n</REMOTE_MACHINES>\n"),
            "error cmx-key-section: IDTaskMode stands outside TASKMANAGER: the launcher would "
            "ignore the line\n");
}

TEST(CmxFacts, SpacesBehindTheCoolingFlagDoNotCount) {
  const auto file = [](const std::string& flag) {
    return Local("1", "1") + "<SOLID_COOL>\nFlag3DSolidCoolingChannel = " + flag +
           "\n</SOLID_COOL>\n";
  };
  EXPECT_EQ(Said(file("1 "), SolverClass::Cool), "");
  EXPECT_EQ(Said(file("2"), SolverClass::Cool),
            "warning cmx-number: Flag3DSolidCoolingChannel is 2, neither 0 nor 1: the flow solver "
            "would not run first\n");
  EXPECT_EQ(Said(file("01"), SolverClass::Cool),
            "warning cmx-number: Flag3DSolidCoolingChannel is 01, neither 0 nor 1: the launcher "
            "would read it as 1 -> 1\n");
}

}  // namespace
}  // namespace qvx::runcheck
