// What happens around a running child: its log, its handles, the value that names it, its end by
// someone else. Shown with the serial launch; the code is the same for all three.
#include "execution/child_process.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <string>
#include <thread>

#include "execution/serial_launch.h"
#include "launcher/console_control_handler.h"
#include "launcher/process_wide_values.h"
#include "support/bounded_text.h"
#include "tests/support/import_patch.h"
#include "tests/support/texts.h"
#include "tests/windows/launch_fixture.h"
#include "tests/windows/open_handles.h"

extern "C" void* __imp_WaitForSingleObject;

namespace qvx {
namespace {

const auto kSystemWait =
    reinterpret_cast<decltype(&WaitForSingleObject)>(__imp_WaitForSingleObject);
std::function<void()> whenTheChildIsAwaited;

DWORD WINAPI TellAndWait(HANDLE process, DWORD milliseconds) {
  if (GetProcessId(process) == childProcessIdentifier) whenTheChildIsAwaited();
  return kSystemWait(process, milliseconds);
}

class ChildProcess : public test::LaunchTest {
 protected:
  ChildProcess() { logName = "console_redirect_serial_Flow_<time>.txt"; }

  /// The child says "up" and waits until `whileItRuns` is done, which begins when that is logged.
  template <typename Action>
  test::Outcome RunWith(Action&& whileItRuns) {
    script.Set("touch " + folder.Path("up") + ";print up;flush;await " + folder.Path("go on"));
    std::jthread other([&] {
      AwaitLogged("up\r\n");
      whileItRuns();
      folder.Write("go on", "");
    });
    return Run(LaunchSerial);
  }

  /// The child carries out `commands` and goes on when the launch waits for its end.
  template <typename Operation>
  test::Outcome RunUntilAwaited(const std::string& commands, Operation&& operation) {
    script.Set(commands + "await " + folder.Path("go on") + ";exit 5");
    whenTheChildIsAwaited = [this] { folder.Write("go on", ""); };
    const test::ImportPatch patch(&__imp_WaitForSingleObject, reinterpret_cast<void*>(TellAndWait));
    test::Outcome outcome = {};
    outcome.console = test::ConsoleOf([&] { outcome.result = operation(); });
    return outcome;
  }

  const std::string shown = std::string(test::kSerialBanner) + "up\r\n";
  const std::string logged = "Commandline=[" + solver + " -a b]\r\nup\r\n";
};

TEST_F(ChildProcess, IsNamedToTheConsoleControlHandlerDuringAndAfterTheRun) {
  std::string during;
  RunWith([&] { during = std::to_string(childProcessIdentifier); });
  EXPECT_EQ(during, folder.Read("up"));
  EXPECT_EQ(std::to_string(childProcessIdentifier), during);
}

TEST_F(ChildProcess, IsStillTheLastOneWhenTheNextCannotBeStarted) {
  childProcessIdentifier = 123;
  context.solverExecutableName[0] = '\0';
  Run(LaunchSerial);
  EXPECT_EQ(childProcessIdentifier, 123U);
}

TEST_F(ChildProcess, IsReportedWithTheExitCodeThatAConsoleEventGaveIt) {
  const test::Outcome outcome = RunWith([] { HandleConsoleControl(CTRL_C_EVENT); });
  ExpectOutcome(outcome, -9876, solver, shown + "Ctrl-C is captured.\r\n", logged);
  EXPECT_EQ(childProcessIdentifier, 0U);
}

TEST_F(ChildProcess, IsAwaitedWhenThePumpEndsBeforeIt) {
  const LaunchKind kind = {
      .modePrefix = "console_redirect_serial_",
      .banner = "",
      .moveRunPath = nullptr,
      .prepareCommand = [](LauncherContext& run) -> LaunchCommand {
        return {std::string(run.homeFolder) + "\\Bin\\Qvx3DFlow.exe", "the solver"};
      },
      .writeLogHeading = nullptr,
      .endsPump = [](LauncherContext&, const RunningChild&, const char*) { return true; },
      .closesReadEnd = false,
  };
  const test::Outcome outcome = RunUntilAwaited("print up;", [&] { return Launch(context, kind); });
  ExpectOutcome(outcome, 5, "the solver", "up\r\n", "Commandline=[" + solver + "]\r\nup\r\n");
}

TEST_F(ChildProcess, IsLoggedAtOnceInAFileThatOthersMayReadAndWriteButNotDelete) {
  const test::Outcome outcome = RunWith([this] {
    const std::string path = runFolder + "\\" + NamesIn(runFolder).front();
    const HANDLE log =
        CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_NE(log, INVALID_HANDLE_VALUE);
    CloseHandle(log);
    EXPECT_EQ(DeleteFileA(path.c_str()), FALSE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    EXPECT_EQ(Log(), logged);
  });
  ExpectOutcome(outcome, 0, solver, shown, logged);
}

TEST_F(ChildProcess, RunsWithoutALogWhenTheRunFolderIsMissing) {
  CopyText(context.currentRunPath, "current run path", folder.Path("missing"));
  script.Set("print up;flush;exit 3");
  const test::Outcome outcome = Run(LaunchSerial);
  EXPECT_EQ(outcome.result, 3);
  EXPECT_EQ(outcome.console.written, shown);
  EXPECT_EQ(test::WithoutTimestamps(outcome.console.buffered),
            "CreateFile(" + folder.Path("missing") +
                "\\console_redirect_serial_Flow_<time>.txt)::INVALID_HANDLE_VALUE LastError=3\r\n"
                "\r\n" +
                test::ReturnValue(solver, 3));
}

TEST_F(ChildProcess, SeesTwoStandardHandlesAndAConsoleWithoutWindow) {
  Install("..\\tests\\child_probe.exe", solver);
  int inherited = 0;
  const test::Console console = test::ConsoleOf([&] {
    inherited = test::OpenPipeEnds().inheritable;
    LaunchSerial(context);
  });
  EXPECT_EQ(console.written, std::string(test::kSerialBanner) +
                                 "start-up flags 100\r\n"
                                 "priority class 20\r\n"
                                 "processes at the console 1\r\n"
                                 "console window: no\r\n"
                                 "standard error is standard output: yes\r\n"
                                 "pipe ends " +
                                 std::to_string(inherited + 2) + "\r\n");
}

TEST_F(ChildProcess, LeavesNeitherItselfNorItsThreadNorItsLogOpen) {
  const int before = test::OpenProcessesThreadsAndFiles();
  Run(LaunchSerial);
  EXPECT_EQ(test::OpenProcessesThreadsAndFiles(), before);
}

TEST_F(ChildProcess, LeavesAllPipeEndsOpenWhenItCannotBeStarted) {
  context.solverExecutableName[0] = '\0';
  const test::PipeEnds before = test::OpenPipeEnds();
  Run(LaunchSerial);
  EXPECT_EQ(test::OpenPipeEnds() - before, (test::PipeEnds{.inheritable = 2, .own = 2}));
}

}  // namespace
}  // namespace qvx
