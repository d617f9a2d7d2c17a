// The weights that an argument record is given.
#include "launcher/argument_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/support/expect_fault.h"

namespace qvx {
namespace {

TEST(GiveWeights, GivesOneOfZeroForEachProcess) {
  LauncherContext context;
  context.warpArgument.processCount = 3;
  const std::span<double> weights = GiveWeights(context.warpArgument);
  EXPECT_EQ(weights.data(), context.warpArgument.weights);
  EXPECT_TRUE(std::ranges::equal(weights, std::vector<double>(3)));
}

TEST(GiveWeights, LeavesTheRecordOfNoProcessAlone) {
  LauncherContext context;
  context.coolArgument.weights = new double[1]{0.5};
  for (const int count : {0, -1}) {
    context.coolArgument.processCount = count;
    EXPECT_TRUE(GiveWeights(context.coolArgument).empty());
    EXPECT_EQ(*context.coolArgument.weights, 0.5);
  }
}

TEST(GiveWeightsDeathTest, RefusesACountThatMemoryCannotHold) {
  LauncherContext context;
  context.flowArgument.processCount = 2'000'000'000;
  EXPECT_FAULT(GiveWeights(context.flowArgument),
               "ERROR: process weights cannot be allocated: count 2000000000");
}

}  // namespace
}  // namespace qvx
