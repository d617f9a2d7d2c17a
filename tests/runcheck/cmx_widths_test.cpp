// Texts of the CMX file that end the launcher because they are too long for their field.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxWidths, AValueThatIsTooLong) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>\nVersion = " + std::string(32, 'x'))),
            "Sample03.cmx:2:11: error: Version is too long: width 32, length 32: the launcher "
            "would end with -2 [text-too-long]\n"
            "    2 | Version = xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\n"
            "      |           ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less than "
            "the width\n");
}

TEST(CmxWidths, AValueThatJustFits) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>\nVersion = " + std::string(31, 'x'))), "");
}

TEST(CmxWidths, AKeyThatIsTooLong) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>\n" + std::string(260, 'x') + " = 1")),
            "Sample03.cmx:2:1: error: CMX key is too long: width 260, length 261: the launcher "
            "would end with -2 [text-too-long]\n"
            "    2 | " +
                std::string(160, 'x') +
                "\n"
                "      | ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is "
                "shortened to less than the width\n");
}

TEST(CmxWidths, AnUnknownKeysValueThatIsTooLong) {
  EXPECT_EQ(Found(Local("<TASKMANAGER>", "<TASKMANAGER>\n;  = " + std::string(260, 'y'))),
            "Sample03.cmx:2:6: error: CMX value is too long: width 260, length 261: the launcher "
            "would end with -2 [text-too-long]\n"
            "    2 | ;  = " +
                std::string(155, 'y') +
                "\n"
                "      |      ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: "
                "it is shortened to less than the width\n");
}

TEST(CmxWidths, AHostThatIsTooLong) {
  EXPECT_EQ(Found(Distributed("2 = NODE2\t1", "2 = " + std::string(32, 'N') + "\t1")),
            "Sample03.cmx:11:5: error: machine host name is too long: width 32, length 32: the "
            "launcher would end with -2 [text-too-long]\n"
            "   11 | 2 = NNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNN\t1\n"
            "      |     ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less than the "
            "width\n");
}

TEST(CmxWidths, ATooLongTextHidesNothingElse) {
  EXPECT_EQ(
      Found(Local("IDTaskMode = 0", "Version = " + std::string(32, 'x') + "\nIDTaskMode = 0 ")),
      "Sample03.cmx:2:11: error: Version is too long: width 32, length 32: the launcher would end "
      "with -2 [text-too-long]\n"
      "    2 | Version = xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\n"
      "      |           ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to less than the "
      "width\n"
      "Sample03.cmx:3:15: error: 1 blank stands behind the value of IDTaskMode: the value is not 0 "
      "and the run would be distributed [cmx-trailing-blank]\n"
      "    3 | IDTaskMode = 0 \n"
      "      |               ^ help: the value is written 0\n");
}

TEST(CmxWidths, TheLastLineTooLongIsSaidOnce) {
  EXPECT_EQ(Found(Local("1\n</TASKMANAGER>", std::string(32, '1'))),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n"
            "Sample03.cmx:4:20: error: ValueLocalNoTask is too long: width 32, length 32: the "
            "launcher would end with -2 [text-too-long]\n"
            "    4 | ValueLocalNoTask = 11111111111111111111111111111111\n"
            "      |                    ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~ help: it is shortened to "
            "less than the width\n");
}

TEST(CmxWidths, TheLastLineThatJustFits) {
  EXPECT_EQ(Found(Local("</TASKMANAGER>", "Version = " + std::string(31, '1'))),
            "Sample03.cmx:1:1: warning: TASKMANAGER is never closed [cmx-section-open]\n"
            "    1 | <TASKMANAGER>\n"
            "      | ^~~~~~~~~~~~~ help: the section ends with </TASKMANAGER>\n");
}

TEST(CmxWidths, ALineThatStopsTwoReadersInTwoFieldsIsSaidForBoth) {
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
            "number of lines in each of the two blocks, which follow one another without a gap\n"
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
