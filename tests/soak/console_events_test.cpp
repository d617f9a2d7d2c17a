// Ctrl-C around the moment when the solver ends and its log is closed, at random.
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/program/planned_run.h"
#include "tests/soak/setting.h"
#include "tests/support/process_runs.h"

namespace qvx::test {
namespace {

constexpr int kRuns = 48;
const std::string kCtrlC = "Ctrl-C is captured.\r\n";
const std::string kSolver = "<site>\\Home\\Bin\\Qvx3DFlow.exe";

RunPlan CancelAround(int milliseconds, int solverLives) {
  return {.script =
              "touch <site>\\solver;print x;flush;sleep " + std::to_string(solverLives) + ";exit 3",
          .meanwhile = [milliseconds](LauncherProcess& launcher, const Site& site) -> std::string {
            if (!launcher.WaitForOutput("x\r\n")) return "the solver does not run";
            Sleep(static_cast<DWORD>(milliseconds));
            if (!launcher.SendCtrlC()) return "Ctrl-C cannot be sent";
            launcher.Wait();
            return ProcessRuns(std::stoul(site.Read("solver"))) ? "the solver still runs" : "";
          }};
}

std::vector<std::unique_ptr<PlannedRun>> PlanAll() {
  std::mt19937 random(Seed());
  std::vector<std::unique_ptr<PlannedRun>> runs;
  for (int i = 0; i < kRuns; ++i) {
    runs.push_back(std::make_unique<PlannedRun>(
        CancelAround(static_cast<int>(random() % 300), static_cast<int>(random() % 500))));
  }
  return runs;
}

const std::vector<std::unique_ptr<PlannedRun>> kEnds = PlanAll();

const RunsOfTest kRunsOfTest("CtrlC.AroundTheSolversEndLosesNothing", [] {
  Runs runs;
  for (const auto& run : kEnds) runs.push_back(run.get());
  return runs;
});

TEST(CtrlC, AroundTheSolversEndLosesNothing) {
  SCOPED_TRACE("seed " + std::to_string(Seed()));
  int cancelled = 0;
  for (const auto& run : kEnds) {
    EXPECT_EQ((*run)->complaint, "");
    const int status = (*run)->status;
    EXPECT_TRUE(status == 3 || status == -9876) << status;
    if (status == -9876) ++cancelled;
    std::string output = (*run)->output;
    const std::size_t at = output.find(kCtrlC);
    ASSERT_NE(at, std::string::npos) << output;
    EXPECT_EQ(output.erase(at, kCtrlC.size()),
              SerialConsole("x\r\n", kSolver, status) + kCountdown);
    const std::string commandLine = kSolver + " " + FlowArguments(kSerialSettings);
    EXPECT_EQ((*run)->logs,
              (std::map<std::string, std::string>{{"console_redirect_serial_Flow_<time>.txt",
                                                   LogOf(commandLine, "x\r\n", kSolver, status)}}));
  }
  // Both ways have to have come, or the moments were not around the end.
  EXPECT_GT(cancelled, 0);
  EXPECT_LT(cancelled, kRuns);
}

}  // namespace
}  // namespace qvx::test
