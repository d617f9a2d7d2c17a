// Ctrl-Break in either pass of a conformal-cooling run. The system's own sending of it is left out:
// the handler is called as the system calls it, on a thread of its own.
#include "launcher/entry_sequence.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "launcher/console_control_handler.h"
#include "launcher/process_wide_values.h"
#include "tests/support/no_countdown.h"
#include "tests/support/texts.h"
#include "tests/windows/launch_fixture.h"

namespace qvx {
namespace {

class CoolingRun : public test::LaunchTest {
 protected:
  CoolingRun() {
    Install("QuorvexFakeSolver.exe", cooler);
    folder.Write("Project\\Analysis\\Run01\\Sample01.cmx",
                 "<TASKMANAGER>\nIDTaskMode=0\nValueLocalNoTask=1\n</TASKMANAGER>\n"
                 "<SOLID_COOL>\nFlag3DSolidCoolingChannel=1\n</SOLID_COOL>\n");
    script.Set("print done;flush;exit 2");
  }

  ~CoolingRun() override {
    cancelFlag = 0;
    childProcessIdentifier = 0;
  }

  /// Runs the launcher and breaks the pass whose solver has `variable`.
  test::Outcome Break(const test::EnvironmentVariable& variable) {
    variable.Set("print up;flush;await " + folder.Path("never"));
    std::string first = "L$1";
    std::string tokens = home + "*" + folder.Path("Project") + "*Sample*0*01";
    std::string name = "Qvx3DCool.exe";
    char* arguments[] = {first.data(), tokens.data(), name.data()};
    test::Outcome outcome = {};
    outcome.console = test::ConsoleOf([&] {
      std::thread system([&] {
        AwaitLogged("up\r\n");
        EXPECT_EQ(HandleConsoleControl(CTRL_BREAK_EVENT), TRUE);
      });
      outcome.result = RunEntrySequence(3, arguments);
      system.join();
    });
    EXPECT_EQ(noCountdown.Seconds(), 5);
    return outcome;
  }

  static std::string Pass(const std::string& shown, const std::string& program, int result) {
    return test::kSerialBanner + shown + "\r\n" + test::ReturnValue(program, result);
  }

  const std::string cooler = home + "\\Bin\\Qvx3DCool.exe";
  const test::DebugTraceSwitchFile withoutTrace;
  const test::NoCountdown noCountdown;
  const test::EnvironmentVariable flowScript{"QUORVEX_FAKE_SOLVER_QVX3DFLOW"};
  const test::EnvironmentVariable coolScript{"QUORVEX_FAKE_SOLVER_QVX3DCOOL"};
};

constexpr const char* kBroken = "up\r\nCtrl-Break is captured.\r\n";

TEST_F(CoolingRun, SkipsItsSecondPassWhenTheFirstIsBroken) {
  const test::Outcome outcome = Break(flowScript);
  EXPECT_EQ(outcome.result, kCancelledChildStatus);
  EXPECT_EQ(outcome.console.All(), Pass(kBroken, solver, kCancelledChildStatus) + test::kCountdown);
}

TEST_F(CoolingRun, ReturnsTheSecondPassThatIsBroken) {
  const test::Outcome outcome = Break(coolScript);
  EXPECT_EQ(outcome.result, kCancelledChildStatus);
  EXPECT_EQ(outcome.console.All(), Pass("done\r\n", solver, 2) +
                                       Pass(kBroken, cooler, kCancelledChildStatus) +
                                       test::kCountdown);
}

}  // namespace
}  // namespace qvx
