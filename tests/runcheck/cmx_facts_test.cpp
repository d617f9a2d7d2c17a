// What the rules over the CMX file say would follow from a mistake: it has to be what the launcher
// then does. And mistakes that have to be said once, or not at all.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

using namespace std::string_literals;

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

TEST(CmxFacts, AZeroByteBehindAValueCutsNothing) {
  EXPECT_EQ(
      Said(Local("IDTaskMode = 0", "IDTaskMode = 0\0"s)),
      "warning cmx-zero-byte: the line holds a zero byte: the launcher would read the line up "
      "to it\n");
  EXPECT_EQ(Said(Local("IDTaskMode = 0", "IDTaskMode = 0\0001"s)),
            "error cmx-zero-byte: the line holds a zero byte: the launcher would read the line up "
            "to it\n");
}

TEST(CmxFacts, TasksThatAreNoPlainNumberAreHandedOn) {
  EXPECT_EQ(Said(LocalTasks("2.0", "2")),
            "error task-count: ValueNoTask is 2.0, no plain number: the MPI process launcher would "
            "be given it as it stands\n");
  EXPECT_EQ(
      Said(LocalTasks("-1", "2")),
      "error task-count: ValueNoTask is -1, no number above 0: the MPI process launcher would "
      "be asked for no process\n");
  EXPECT_EQ(Said(LocalTasks("02", "2")), "");
}

TEST(CmxFacts, TasksTooLongForTheirFieldAreSaidOnce) {
  EXPECT_EQ(Said(LocalTasks(std::string(32, '2'), "2")),
            "error text-too-long: ValueNoTask is too long: width 32, length 32: the launcher would "
            "end with -2\n");
}

TEST(CmxFacts, AMachineCountWithABlankIsReadAsItStands) {
  EXPECT_EQ(Said(Distributed("ValueNoMachine = 2", "ValueNoMachine = 2 ")),
            "warning cmx-number: ValueNoMachine is 2 , no plain number: the launcher would read it "
            "as 2 -> 2\n");
  EXPECT_EQ(Said(Distributed("ValueNoMachine = 2", "ValueNoMachine = 02")), "");
}

TEST(CmxFacts, HalfATaskIsHandedOn) {
  EXPECT_EQ(Said(Distributed("NODE2\t1", "NODE2\t1.5")),
            "error machine-tasks: the tasks of NODE2 are 1.5, no plain number: the MPI process "
            "launcher would be given it as it stands -> 1\n");
  EXPECT_EQ(Said(Distributed("NODE2\t1", "NODE2\t0.5")),
            "error machine-tasks: NODE2 has 0.5 tasks: no process would run there\n");
}

TEST(CmxFacts, TabsAroundAWeightingDoNoHarm) {
  EXPECT_EQ(Said(Distributed("= 0.6", "=\t0.6\t")), "");
  EXPECT_EQ(Said(Distributed("= 0.6", "=\tx0.6")),
            "warning weighting-value: x0.6 is no weighting: the launcher would read it as 0\n");
}

TEST(CmxFacts, TheLastLineOfAnOpenSectionIsNoThirdWeighting) {
  EXPECT_EQ(Said(Distributed("</REMOTE_MACHINES>\n", "")),
            "warning cmx-section-open: REMOTE_MACHINES is never closed: the launcher would read on "
            "to the end of the file -> </REMOTE_MACHINES>\n");
  EXPECT_EQ(Said(Distributed("2 = 0.4\n", "2 = 0.4\n2 = 0.4\n")),
            "warning weighting-count: ValueNoMachine is 2 and the weighting block has 3 lines: the "
            "launcher would drop 1 line of it -> 3\n");
}

TEST(CmxFacts, BothTagsInAnotherCaseAreSaidOnce) {
  EXPECT_EQ(Said(Local("TASKMANAGER", "TaskManager")),
            "error cmx-tag: <TaskManager> is not the tag <TASKMANAGER>: the launcher would see no "
            "such section and run distributed -> <TASKMANAGER>\n");
  EXPECT_EQ(
      Said(Local("/TASKMANAGER", "/TaskManager")),
      "warning cmx-tag: </TaskManager> is not the tag </TASKMANAGER>: the launcher would read "
      "on to the end of the file -> </TASKMANAGER>\n");
}

TEST(CmxFacts, ACtrlZInASectionIsSaidOnce) {
  EXPECT_EQ(Said(Local("IDTaskMode", "\032IDTaskMode")),
            "error cmx-control-z: a Ctrl-Z (1A) stands before the end of the file: the launcher "
            "would read the file up to it\n");
}

TEST(CmxFacts, TheModeAmongTheMachinesIsToldThere) {
  EXPECT_EQ(Said(Local("IDTaskMode = 0\n", "") +
                 "<REMOTE_MACHINES>\nIDTaskMode = 0\n</REMOTE_MACHINES>\n"),
            "error cmx-key-section: IDTaskMode stands outside TASKMANAGER: the launcher would "
            "ignore the line and run distributed\n");
}

TEST(CmxFacts, SpacesBehindTheCoolingFlagDoNotCount) {
  const auto file = [](const std::string& flag) {
    return Local() + "<SOLID_COOL>\nFlag3DSolidCoolingChannel = " + flag + "\n</SOLID_COOL>\n";
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
