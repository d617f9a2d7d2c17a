// The switch of the debug trace.
#include "launcher/debug_trace.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/machine_state.h"
#include "tests/windows/console_of.h"

namespace qvx {
namespace {

class DebugTraceSwitch : public testing::Test {
 protected:
  /// Starts from the opposite of `flag`.
  void ExpectFlag(std::uint8_t flag) {
    context_.debugTraceFlag = flag == 0 ? 1 : 0;
    EXPECT_EQ(test::ConsoleOf([&] { EXPECT_EQ(SwitchDebugTrace(context_), 0); }).All(), "");
    EXPECT_EQ(context_.debugTraceFlag, flag);
  }

  const test::DebugTraceSwitchFile file_;
  LauncherContext context_;
};

TEST_F(DebugTraceSwitch, IsOffWithoutTheFile) { ExpectFlag(0); }

TEST_F(DebugTraceSwitch, IsOnWithAnEmptyFile) {
  std::ofstream{file_.Path()};
  ExpectFlag(1);
}

TEST_F(DebugTraceSwitch, IsOnWhateverTheFileHolds) {
  std::ofstream(file_.Path()) << "off\n0\n";
  ExpectFlag(1);
}

TEST_F(DebugTraceSwitch, IsOffWhenTheNameIsAFolders) {
  std::filesystem::create_directory(file_.Path());
  ExpectFlag(0);
}

TEST_F(DebugTraceSwitch, KeepsTheFolderOfAllUsersApplicationData) {
  SwitchDebugTrace(context_);
  EXPECT_EQ(context_.applicationDataFolder, file_.ApplicationData());
}

}  // namespace
}  // namespace qvx
