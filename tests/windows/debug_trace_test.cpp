// The switch of the debug trace, with its real file.
#include "launcher/debug_trace.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/machine_state.h"

namespace qvx {
namespace {

class DebugTraceSwitch : public testing::Test {
 protected:
  /// Starts from the opposite of `flag`.
  void ExpectFlag(std::uint8_t flag) {
    context_.debugTraceFlag = flag == 0 ? 1 : 0;
    EXPECT_EQ(SwitchDebugTrace(context_), 0);
    EXPECT_EQ(context_.debugTraceFlag, flag);
    EXPECT_EQ(context_.applicationDataFolder, file_.ApplicationData());
  }

  const test::DebugTraceSwitchFile file_;
  LauncherContext context_;
};

TEST_F(DebugTraceSwitch, IsOnWithAnEmptyFile) {
  std::ofstream{file_.Path()};
  ExpectFlag(1);
}

TEST_F(DebugTraceSwitch, IsOffWithoutTheFileAndWhenTheNameIsAFolders) {
  ExpectFlag(0);
  std::filesystem::create_directory(file_.Path());
  ExpectFlag(0);
}

}  // namespace
}  // namespace qvx
