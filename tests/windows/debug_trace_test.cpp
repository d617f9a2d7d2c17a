// The switch of the debug trace, with its real file.
#include "launcher/debug_trace.h"

#include <gtest/gtest.h>
#include <shlobj.h>
#include <windows.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/expect_fault.h"
#include "tests/support/import_patch.h"
#include "tests/support/machine_state.h"

extern "C" void* __imp_SHGetFolderPathA;

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

/// A folder whose switch file has a path of 260 characters.
HRESULT WINAPI TellLongFolder(HWND, int, HANDLE, DWORD, LPSTR path) {
  const std::string file = "\\NelvornSystem\\qvxsolverlauncherdebug.txt";
  std::strcpy(path, std::string(260 - file.size(), 'd').c_str());
  return S_OK;
}

TEST_F(DebugTraceSwitch, RefusesAPathThatIsTooLong) {
  const test::ImportPatch patch(&__imp_SHGetFolderPathA, reinterpret_cast<void*>(&TellLongFolder));
  LauncherContext context;
  EXPECT_FAULT(SwitchDebugTrace(context),
               "ERROR: debug-trace switch file is too long: width 260, length 260");
}

}  // namespace
}  // namespace qvx
