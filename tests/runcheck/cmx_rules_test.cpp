// Each rule over the CMX file's lines: a file that it finds fault with, message by message, and a
// near miss that it lets pass.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxRules, AByteOrderMarkHidesTheFirstTag) {
  EXPECT_EQ(
      Found("\357\273\277<TASKMANAGER>\n"
            "IDTaskMode = 0\n"
            "ValueNoTask = 1\n"
            "ValueLocalNoTask = 1\n"
            "</TASKMANAGER>\n"),
      "Sample03.cmx:1:1: error: the file begins with a byte-order mark (EF BB BF), which hides "
      "<TASKMANAGER>: the launcher would not recognise the first line [cmx-byte-order-mark]\n"
      "    1 | \357\273\277<TASKMANAGER>\n"
      "      | ^~~ help: the file is saved without it\n");
}

TEST(CmxRules, AByteOrderMarkBeforeAnotherLineIsAWarning) {
  EXPECT_EQ(Found("\357\273\277\n"
                  "<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: warning: the file begins with a byte-order mark (EF BB BF) "
            "[cmx-byte-order-mark]\n"
            "    1 | \357\273\277\n"
            "      | ^~~ help: the file is saved without it\n");
}

TEST(CmxRules, Utf16IsNotRead) {
  EXPECT_EQ(Found(std::string(
                "\377\376<\000T\000A\000S\000K\000M\000A\000N\000A\000G\000E\000R\000>\000\n"
                "\000I\000D\000T\000a\000s\000k\000M\000o\000d\000e\000 \000=\000 \0000\000\n"
                "\000V\000a\000l\000u\000e\000N\000o\000T\000a\000s\000k\000 \000=\000 \0001\000\n"
                "\000V\000a\000l\000u\000e\000L\000o\000c\000a\000l\000N\000o\000T\000a\000s\000k"
                "\000 \000=\000 \0001\000\n"
                "\000<\000/\000T\000A\000S\000K\000M\000A\000N\000A\000G\000E\000R\000>\000\n"
                "\000",
                164)),
            "error: the file is UTF-16: the launcher would read nothing of it and run distributed "
            "[cmx-utf-16]\n"
            "    help: the file is saved in the ANSI code page\n");
}

TEST(CmxRules, Utf16WithoutAMarkIsNotRead) {
  EXPECT_EQ(Found(std::string(
                "<\000T\000A\000S\000K\000M\000A\000N\000A\000G\000E\000R\000>\000\n"
                "\000I\000D\000T\000a\000s\000k\000M\000o\000d\000e\000 \000=\000 \0000\000\n"
                "\000V\000a\000l\000u\000e\000N\000o\000T\000a\000s\000k\000 \000=\000 \0001\000\n"
                "\000V\000a\000l\000u\000e\000L\000o\000c\000a\000l\000N\000o\000T\000a\000s\000k"
                "\000 \000=\000 \0001\000\n"
                "\000<\000/\000T\000A\000S\000K\000M\000A\000N\000A\000G\000E\000R\000>\000\n"
                "\000",
                162)),
            "error: the file is UTF-16: the launcher would read nothing of it and run distributed "
            "[cmx-utf-16]\n"
            "    help: the file is saved in the ANSI code page\n");
}

TEST(CmxRules, AZeroByteCutsItsLine) {
  EXPECT_EQ(Found(std::string("<TASKMANAGER>\n"
                              "IDTaskMode = 0\n"
                              "ValueLocalNoTask = 1\n"
                              "ValueNoTask\000 = 1\n"
                              "</TASKMANAGER>\n",
                              82)),
            "Sample03.cmx:4:12: error: the line holds a zero byte: the launcher would read the "
            "line up to it [cmx-zero-byte]\n"
            "    4 | ValueNoTask  = 1\n"
            "      |            ^ help: the byte is removed\n");
}

TEST(CmxRules, AZeroByteInAForeignSectionIsANote) {
  EXPECT_EQ(Found(std::string("<TASKMANAGER>\n"
                              "IDTaskMode = 0\n"
                              "ValueNoTask = 1\n"
                              "ValueLocalNoTask = 1\n"
                              "</TASKMANAGER>\n"
                              "<MESH>\n"
                              "ab\000c\n"
                              "</MESH>\n",
                              101)),
            "Sample03.cmx:7:3: note: the line holds a zero byte [cmx-zero-byte]\n"
            "    7 | ab c\n"
            "      |   ^ help: the byte is removed\n");
}

TEST(CmxRules, ACtrlZHidesWhatFollows) {
  EXPECT_EQ(Found("Title\032\n"
                  "<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:6: error: a Ctrl-Z (1A) stands before the end of the file: the "
            "launcher would read the file up to it [cmx-control-z]\n"
            "    1 | Title \n"
            "      |      ^ help: the byte is removed\n");
}

TEST(CmxRules, ACtrlZAtTheEndIsInOrder) {
  EXPECT_EQ(Found(std::string("<TASKMANAGER>\n"
                              "IDTaskMode = 0\n"
                              "ValueNoTask = 1\n"
                              "ValueLocalNoTask = 1\n"
                              "</TASKMANAGER>\n"
                              "\032\000\000",
                              84)),
            "");
}

TEST(CmxRules, LoneCarriageReturnsMakeOneLine) {
  EXPECT_EQ(
      Found(
          "<TASKMANAGER>\rIDTaskMode = 0\rValueNoTask = 1\rValueLocalNoTask = 1\r</TASKMANAGER>\r"),
      "error: the lines end in lone carriage returns: the launcher would take the whole file as "
      "one line [cmx-line-ends]\n"
      "    help: a line ends in one carriage return and one line feed\n");
}

TEST(CmxRules, DoubledCarriageReturnsHideTheTags) {
  EXPECT_EQ(Found("<TASKMANAGER>\r\r\n"
                  "IDTaskMode = 0\r\r\n"
                  "ValueNoTask = 1\r\r\n"
                  "ValueLocalNoTask = 1\r\r\n"
                  "</TASKMANAGER>\r\r\n"),
            "Sample03.cmx:1:14: error: the line ends in more than one carriage return: the "
            "launcher would not recognise tags and values [cmx-line-ends]\n"
            "    1 | <TASKMANAGER> \n"
            "      |              ^ help: a line ends in one carriage return and one line feed\n");
}

TEST(CmxRules, OneCarriageReturnIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\r\n"
                  "IDTaskMode = 0\r\n"
                  "ValueNoTask = 1\r\n"
                  "ValueLocalNoTask = 1\r\n"
                  "</TASKMANAGER>\r\n"),
            "");
}

TEST(CmxRules, ALongLineOfASectionIsCutInPieces) {
  EXPECT_EQ(Found(std::string() +
                  "<TASKMANAGER>\n"
                  "" +
                  std::string(1100, 'x') +
                  "\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            std::string() +
                "Sample03.cmx:2:1: error: CMX key is too long: width 260, length 1023: the "
                "launcher would end with -2 [text-too-long]\n"
                "    2 | " +
                std::string(160, 'x') +
                "\n"
                "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is "
                "shortened to less than the width\n"
                "Sample03.cmx:2:1024: warning: the line has more than 1023 bytes [cmx-long-line]\n"
                "    2 | " +
                std::string(77, 'x') +
                "\n"
                "      |          ^ help: it is written shorter\n");
}

TEST(CmxRules, ALongLineElsewhereIsInOrder) {
  EXPECT_EQ(Found(std::string() +
                  "<MESH>\n"
                  "" +
                  std::string(3000, 'm') +
                  "\n"
                  "</MESH>\n"
                  "<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, ATagInAnotherLetterCaseOpensNothing) {
  EXPECT_EQ(Found("<TaskMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: <TaskMANAGER> is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TaskMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, ABlankBehindATagHidesIt) {
  EXPECT_EQ(Found("<TASKMANAGER> \n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: a blank stands beside <TASKMANAGER>: the "
            "launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER> \n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, ATabBeforeATagHidesIt) {
  EXPECT_EQ(Found("\t<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: a tab stands beside <TASKMANAGER>: the "
            "launcher would see no such section and run distributed [cmx-tag]\n"
            "    1 | \t<TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, ATagWithoutItsBracketOpensNothing) {
  EXPECT_EQ(Found("<TASKMANAGER\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: <TASKMANAGER is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANAGER\n"
            "      | ^~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, AMisspeltTagOpensNothing) {
  EXPECT_EQ(Found("<TASKMANGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: <TASKMANGER> is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | <TASKMANGER>\n"
            "      | ^~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, SquareBracketsOpenNothing) {
  EXPECT_EQ(Found("[TASKMANAGER]\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: [TASKMANAGER] is not the tag <TASKMANAGER>: the launcher "
            "would see no such section and run distributed [cmx-tag]\n"
            "    1 | [TASKMANAGER]\n"
            "      | ^~~~~~~~~~~~~ help: the tag is written <TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, ANearlyClosingTagIsAWarning) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER\n"),
            "Sample03.cmx:5:1: warning: </TASKMANAGER is not the tag </TASKMANAGER>: the launcher "
            "would read on to the end of the file [cmx-tag]\n"
            "    5 | </TASKMANAGER\n"
            "      | ^~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, AClosingTagWithABlankIsAWarning) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER> \n"),
            "Sample03.cmx:5:1: warning: a blank stands beside </TASKMANAGER>: the launcher would "
            "read on to the end of the file [cmx-tag]\n"
            "    5 | </TASKMANAGER> \n"
            "      | ^~~~~~~~~~~~~~~ help: the tag is written </TASKMANAGER>, alone on its line\n");
}

TEST(CmxRules, ASectionThatIsNeverClosed) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n");
}

TEST(CmxRules, AClosingTagWithoutItsSlashOpensAgain) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "<TASKMANAGER>\n"),
            "Sample03.cmx:5:1: warning: TASKMANAGER is opened twice [cmx-section-twice]\n"
            "    5 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the closing tag is written </TASKMANAGER>\n");
}

TEST(CmxRules, ASectionThatIsOpenedTwice) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:6:1: warning: TASKMANAGER is opened twice [cmx-section-twice]\n"
            "    6 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the file holds it once\n");
}

TEST(CmxRules, AMissingTaskManagerMeansDistributed) {
  EXPECT_EQ(Found("<MESH>\n"
                  "</MESH>\n"),
            "error: Sample03.cmx holds no <TASKMANAGER>: the run would be distributed "
            "[cmx-section-missing]\n"
            "    help: the section is written into the CMX file\n");
}

TEST(CmxRules, AnotherSectionsTagIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<TASKMANAGERS>\n"
                  "</TASKMANAGERS>\n"
                  "<SOLID_MOLD>\n"
                  "</SOLID_MOLD>\n"),
            "");
}

TEST(CmxRules, AShellSolverReadsNothing) {
  EXPECT_EQ(Found("<taskmanager>\n"
                  "IDTaskMode : 0\n",
                  SolverClass::ShellFlow),
            "");
}

TEST(CmxRules, AMissingRemoteMachinesLeavesNoMachine) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"),
            "error: Sample03.cmx holds no <REMOTE_MACHINES>: the run would be distributed over no "
            "machine [cmx-section-missing]\n"
            "    help: the section is written into the CMX file\n");
}

TEST(CmxRules, ACoolingTagInAnotherLetterCase) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<Solid_Cool>\n"
                  "Flag3DSolidCoolingChannel = 1\n"
                  "</SOLID_COOL>\n",
                  SolverClass::Cool),
            "Sample03.cmx:6:1: error: <Solid_Cool> is not the tag <SOLID_COOL>: the launcher would "
            "see no such section [cmx-tag]\n"
            "    6 | <Solid_Cool>\n"
            "      | ^~~~~~~~~~~~ help: the tag is written <SOLID_COOL>, alone on its line\n");
}

TEST(CmxRules, AKeyInAnotherLetterCaseIsIgnored) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "idtaskmode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:1: error: idtaskmode is not written IDTaskMode: the launcher would "
            "ignore the line and run distributed [cmx-key-case]\n"
            "    2 | idtaskmode = 0\n"
            "      | ^~~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxRules, AMisspeltKeyIsIgnored) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMod = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:1: error: IDTaskMod is no key of TASKMANAGER: the launcher would "
            "ignore the line and run distributed [cmx-unknown-key]\n"
            "    2 | IDTaskMod = 0\n"
            "      | ^~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxRules, AMisspeltKeyBesideTheRightOneIsAWarning) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "IDTaskMod = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:3:1: warning: IDTaskMod is no key of TASKMANAGER [cmx-unknown-key]\n"
            "    3 | IDTaskMod = 0\n"
            "      | ^~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxRules, ASpaceInAKeyIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "  ID Task Mode = 0\n"
                  "Value LocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, AnUnknownKeyIsANote) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "Colour = red\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:4:1: note: Colour is no key of TASKMANAGER [cmx-unknown-key]\n"
            "    4 | Colour = red\n"
            "      | ^~~~~~ help: the line is left out\n");
}

TEST(CmxRules, ARemarkIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "; a remark\n"
                  "# another = one\n"
                  "\n"
                  "free text\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, ATabBesideAKeyHidesIt) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode\t= 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:1: error: a tab stands beside IDTaskMode: the "
            "launcher would ignore the line and run distributed [cmx-key-blank]\n"
            "    2 | IDTaskMode\t= 0\n"
            "      | ^~~~~~~~~~~ help: a key of this section is written IDTaskMode\n");
}

TEST(CmxRules, AKeyOfAnotherSectionIsIgnored) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "ValueNoMachine = 2\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:4:1: warning: ValueNoMachine is a key of REMOTE_MACHINES, not of "
            "TASKMANAGER [cmx-key-section]\n"
            "    4 | ValueNoMachine = 2\n"
            "      | ^~~~~~~~~~~~~~ help: it is moved into REMOTE_MACHINES\n");
}

TEST(CmxRules, AKeyOutsideItsSectionIsIgnored) {
  EXPECT_EQ(Found("IDTaskMode = 0\n"
                  "<TASKMANAGER>\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: IDTaskMode stands outside TASKMANAGER: the launcher would "
            "ignore the line [cmx-key-section]\n"
            "    1 | IDTaskMode = 0\n"
            "      | ^~~~~~~~~~ help: it is moved into TASKMANAGER\n");
}

TEST(CmxRules, AForeignSectionMayUseTheSameKey) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<MESH>\n"
                  "ValueNoTask=99\n"
                  "</MESH>\n"),
            "");
}

TEST(CmxRules, TwoValuesOfAKey) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
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
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:3:1: error: IDTaskMode is set to 0 in line 2 and to 1 here: the launcher "
            "would let the last value count [cmx-key-twice]\n"
            "    3 | IDTaskMode = 1\n"
            "      | ^~~~~~~~~~~~~~ help: it stands once\n");
}

TEST(CmxRules, TheSameValueTwiceIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, AMissingTaskModeMeansDistributed) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: TASKMANAGER holds no IDTaskMode: the run would be "
            "distributed [cmx-key-missing]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the key is written into its section\n");
}

TEST(CmxRules, AMissingLocalTaskCountMeansSharedMemory) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: warning: TASKMANAGER holds no ValueLocalNoTask: the run would be "
            "shared-memory parallel [cmx-key-missing]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the key is written into its section\n");
}

TEST(CmxRules, AColonForAnEqualsSign) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode: 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:1: error: IDTaskMode is followed by : and not by =: the launcher would "
            "ignore the line and run distributed [cmx-separator]\n"
            "    2 | IDTaskMode: 0\n"
            "      | ^~~~~~~~~~~~~ help: the line is written IDTaskMode = 0\n");
}

TEST(CmxRules, ABlankForAnEqualsSign) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:1: error: no = stands between IDTaskMode and its value: the launcher "
            "would ignore the line and run distributed [cmx-separator]\n"
            "    2 | IDTaskMode 0\n"
            "      | ^~~~~~~~~~~~ help: the line is written IDTaskMode = 0\n");
}

TEST(CmxRules, AColonBeforeAnEqualsSign) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode := 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:1: error: IDTaskMode is followed by := and not by =: the launcher "
            "would ignore the line and run distributed [cmx-separator]\n"
            "    2 | IDTaskMode := 0\n"
            "      | ^~~~~~~~~~~~ help: the line is written IDTaskMode = 0\n");
}

TEST(CmxRules, TwoEqualsSigns) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode == 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:13: error: two separators stand between IDTaskMode and its value: the "
            "value is not 0 and the run would be distributed [cmx-separator]\n"
            "    2 | IDTaskMode == 0\n"
            "      |             ^ help: the value is written 0\n");
}

TEST(CmxRules, ABlankBehindTheTaskModeMeansDistributed) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0 \n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:15: error: 1 blank stands behind the value of IDTaskMode: the value is "
            "not 0 and the run would be distributed [cmx-trailing-blank]\n"
            "    2 | IDTaskMode = 0 \n"
            "      |               ^ help: the value is written 0\n");
}

TEST(CmxRules, ATabBehindTheLocalTaskCount) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\t\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:4:21: warning: 1 tab stands behind the value of "
            "ValueLocalNoTask [cmx-trailing-blank]\n"
            "    4 | ValueLocalNoTask = 1\t\n"
            "      |                     ^ help: the value is written 1\n");
}

TEST(CmxRules, ABlankBehindAValueThatIsOnlyShownIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "Version = 1.0 \n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, ATabBeforeAValue) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode =\t0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:13: error: a tab stands before 0: the "
            "value is not 0 and the run would be distributed [cmx-leading-tab]\n"
            "    2 | IDTaskMode =\t0\n"
            "      |             ^ help: the value is written 0\n");
}

TEST(CmxRules, ACommentBehindAValue) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0 ; local\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:16: error: a comment stands behind the value of IDTaskMode: the value "
            "is not 0 and the run would be distributed [cmx-comment]\n"
            "    2 | IDTaskMode = 0 ; local\n"
            "      |                ^~~~~~~ help: the value is written 0\n");
}

TEST(CmxRules, QuotationMarksAroundAValue) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = \"0\"\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:14: error: the value of IDTaskMode stands in quotation marks: the "
            "value is not 0 and the run would be distributed [cmx-quoted-value]\n"
            "    2 | IDTaskMode = \"0\"\n"
            "      |              ^~~ help: the value is written 0\n");
}

TEST(CmxRules, AKeyWithoutAValue) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:1: error: IDTaskMode stands without =: the value is not 0 and the run "
            "would be distributed [cmx-no-equals]\n"
            "    2 | IDTaskMode\n"
            "      | ^~~~~~~~~~ help: key and value are separated by =\n");
}

TEST(CmxRules, ATaskModeOfTwoZeros) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 00\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:14: error: IDTaskMode is 00, neither 0 nor 1: the value is not 0 and "
            "the run would be distributed [cmx-mode]\n"
            "    2 | IDTaskMode = 00\n"
            "      |              ^~ help: a run on this machine is written 0\n");
}

TEST(CmxRules, ATaskModeThatIsAWord) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = local\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:14: error: IDTaskMode is local, neither 0 nor 1: the value is not 0 "
            "and the run would be distributed [cmx-mode]\n"
            "    2 | IDTaskMode = local\n"
            "      |              ^~~~~ help: a run on this machine is written 0\n");
}

TEST(CmxRules, ATaskModeOfTwo) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 2\n"
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
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:2:14: warning: IDTaskMode is 2, neither 0 nor 1: the run would be "
            "distributed, as with 1 [cmx-mode]\n"
            "    2 | IDTaskMode = 2\n"
            "      |              ^ help: 0 is this machine, 1 is several\n");
}

TEST(CmxRules, AnEmptyTaskMode) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode =\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:2:13: error: IDTaskMode is empty, neither 0 nor 1: the value is not 0 "
            "and the run would be distributed [cmx-mode]\n"
            "    2 | IDTaskMode =\n"
            "      |             ^ help: a run on this machine is written 0\n");
}

TEST(CmxRules, ALocalTaskCountWithALeadingZero) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 01\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:4:20: warning: ValueLocalNoTask is 01, no plain number above 0: the "
            "launcher would not read 1 and run shared-memory parallel [cmx-number]\n"
            "    4 | ValueLocalNoTask = 01\n"
            "      |                    ^~ help: the value is written 1\n");
}

TEST(CmxRules, NoTasks) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 0\n"
                  "ValueLocalNoTask = 4\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:3:15: error: ValueNoTask is 0, no number above 0: the MPI process "
            "launcher would be asked for no process [task-count]\n"
            "    3 | ValueNoTask = 0\n"
            "      |               ^ help: ValueNoTask is 1 or more\n");
}

TEST(CmxRules, TasksThatAreText) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = four\n"
                  "ValueLocalNoTask = 4\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:3:15: error: ValueNoTask is four, no number above 0: the MPI process "
            "launcher would be asked for no process [task-count]\n"
            "    3 | ValueNoTask = four\n"
            "      |               ^~~~ help: ValueNoTask is 1 or more\n");
}

TEST(CmxRules, AMissingTaskCount) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 4\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:1:1: error: TASKMANAGER holds no ValueNoTask: the MPI process launcher "
            "would be asked for no process [task-count]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: ValueNoTask is 1 or more\n");
}

TEST(CmxRules, SeveralTasksInASerialRunAreANote) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 4\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "Sample03.cmx:3:15: note: ValueNoTask is 4 and ValueLocalNoTask is 1 [tasks-differ]\n"
            "    3 | ValueNoTask = 4\n"
            "      |               ^ help: ValueLocalNoTask holds the number of tasks too\n");
}

TEST(CmxRules, ACoolingFlagOfTwo) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<SOLID_COOL>\n"
                  "Flag3DSolidCoolingChannel = 2\n"
                  "</SOLID_COOL>\n",
                  SolverClass::Cool),
            "Sample03.cmx:7:29: warning: Flag3DSolidCoolingChannel is 2, neither 0 nor 1: the flow "
            "solver would not run first [cmx-number]\n"
            "    7 | Flag3DSolidCoolingChannel = 2\n"
            "      |                             ^ help: the value is 0 or 1\n");
}

TEST(CmxRules, ACoolingFlagWithBlanksIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<SOLID_COOL>\n"
                  "Flag3DSolidCoolingChannel =  1\n"
                  "</SOLID_COOL>\n",
                  SolverClass::Cool),
            "");
}

TEST(CmxRules, APreviousShotThatIsNoNumber) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<SOLID_MCM>\n"
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

TEST(CmxRules, ASharedMemoryRunInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 4\n"
                  "ValueLocalNoTask = 4\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, ASerialRunInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, AValueThatIsTooLong) {
  EXPECT_EQ(Found(std::string() +
                  "<TASKMANAGER>\n"
                  "Version = " +
                  std::string(32, 'x') +
                  "\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            std::string() +
                "Sample03.cmx:2:11: error: Version is too long: width 32, length 32: the launcher "
                "would end with -2 [text-too-long]\n"
                "    2 | Version = " +
                std::string(32, 'x') +
                "\n"
                "      |           ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less "
                "than the width\n");
}

TEST(CmxRules, AValueThatJustFits) {
  EXPECT_EQ(Found(std::string() +
                  "<TASKMANAGER>\n"
                  "Version = " +
                  std::string(31, 'x') +
                  "\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            "");
}

TEST(CmxRules, AKeyThatIsTooLong) {
  EXPECT_EQ(Found(std::string() +
                  "<TASKMANAGER>\n"
                  "" +
                  std::string(260, 'x') +
                  " = 1\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            std::string() +
                "Sample03.cmx:2:1: error: CMX key is too long: width 260, length 261: the launcher "
                "would end with -2 [text-too-long]\n"
                "    2 | " +
                std::string(160, 'x') +
                "\n"
                "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is "
                "shortened to less than the width\n");
}

TEST(CmxRules, AnUnknownKeysValueThatIsTooLong) {
  EXPECT_EQ(Found(std::string() +
                  "<TASKMANAGER>\n"
                  ";  = " +
                  std::string(260, 'y') +
                  "\n"
                  "IDTaskMode = 0\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            std::string() +
                "Sample03.cmx:2:6: error: CMX value is too long: width 260, length 261: the "
                "launcher would end with -2 [text-too-long]\n"
                "    2 | ;  = " +
                std::string(155, 'y') +
                "\n"
                "      |      ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: "
                "it is shortened to less than the width\n");
}

TEST(CmxRules, AHostThatIsTooLong) {
  EXPECT_EQ(Found(std::string() +
                  "<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = " +
                  std::string(32, 'N') +
                  "\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            std::string() +
                "Sample03.cmx:11:5: error: machine host name is too long: width 32, length 32: the "
                "launcher would end with -2 [text-too-long]\n"
                "   11 | 2 = " +
                std::string(32, 'N') +
                "\t1\n"
                "      |     ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less than "
                "the width\n");
}

TEST(CmxRules, ATooLongTextHidesNothingElse) {
  EXPECT_EQ(Found(std::string() +
                  "<TASKMANAGER>\n"
                  "Version = " +
                  std::string(32, 'x') +
                  "\n"
                  "IDTaskMode = 0 \n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"),
            std::string() +
                "Sample03.cmx:2:11: error: Version is too long: width 32, length 32: the launcher "
                "would end with -2 [text-too-long]\n"
                "    2 | Version = " +
                std::string(32, 'x') +
                "\n"
                "      |           ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less "
                "than the width\n"
                "Sample03.cmx:3:15: error: 1 blank stands behind the value of IDTaskMode: the "
                "value is not 0 and the run would be distributed [cmx-trailing-blank]\n"
                "    3 | IDTaskMode = 0 \n"
                "      |               ^ help: the value is written 0\n");
}

TEST(CmxRules, ADistributedRunInOrder) {
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
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxRules, MoreMachinesThanCounted) {
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
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 1.0\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:11:1: error: ValueNoMachine is 1 and the machine block has 2 lines: the "
            "launcher would drop 1 line of it [machine-count]\n"
            "   11 | 2 = NODE2\t1\n"
            "      | ^~~~~~~~~~~ help: ValueNoMachine is the number of lines in both blocks\n"
            "Sample03.cmx:14:1: warning: ValueNoMachine is 1 and the weighting block has 2 lines: "
            "the launcher would drop 1 line of it [weighting-count]\n"
            "   14 | 2 = 0.4\n"
            "      | ^~~~~~~ help: ValueNoMachine is the number of lines in both blocks\n");
}

TEST(CmxRules, FewerMachinesThanCounted) {
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
                  "ValueMachineWeighting = weight\n"
                  "1 = 1\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:11:1: error: ValueMachineWeighting = weight is taken as machine 2 of 2: "
            "the run would go to other machines than listed [machine-line]\n"
            "   11 | ValueMachineWeighting = weight\n"
            "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: ValueNoMachine is the number of lines in "
            "both blocks, which follow one another without a gap\n");
}

TEST(CmxRules, AnEmptyLineInTheMachineBlock) {
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
                  "\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:11:1: error: an empty line is taken as machine 2 of 2: the run would go "
            "to other machines than listed [machine-line]\n"
            "   11 | \n"
            "      | ^ help: ValueNoMachine is the number of lines in both blocks, which follow "
            "one another without a gap\n");
}

TEST(CmxRules, FewerWeightingsThanCounted) {
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
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:14:1: warning: </REMOTE_MACHINES> is taken as weighting 2 of 2 "
            "[weighting-count]\n"
            "   14 | </REMOTE_MACHINES>\n"
            "      | ^~~~~~~~~~~~~~~~~~ help: ValueNoMachine is the number of lines in both "
            "blocks, which follow one another without a gap\n");
}

TEST(CmxRules, MoreWeightingsThanCounted) {
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
                  "3 = 0.1\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:15:1: warning: ValueNoMachine is 2 and the weighting block has 3 lines: "
            "the launcher would drop 1 line of it [weighting-count]\n"
            "   15 | 3 = 0.1\n"
            "      | ^~~~~~~ help: ValueNoMachine is the number of lines in both blocks\n");
}

TEST(CmxRules, ACountAfterItsBlocks) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "ValueNoMachine = 2\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:14:18: error: ValueNoMachine stands after a block, which takes it: the "
            "launcher would leave the machines empty [machine-count-late]\n"
            "   14 | ValueNoMachine = 2\n"
            "      |                  ^ help: it stands before both blocks\n");
}

TEST(CmxRules, NoMachines) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 1\n"
            "</TASKMANAGER>\n"
            "<REMOTE_MACHINES>\n"
            "ValueNoMachine = 0\n"
            "ValueShareFolderName = Projects\n"
            "ValueParallelWorkingFolder = C:\\Projects\n"
            "ValueLocalHost = NODE1\n"
            "</REMOTE_MACHINES>\n"),
      "Sample03.cmx:5:18: error: ValueNoMachine is 0, no number above 0: the run would be "
      "distributed over no machine [machine-count]\n"
      "    5 | ValueNoMachine = 0\n"
      "      |                  ^ help: ValueNoMachine is the number of lines in both blocks\n");
}

TEST(CmxRules, AMachineCountThatIsAWord) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 1\n"
            "</TASKMANAGER>\n"
            "<REMOTE_MACHINES>\n"
            "ValueNoMachine = two\n"
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
      "Sample03.cmx:5:18: error: ValueNoMachine is two, no number above 0: the run would be "
      "distributed over no machine [machine-count]\n"
      "    5 | ValueNoMachine = two\n"
      "      |                  ^~~ help: ValueNoMachine is the number of lines in both blocks\n");
}

TEST(CmxRules, AMissingMachineBlock) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 1\n"
            "</TASKMANAGER>\n"
            "<REMOTE_MACHINES>\n"
            "ValueNoMachine = 1\n"
            "ValueShareFolderName = Projects\n"
            "ValueParallelWorkingFolder = C:\\Projects\n"
            "ValueLocalHost = NODE1\n"
            "ValueMachineWeighting\n"
            "1 = 1\n"
            "</REMOTE_MACHINES>\n"),
      "Sample03.cmx:5:18: error: there is no line ValueMachineSetting: the machines would have no "
      "names [machine-count]\n"
      "    5 | ValueNoMachine = 1\n"
      "      |                  ^ help: the line ValueMachineSetting opens the block\n");
}

TEST(CmxRules, AMissingWeightingBlock) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 1\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting\n"
                  "1 = NODE1\t2\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:5:18: warning: there is no line ValueMachineWeighting: all weights would "
            "be 0 [weighting-count]\n"
            "    5 | ValueNoMachine = 1\n"
            "      |                  ^ help: the line ValueMachineWeighting opens the block\n");
}

TEST(CmxRules, AMissingMachineCount) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
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
            "Sample03.cmx:4:1: error: REMOTE_MACHINES holds no ValueNoMachine: the run would be "
            "distributed over no machine [cmx-key-missing]\n"
            "    4 | <REMOTE_MACHINES>\n"
            "      | ^~~~~~~~~~~~~~~~~ help: the key is written into its section\n");
}

TEST(CmxRules, AMisspeltWeightingBlock) {
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
                  "ValueMachinWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:12:1: warning: ValueMachinWeighting is no key of REMOTE_MACHINES "
            "[cmx-unknown-key]\n"
            "   12 | ValueMachinWeighting = weight\n"
            "      | ^~~~~~~~~~~~~~~~~~~~ help: a key of this section is written "
            "ValueMachineWeighting\n");
}

TEST(CmxRules, ABlankForTheTab) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1 2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:10:1: error: no tab stands between host and tasks in NODE1 2: the "
            "launcher would take the whole text as the host, with NULL tasks [machine-separator]\n"
            "   10 | 1 = NODE1 2\n"
            "      | ^~~~~~~~~~~ help: one tab, no blank and no other character, stands between "
            "host and tasks\n");
}

TEST(CmxRules, AMachineWithoutAnEqualsSign) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:10:1: error: no = stands before the machine: the launcher would take the "
            "whole text as the host, with NULL tasks [machine-separator]\n"
            "   10 | NODE1\t2\n"
            "      | ^~~~~~~ help: one tab stands between host and tasks\n");
}

TEST(CmxRules, AMachineWithoutTasks) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 1\n"
            "</TASKMANAGER>\n"
            "<REMOTE_MACHINES>\n"
            "ValueNoMachine = 2\n"
            "ValueShareFolderName = Projects\n"
            "ValueParallelWorkingFolder = C:\\Projects\n"
            "ValueLocalHost = NODE1\n"
            "ValueMachineSetting = host, tasks\n"
            "1 = NODE1\t0\n"
            "2 = NODE2\t1\n"
            "ValueMachineWeighting = weight\n"
            "1 = 0.6\n"
            "2 = 0.4\n"
            "</REMOTE_MACHINES>\n"),
      "Sample03.cmx:10:5: error: NODE1 has 0 tasks: no process would run there [machine-tasks]\n"
      "   10 | 1 = NODE1\t0\n"
      "      |     ^~~~~~~ help: tasks are a number of 1 or more\n");
}

TEST(CmxRules, TwoTabsLeaveNoTasks) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 1\n"
            "</TASKMANAGER>\n"
            "<REMOTE_MACHINES>\n"
            "ValueNoMachine = 2\n"
            "ValueShareFolderName = Projects\n"
            "ValueParallelWorkingFolder = C:\\Projects\n"
            "ValueLocalHost = NODE1\n"
            "ValueMachineSetting = host, tasks\n"
            "1 = NODE1\t\t2\n"
            "2 = NODE2\t1\n"
            "ValueMachineWeighting = weight\n"
            "1 = 0.6\n"
            "2 = 0.4\n"
            "</REMOTE_MACHINES>\n"),
      "Sample03.cmx:10:5: error: NODE1 has no tasks: no process would run there [machine-tasks]\n"
      "   10 | 1 = NODE1\t\t2\n"
      "      |     ^~~~~~~~ help: tasks are a number of 1 or more\n");
}

TEST(CmxRules, AFurtherTextBehindTheTasksIsInOrder) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\tfast\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxRules, ABlankBesideAHost) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1 \t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:10:5: warning: a blank stands beside the host name NODE1 [machine-host]\n"
            "   10 | 1 = NODE1 \t2\n"
            "      |     ^~~~~~~~ help: the name is written NODE1\n");
}

TEST(CmxRules, AHostWithBackslashes) {
  EXPECT_EQ(
      Found("<TASKMANAGER>\n"
            "IDTaskMode = 1\n"
            "</TASKMANAGER>\n"
            "<REMOTE_MACHINES>\n"
            "ValueNoMachine = 2\n"
            "ValueShareFolderName = Projects\n"
            "ValueParallelWorkingFolder = C:\\Projects\n"
            "ValueLocalHost = NODE1\n"
            "ValueMachineSetting = host, tasks\n"
            "1 = \\\\NODE1\t2\n"
            "2 = NODE2\t1\n"
            "ValueMachineWeighting = weight\n"
            "1 = 0.6\n"
            "2 = 0.4\n"
            "</REMOTE_MACHINES>\n"),
      "Sample03.cmx:10:5: error: \\\\NODE1 is no host name: the MPI process launcher would ask for "
      "another machine [machine-host]\n"
      "   10 | 1 = \\\\NODE1\t2\n"
      "      |     ^~~~~~~~~ help: the name is written NODE1\n");
}

TEST(CmxRules, AHostTwice) {
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
                  "2 = node1\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:11:5: warning: node1 is also in line 10 [machine-twice]\n"
            "   11 | 2 = node1\t1\n"
            "      |     ^~~~~~~ help: a host has one line with all its tasks\n");
}

TEST(CmxRules, ADecimalComma) {
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
                  "1 = 0,6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:13:5: warning: 0,6 is no weighting: the launcher would read it as 0 "
            "[weighting-value]\n"
            "   13 | 1 = 0,6\n"
            "      |     ^~~ help: the decimal point is written 0.6\n");
}

TEST(CmxRules, AWeightingThatIsAWord) {
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
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:13:5: warning: much is no weighting: the launcher would read it as 0 "
            "[weighting-value]\n"
            "   13 | 1 = much\n"
            "      |     ^~~~ help: a weighting is a number such as 0.6\n");
}

TEST(CmxRules, WeightingsThatDoNotAddUp) {
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
                  "1 = 0.7\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:14:5: warning: the weightings add up to 1.1 [weighting-sum]\n"
            "   14 | 2 = 0.4\n"
            "      |     ^~~ help: weightings are shares of 1\n");
}

TEST(CmxRules, WeightingsRoundedToTwoDecimals) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 3\n"
                  "ValueShareFolderName = Projects\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "3 = NODE3\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.33\n"
                  "2 = 0.33\n"
                  "3 = 0.33\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxRules, ARemarkBehindAWeightingIsInOrder) {
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
                  "1 = 0.6 ; fast\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxRules, ALocalRunsMachinesAreNotLookedAt) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 0\n"
                  "ValueNoTask = 1\n"
                  "ValueLocalNoTask = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueMachinSetting\n"
                  "</REMOTE_MACHINES>\n"),
            "");
}

TEST(CmxRules, ABlankBehindTheStorageNode) {
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
                  "ValueStorageNode = NODE1 \n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:15:25: error: 1 blank stands behind the value of ValueStorageNode: the "
            "launcher would take it as part of the value [cmx-trailing-blank]\n"
            "   15 | ValueStorageNode = NODE1 \n"
            "      |                         ^ help: the value is written NODE1\n");
}

TEST(CmxRules, QuotationMarksAroundTheShare) {
  EXPECT_EQ(Found("<TASKMANAGER>\n"
                  "IDTaskMode = 1\n"
                  "</TASKMANAGER>\n"
                  "<REMOTE_MACHINES>\n"
                  "ValueNoMachine = 2\n"
                  "ValueShareFolderName = \"Projects\"\n"
                  "ValueParallelWorkingFolder = C:\\Projects\n"
                  "ValueLocalHost = NODE1\n"
                  "ValueMachineSetting = host, tasks\n"
                  "1 = NODE1\t2\n"
                  "2 = NODE2\t1\n"
                  "ValueMachineWeighting = weight\n"
                  "1 = 0.6\n"
                  "2 = 0.4\n"
                  "</REMOTE_MACHINES>\n"),
            "Sample03.cmx:6:24: error: the value of ValueShareFolderName stands in quotation "
            "marks: the launcher would take them as part of the value [cmx-quoted-value]\n"
            "    6 | ValueShareFolderName = \"Projects\"\n"
            "      |                        ^~~~~~~~~~ help: the value is written Projects\n");
}

}  // namespace
}  // namespace qvx::runcheck
