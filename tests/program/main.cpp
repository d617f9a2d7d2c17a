// Carries out the planned runs of the launcher that the chosen tests look at, then runs the tests.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"

namespace {

/// Set up when the filter has been applied and no test has run yet.
class PlannedRuns : public testing::Environment {
  void SetUp() override { qvx::test::CarryOutChosenRuns(); }
};

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  testing::AddGlobalTestEnvironment(new PlannedRuns);
  return RUN_ALL_TESTS();
}
