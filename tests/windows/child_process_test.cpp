// What only a real child shows: its handles and its console, its log while it runs, and how it is
// reported when a console event ends it.
#include "execution/child_process.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <thread>

#include "execution/serial_launch.h"
#include "launcher/console_control_handler.h"
#include "launcher/process_wide_values.h"
#include "tests/support/texts.h"
#include "tests/windows/launch_fixture.h"
#include "tests/windows/open_handles.h"

namespace qvx {
namespace {

class ChildProcess : public test::LaunchTest {
 protected:
  /// The child says "up" and waits until `whileItRuns` is done, which begins when that is logged.
  template <typename Action>
  test::Outcome RunWith(Action&& whileItRuns) {
    script.Set("touch " + folder.Path("up") + ";print up;flush;await " + folder.Path("go on"));
    std::jthread other([&] {
      AwaitLogged("up\r\n");
      whileItRuns();
      folder.Write("go on", "");
    });
    return RunSerially();
  }

  const std::string shown = std::string(test::kSerialBanner) + "up\r\n";
  const std::string logged = "Commandline=[" + solver + " -a b]\r\nup\r\n";
};

/// The system's own sending of a Ctrl-Break is left out: the handler is called as the system calls
/// it, on a thread of its own.
TEST_F(ChildProcess, IsReportedWithTheExitCodeThatAConsoleEventGaveIt) {
  std::string during;
  const test::Outcome outcome = RunWith([&] {
    during = std::to_string(childProcessIdentifier);
    HandleConsoleControl(CTRL_BREAK_EVENT);
  });
  ExpectOutcome(outcome, -9876, shown + "Ctrl-Break is captured.\r\n", logged);
  EXPECT_EQ(during, folder.Read("up"));
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
  ExpectOutcome(outcome, 0, shown, logged);
}

TEST_F(ChildProcess, SeesTwoStandardHandlesAndAConsoleWithoutWindow) {
  Install("..\\tests\\child_probe.exe", solver);
  const int inherited = test::OpenPipeEnds().inheritable;
  EXPECT_EQ(RunSerially().console.written, std::string(test::kSerialBanner) +
                                               "start-up flags 100\r\n"
                                               "priority class 20\r\n"
                                               "processes at the console 1\r\n"
                                               "console window: no\r\n"
                                               "standard error is standard output: yes\r\n"
                                               "pipe ends " +
                                               std::to_string(inherited + 2) + "\r\n");
}

TEST_F(ChildProcess, LeavesNothingOpenButTheReadEndOfItsOutput) {
  const int others = test::OpenProcessesThreadsAndFiles();
  const test::PipeEnds pipeEnds = test::OpenPipeEnds();
  RunSerially();
  EXPECT_EQ(test::OpenProcessesThreadsAndFiles(), others);
  EXPECT_EQ(test::OpenPipeEnds() - pipeEnds, (test::PipeEnds{.inheritable = 0, .own = 1}));
}

}  // namespace
}  // namespace qvx
