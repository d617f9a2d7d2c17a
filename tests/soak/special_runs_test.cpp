// Runs at the edge of what a machine, a file or a user does to the launcher.
#include "tests/soak/special_runs.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/program/expected_run.h"
#include "tests/support/run_tests.h"
#include "tests/support/texts.h"

namespace qvx::test {
namespace {

namespace fs = std::filesystem;

/// Fails when the launcher has more than 64 MiB at a time.
std::string WatchMemory(LauncherProcess& launcher, const Site&) {
  std::size_t peak = 0;
  for (; launcher.Runs(); Sleep(100)) peak = std::max(peak, launcher.PeakWorkingSet());
  return peak > 0 && peak < std::size_t{64} << 20 ? "" : "memory " + std::to_string(peak);
}

std::string TryToDeleteTheLog(const Site& site) {
  for (const auto& entry : fs::directory_iterator(site.RunFolder())) {
    if (entry.path().extension() != ".txt") continue;
    return DeleteFileA(entry.path().string().c_str()) == 0 &&
                   GetLastError() == ERROR_SHARING_VIOLATION
               ? ""
               : "the log could be deleted";
  }
  return "there is no log";
}

std::string TryToRemoveTheRunFolder(const Site& site) {
  std::error_code error;
  fs::remove_all(site.RunFolder(), error);
  return error ? "" : "the run folder could be removed";
}

constexpr const char* kUpAndOn = "print up;flush;await <site>\\go;print on;flush;exit 3";

/// Does something to the run folder while the solver waits for it.
RunPlan Meddle(std::string (*meddle)(const Site& site)) {
  return {.script = kUpAndOn,
          .meanwhile = [meddle](LauncherProcess& launcher, const Site& site) -> std::string {
            if (!launcher.WaitForOutput("up\r\n")) return "the solver does not run";
            std::string complaint = meddle(site);
            site.Write("go", "");
            return complaint;
          }};
}

/// The folder goes while the first pass runs, and comes back for a look at its log.
std::string MoveRunFolder(LauncherProcess& launcher, const Site& site) {
  if (!launcher.WaitForOutput("up\r\n")) return "the solver does not run";
  const std::string gone = site.RunFolder() + "gone";
  std::error_code error;
  fs::rename(site.RunFolder(), gone, error);
  site.Write("go", "");
  if (error) return "the run folder cannot be moved";
  launcher.Wait();
  fs::rename(gone, site.RunFolder(), error);
  return error ? "the run folder cannot be moved back" : "";
}

void ExpectFirstLogOnly(const RunResult& run) {
  EXPECT_EQ(run.complaint, "");
  // The missing log's line is not flushed, and so it may come before or behind the solver's.
  const std::string missing =
      "CreateFile(<site>\\Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Cool_<time>.txt)"
      "::INVALID_HANDLE_VALUE LastError=3\r\n";
  const std::string output = WithoutTimestamps(run.output);
  EXPECT_NE(output.find(missing), std::string::npos) << output;
  const auto pass = [](const std::string& solver) {
    return "Launch serial computing\r\nup\r\non\r\n\r\n>>> Return value of <site>\\Home\\Bin\\" +
           solver + " = 3\r\n";
  };
  EXPECT_EQ(Replaced(output, missing, ""),
            pass("Qvx3DFlow.exe") + pass("Qvx3DCool.exe") + kCountdown);
  EXPECT_EQ(run.status, 3);
  ASSERT_EQ(run.logs.size(), 1U);
  const std::string& log = run.logs.at("console_redirect_serial_Flow_<time>.txt");
  EXPECT_TRUE(
      log.ends_with("up\r\non\r\n>>> Return value of <site>\\Home\\Bin\\Qvx3DFlow.exe = 3\r\n"))
      << log;
}

constexpr std::size_t kMachines = 1000;

/// The part of a command line that no host's name is in.
std::string Frame(const Site& site) {
  std::string arguments =
      "-home \"<share>\\Home\" -project \"<share>\\Work\\sample\" -name \"Sample\" -run \"01\" "
      "-molding 1 -option 0 -parallel 2 -processes 1000 -weights 0";
  for (std::size_t i = 1; i < kMachines; ++i) arguments += ",0";
  return site.Specific(MpiPath(Machine::ScriptedMpi) +
                       "\\impiexec.exe -env 0 0 -hosts 1000   "
                       "\"<share>\\Home\\Bin\\Qvx3DFlow.exe\" " +
                       arguments);
}

/// A distributed run whose command line has so many characters; the hosts' names make up the
/// length.
RunPlan LongRun(std::size_t length, const std::string& script,
                decltype(RunPlan::meanwhile) meanwhile) {
  const auto prepare = [length](const Site& site) {
    // Each host takes its name, a blank, a task count of one digit and a blank.
    const std::size_t all = length - Frame(site).size() - kMachines * 3;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < kMachines; ++i) {
      names.emplace_back(all / kMachines + (i < all % kMachines ? 1 : 0), 'n');
    }
    site.WriteCmx(CmxOfMachines(names));
  };
  return {.machine = Machine::ScriptedMpi,
          .script = script,
          .prepare = prepare,
          .meanwhile = std::move(meanwhile)};
}

/// The results of a run have shorter words for the site, so the log is measured beside it.
std::string MeasureLog(LauncherProcess& launcher, const Site& site) {
  launcher.Wait();
  const std::map<std::string, std::string> logs = site.Logs();
  if (logs.empty()) return "there is no log";
  const std::string log = site.Specific(logs.begin()->second);
  const std::string before = "Commandline=[";
  const std::size_t length = log.find("]\r\n") - log.find(before) - before.size();
  return length == 32751 ? "" : "the log's command line has " + std::to_string(length);
}

/// A child that the launcher leaves behind goes on, and says so.
constexpr const char* kGoOn = "await <site>\\go;touch <site>\\lived";

std::string LetAChildGoOn(LauncherProcess& launcher, const Site& site) {
  while (launcher.Runs()) Sleep(10);
  site.Write("go", "");
  launcher.Wait();
  return site.Read("lived").empty() ? "" : "the child lives";
}

void AddFloods(PlannedTests& tests) {
  constexpr std::size_t kFlood = std::size_t{256} << 20;
  const RunPlan flood = {.script = "fill " + std::to_string(kFlood) + " 65536;flush;exit 3",
                         .meanwhile = WatchMemory};
  tests.Add("Flood", "Of256MiBArrivesWholeAndIsNotKept", flood,
            [](const RunResult& run) { ExpectRun(run, {.shown = Filled(kFlood), .status = 3}); });
  const RunPlan dripping = {.script = "fill 20000 1;flush;exit 3"};
  tests.Add("Dripping", "OneByteAtATimeArrivesWhole", dripping,
            [](const RunResult& run) { ExpectRun(run, {.shown = Filled(20'000), .status = 3}); });
}

void AddMeddling(PlannedTests& tests) {
  const auto expectNoHarm = [](const RunResult& run) {
    ExpectRun(run, {.shown = "up\r\non\r\n", .status = 3});
  };
  tests.Add("RunningLog", "CannotBeDeleted", Meddle(TryToDeleteTheLog), expectNoHarm);
  tests.Add("RunFolder", "KeepsItsLogWhenSomebodyRemovesIt", Meddle(TryToRemoveTheRunFolder),
            expectNoHarm);
  const RunPlan moved = {.solver = "Qvx3DCool.exe",
                         .cmx = std::string(kSerialCmx) + kConformalCmx,
                         .script = kUpAndOn,
                         .meanwhile = MoveRunFolder};
  tests.Add("RunFolder", "ThatVanishesInTheFirstPassCostsTheSecondItsLogAlone", moved,
            ExpectFirstLogOnly);
}

void AddManyMachines(PlannedTests& tests) {
  const RunPlan machines = {.machine = Machine::ScriptedMpi,
                            .cmx = CmxOfMachines(std::vector<std::string>(500, "node")),
                            .script = "print up;flush;exit 3"};
  tests.Add("Machines", "MayBeFiveHundred", machines,
            [](const RunResult& run) { ExpectRun(run, {.shown = "up\r\n", .status = 3}); });

  // The log takes 32751 characters beside its own words; the system starts 32766.
  const std::string banner = "Launch parallel computing\r\n";
  tests.Add("CommandLine", "Of32751CharactersIsLogged",
            LongRun(32751, "print up;flush;exit 3", MeasureLog), [banner](const RunResult& run) {
              EXPECT_EQ(run.complaint, "");
              EXPECT_EQ(run.error, "");
              EXPECT_EQ(run.output, banner + "up\r\n\r\n>>> Return value of " +
                                        MpiPath(Machine::ScriptedMpi) + "\\impiexec.exe = 3\r\n" +
                                        kCountdown);
              EXPECT_EQ(run.status, 3);
            });
  tests.Add("CommandLine", "ThatTheLogCannotTakeEndsTheChildAndTheLauncher",
            std::vector<RunPlan>{LongRun(32752, kGoOn, LetAChildGoOn),
                                 LongRun(32766, kGoOn, LetAChildGoOn)},
            [banner](const Results& runs) {
              const char* const lengths[] = {"32768", "32782"};
              for (std::size_t i = 0; i < runs.size(); ++i) {
                EXPECT_EQ(runs[i].complaint, "");
                EXPECT_EQ(runs[i].error,
                          std::string("ERROR: console log text is too long: width 32768, length ") +
                              lengths[i] + "\r\n");
                EXPECT_EQ(runs[i].output, banner);
                EXPECT_EQ(runs[i].status, -2);
              }
            });
  tests.Add("CommandLine", "BeyondTheSystemsLimitIsReported", LongRun(32767, kGoOn, {}),
            [banner](const RunResult& run) {
              EXPECT_EQ(run.error, "");
              EXPECT_TRUE(run.output.starts_with(banner + "CreateProcess ["));
              // Windows has a code of its own for it, Wine calls the parameter invalid.
              const std::string end = std::string(")\r\n") + kCountdown;
              EXPECT_TRUE(run.output.ends_with("] failed. system error(206" + end) ||
                          run.output.ends_with("] failed. system error(87" + end))
                  << run.output;
              EXPECT_EQ(run.status, -1);
              EXPECT_TRUE(run.logs.empty());
            });
}

}  // namespace

void AddSpecialRuns(PlannedTests& tests) {
  AddFloods(tests);
  AddMeddling(tests);
  AddManyMachines(tests);
}

}  // namespace qvx::test

int main(int count, char** arguments) {
  qvx::test::PlannedTests tests;
  qvx::test::AddSpecialRuns(tests);
  qvx::test::AddRandomConsoleEvents(tests);
  return qvx::test::RunTests(count, arguments);
}
