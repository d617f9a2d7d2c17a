#include "launcher/compute_mode.h"

#include <gtest/gtest.h>

#include "support/bounded_text.h"

namespace qvx {
namespace {

ComputeMode Decide(std::uint32_t solverClass, const char* taskMode, const char* localTasks) {
  LauncherContext context;
  context.solverClass = SolverClass{solverClass};
  CopyText(context.taskManagerSettings.IDTaskMode, "IDTaskMode", taskMode);
  CopyText(context.taskManagerSettings.ValueLocalNoTask, "ValueLocalNoTask", localTasks);
  return DecideComputeMode(context);
}

TEST(ComputeMode, OfAParallelClassFollowsTheTaskMode) {
  for (std::uint32_t solverClass = 0; solverClass <= 4; ++solverClass) {
    for (const char* const taskMode : {"1", "00", "", "0 ", "NULL"}) {
      EXPECT_EQ(Decide(solverClass, taskMode, "1"), ComputeMode::Dmp);
    }
    for (const char* const localTasks : {"4", "", "01", "1 ", "10", "0", "NULL"}) {
      EXPECT_EQ(Decide(solverClass, "0", localTasks), ComputeMode::Smp);
    }
    EXPECT_EQ(Decide(solverClass, "0", "1"), ComputeMode::Serial);
  }
}

TEST(ComputeMode, OfOtherClassesIsSerial) {
  for (std::uint32_t solverClass = 5; solverClass <= 12; ++solverClass) {
    EXPECT_EQ(Decide(solverClass, "1", "4"), ComputeMode::Serial);
  }
}

}  // namespace
}  // namespace qvx
