// The section TASKMANAGER: which line reaches which field, what the dump shows, and when a run is
// distributed.
#include "runconfig/task_manager_settings.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

/// Reads `lines` as the section's content.
TaskManagerSettings ReadLines(const std::string& lines) {
  // Static: a fault ends the process without leaving this scope.
  static const test::TemporaryFolder folder;
  TaskManagerSettings record;
  const std::string path = folder.Write("run.cmx", "<TASKMANAGER>\n" + lines + "</TASKMANAGER>\n");
  EXPECT_EQ(ReadTaskManagerSettings(path.c_str(), record), 0);
  return record;
}

constexpr const char* kAllLines =
    "Version=1.0\nIDTaskMode=0\nflagAccelerationType=2\nValueNoTask=4\nValueLocalNoTask=1\n"
    "ValueConsoleRedirection=yes\n";

TEST(TaskManagerSettings, AreReadByKey) {
  const TaskManagerSettings record = ReadLines(kAllLines);
  EXPECT_STREQ(record.Version, "1.0");
  EXPECT_STREQ(record.IDTaskMode, "0");
  EXPECT_STREQ(record.flagAccelerationType, "2");
  EXPECT_STREQ(record.ValueNoTask, "4");
  EXPECT_STREQ(record.ValueLocalNoTask, "1");
  EXPECT_STREQ(record.ValueConsoleRedirection, "yes");
}

TEST(TaskManagerSettings, KeepWhatTheFileDoesNotName) {
  const test::TemporaryFolder folder;
  const std::string path = folder.Write("run.cmx", "<TASKMANAGER>\nValueNoTask=4\n");
  TaskManagerSettings record;
  CopyText(record.Version, "", "before");
  CopyText(record.ValueNoTask, "", "before");
  ReadTaskManagerSettings(path.c_str(), record);
  EXPECT_STREQ(record.Version, "before");
  EXPECT_STREQ(record.ValueNoTask, "4");
}

TEST(TaskManagerSettings, AreReadInSilenceAndDumpedLineByLine) {
  EXPECT_EQ(test::PrintedBy([] { DumpTaskManagerSettings(ReadLines(kAllLines)); }),
            "Version                    = 1.0\n"
            "IDTaskMode                 = 0\n"
            "FlagAccelerationType       = 2\n"
            "ValueNoTask                = 4\n"
            "ValueLocalNoTask           = 1\n"
            "ValueConsoleRedirection    = yes\n");
}

TEST(TaskManagerSettings, KeepATrailingBlankOfTheValue) {
  EXPECT_STREQ(ReadLines("  Version  =  1.0 \n").Version, "1.0 ");
}

TEST(TaskManagerSettings, IgnoreSpacesInsideAKeyButNotItsLetterCase) {
  EXPECT_STREQ(ReadLines("ID Task Mode=0\n").IDTaskMode, "0");
  EXPECT_STREQ(ReadLines("idtaskmode=0\n").IDTaskMode, "");
  EXPECT_STREQ(ReadLines("FlagAccelerationType=0\n").flagAccelerationType, "");
}

TEST(TaskManagerSettings, TakeASecondEqualsSignAsPartOfTheValue) {
  const TaskManagerSettings record = ReadLines("IDTaskMode=0=1\n");
  EXPECT_STREQ(record.IDTaskMode, "0=1");
  EXPECT_TRUE(IsDistributed(record));
}

TEST(TaskManagerSettings, HoldTheWordNullForAKeyWithoutValue) {
  EXPECT_STREQ(ReadLines("ValueLocalNoTask\n").ValueLocalNoTask, "NULL");
}

TEST(TaskManagerSettings, TakeAnEmptyValueToo) {
  EXPECT_STREQ(ReadLines("ValueNoTask=4\nValueNoTask=\n").ValueNoTask, "");
}

TEST(TaskManagerSettings, DoNotKnowAKeyWithATab) {
  EXPECT_STREQ(ReadLines("IDTaskMode\t=0\n").IDTaskMode, "");
}

TEST(TaskManagerSettings, TakeTheLaterOfTwoSectionsAndNothingOutsideThem) {
  EXPECT_STREQ(ReadLines("ValueNoTask=2\n</TASKMANAGER>\nValueNoTask=3\n<TASKMANAGER>\n"
                         "ValueNoTask=4\n</TASKMANAGER>\nValueNoTask=5\n")
                   .ValueNoTask,
               "4");
}

TEST(TaskManagerSettings, StayAsTheyAreWhenTheFileIsMissing) {
  TaskManagerSettings record;
  CopyTruncated(record.Version, "before");
  EXPECT_EQ(test::PrintedBy([&] { EXPECT_EQ(ReadTaskManagerSettings("missing.cmx", record), 0); }),
            " Read CMX file: missing.cmx failed!\n");
  EXPECT_STREQ(record.Version, "before");
  EXPECT_STREQ(record.IDTaskMode, "");
}

TEST(TaskManagerSettings, RefuseAValueOf32Characters) {
  const std::string longest(31, 'v');
  EXPECT_EQ(ReadLines("Version=" + longest + "\n").Version, longest);
  EXPECT_FAULT(ReadLines("ValueNoTask=" + longest + "v\n"),
               "ERROR: ValueNoTask is too long: width 32, length 32");
  EXPECT_FAULT(ReadLines("ValueConsoleRedirection=" + longest + "vwx\n"),
               "ERROR: ValueConsoleRedirection is too long: width 32, length 34");
}

TEST(TaskManagerSettings, TakeNoNoticeOfALongValueWhoseKeyTheyDoNotKnow) {
  EXPECT_STREQ(ReadLines("ValueNoTask=4\nNote=" + std::string(200, 'v') + "\n").ValueNoTask, "4");
}

TEST(IsDistributed, HoldsForEveryTaskModeButZero) {
  EXPECT_FALSE(IsDistributed(ReadLines("IDTaskMode=0\n")));
  for (const char* mode : {"1", "00", "", "0 ", "NULL"}) {
    EXPECT_TRUE(IsDistributed(ReadLines(std::string("IDTaskMode=") + mode + "\n"))) << mode;
  }
  EXPECT_TRUE(IsDistributed(TaskManagerSettings()));
}

}  // namespace
}  // namespace qvx
