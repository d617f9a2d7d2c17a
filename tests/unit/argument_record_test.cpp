// The weights that an argument record is given.
#include "launcher/argument_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/support/expect_fault.h"

namespace qvx {
namespace {

TEST(AllocateWeights, GivesTheRecordSoManyOfZero) {
  LauncherContext context;
  const std::span<double> weights = AllocateWeights(context.warpArgument, 3);
  EXPECT_EQ(weights.data(), context.warpArgument.weights);
  EXPECT_TRUE(std::ranges::equal(weights, std::vector<double>(3)));
}

TEST(AllocateWeights, GivesAnArrayWithoutEntriesForNoProcess) {
  LauncherContext context;
  for (const int count : {0, -1}) {
    context.coolArgument.weights = nullptr;
    EXPECT_TRUE(AllocateWeights(context.coolArgument, count).empty());
    EXPECT_NE(context.coolArgument.weights, nullptr);
    delete[] context.coolArgument.weights;
  }
  context.coolArgument.weights = nullptr;
}

TEST(AllocateWeights, LeavesTheRecordsEarlierOnesAlone) {
  LauncherContext context;
  double earlier[] = {0.5};  // releasing them would end the test
  context.flowArgument.weights = earlier;
  const std::span<double> weights = AllocateWeights(context.flowArgument, 1);
  EXPECT_NE(weights.data(), earlier);
  EXPECT_EQ(earlier[0], 0.5);
}

TEST(AllocateWeightsDeathTest, RefusesACountThatMemoryCannotHold) {
  LauncherContext context;
  EXPECT_FAULT(AllocateWeights(context.flowArgument, 2'000'000'000),
               "ERROR: process weights cannot be allocated: count 2000000000");
}

}  // namespace
}  // namespace qvx
