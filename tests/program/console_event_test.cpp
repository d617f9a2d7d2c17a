// A real Ctrl-C at every stage of a run.
#include <windows.h>

#include "tests/program/expected_run.h"
#include "tests/program/tests.h"
#include "tests/support/process_runs.h"

namespace qvx::test {
namespace {

/// Sends Ctrl-C so many times when the solver has printed its mark, and sees to it that the solver
/// is gone at the end of the run.
std::string CancelRunningSolver(LauncherProcess& launcher, const Site& site, int times) {
  if (!launcher.WaitForOutput("running\r\n")) return "the solver does not run";
  const DWORD solver = std::stoul(site.Read("solver"));
  if (!ProcessRuns(solver)) return "the solver ended too early";
  while (times-- > 0) {
    if (!launcher.SendCtrlC()) return "Ctrl-C cannot be sent";
  }
  launcher.Wait();
  return ProcessRuns(solver) ? "the solver still runs" : "";
}

std::string CancelOnce(LauncherProcess& launcher, const Site& site) {
  return CancelRunningSolver(launcher, site, 1);
}

std::string CancelTwice(LauncherProcess& launcher, const Site& site) {
  return CancelRunningSolver(launcher, site, 2);
}

std::string CancelCountdown(LauncherProcess& launcher, const Site&) {
  if (!launcher.WaitForOutput("\r3   ")) return "no countdown";
  return launcher.SendCtrlC() ? "" : "Ctrl-C cannot be sent";
}

const std::string kRunForLong = "touch <site>\\solver;print running;await <site>\\never";
const Solver kCancelled = {
    .shown = "running\r\n" + kCtrlC, .status = -9876, .logged = "running\r\n"};

void ExpectCancelled(const RunResult& run) { ExpectRun(run, kCancelled); }

/// Plays the CMX file: the launcher opens it for one section after the other and waits for its
/// text.
class CmxPipe {
 public:
  CmxPipe()
      : pipe_(CreateNamedPipeA("\\\\.\\pipe\\qvx\\Analysis\\Run01\\Sample01.cmx",
                               PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE, 2, 4096, 4096, 0, nullptr)) {}
  ~CmxPipe() { CloseHandle(pipe_); }
  CmxPipe(const CmxPipe&) = delete;
  CmxPipe& operator=(const CmxPipe&) = delete;

  void AwaitReader() const { ConnectNamedPipe(pipe_, nullptr); }
  void Serve(const std::string& text) const {
    DWORD written = 0;
    WriteFile(pipe_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    FlushFileBuffers(pipe_);
  }

 private:
  HANDLE pipe_;
};

/// Cancels while the launcher waits for its first section.
std::string CancelReading(LauncherProcess& launcher, std::unique_ptr<CmxPipe> first) {
  first->AwaitReader();
  const std::size_t threads = launcher.Threads();
  const bool cancelled = launcher.SendCtrlC() && launcher.WaitForOutput(kCtrlC);
  // The handler prints before it cancels.
  while (cancelled && launcher.Runs() && launcher.Threads() > threads) Sleep(1);
  // There for the second section before the first is let go.
  const CmxPipe second;
  first->Serve(kSerialCmx);
  first.reset();
  second.AwaitReader();
  second.Serve(kSerialCmx);
  return cancelled ? "" : "Ctrl-C does not arrive";
}

}  // namespace

void AddConsoleEvents(PlannedTests& tests) {
  const RunPlan during = {.script = kRunForLong, .meanwhile = CancelOnce};
  tests.Add("CtrlC", "DuringTheRunEndsTheSolver", during, ExpectCancelled);

  const RunPlan shared = {
      .cmx = kSmpCmx,
      .script = "rank 1 touch <site>\\solver;rank 1 print running;await <site>\\never",
      .meanwhile = CancelOnce,
  };
  tests.Add("CtrlC", "DuringAParallelRunEndsTheProcessLauncherWithItsSolvers", shared,
            ExpectCancelled);

  const RunPlan distributed = {
      .cmx = kDmpCmx,
      .script = "rank 2 touch <site>\\solver;rank 2 print running;await <site>\\never",
      .meanwhile = CancelOnce,
  };
  tests.Add("CtrlC", "DuringADistributedRunEndsTheProcessLauncherWithItsSolvers", distributed,
            ExpectCancelled);

  const RunPlan countdown = {.script = "print x;flush;exit 5", .meanwhile = CancelCountdown};
  tests.Add("CtrlC", "DuringTheCountdownChangesNothing", countdown, [](const RunResult& run) {
    ExpectRun(WithoutOneCtrlC(run), {.shown = "x\r\n", .status = 5});
  });

  const RunPlan twice = {.script = kRunForLong, .meanwhile = CancelTwice};
  tests.Add("CtrlC", "MayComeTwice", twice, [](const RunResult& run) {
    ExpectRun(WithoutOneCtrlC(WithoutOneCtrlC(run)), {.shown = "running\r\n", .status = -9876});
  });

  const RunPlan flood = {.script = "touch <site>\\solver;print running;fill 67108864 512",
                         .meanwhile = CancelOnce};
  tests.Add("CtrlC", "InTheMiddleOfAFloodLeavesConsoleAndLogWholeUpToThere", flood,
            [](const RunResult& run) {
              ASSERT_EQ(run.logs.size(), 1U);
              const std::string& log = run.logs.begin()->second;
              const std::size_t begin = log.find("running\r\n");
              const std::size_t end = log.rfind(">>> Return value of ");
              ASSERT_LT(begin, end);
              const std::string child = log.substr(begin, end - begin);
              EXPECT_TRUE(("running\r\n" + Filled(child.size())).starts_with(child));
              ExpectRun(WithoutOneCtrlC(run), {.shown = child, .status = -9876});
            });

  RunPlan cooling = {.solver = "Qvx3DCool.exe",
                     .cmx = std::string(kSerialCmx) + kConformalCmx,
                     .script = "print x;flush",
                     .meanwhile = CancelOnce};
  cooling.scripts = {{"Qvx3DFlow", kRunForLong}};
  tests.Add("CtrlC", "DuringTheFirstCoolingPassSkipsTheSecond", cooling, ExpectCancelled);
  cooling.scripts = {{"Qvx3DCool", kRunForLong}};
  tests.Add("CtrlC", "DuringTheSecondCoolingPassEndsTheRun", cooling, [](const RunResult& run) {
    ExpectPasses(run, {{.shown = "x\r\n"}, kCancelled});
  });

  const auto pipe = std::make_shared<std::unique_ptr<CmxPipe>>();
  const RunPlan before = {
      .arguments =
          std::vector<std::string>{"<site>\\Home*\\\\.\\pipe\\qvx*Sample*3*01", "Qvx3DFlow.exe"},
      .prepare = [pipe](const Site&) { *pipe = std::make_unique<CmxPipe>(); },
      .isAsked = false,  // it would read the pipe
      .meanwhile = [pipe](LauncherProcess& launcher,
                          const Site&) { return CancelReading(launcher, std::move(*pipe)); },
  };
  tests.Add("CtrlC", "BeforeTheStartPreventsIt", before, [](const RunResult& run) {
    EXPECT_EQ(run.complaint, "");
    EXPECT_EQ(run.output,
              kCtrlC + "Ctrl-break is captured. Computing is canceled.\r\n" + kCountdown);
    EXPECT_EQ(run.status, 0);
  });
}

}  // namespace qvx::test
