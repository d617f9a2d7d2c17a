// Carries out all planned runs of the launcher, then lets the tests look at them.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (!testing::GTEST_FLAG(list_tests)) qvx::test::PlannedRun::RunAll();
  return RUN_ALL_TESTS();
}
