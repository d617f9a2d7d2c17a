// The options that the argument tool's replacement writes, how it quotes and where it cuts, and
// that a record is reset to zero.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

#include "platform/qvx_solver_argument_tool.h"
#include "support/bounded_text.h"

namespace qvx {
namespace {

/// Makes every byte of a record 'a', except that weights are some that the record can own.
template <typename Record>
void Fill(Record& record) {
  std::memset(static_cast<void*>(&record), 'a', sizeof record);
  if constexpr (std::is_base_of_v<QVXRunSettings, Record>) record.weights = new double[1];
}

void FillRunTexts(QVXRunTexts& run) {
  CopyText(run.homeFolder, "", "D:\\Home x");
  CopyText(run.projectDirectory, "", "D:\\Proj");
  CopyText(run.projectName, "", "Part");
  CopyText(run.runNumber, "", "03");
}

void FillRunSettings(QVXRunSettings& settings) {
  settings.moldingType = 1;
  settings.optionValue = -2;
  settings.parallelMode = 2;
  settings.processCount = 3;
  settings.weights = new double[3]{0.5, 0.25, 1e-7};
}

void FillPreviousShot(QVXPreviousShot& shot) {
  shot.previousShotFlag = 1;
  CopyText(shot.previousShotProjectPath, "", "D:\\Shot");
  CopyText(shot.previousShotRunId, "", "02");
  CopyText(shot.previousShotProjectName, "", "First");
}

void FillShellSettings(QVXShellSettings& settings) {
  settings.optionValue = 4;
  CopyText(settings.extraTexts[0], "", "a");
  CopyText(settings.extraTexts[1], "", "b");
  CopyText(settings.extraTexts[2], "", "c");
}

const std::string kRun = "-home \"D:\\Home x\" -project \"D:\\Proj\" -name \"Part\" -run \"03\"";
const std::string kSettings =
    " -molding 1 -option -2 -parallel 2 -processes 3 -weights 0.5,0.25,1e-07";
const std::string kShot =
    " -prevshot 1 -prevproject \"D:\\Shot\" -prevrun \"02\" -prevname \"First\"";
const std::string kShell = " -option 4 -extra \"a\" -extra \"b\" -extra \"c\"";

TEST(SolverArgumentTool, WritesTheFlowRecord) {
  CQVXFlowFlowEPackArgument record;
  FillRunTexts(record);
  FillRunSettings(record);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateFlowFlowEPackArgument(record), kRun + kSettings);
}

TEST(SolverArgumentTool, WritesTheCoolingRecord) {
  CQVXCoolArgument record;
  FillRunTexts(record);
  FillRunSettings(record);
  FillPreviousShot(record);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateCoolArgument(record), kRun + kSettings + kShot);
}

TEST(SolverArgumentTool, WritesTheWarpageRecord) {
  CQVXWarpArgument record;
  FillRunTexts(record);
  FillRunSettings(record);
  FillPreviousShot(record);
  record.secondOptionValue = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(CQVXSolverArgumentTool().CreateWarpArgument(record),
            kRun + kSettings + kShot + " -option2 -2147483648");
}

TEST(SolverArgumentTool, WritesTheShellRecords) {
  CQVXShellFlowPackArgument flow;
  FillRunTexts(flow);
  FillShellSettings(flow);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateShellFlowPackArgument(flow), kRun + kShell);
  CQVXShellCoolArgument cool;
  FillRunTexts(cool);
  FillShellSettings(cool);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateShellCoolArgument(cool), kRun + kShell);
  CQVXShellWarpArgument warp;
  FillRunTexts(warp);
  FillShellSettings(warp);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateShellWarpArgument(warp), kRun + kShell);
}

TEST(SolverArgumentTool, WritesTheRecordsOfTextsAlone) {
  CQVX3DICWSPSArgument ic;
  FillRunTexts(ic);
  EXPECT_EQ(CQVXSolverArgumentTool().Create3DICWSPSArgument(ic), kRun);
  CQVXOpticsArgument optics;
  FillRunTexts(optics);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateOpticsArgument(optics), kRun);
}

TEST(SolverArgumentTool, QuotesWhatTheCRuntimeWouldRead) {
  CQVXOpticsArgument record;
  CopyText(record.homeFolder, "", "C:\\Q x");
  CopyText(record.projectDirectory, "", ":x");
  CopyText(record.projectName, "", "a\\\"b");
  CopyText(record.runNumber, "", "01");
  EXPECT_STREQ(CQVXSolverArgumentTool().CreateOpticsArgument(record),
               "-home \"C:\\Q x\" -project \":x\" -name \"a\\\\\\\"b\" -run \"01\"");
}

TEST(SolverArgumentTool, PutsABlankBehindATextThatAProcessLauncherWouldSpoil) {
  CQVXOpticsArgument record;
  CopyText(record.homeFolder, "", "C:\\Q\\");
  CopyText(record.projectName, "", ":");
  EXPECT_STREQ(CQVXSolverArgumentTool().CreateOpticsArgument(record),
               "-home \"C:\\Q\\ \" -project \" \" -name \": \" -run \" \"");
}

TEST(SolverArgumentTool, LeavesWeightsOutThatAreNotThere) {
  const std::string run = "-home \" \" -project \" \" -name \" \" -run \" \" -molding 0 -option 0";
  CQVXFlowFlowEPackArgument record;
  record.processCount = 2;
  EXPECT_EQ(CQVXSolverArgumentTool().CreateFlowFlowEPackArgument(record),
            run + " -parallel 0 -processes 2");
  record.processCount = -1;
  record.weights = new double[1]{1};
  EXPECT_EQ(CQVXSolverArgumentTool().CreateFlowFlowEPackArgument(record),
            run + " -parallel 0 -processes -1");
}

TEST(SolverArgumentTool, CutsBehindTheLastOptionThatFits) {
  CQVXShellFlowPackArgument record;
  Fill(record);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateShellFlowPackArgument(record),
            "-home \"" + std::string(1024, 'a') + "\" -project \"" + std::string(1024, 'a') +
                "\" -name \"" + std::string(256, 'a') + "\" -run \"" + std::string(32, 'a') +
                "\" -option 1633771873 -extra \"" + std::string(1024, 'a') + "\" -cut");
}

TEST(SolverArgumentTool, CutsWhatLeavesNoRoomForTheMarkOfACut) {
  CQVXShellFlowPackArgument record;
  const std::string longest(1000, 'x');
  CopyText(record.homeFolder, "", longest);
  CopyText(record.projectDirectory, "", longest);
  CopyText(record.extraTexts[0], "", longest);
  const std::string before = "-home \"" + longest + "\" -project \"" + longest +
                             "\" -name \" \" -run \" \" -option 0 -extra \"" + longest + "\"";
  const std::string last(4095 - before.size() - std::strlen(" -extra \" \" -extra \"\" -cut"), 'x');
  CopyText(record.extraTexts[2], "", last);
  EXPECT_EQ(CQVXSolverArgumentTool().CreateShellFlowPackArgument(record),
            before + " -extra \" \" -extra \"" + last + "\"");
  CopyText(record.extraTexts[2], "", last + "x");
  EXPECT_EQ(CQVXSolverArgumentTool().CreateShellFlowPackArgument(record),
            before + " -extra \" \" -cut");
}

/// Holds for a record without the group too.
template <typename Group, typename Record>
bool IsZero(const Record& record) {
  if constexpr (std::is_base_of_v<Group, Record>) {
    static_assert(std::has_unique_object_representations_v<Group>);
    const Group zero{};
    return std::memcmp(static_cast<const Group*>(&record), &zero, sizeof zero) == 0;
  }
  return true;
}

template <typename Record>
bool IsReset(const Record& record) {
  if constexpr (requires { record.secondOptionValue; }) {
    if (record.secondOptionValue != 0) return false;
  }
  return IsZero<QVXReservedHead>(record) && IsZero<QVXRunTexts>(record) &&
         IsZero<QVXRunSettings>(record) && IsZero<QVXPreviousShot>(record) &&
         IsZero<QVXShellSettings>(record);
}

template <typename Record>
struct ArgumentRecord : testing::Test {};

using Records = testing::Types<CQVXFlowFlowEPackArgument, CQVXCoolArgument, CQVXWarpArgument,
                               CQVXShellFlowPackArgument, CQVXShellCoolArgument,
                               CQVXShellWarpArgument, CQVX3DICWSPSArgument, CQVXOpticsArgument>;
TYPED_TEST_SUITE(ArgumentRecord, Records);

TYPED_TEST(ArgumentRecord, IsZeroAfterItsReset) {
  TypeParam record;
  Fill(record);
  EXPECT_FALSE(IsReset(record));
  record.Reset();
  EXPECT_TRUE(IsReset(record));
}

}  // namespace
}  // namespace qvx
