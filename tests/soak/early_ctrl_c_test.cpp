// Ctrl-C right after the start of the process launcher, which just then creates its processes.
#include <gtest/gtest.h>
#include <windows.h>

// Needs the one above.
#include <psapi.h>

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

/// Processes of programs below `folder`.
int ProcessesFrom(const std::string& folder) {
  std::vector<DWORD> identifiers(4096);
  DWORD bytes = 0;
  EnumProcesses(identifiers.data(), static_cast<DWORD>(identifiers.size() * sizeof(DWORD)), &bytes);
  identifiers.resize(bytes / sizeof(DWORD));
  int count = 0;
  for (const DWORD identifier : identifiers) {
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, identifier);
    if (process == nullptr) continue;
    char path[1024] = {};
    DWORD length = sizeof path;
    const bool isFrom = QueryFullProcessImageNameA(process, 0, path, &length) != 0 &&
                        std::string(path).starts_with(folder);
    CloseHandle(process);
    if (isFrom && ProcessRuns(identifier)) ++count;
  }
  return count;
}

constexpr double kHungSeconds = 60;

RunPlan CancelEarly(int milliseconds) {
  return {.cmx = kSmpCmx,
          .script = "sleep 4000;exit 3",
          .meanwhile = [milliseconds](LauncherProcess& launcher, const Site& site) -> std::string {
            if (!launcher.WaitForOutput("Launch parallel computing\r\n")) return "no start";
            Sleep(static_cast<DWORD>(milliseconds));
            if (!launcher.SendCtrlC()) return "Ctrl-C cannot be sent";
            launcher.Wait();
            return ProcessesFrom(site.Path()) == 0 ? "" : "a solver still runs";
          }};
}

std::vector<std::unique_ptr<PlannedRun>> PlanAll() {
  std::mt19937 random(Seed());
  std::vector<std::unique_ptr<PlannedRun>> runs;
  for (int i = 0; i < kRuns; ++i) {
    runs.push_back(std::make_unique<PlannedRun>(CancelEarly(static_cast<int>(random() % 200))));
  }
  return runs;
}

const std::vector<std::unique_ptr<PlannedRun>> kStarts = PlanAll();

TEST(EarlyCtrlC, EndsTheProcessLauncherWithAllThatItCreated) {
  SCOPED_TRACE("seed " + std::to_string(Seed()));
  int cancelled = 0;
  for (const auto& run : kStarts) {
    EXPECT_EQ((*run)->complaint, "");
    EXPECT_LT((*run)->seconds, kHungSeconds);
    EXPECT_NE((*run)->output.find(kCtrlC), std::string::npos) << (*run)->output;
    if ((*run)->status == -9876) ++cancelled;
  }
  // One that comes before the process launcher is there ends nothing.
  EXPECT_GT(cancelled, kRuns / 2);
}

}  // namespace
}  // namespace qvx::test
