// Runs that come near to a mistake and are in order.
#include <filesystem>
#include <fstream>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckNearMiss = RunCheckTest;

TEST_F(RunCheckNearMiss, AnApostropheIsNoQuotationMark) {
  site.Write("Work\\Sample\\Analysis\\Run01\\Bob's 'part'01.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Bob's 'part'*0*01"), kInOrder);
}

TEST_F(RunCheckNearMiss, AFolderSwitchesNoDebugTraceOn) {
  const DebugTraceSwitchFile traceSwitch;
  std::filesystem::create_directories(traceSwitch.Path());
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckNearMiss, AFileOfAnotherNameSwitchesNoDebugTraceOn) {
  const DebugTraceSwitchFile traceSwitch;
  std::filesystem::path other = traceSwitch.Path();
  other += ".txt";
  std::ofstream{other};
  EXPECT_EQ(Findings(), kInOrder);
  std::filesystem::remove(other);
}

TEST_F(RunCheckNearMiss, AStorageNodeWithEveryCharacterThatAHostMayHave) {
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE-1_a.example"), kInOrder);
}

TEST_F(RunCheckNearMiss, AHiddenShareWithABlankInItsName) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=My work-1.0$"), kInOrder);
}

}  // namespace
}  // namespace qvx::test
