// Ctrl-C right after the start of the process launcher, which just then creates its processes.
#include <gtest/gtest.h>
#include <windows.h>

// Needs the one above.
#include <psapi.h>

#include <random>
#include <string>
#include <vector>

#include "tests/program/expected_run.h"
#include "tests/soak/setting.h"
#include "tests/support/process_runs.h"
#include "tests/support/run_tests.h"
#include "tests/support/texts.h"

namespace qvx::test {
namespace {

constexpr int kRuns = 48;
constexpr DWORD kPollMilliseconds = 10;

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
            while (ProcessesFrom(site.Path()) == 0) {
              if (!launcher.Runs()) return "no process is created";
              Sleep(kPollMilliseconds);
            }
            Sleep(static_cast<DWORD>(milliseconds));
            if (!launcher.SendCtrlC()) return "Ctrl-C cannot be sent";
            launcher.Wait();
            return ProcessesFrom(site.Path()) == 0 ? "" : "a solver still runs";
          }};
}

void ExpectCancelled(const RunResult& run) {
  ExpectRun(run, {.shown = kCtrlC, .status = -9876, .logged = ""});
}

}  // namespace
}  // namespace qvx::test

int main(int count, char** arguments) {
  using namespace qvx::test;
  std::mt19937 random(Seed());
  std::vector<RunPlan> plans;
  for (int i = 0; i < kRuns; ++i) plans.push_back(CancelEarly(static_cast<int>(random() % 100)));
  PlannedTests tests;
  tests.Add("EarlyCtrlC", "EndsTheProcessLauncherWithAllThatItCreated", std::move(plans),
            [](const Results& runs) {
              SCOPED_TRACE("seed " + std::to_string(Seed()));
              for (const RunResult& run : runs) ExpectCancelled(run);
            });
  return RunTests(count, arguments);
}
