// A real Ctrl-C at every stage of a run.
#include <gtest/gtest.h>
#include <windows.h>

#include "tests/program/planned_run.h"
#include "tests/support/process_runs.h"

namespace qvx::test {
namespace {

const std::string kCtrlC = "Ctrl-C is captured.\r\n";
const std::string kFlowPath = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kCoolPath = "<site>\\Home\\Bin\\Qvx3DCool.exe";

std::string WithoutFirst(std::string text, const std::string& part) {
  const std::size_t at = text.find(part);
  return at == std::string::npos ? text : text.erase(at, part.size());
}

/// Sends Ctrl-C when the solver has printed its mark, and sees to it that the solver is gone at the
/// end of the run.
std::string CancelRunningSolver(LauncherProcess& launcher, const Site& site) {
  if (!launcher.WaitForOutput("running\r\n")) return "the solver does not run";
  const DWORD solver = std::stoul(site.Read("solver"));
  if (!ProcessRuns(solver)) return "the solver ended too early";
  if (!launcher.SendCtrlC()) return "Ctrl-C cannot be sent";
  launcher.Wait();
  return ProcessRuns(solver) ? "the solver still runs" : "";
}

const std::string kRunForLong = "touch <site>\\solver;print running;await <site>\\never";

const PlannedRun kDuringTheRun({.script = kRunForLong, .meanwhile = CancelRunningSolver});

RUN_TEST(CtrlC, DuringTheRunEndsTheSolver, &kDuringTheRun) {
  EXPECT_EQ(kDuringTheRun->complaint, "");
  EXPECT_EQ(kDuringTheRun->output,
            SerialConsole("running\r\n" + kCtrlC, kFlowPath, -9876) + kCountdown);
  EXPECT_EQ(kDuringTheRun->status, -9876);
  ASSERT_EQ(kDuringTheRun->logs.size(), 1U);
  const std::string& log = kDuringTheRun->logs.begin()->second;
  EXPECT_TRUE(log.ends_with("running\r\n>>> Return value of " + kFlowPath + " = -9876\r\n")) << log;
}

const PlannedRun kUnderMpi({
    .cmx = kSmpCmx,
    .script = "rank 1 touch <site>\\solver;rank 1 print running;await <site>\\never",
    .meanwhile = CancelRunningSolver,
});

void ExpectCancelledUnderMpi(const PlannedRun& run) {
  EXPECT_EQ(run->complaint, "");
  EXPECT_EQ(run->output, ConsoleOf("Launch parallel computing\r\n", "running\r\n" + kCtrlC,
                                   "C:\\NODE1\\mpi\\impiexec.exe", -9876) +
                             kCountdown);
  EXPECT_EQ(run->status, -9876);
}

RUN_TEST(CtrlC, DuringAParallelRunEndsTheProcessLauncherWithItsSolvers, &kUnderMpi) {
  ExpectCancelledUnderMpi(kUnderMpi);
}

const PlannedRun kDuringTheCountdown({
    .script = "print x;flush;exit 5",
    .meanwhile = [](LauncherProcess& launcher, const Site&) -> std::string {
      if (!launcher.WaitForOutput("\r3   ")) return "no countdown";
      return launcher.SendCtrlC() ? "" : "Ctrl-C cannot be sent";
    },
});

RUN_TEST(CtrlC, DuringTheCountdownChangesNothing, &kDuringTheCountdown) {
  EXPECT_EQ(kDuringTheCountdown->complaint, "");
  EXPECT_NE(kDuringTheCountdown->output.find(kCtrlC), std::string::npos);
  EXPECT_EQ(WithoutFirst(kDuringTheCountdown->output, kCtrlC),
            SerialConsole("x\r\n", kFlowPath, 5) + kCountdown);
  EXPECT_EQ(kDuringTheCountdown->status, 5);
}

const PlannedRun kOverMachines({
    .cmx = kDmpCmx,
    .script = "rank 2 touch <site>\\solver;rank 2 print running;await <site>\\never",
    .meanwhile = CancelRunningSolver,
});

RUN_TEST(CtrlC, DuringADistributedRunEndsTheProcessLauncherWithItsSolvers, &kOverMachines) {
  ExpectCancelledUnderMpi(kOverMachines);
}

const PlannedRun kTwice({
    .script = kRunForLong,
    .meanwhile = [](LauncherProcess& launcher, const Site& site) -> std::string {
      if (!launcher.WaitForOutput("running\r\n")) return "the solver does not run";
      if (!launcher.SendCtrlC() || !launcher.SendCtrlC()) return "Ctrl-C cannot be sent";
      launcher.Wait();
      return ProcessRuns(std::stoul(site.Read("solver"))) ? "the solver still runs" : "";
    },
});

RUN_TEST(CtrlC, MayComeTwice, &kTwice) {
  EXPECT_EQ(kTwice->complaint, "");
  const std::string rest = WithoutFirst(kTwice->output, kCtrlC);
  EXPECT_NE(rest.find(kCtrlC), std::string::npos) << kTwice->output;
  EXPECT_EQ(WithoutFirst(rest, kCtrlC),
            SerialConsole("running\r\n", kFlowPath, -9876) + kCountdown);
  EXPECT_EQ(kTwice->status, -9876);
}

const PlannedRun kInAFlood({
    .script = "touch <site>\\solver;print running;fill 67108864 512",
    .meanwhile = CancelRunningSolver,
});

RUN_TEST(CtrlC, InTheMiddleOfAFloodLeavesConsoleAndLogWholeUpToThere, &kInAFlood) {
  EXPECT_EQ(kInAFlood->complaint, "");
  EXPECT_EQ(kInAFlood->status, -9876);
  ASSERT_EQ(kInAFlood->logs.size(), 1U);
  const std::string& log = kInAFlood->logs.begin()->second;
  const std::size_t begin = log.find("running\r\n");
  const std::size_t end = log.rfind(">>> Return value of ");
  ASSERT_LT(begin, end);
  const std::string child = log.substr(begin, end - begin);
  EXPECT_EQ(WithoutFirst(kInAFlood->output, kCtrlC),
            SerialConsole(child, kFlowPath, -9876) + kCountdown);
  EXPECT_TRUE(("running\r\n" + Filled(child.size())).starts_with(child));
}

const std::string kConformal =
    std::string(kSerialCmx) + "<SOLID_COOL>\nFlag3DSolidCoolingChannel=1\n</SOLID_COOL>\n";

const PlannedRun kFirstPass({
    .solver = "Qvx3DCool.exe",
    .cmx = kConformal,
    .scripts = {{"Qvx3DFlow", kRunForLong}},
    .meanwhile = CancelRunningSolver,
});

RUN_TEST(CtrlC, DuringTheFirstCoolingPassSkipsTheSecond, &kFirstPass) {
  EXPECT_EQ(kFirstPass->complaint, "");
  EXPECT_EQ(kFirstPass->output,
            SerialConsole("running\r\n" + kCtrlC, kFlowPath, -9876) + kCountdown);
  EXPECT_EQ(kFirstPass->status, -9876);
}

const PlannedRun kSecondPass({
    .solver = "Qvx3DCool.exe",
    .cmx = kConformal,
    .script = "print x;flush",
    .scripts = {{"Qvx3DCool", kRunForLong}},
    .meanwhile = CancelRunningSolver,
});

RUN_TEST(CtrlC, DuringTheSecondCoolingPassEndsTheRun, &kSecondPass) {
  EXPECT_EQ(kSecondPass->complaint, "");
  EXPECT_EQ(kSecondPass->output, SerialConsole("x\r\n", kFlowPath, 0) +
                                     SerialConsole("running\r\n" + kCtrlC, kCoolPath, -9876) +
                                     kCountdown);
  EXPECT_EQ(kSecondPass->status, -9876);
}

/// Plays the CMX file: the launcher opens it for one section after the other and waits for its
/// text.
class CmxPipe {
 public:
  void Create() {
    pipe_ = CreateNamedPipeA("\\\\.\\pipe\\qvx\\Analysis\\Run01\\Sample01.cmx",
                             PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE, 2, 4096, 4096, 0, nullptr);
  }
  void AwaitReader() const { ConnectNamedPipe(pipe_, nullptr); }
  void Serve(const std::string& text) const {
    DWORD written = 0;
    WriteFile(pipe_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    FlushFileBuffers(pipe_);
    CloseHandle(pipe_);
  }

 private:
  HANDLE pipe_ = nullptr;
};

CmxPipe cmxPipe;

const PlannedRun kBeforeTheStart({
    .arguments = std::vector<std::string>{"<site>\\Home*\\\\.\\pipe\\qvx*Sample*3*01",
                                          "Qvx3DFlow.exe"},
    .prepare = [](const Site&) { cmxPipe.Create(); },
    .meanwhile = [](LauncherProcess& launcher, const Site&) -> std::string {
      cmxPipe.AwaitReader();
      const bool cancelled = launcher.SendCtrlC() && launcher.WaitForOutput(kCtrlC);
      // There for the second section before the first is let go.
      CmxPipe next;
      next.Create();
      cmxPipe.Serve(kSerialCmx);
      next.AwaitReader();
      next.Serve(kSerialCmx);
      return cancelled ? "" : "Ctrl-C does not arrive";
    },
});

RUN_TEST(CtrlC, BeforeTheStartPreventsIt, &kBeforeTheStart) {
  EXPECT_EQ(kBeforeTheStart->complaint, "");
  EXPECT_EQ(kBeforeTheStart->output,
            kCtrlC + "Ctrl-break is captured. Computing is canceled.\r\n" + kCountdown);
  EXPECT_EQ(kBeforeTheStart->status, 0);
}

}  // namespace
}  // namespace qvx::test
