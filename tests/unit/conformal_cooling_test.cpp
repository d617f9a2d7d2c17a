// When a COOL run is conformal cooling, and the transfer of its arguments to the flow pre-pass.
#include "launcher/conformal_cooling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/bounded_text.h"
#include "tests/support/printed_by.h"
#include "tests/support/temporary_folder.h"

namespace qvx {
namespace {

struct ConformalCooling : testing::Test {
  /// Applies the setting of a CMX file of these bytes and returns what is printed.
  std::string Apply(SolverClass solverClass, const std::string& bytes) {
    CopyText(context.cmxPath, "", folder.Write("run.cmx", bytes));
    context.solverClass = solverClass;
    return test::PrintedBy([&] { EXPECT_EQ(ApplyConformalCoolingSetting(context), 0); });
  }

  test::TemporaryFolder folder;
  LauncherContext context;
};

std::string Channel(const std::string& value) {
  return "<SOLID_COOL>\nFlag3DSolidCoolingChannel" + value + "\n</SOLID_COOL>\n";
}

TEST_F(ConformalCooling, IsSetByAChannelOfOne) {
  EXPECT_EQ(Apply(SolverClass::Cool, Channel("= 1")), "");
  EXPECT_EQ(context.conformalCoolingFlag, 1);
}

TEST_F(ConformalCooling, IsTraced) {
  context.debugTraceFlag = 1;
  EXPECT_EQ(Apply(SolverClass::Cool, Channel("=1")),
            "Flag3DSolidCoolingChannel=1\nm_bIsConformalCooling=true\n");
}

TEST_F(ConformalCooling, IsNeitherSetNorTracedByAnythingElse) {
  context.debugTraceFlag = 1;
  for (const std::string& bytes : {Channel("=0"), Channel("=2"), Channel("=-1"), Channel("=yes"),
                                   Channel("=1 1"), Channel(""), std::string()}) {
    EXPECT_EQ(Apply(SolverClass::Cool, bytes), "") << bytes;
    EXPECT_EQ(context.conformalCoolingFlag, 0) << bytes;
  }
}

TEST_F(ConformalCooling, IsNotSetWhenTheFileIsMissing) {
  CopyText(context.cmxPath, "", "missing.cmx");
  context.solverClass = SolverClass::Cool;
  EXPECT_EQ(test::PrintedBy([&] { EXPECT_EQ(ApplyConformalCoolingSetting(context), 0); }),
            " Read CMX file: missing.cmx failed!\n");
  EXPECT_EQ(context.conformalCoolingFlag, 0);
}

// The run preparation asks for COOL alone. The answers for the others are kept all the same.
TEST_F(ConformalCooling, IsNotEvenReadForClassesThatAlwaysRunSerially) {
  CopyText(context.cmxPath, "", "missing.cmx");
  for (std::uint32_t number = 5; number <= 12; ++number) {
    context.solverClass = SolverClass{number};
    EXPECT_EQ(test::PrintedBy([&] { EXPECT_EQ(ApplyConformalCoolingSetting(context), 0); }), "");
    Apply(SolverClass{number}, Channel("=1"));
    EXPECT_EQ(context.conformalCoolingFlag, 0);
  }
}

TEST_F(ConformalCooling, IsReadForANumberThatNamesNoFamily) {
  Apply(SolverClass{13}, Channel("=1"));
  EXPECT_EQ(context.conformalCoolingFlag, 1);
}

TEST_F(ConformalCooling, TakesTheFlowSolverOfTheBinFolderItself) {
  CopyText(context.solverExecutableName, "", "Sub\\Qvx3DCool.exe");
  BeginFlowPass(context);
  EXPECT_STREQ(context.solverExecutableName, "Qvx3DFlow.exe");
  BeginCoolPass(context);
  EXPECT_STREQ(context.solverExecutableName, "Sub\\Qvx3DCool.exe");
}

struct CoolToFlowCopy : testing::Test {
  void Copy() { EXPECT_EQ(CopyCoolArgumentToFlowArgument(context), 0); }

  LauncherContext context;
  CQVXCoolArgument& cool = context.coolArgument;
  CQVXFlowFlowEPackArgument& flow = context.flowArgument;
};

TEST_F(CoolToFlowCopy, TakesEveryReservedMember) {
  cool.reservedInteger1 = 1;
  cool.reservedInteger2 = 2;
  cool.reservedInteger3 = 3;
  cool.reservedInteger4 = 4;
  cool.reservedInteger5 = 5;
  CopyText(cool.reservedText1, "", std::string(63, 'a'));
  CopyText(cool.reservedText2, "", std::string(63, 'b'));
  CopyText(cool.reservedText3, "", std::string(255, 'c'));
  CopyText(cool.reservedText4, "", std::string(255, 'd'));
  Copy();
  EXPECT_EQ(flow.reservedInteger1, 1);
  EXPECT_EQ(flow.reservedInteger2, 2);
  EXPECT_EQ(flow.reservedInteger3, 3);
  EXPECT_EQ(flow.reservedInteger4, 4);
  EXPECT_EQ(flow.reservedInteger5, 5);
  EXPECT_EQ(flow.reservedText1, std::string(63, 'a'));
  EXPECT_EQ(flow.reservedText2, std::string(63, 'b'));
  EXPECT_EQ(flow.reservedText3, std::string(255, 'c'));
  EXPECT_EQ(flow.reservedText4, std::string(255, 'd'));
}

TEST_F(CoolToFlowCopy, TakesTheRunTextsAndTheMoldingType) {
  CopyText(cool.homeFolder, "", std::string(1023, 'h'));
  CopyText(cool.projectDirectory, "", std::string(1023, 'd'));
  CopyText(cool.projectName, "", std::string(255, 'n'));
  CopyText(cool.runNumber, "", std::string(31, '7'));
  cool.moldingType = -4;
  Copy();
  EXPECT_EQ(flow.homeFolder, std::string(1023, 'h'));
  EXPECT_EQ(flow.projectDirectory, std::string(1023, 'd'));
  EXPECT_EQ(flow.projectName, std::string(255, 'n'));
  EXPECT_EQ(flow.runNumber, std::string(31, '7'));
  EXPECT_EQ(flow.moldingType, -4);
}

TEST_F(CoolToFlowCopy, MakesTheOptionTwoForThreeAndOneForTheRest) {
  const std::pair<int, int> options[] = {{3, 2}, {0, 1}, {1, 1}, {2, 1}, {4, 1}, {-3, 1}};
  for (const auto& [coolOption, flowOption] : options) {
    cool.optionValue = coolOption;
    Copy();
    EXPECT_EQ(flow.optionValue, flowOption) << coolOption;
  }
}

TEST_F(CoolToFlowCopy, TakesOnlyAKnownParallelMode) {
  for (const int mode : {0, 1, 2}) {
    flow.parallelMode = 9;
    cool.parallelMode = mode;
    Copy();
    EXPECT_EQ(flow.parallelMode, mode);
  }
  for (const int mode : {-1, 3}) {
    flow.parallelMode = 9;
    cool.parallelMode = mode;
    Copy();
    EXPECT_EQ(flow.parallelMode, 9);
  }
}

TEST_F(CoolToFlowCopy, GivesTheFlowRecordWeightsOfItsOwn) {
  cool.processCount = 3;
  cool.weights = new double[3]{0.25, 0.5, 0.125};
  Copy();
  std::fill_n(cool.weights, 3, 9);
  EXPECT_EQ(flow.processCount, 3);
  EXPECT_EQ(std::vector<double>(flow.weights, flow.weights + 3),
            (std::vector<double>{0.25, 0.5, 0.125}));
}

TEST_F(CoolToFlowCopy, GivesASingleProcessItsWeight) {
  cool.processCount = 1;
  cool.weights = new double[1]{0.75};
  Copy();
  ASSERT_NE(flow.weights, nullptr);
  EXPECT_EQ(flow.weights[0], 0.75);
}

TEST_F(CoolToFlowCopy, TakesACountBelowOneWithoutWeights) {
  cool.weights = new double[1]{0.25};
  for (const int count : {0, -1}) {
    flow.processCount = 9;
    cool.processCount = count;
    Copy();
    EXPECT_EQ(flow.processCount, count);
    EXPECT_EQ(flow.weights, nullptr);
  }
}

TEST_F(CoolToFlowCopy, TakesACountWhoseWeightsAreMissing) {
  cool.processCount = 2;
  Copy();
  EXPECT_EQ(flow.processCount, 2);
  EXPECT_EQ(flow.weights, nullptr);
}

}  // namespace
}  // namespace qvx
