// The sections SOLID_COOL and SOLID_MCM.
#include <gtest/gtest.h>

#include <string>

#include "runconfig/multi_shot_settings.h"
#include "runconfig/solid_cool_settings.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

std::int32_t CoolingChannelOf(const std::string& line) {
  const test::TemporaryFolder folder;
  std::int32_t flag = 77;
  const std::string path = folder.Write("run.cmx", "<SOLID_COOL>\n" + line + "\n</SOLID_COOL>\n");
  EXPECT_EQ(ReadSolidCoolSettings(path.c_str(), flag), 0);
  return flag;
}

MultiShotSettings MultiShotOf(const std::string& lines) {
  // Static: a fault ends the process without leaving this scope.
  static const test::TemporaryFolder folder;
  MultiShotSettings record;
  record.FlagPrevShot = record.ValueShotRunID = 7;
  record.ValueShotProjectName[0] = 'x';
  const std::string path = folder.Write("run.cmx", "<SOLID_MCM>\n" + lines + "</SOLID_MCM>\n");
  EXPECT_EQ(ReadMultiShotSettings(path.c_str(), record), 0);
  return record;
}

TEST(SolidCoolSettings, ReadTheFlagWithEverySpaceRemoved) {
  EXPECT_EQ(CoolingChannelOf("Flag3DSolidCoolingChannel=1"), 1);
  EXPECT_EQ(CoolingChannelOf(" Flag 3D SolidCoolingChannel = 1 2 "), 12);
  EXPECT_EQ(CoolingChannelOf("Flag3DSolidCoolingChannel=2"), 2);
  EXPECT_EQ(CoolingChannelOf("Flag3DSolidCoolingChannel=+1, yes"), 1);
}

TEST(SolidCoolSettings, TakeTheLaterOfTwoFlags) {
  EXPECT_EQ(CoolingChannelOf("Flag3DSolidCoolingChannel=1\nFlag3DSolidCoolingChannel=0"), 0);
}

TEST(SolidCoolSettings, AreZeroForTextOtherKeysAndAKeyWithoutValue) {
  EXPECT_EQ(CoolingChannelOf("Flag3DSolidCoolingChannel=yes"), 0);
  EXPECT_EQ(CoolingChannelOf("Flag3DSolidCoolingChannel=true"), 0);
  EXPECT_EQ(CoolingChannelOf("Flag3DSolidCoolingChannel"), 0);
  EXPECT_EQ(CoolingChannelOf("flag3DSolidCoolingChannel=1"), 0);
}

TEST(SolidCoolSettings, AreZeroWhenTheFileIsMissing) {
  std::int32_t flag = 77;
  EXPECT_EQ(test::PrintedBy([&] { EXPECT_EQ(ReadSolidCoolSettings("missing.cmx", flag), 0); }),
            " Read CMX file: missing.cmx failed!\n");
  EXPECT_EQ(flag, 0);
}

TEST(MultiShotSettings, AreReadByKey) {
  const MultiShotSettings record = MultiShotOf(
      "Version= 1.0\nFlagPrevShot=1\nValueShotRunID=3x\nFlagPrevShotProject=-2\n"
      "ValueShotProjectPath= D:\\Shot 1\nValueShotProjectName=First = one\n");
  EXPECT_STREQ(record.Version, "1.0");
  EXPECT_EQ(record.FlagPrevShot, 1);
  EXPECT_EQ(record.ValueShotRunID, 3);
  EXPECT_EQ(record.FlagPrevShotProject, -2);
  EXPECT_STREQ(record.ValueShotProjectPath, "D:\\Shot 1");
  EXPECT_STREQ(record.ValueShotProjectName, "First = one");
}

TEST(MultiShotSettings, HoldTheWordNullOrZeroForKeysWithoutValues) {
  const MultiShotSettings record = MultiShotOf("Version\nFlagPrevShot=1\nFlagPrevShot\n");
  EXPECT_STREQ(record.Version, "NULL");
  EXPECT_EQ(record.FlagPrevShot, 0);
}

TEST(MultiShotSettings, AreReadEachForItself) {
  const MultiShotSettings record = MultiShotOf("ValueShotRunID=-5\nValueShotProjectName=N\n");
  EXPECT_EQ(record.ValueShotRunID, -5);
  EXPECT_STREQ(record.ValueShotProjectName, "N");
  EXPECT_STREQ(MultiShotOf("ValueShotProjectPath\n").ValueShotProjectPath, "NULL");
}

TEST(MultiShotSettings, TakeTheLaterOfTwoValuesAsItStands) {
  const MultiShotSettings record = MultiShotOf(
      "FlagPrevShot=1\nFlagPrevShot=2\nValueShotProjectPath=a\nValueShotProjectPath=b\\\n");
  EXPECT_EQ(record.FlagPrevShot, 2);
  EXPECT_STREQ(record.ValueShotProjectPath, "b\\");
}

TEST(MultiShotSettings, DoNotKnowKeysInAnotherLetterCase) {
  EXPECT_EQ(MultiShotOf("flagPrevShot=1\n").FlagPrevShot, 0);
}

TEST(MultiShotSettings, AreEmptiedFirst) {
  const MultiShotSettings record = MultiShotOf("");
  EXPECT_EQ(record.FlagPrevShot, 0);
  EXPECT_EQ(record.ValueShotRunID, 0);
  EXPECT_STREQ(record.ValueShotProjectName, "");
}

TEST(MultiShotSettings, AreEmptyWhenTheFileIsMissing) {
  MultiShotSettings record;
  record.FlagPrevShot = 7;
  EXPECT_EQ(test::PrintedBy([&] { EXPECT_EQ(ReadMultiShotSettings("missing.cmx", record), 0); }),
            " Read CMX file: missing.cmx failed!\n");
  EXPECT_EQ(record.FlagPrevShot, 0);
}

TEST(MultiShotSettings, CutAnOverlongVersion) {
  const MultiShotSettings record = MultiShotOf("Version=" + std::string(40, 'v') + "\n");
  EXPECT_EQ(record.Version, std::string(31, 'v'));
}

TEST(MultiShotSettings, RefuseAValueThatNoSectionTakes) {
  const std::string longest(259, 'p');
  EXPECT_EQ(MultiShotOf("ValueShotProjectPath=" + longest + "\n").ValueShotProjectPath, longest);
  EXPECT_FAULT(MultiShotOf("ValueShotProjectPath=" + std::string(300, 'p') + "\n"),
               "ERROR: CMX value is too long: width 260, length 300");
}

}  // namespace
}  // namespace qvx
