#include "launcher/console_control_handler.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "launcher/process_wide_values.h"
#include "tests/support/temporary_folder.h"
#include "tests/windows/console_of.h"
#include "tests/windows/started_child.h"

namespace qvx {
namespace {

class ConsoleControlHandler : public testing::Test {
 protected:
  ~ConsoleControlHandler() override {
    cancelFlag = 0;
    childProcessIdentifier = 0;
  }

  /// Returns what the handler prints and flushes.
  static std::string Handle(std::uint32_t eventCode, int expected) {
    const test::Console console =
        test::ConsoleOf([&] { EXPECT_EQ(HandleConsoleControl(eventCode), expected); });
    EXPECT_EQ(console.buffered, "");
    return console.written;
  }
};

TEST_F(ConsoleControlHandler, NamesTheEventAndSetsTheCancelFlag) {
  const struct {
    std::uint32_t eventCode;
    const char* message;
  } events[] = {
      {0, "Ctrl-C is captured.\r\n"},        {1, "Ctrl-Break is captured.\r\n"},
      {2, "Ctrl-Close is captured.\r\n"},    {5, "Ctrl-Logoff is captured.\r\n"},
      {6, "Ctrl-Shutdown is captured.\r\n"},
  };
  for (const auto& [eventCode, message] : events) {
    cancelFlag = 0;
    EXPECT_EQ(Handle(eventCode, 1), message);
    EXPECT_EQ(cancelFlag, 1) << eventCode;
  }
}

TEST_F(ConsoleControlHandler, LeavesEverythingAloneForAnUnknownEvent) {
  const test::TemporaryFolder folder;
  const test::StartedChild child("await " + folder.Path("go on") + ";exit 5");
  childProcessIdentifier = child.Id();
  for (const std::uint32_t eventCode : {3U, 4U, 7U, 0xFFFFFFFFU}) {
    EXPECT_EQ(Handle(eventCode, 0), "");
    EXPECT_EQ(cancelFlag, 0) << eventCode;
    EXPECT_EQ(childProcessIdentifier, child.Id()) << eventCode;
  }
  folder.Write("go on", "");
  EXPECT_EQ(child.ExitCode(), 5);
}

TEST_F(ConsoleControlHandler, EndsTheChildAndForgetsIt) {
  const test::StartedChild child("sleep 60000");
  childProcessIdentifier = child.Id();
  EXPECT_EQ(Handle(CTRL_C_EVENT, 1), "Ctrl-C is captured.\r\n");
  EXPECT_EQ(child.ExitCode(), -9876);
  EXPECT_EQ(childProcessIdentifier, 0U);
}

TEST_F(ConsoleControlHandler, LeavesTheExitCodeOfAChildThatHadEnded) {
  const test::StartedChild child("exit 3");
  EXPECT_EQ(child.ExitCode(), 3);
  childProcessIdentifier = child.Id();
  EXPECT_EQ(Handle(CTRL_BREAK_EVENT, 1), "Ctrl-Break is captured.\r\n");
  EXPECT_EQ(child.ExitCode(), 3);
  EXPECT_EQ(childProcessIdentifier, 0U);
}

TEST_F(ConsoleControlHandler, ForgetsAChildThatItCannotOpen) {
  childProcessIdentifier = 0xFFFFFFF0;
  EXPECT_EQ(Handle(CTRL_CLOSE_EVENT, 1), "Ctrl-Close is captured.\r\n");
  EXPECT_EQ(cancelFlag, 1);
  EXPECT_EQ(childProcessIdentifier, 0U);
}

/// In a process of its own, at a console of its own.
[[noreturn]] void PressCtrlC() {
  FreeConsole();
  AllocConsole();
  if (!RegisterConsoleControlHandler()) std::fputs("cannot be registered\n", stderr);
  GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
  for (int i = 0; i < 1000 && cancelFlag == 0; ++i) Sleep(10);
  std::fputs(cancelFlag != 0 ? "cancelled\n" : "not cancelled\n", stderr);
  std::exit(5);
}

TEST_F(ConsoleControlHandler, IsCalledOnceRegistered) {
  EXPECT_EXIT(PressCtrlC(), testing::ExitedWithCode(5), "^cancelled\n$");
}

}  // namespace
}  // namespace qvx
