// Ctrl-C around the moment when the solver ends and its log is closed, at random.
#include <gtest/gtest.h>
#include <windows.h>

#include <random>
#include <string>
#include <vector>

#include "tests/program/expected_run.h"
#include "tests/soak/setting.h"
#include "tests/soak/special_runs.h"
#include "tests/support/process_runs.h"

namespace qvx::test {
namespace {

constexpr int kRuns = 48;

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

}  // namespace

void AddRandomConsoleEvents(PlannedTests& tests) {
  std::mt19937 random(Seed());
  std::vector<RunPlan> plans;
  for (int i = 0; i < kRuns; ++i) {
    const int cancel = static_cast<int>(random() % 300);
    plans.push_back(CancelAround(cancel, static_cast<int>(random() % 500)));
  }
  tests.Add("CtrlC", "AroundTheSolversEndLosesNothing", std::move(plans), [](const Results& runs) {
    SCOPED_TRACE("seed " + std::to_string(Seed()));
    int cancelled = 0;
    for (const RunResult& run : runs) {
      EXPECT_TRUE(run.status == 3 || run.status == -9876) << run.status;
      if (run.status == -9876) ++cancelled;
      ExpectRun(WithoutOneCtrlC(run), {.shown = "x\r\n", .status = run.status});
    }
    // Both ways have to have come, or the moments were not around the end.
    EXPECT_GT(cancelled, 0);
    EXPECT_LT(cancelled, kRuns);
  });
}

}  // namespace qvx::test
