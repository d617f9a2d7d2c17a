// Everyday mistakes in a CMX file that is written by hand: each is said once, as grave as what the
// launcher would make of it, and its near miss is not.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "runcheck/call_facts.h"
#include "runcheck/share_rules.h"
#include "support/trailing_backslash.h"
#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

constexpr const char* kCooling = "<SOLID_COOL>\nFlag3DSolidCoolingChannel = 1\n</SOLID_COOL>\n";
/// Two lines for each finding: severity, code and place, what is wrong and what follows; what to
/// do.
std::string Said(const std::string& file, SolverClass solverClass = SolverClass::Flow) {
  std::string text;
  const CmxFacts facts({"Sample03.cmx", file}, solverClass);
  for (const Diagnostic& diagnostic : CheckCmxFile(facts)) {
    text += std::string(NameOf(diagnostic.severity)) + " " + std::string(diagnostic.code);
    if (diagnostic.range) {
      const Position& start = diagnostic.range->start;
      text += " " + std::to_string(start.line) + ":" + std::to_string(start.column);
    }
    text += ": " + diagnostic.summary + ": " + diagnostic.consequence + "\n  " + diagnostic.help;
    if (diagnostic.suggestion) text += " (" + *diagnostic.suggestion + ")";
    text += "\n";
  }
  return text;
}

TEST(CmxMistakes, AnOpeningTagWithASlashAtItsEnd) {
  EXPECT_EQ(
      Said(Local("<TASKMANAGER>", "<TASKMANAGER/>")),
      "error cmx-tag 1:1: <TASKMANAGER/> is not the tag <TASKMANAGER>: the launcher would see "
      "no such section and run distributed\n"
      "  the tag is written <TASKMANAGER>, alone on its line (<TASKMANAGER>)\n");
}

TEST(CmxMistakes, AClosingTagWithTheSlashAtItsEnd) {
  EXPECT_EQ(Said(Local("</TASKMANAGER>", "<TASKMANAGER/>")),
            "warning cmx-tag 5:1: <TASKMANAGER/> is not the tag </TASKMANAGER>: the launcher would "
            "read on to the end of the file\n"
            "  the tag is written </TASKMANAGER>, alone on its line (</TASKMANAGER>)\n");
}

TEST(CmxMistakes, AModeOfZeroWithMoreBehindItIsMeantLocally) {
  for (const char* mode :
       {"0 local", "0/1", "0 = local", "0, ValueNoTask = 1", "{0}", "\302\2400"}) {
    EXPECT_EQ(Said(Local("IDTaskMode = 0", std::string("IDTaskMode = ") + mode)),
              std::string("error cmx-mode 2:14: IDTaskMode is ") + mode +
                  ", neither 0 nor 1: the value is not 0 and the run would be distributed\n"
                  "  a run on this machine is written 0 (0)\n");
  }
}

TEST(CmxMistakes, AModeOfTenIsNotMeantLocally) {
  EXPECT_EQ(Said(Distributed("IDTaskMode = 1", "IDTaskMode = 10")),
            "warning cmx-mode 2:14: IDTaskMode is 10, neither 0 nor 1: the run would be "
            "distributed, as with 1\n"
            "  0 is this machine, 1 is several\n");
}

TEST(CmxMistakes, ALocalModeThatIsOverwrittenNeedsNoMachines) {
  EXPECT_EQ(Said(Local("IDTaskMode = 0", "IDTaskMode = 0\nIDTaskMode = 1")),
            "error cmx-key-twice 3:1: IDTaskMode is set to 0 in line 2 and to 1 here: the launcher "
            "would let the last value count\n"
            "  it stands once\n");
}

TEST(CmxMistakes, ADistributedModeAloneNeedsMachines) {
  EXPECT_EQ(Said(Local("IDTaskMode = 0", "IDTaskMode = 1")),
            "error cmx-section-missing: Sample03.cmx holds no <REMOTE_MACHINES>: the run would be "
            "distributed over no machine\n"
            "  the section is written into the CMX file\n");
}

TEST(CmxMistakes, ASectionWithinAnotherIsReadAllTheSame) {
  EXPECT_EQ(Said(Distributed("</TASKMANAGER>\n", "") + "</TASKMANAGER>\n"), "");
}

TEST(CmxMistakes, KeysOfASectionThatIsNotClosedWithinAnother) {
  EXPECT_EQ(
      Said(Local("ValueNoTask = 1\n", "<OTHER>\nValueNoTasks = 1\n")),
      "warning cmx-unknown-key 4:1: ValueNoTasks is no key of TASKMANAGER: the launcher would "
      "ignore the line\n"
      "  a key of this section is written ValueNoTask (ValueNoTask)\n");
}

TEST(CmxMistakes, ACoolingFlagInAWord) {
  EXPECT_EQ(Said(Changed(Local() + kCooling, "Channel = 1", "Channel = true"), SolverClass::Cool),
            "error cmx-number 7:29: Flag3DSolidCoolingChannel is true, neither 0 nor 1: the flow "
            "solver would not run first\n"
            "  the value is written 1 (1)\n");
}

TEST(CmxMistakes, ACoolingFlagThatMeansNoIsNoError) {
  EXPECT_EQ(Said(Changed(Local() + kCooling, "Channel = 1", "Channel = no"), SolverClass::Cool),
            "warning cmx-number 7:29: Flag3DSolidCoolingChannel is no, neither 0 nor 1: the flow "
            "solver would not run first\n"
            "  the value is 0 or 1\n");
}

TEST(CmxMistakes, ACoolingFlagInTheWrongSectionLosesThePass) {
  const std::string inTasks =
      Local("ValueNoTask = 1", "Flag3DSolidCoolingChannel = 1\nValueNoTask = 1");
  EXPECT_EQ(Said(inTasks, SolverClass::Cool),
            "error cmx-key-section 3:1: Flag3DSolidCoolingChannel is a key of SOLID_COOL, not of "
            "TASKMANAGER: the launcher would ignore the line\n"
            "  move it into SOLID_COOL (SOLID_COOL)\n");
  EXPECT_EQ(Said(inTasks + kCooling, SolverClass::Cool),
            "warning cmx-key-section 3:1: Flag3DSolidCoolingChannel is a key of SOLID_COOL, not of "
            "TASKMANAGER: the launcher would ignore the line\n"
            "  move it into SOLID_COOL (SOLID_COOL)\n");
}

TEST(CmxMistakes, ACountOfMachinesGoesIntoTheCommandLineAsItStands) {
  EXPECT_EQ(
      Said(Distributed("Machine = 2", "Machine = 2 ; both")),
      "error machine-count 5:18: ValueNoMachine is 2 ; both, no plain number: the MPI process "
      "launcher would be given it as it stands\n"
      "  the value is written 2 (2)\n");
}

TEST(CmxMistakes, ABlankBehindTheCountOfMachinesIsNoError) {
  EXPECT_EQ(
      Said(Distributed("Machine = 2", "Machine = 2 ")),
      "warning cmx-number 5:18: ValueNoMachine is 2 , no plain number: the launcher would read "
      "it as 2\n"
      "  the value is written 2 (2)\n");
}

TEST(CmxMistakes, QuotationMarksAroundAHost) {
  EXPECT_EQ(Said(Distributed("NODE1\t", "\"NODE1\"\t")),
            "warning machine-host 10:5: quotation marks stand around the host name NODE1: the "
            "launcher would hand them on as they stand\n"
            "  the name is written NODE1 (NODE1)\n");
}

TEST(CmxMistakes, BackslashesBeforeAHost) {
  EXPECT_EQ(
      Said(Distributed("NODE1\t", "\\\\NODE1\t")),
      "error machine-host 10:5: \\\\NODE1 is no host name: the MPI process launcher would ask "
      "for another machine\n"
      "  the name is written NODE1 (NODE1)\n");
}

TEST(CmxMistakes, ATabBeforeAHost) {
  EXPECT_EQ(Said(Distributed("= NODE1\t", "= \tNODE1\t")),
            "error machine-host 10:5: a tab stands before the host name NODE1: the MPI process "
            "launcher would ask for another machine\n"
            "  the host name stands first (NODE1)\n");
}

TEST(CmxMistakes, ARemarkBehindTheTasks) {
  EXPECT_EQ(Said(Distributed("NODE1\t2", "NODE1\t2 ; fast")),
            "error machine-tasks 10:5: the tasks of NODE1 are 2 ; fast, no plain number: the MPI "
            "process launcher would be given it as it stands\n"
            "  the tasks are written 2 (2)\n");
}

TEST(CmxMistakes, ARemarkBehindTheTasksAndATab) {
  EXPECT_EQ(Said(Distributed("NODE1\t2", "NODE1\t2\t; fast")), "");
}

TEST(CmxMistakes, AWeightingIsSaidToBeReadAsItIsRead) {
  EXPECT_EQ(
      Said(Distributed("0.6", "0.6;")),
      "warning weighting-value 13:5: 0.6; is no weighting: the launcher would read it as 0.6\n"
      "  the weighting is written 0.6 (0.6)\n");
  EXPECT_EQ(Said(Distributed("0.6", "60%")),
            "warning weighting-value 13:5: 60% is no weighting: the launcher would read it as 60\n"
            "  a weighting is a number such as 0.6\n");
  EXPECT_EQ(Said(Distributed("0.6", "0,6")),
            "warning weighting-value 13:5: 0,6 is no weighting: the launcher would read it as 0\n"
            "  the decimal point is written 0.6 (0.6)\n");
}

TEST(CmxMistakes, AWeightingWithTwoPoints) {
  EXPECT_EQ(Said(Distributed("0.6", "0.6.0")),
            "warning weighting-value 13:5: 0.6.0 is no weighting: the launcher would read it as "
            "0.6\n"
            "  a weighting is a number such as 0.6\n");
}

TEST(CmxMistakes, WeightingsInEveryFormOfANumber) {
  for (const char* weighting : {".6", "6e-1", "+0.6", "0.600", "6.E-1", "0.6 ; big"}) {
    EXPECT_EQ(Said(Distributed("0.6", weighting)), "") << weighting;
  }
}

TEST(CmxMistakes, AMachineOnTheLineThatOpensTheBlock) {
  EXPECT_EQ(
      Said(Distributed("host, tasks\n1 = NODE1", "NODE1")),
      "error machine-line 11:1: ValueMachineWeighting = weight is taken as machine 2 of 2: the "
      "run would go to other machines than listed\n"
      "  the first machine stands in the line after ValueMachineSetting\n");
}

TEST(CmxMistakes, WeightingsWithoutTheLineBeforeThemAreNoMachines) {
  EXPECT_EQ(
      Said(Distributed("ValueMachineWeighting = weight\n", "")),
      "warning weighting-count 5:18: there is no line ValueMachineWeighting: all weights would "
      "be 0\n"
      "  the line ValueMachineWeighting opens the block\n");
}

TEST(CmxMistakes, LastLettersOfOtherCodePagesAreVisible) {
  // The last byte of Greek and Russian names is one of a byte-order mark.
  for (const char* name : {"\xC5\xF1\xE3\xEF", "\xD2\xE8\xEF", "C:\\\xC4\xBF", "C:\\x\xBB"}) {
    EXPECT_EQ(TrimmedOfInvisible(name), name);
  }
}

TEST(CmxMistakes, MarksAndBlanksOfEveryKindAreInvisible) {
  EXPECT_EQ(TrimmedOfInvisible("\xEF\xBB\xBF \t\xA0"
                               "Name\xA0\t \xEF\xBB\xBF"),
            "Name");
  EXPECT_EQ(TrimmedOfInvisible("\xEF\xBB\xBF \t\xA0"), "");
}

TEST(DoubleByte, TheSecondHalfOfALetterIsNeitherBackslashNorInvisible) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  EXPECT_FALSE(LooksLikePath("\x95\\"));
  EXPECT_TRUE(LooksLikePath("\x95\\\\x"));
  EXPECT_FALSE(EndsInSlash("C:\\\x95\\"));
  EXPECT_TRUE(EndsInSlash("C:\\\x95\\\\"));
  EXPECT_EQ(TrimmedOfInvisible("\x8E\xA0 "), "\x8E\xA0");
}

TEST(DoubleByte, TheSecondHalfOfALetterEndsNoName) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  EXPECT_EQ(LastPart("C:\\P\x95\\x"), "P\x95\\x");
  EXPECT_EQ(WithExtension("C:\\a.b\x95\\x"), "C:\\a.b\x95\\x");
  EXPECT_EQ(WithExtension("C:\\a.b\\x\x95\\"), "C:\\a.b\\x\x95\\.exe");
}

TEST(DoubleByte, TheSecondHalfOfALetterIsInOrderInAHostName) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  EXPECT_EQ(Said(Distributed("1 = NODE1", "1 = N\x95\\")), "");
  EXPECT_EQ(Said(Distributed("1 = NODE1", "1 = \\\\N\x95\\")),
            "error machine-host 10:5: \\\\N\x95\\ is no host name: the MPI process launcher would "
            "ask for another machine\n"
            "  the name is written N\x95\\ (N\x95\\)\n");
}

TEST(DoubleByte, TheSecondHalfOfALetterIsInOrderInAShareAndItsNode) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  const CmxFacts facts({"Sample03.cmx", Distributed()}, SolverClass::Flow);
  Prediction prediction;
  prediction.context = std::make_unique<LauncherContext>();
  prediction.isPrepared = true;
  RemoteMachineSettings& settings = prediction.context->remoteMachineSettings;
  std::strcpy(settings.ValueStorageNode, "N\x95\\");
  std::strcpy(settings.ValueShareFolderName, "P\x83|");
  Diagnostics found;
  CheckShares(facts, prediction, found);
  EXPECT_TRUE(found.empty()) << found.front().summary;
  std::strcpy(settings.ValueShareFolderName, "\\P\x95\\");
  CheckShares(facts, prediction, found);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().help, "the share is written P\x95\\");
}

}  // namespace
}  // namespace qvx::runcheck
