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
constexpr int kMostPolls = 6000;
constexpr DWORD kPollMilliseconds = 10;
constexpr double kHungSeconds = 60;
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

/// Waits until the process launcher has created its first process; Wine leaves the console's host
/// of a program behind that is ended before it runs.
RunPlan CancelEarly(int milliseconds) {
  return {.cmx = Replaced(kSmpCmx, "ValueNoTask=2", "ValueNoTask=6"),
          .script = "await <site>\\never",
          .meanwhile = [milliseconds](LauncherProcess& launcher, const Site& site) -> std::string {
            for (int i = 0; ProcessesFrom(site.Path()) == 0; ++i) {
              if (i == kMostPolls) return "no process is created";
              Sleep(kPollMilliseconds);
            }
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
    runs.push_back(std::make_unique<PlannedRun>(CancelEarly(static_cast<int>(random() % 100))));
  }
  return runs;
}

const std::vector<std::unique_ptr<PlannedRun>> kStarts = PlanAll();

TEST(EarlyCtrlC, EndsTheProcessLauncherWithAllThatItCreated) {
  SCOPED_TRACE("seed " + std::to_string(Seed()));
  for (const auto& run : kStarts) {
    EXPECT_EQ((*run)->complaint, "");
    EXPECT_LT((*run)->seconds, kHungSeconds);
    EXPECT_EQ((*run)->output, ConsoleOf("Launch parallel computing\r\n", kCtrlC,
                                        "C:\\NODE1\\mpi\\impiexec.exe", -9876) +
                                  kCountdown);
    EXPECT_EQ((*run)->status, -9876);
  }
}

}  // namespace
}  // namespace qvx::test
