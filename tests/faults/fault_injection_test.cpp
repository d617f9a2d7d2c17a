// Lets every Windows call of the product fail, one at a time, and looks at all that the run then
// shows, returns and leaves: see the table in call_sites.cpp.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>

#include "execution/mpi_configuration.h"
#include "execution/serial_launch.h"
#include "execution/smp_launch.h"
#include "launcher/console_control_handler.h"
#include "launcher/debug_trace.h"
#include "launcher/entry_sequence.h"
#include "launcher/process_wide_values.h"
#include "support/bounded_text.h"
#include "tests/faults/call_sites.h"
#include "tests/faults/failing_call.h"
#include "tests/support/no_countdown.h"
#include "tests/support/process_runs.h"
#include "tests/support/texts.h"
#include "tests/windows/launch_fixture.h"
#include "tests/windows/open_handles.h"
#include "tests/windows/started_child.h"

namespace qvx {
namespace {

/// A site's function, file and occurrence in it.
std::string NameOf(const test::CallSite& site) {
  return site.function + "_" + std::filesystem::path(site.file).stem().string() + "_" +
         std::to_string(site.occurrence);
}

/// No other site's row may let a call from here fail: rows that expect the same could not be told
/// apart otherwise. The compiler may have made several calls of one site.
void ExpectOwnCaller(const test::CallSite& site, const void* caller) {
  static std::map<const void*, std::string> siteOf;
  EXPECT_EQ(siteOf.emplace(caller, NameOf(site)).first->second, NameOf(site));
}

/// Prints one chunk and lives until the pump waits for the next one.
constexpr const char* kScript = "print x;flush;sleep 100;exit 3";

class FaultInjection : public test::LaunchTest, public testing::WithParamInterface<std::size_t> {
 protected:
  FaultInjection() { CopyText(context.taskManagerSettings.ValueNoTask, "ValueNoTask", "4"); }

  const test::Failure& failure = test::kFailures[GetParam()];

  /// Runs `operation` while the call fails.
  test::Outcome Fail(const std::function<int()>& operation) {
    test::Outcome outcome = {};
    const void* caller = nullptr;
    bool childRuns = false;
    const int openBefore = test::OpenProcessesThreadsAndFiles();
    const test::PipeEnds pipeEndsBefore = test::OpenPipeEnds();
    outcome.console = test::ConsoleOf([&] {
      const test::FailingCall failing(failure.site.function, failure.call, failure.error);
      outcome.result = operation();
      caller = failing.Caller();
      // At once: a child that is left alone ends by itself soon.
      childRuns = test::ProcessRuns(childProcessIdentifier);
    });
    EXPECT_EQ(test::OpenProcessesThreadsAndFiles(), openBefore);
    EXPECT_EQ(test::OpenPipeEnds() - pipeEndsBefore, failure.pipeEnds);
    EXPECT_FALSE(childRuns);
    EXPECT_NE(caller, nullptr) << "the scene does not make this call";
    ExpectOwnCaller(failure.site, caller);
    return outcome;
  }

  void ExpectLaunch(const std::string& solverScript, int (*launch)(LauncherContext&)) {
    script.Set(solverScript);
    const test::Outcome outcome = Fail([&] { return launch(context); });
    Expect(outcome, FilesInRunFolder());
  }

  void ExpectSerial(const std::string& solverScript) {
    MakeFiles(runFolder,
              {"console_redirect_serial_Flow_old1.txt", "console_redirect_serial_Flow_old2.txt"});
    ExpectLaunch(solverScript, LaunchSerial);
  }

  void ExpectEntry() {
    const test::DebugTraceSwitchFile withoutTrace;
    const test::NoCountdown noCountdown;
    folder.Write("Project\\Analysis\\Run01\\Sample01.cmx",
                 "<TASKMANAGER>\nIDTaskMode=0\nValueLocalNoTask=1\n</TASKMANAGER>\n");
    script.Set(kScript);
    std::string first = "L$1";
    std::string tokens = home + "*" + folder.Path("Project") + "*Sample*0*01";
    std::string name = "Qvx3DFlow.exe";
    char* arguments[] = {first.data(), tokens.data(), name.data()};
    const test::Outcome outcome = Fail([&] { return RunEntrySequence(3, arguments); });
    std::filesystem::remove(runFolder + "\\Sample01.cmx");
    Expect(outcome, FilesInRunFolder());
  }

  void ExpectConsoleEvent() {
    const test::StartedChild child("sleep 60000");
    childProcessIdentifier = child.Id();
    const test::Outcome outcome = Fail([] { return HandleConsoleControl(CTRL_C_EVENT); });
    Expect(outcome, test::ProcessRuns(child.Id()) ? "the child runs" : "the child ended");
    EXPECT_EQ(cancelFlag, 1);
    EXPECT_EQ(childProcessIdentifier, 0U);
  }

  void ExpectTraceSwitch() {
    const test::DebugTraceSwitchFile file;
    std::ofstream{file.Path()};
    const test::Outcome outcome = Fail([this] { return SwitchDebugTrace(context); });
    Expect(outcome, context.debugTraceFlag == 0 ? "the trace is off" : "the trace is on");
  }

  void ExpectProjectIni() {
    folder.Write("Home\\Bin\\QVXProject.ini", "[Configuration]\nQVX_PARALLEL_FOLDER_NAME=Share\n");
    const test::Outcome outcome = Fail([this] { return ReadParallelFolderName(context); });
    Expect(outcome, context.parallelFolderName);
  }

  void Expect(const test::Outcome& outcome, const std::string& left) const {
    EXPECT_EQ(outcome.result, failure.result);
    EXPECT_EQ(Generic(outcome.console.All()), failure.console);
    EXPECT_EQ(Generic(left), failure.left);
  }

  std::string FilesInRunFolder() const {
    std::string all;
    for (const std::string& name : NamesIn(runFolder)) {
      all += "[" + name + "]" + folder.Read("Project\\Analysis\\Run01\\" + name);
    }
    return all;
  }

  std::string Generic(const std::string& text) const {
    return test::WithoutTimestamps(test::Replaced(text, folder.Path(), "<site>"));
  }
};

TEST_P(FaultInjection, LosesNoMoreThanTheTableSays) {
  switch (failure.scene) {
    case test::Scene::Serial:
      return ExpectSerial(kScript);
    case test::Scene::SilentSerial:
      return ExpectSerial("sleep 100;exit 3");
    case test::Scene::Smp:
      return ExpectLaunch(kScript, LaunchSmp);
    case test::Scene::NoProcessManager:
      return ExpectLaunch("print Unknown option: -d;flush;sleep 100;exit 3", LaunchSmp);
    case test::Scene::Entry:
      return ExpectEntry();
    case test::Scene::ConsoleEvent:
      return ExpectConsoleEvent();
    case test::Scene::TraceSwitch:
      return ExpectTraceSwitch();
    case test::Scene::ProjectIni:
      return ExpectProjectIni();
  }
}

/// A row's name: its site and call.
std::string NameOfRow(const testing::TestParamInfo<std::size_t>& row) {
  const test::Failure& failure = test::kFailures[row.param];
  return NameOf(failure.site) + "_" + std::to_string(failure.call);
}

INSTANTIATE_TEST_SUITE_P(CallSites, FaultInjection,
                         testing::Range<std::size_t>(0, test::kFailures.size()), NameOfRow);

}  // namespace
}  // namespace qvx
