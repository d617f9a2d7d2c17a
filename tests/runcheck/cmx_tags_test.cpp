// Tags of the CMX file that open or close nothing, and sections too many or too few.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxTags, ATagInAnotherLetterCaseOpensNothing) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TaskMANAGER>")),
            "Sample03.cmx:1:1: error: <TaskMANAGER> is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TaskMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, ACoolingTagInAnotherLetterCase) {
  EXPECT_EQ(Found(Local() + "<Solid_Cool>\nFlag3DSolidCoolingChannel = 1\n</SOLID_COOL>\n",
                  SolverClass::Cool),
            "Sample03.cmx:6:1: error: <Solid_Cool> is not the tag <SOLID_COOL>: the launcher would "
            "see no such section [cmx-tag]\n"
            "    6 | <Solid_Cool>\n"
            "      | ^~~~~~~~~~~~ help: the tag is written <SOLID_COOL>, alone on its line\n");
}

TEST(CmxTags, ABlankBehindATagHidesIt) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER> ")),
            "Sample03.cmx:1:1: error: a blank stands beside <TASKMANAGER>: the launcher would see "
            "no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER> \n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, ATabBeforeATagHidesIt) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "\t<TASKMANAGER>")),
            "Sample03.cmx:1:1: error: a tab stands beside <TASKMANAGER>: the launcher would see no "
            "such section and run distributed [cmx-tag]\n"
            "    1 | \t<TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, ANoBreakSpaceBehindATag) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>\240")),
            "Sample03.cmx:1:1: error: an invisible character stands beside <TASKMANAGER>: the "
            "launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER>\240\n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, ATagWithoutItsBracketOpensNothing) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER")),
            "Sample03.cmx:1:1: error: <TASKMANAGER is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER\n"
            "      | ^~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, AMisspeltTagOpensNothing) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANGER>")),
            "Sample03.cmx:1:1: error: <TASKMANGER> is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANGER>\n"
            "      | ^~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, SquareBracketsOpenNothing) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "[TASKMANAGER]")),
            "Sample03.cmx:1:1: error: [TASKMANAGER] is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | [TASKMANAGER]\n"
            "      | ^~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, OtherBracketsOpenNothing) {
  for (const char* tag : {"(TASKMANAGER)", "{TASKMANAGER}"}) {
    EXPECT_EQ(FoundInShort(Local("<TASKMANAGER>", tag)),
              std::string("error cmx-tag 1:1: ") + tag +
                  " is not the tag <TASKMANAGER>: the launcher would see no such section and run "
                  "distributed\n"
                  "  the tag is written <TASKMANAGER>, alone on its line (<TASKMANAGER>)\n");
  }
}

TEST(CmxTags, AClosingTagForTheOpeningOne) {
  EXPECT_EQ(FoundInShort(Local("<TASKMANAGER>", "</TASKMANAGER>")),
            "error cmx-tag 1:1: </TASKMANAGER> is not the tag <TASKMANAGER>: the launcher would "
            "see no such section and run distributed\n"
            "  the tag is written <TASKMANAGER>, alone on its line (<TASKMANAGER>)\n");
  EXPECT_EQ(FoundInShort(Distributed("<REMOTE_MACHINES>", "</REMOTE_MACHINES>")),
            "error cmx-tag 4:1: </REMOTE_MACHINES> is not the tag <REMOTE_MACHINES>: the launcher "
            "would see no such section\n"
            "  the tag is written <REMOTE_MACHINES>, alone on its line (<REMOTE_MACHINES>)\n");
}

TEST(CmxTags, AClosingTagAloneIsNoOpeningOne) {
  EXPECT_EQ(FoundInShort("</TASKMANAGER>\n"),
            "error cmx-section-missing: Sample03.cmx holds no <TASKMANAGER>: the run would be "
            "distributed\n"
            "  the section is written into the CMX file\n");
}

TEST(CmxTags, ASecondClosingTagIsInOrder) {
  EXPECT_EQ(Found(Local() + "</TASKMANAGER>\n</SOLID_MCM>\n</SOLID_MCM>\n"), "");
}

TEST(CmxTags, AttributesInATag) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER version=\"1\">")),
            "Sample03.cmx:1:1: error: <TASKMANAGER version=\"1\"> is not the tag <TASKMANAGER>: "
            "the launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER version=\"1\">\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on "
            "its line\n");
}

TEST(CmxTags, TextBehindATag) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>Version = 1.0")),
            "Sample03.cmx:1:1: error: <TASKMANAGER>Version = 1.0 is not the tag <TASKMANAGER>: the "
            "launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER>Version = 1.0\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on "
            "its line\n");
}

TEST(CmxTags, ANearlyClosingTagIsAWarning) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "</TASKMANAGER")),
            "Sample03.cmx:5:1: warning: </TASKMANAGER is not the tag </TASKMANAGER>: the launcher "
            "would read on to the end of the file [cmx-tag]\n"
            "    5 | </TASKMANAGER\n"
            "      | ^~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, AClosingTagWithItsSlashAtTheEnd) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "<TASKMANAGER/>")),
            "Sample03.cmx:5:1: warning: <TASKMANAGER/> is not the tag </TASKMANAGER>: the launcher "
            "would read on to the end of the file [cmx-tag]\n"
            "    5 | <TASKMANAGER/>\n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, AClosingTagWithABlankIsAWarning) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "</TASKMANAGER> ")),
            "Sample03.cmx:5:1: warning: a blank stands beside </TASKMANAGER>: the launcher would "
            "read on to the end of the file [cmx-tag]\n"
            "    5 | </TASKMANAGER> \n"
            "      | ^~~~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on its line\n");
}

TEST(CmxTags, TextBehindAClosingTag) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "</TASKMANAGER> ; end = 1")),
            "Sample03.cmx:5:1: warning: </TASKMANAGER> ; end = 1 is not the tag </TASKMANAGER>: "
            "the launcher would read on to the end of the file [cmx-tag]\n"
            "    5 | </TASKMANAGER> ; end = 1\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on "
            "its line\n");
}

TEST(CmxTags, TextBehindAnotherSectionsTagIsInOrder) {
  EXPECT_EQ(Found(Local() + "<TASKMANAGERS version=\"1\">\n"), "");
}

TEST(CmxTags, ASectionThatIsNeverClosed) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>\n", "")),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n");
}

TEST(CmxTags, ASectionThatIsNeverClosedBeforeAnotherIsSaidOnce) {
  EXPECT_EQ(Found(Distributed("</TASKMANAGER>\n", "")),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n");
}

TEST(CmxTags, AClosingTagWithoutItsSlashOpensAgain) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "<TASKMANAGER>")),
            "Sample03.cmx:5:1: warning: TASKMANAGER is opened twice [cmx-section-twice]\n"
            "    5 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the closing tag is written </TASKMANAGER>\n");
}

TEST(CmxTags, ASectionThatIsOpenedTwice) {
  EXPECT_EQ(Found(Local() + Local()),
            "Sample03.cmx:6:1: warning: TASKMANAGER is opened twice [cmx-section-twice]\n"
            "    6 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the file holds it once\n");
}

TEST(CmxTags, AForeignSectionTwiceIsInOrder) {
  EXPECT_EQ(Found(Local() + "<NOTE>\n</NOTE>\n<NOTE>\n</NOTE>\n"), "");
}

TEST(CmxTags, AMissingTaskManagerMeansDistributed) {
  EXPECT_EQ(Found("<MESH>\n</MESH>\n"),
            "error: Sample03.cmx holds no <TASKMANAGER>: the run would be distributed "
            "[cmx-section-missing]\n"
            "    help: the section is written into the CMX file\n");
}

TEST(CmxTags, AnotherSectionsTagIsInOrder) {
  EXPECT_EQ(Found(Local() + "<TASKMANAGERS>\n</TASKMANAGERS>\n<SOLID_MOLD>\n</SOLID_MOLD>\n"), "");
}

TEST(CmxTags, AShellSolverReadsNothing) {
  EXPECT_EQ(Found("<taskmanager>\nIDTaskMode : 0\n", SolverClass::ShellFlow), "");
}

TEST(CmxTags, AMissingRemoteMachinesLeavesNoMachine) {
  EXPECT_EQ(Found(Local("IDTaskMode = 0", "IDTaskMode = 1")),
            "error: Sample03.cmx holds no <REMOTE_MACHINES>: the run would be distributed over no "
            "machine [cmx-section-missing]\n"
            "    help: the section is written into the CMX file\n");
}

TEST(CmxTags, AnOpeningTagWithASlashAtItsEnd) {
  EXPECT_EQ(
      FoundInShort(Local("<TASKMANAGER>", "<TASKMANAGER/>")),
      "error cmx-tag 1:1: <TASKMANAGER/> is not the tag <TASKMANAGER>: the launcher would see "
      "no such section and run distributed\n"
      "  the tag is written <TASKMANAGER>, alone on its line (<TASKMANAGER>)\n");
}

TEST(CmxTags, AClosingTagWithTheSlashAtItsEnd) {
  EXPECT_EQ(FoundInShort(Local("</TASKMANAGER>", "<TASKMANAGER/>")),
            "warning cmx-tag 5:1: <TASKMANAGER/> is not the tag </TASKMANAGER>: the launcher would "
            "read on to the end of the file\n"
            "  the tag is written </TASKMANAGER>, alone on its line (</TASKMANAGER>)\n");
}

TEST(CmxTags, ASectionWithinAnotherIsReadAllTheSame) {
  EXPECT_EQ(FoundInShort(Distributed("</TASKMANAGER>\n", "") + "</TASKMANAGER>\n"), "");
}

TEST(CmxTags, KeysOfASectionThatIsNotClosedWithinAnother) {
  EXPECT_EQ(
      FoundInShort(Local("ValueNoTask = 1\n", "<OTHER>\nValueNoTasks = 1\n")),
      "warning cmx-unknown-key 4:1: ValueNoTasks is no key of TASKMANAGER: the launcher would "
      "ignore the line\n"
      "  a key of this section is written ValueNoTask (ValueNoTask)\n");
}

}  // namespace
}  // namespace qvx::runcheck
