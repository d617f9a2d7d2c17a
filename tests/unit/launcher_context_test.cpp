// The launcher context as it is built: the order of its objects, the widths of its texts, and that
// all of it is empty.
#include "launcher/launcher_context.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <new>
#include <span>
#include <vector>

namespace qvx {
namespace {

/// A context in memory that held something else before.
class BuiltContext {
 public:
  BuiltContext() {
    std::memset(memory_, 0xAA, sizeof memory_);
    context_ = new (memory_) LauncherContext;
  }
  ~BuiltContext() { context_->~LauncherContext(); }
  BuiltContext(const BuiltContext&) = delete;
  BuiltContext& operator=(const BuiltContext&) = delete;

  LauncherContext& operator*() { return *context_; }

 private:
  alignas(LauncherContext) unsigned char memory_[sizeof(LauncherContext)];
  LauncherContext* context_;
};

TEST(LauncherContext, BuildsItsObjectsInAFixedOrder) {
  const LauncherContext context;
  const std::vector<const void*> members = {
      &context.argumentTool,          &context.flowArgument,
      &context.coolArgument,          &context.warpArgument,
      &context.shellFlowArgument,     &context.shellCoolArgument,
      &context.shellWarpArgument,     &context.icArgument,
      &context.opticsArgument,        &context.unicodeTool,
      &context.remoteMachineSettings, &context.taskManagerSettings,
      &context.multiShotSettings,     &context.mpiTool,
      &context.mpiUnicodeTool};
  EXPECT_TRUE(std::is_sorted(members.begin(), members.end()));
}

struct Text {
  std::span<const char> field;
  std::size_t width;
};

void ExpectEmpty(std::initializer_list<Text> texts) {
  for (const auto& [field, width] : texts) {
    EXPECT_EQ(field.size(), width);
    EXPECT_EQ(field.front(), '\0');
  }
}

TEST(LauncherContext, StartsWithEmptyTextsOfTheirWidths) {
  BuiltContext built;
  LauncherContext& context = *built;
  ExpectEmpty({
      {context.solverExecutableName, 64},
      {context.savedSolverExecutableName, 64},
      {context.cmxPath, 260},
      {context.currentRunPath, 260},
      {context.localRunPath, 260},
      {context.remoteHomePath, 260},
      {context.homeFolder, 260},
      {context.applicationDataFolder, 260},
      {context.solverArgumentString, 4096},
      {context.redirectLogScratch, 32768},
      {context.parallelFolderName, 260},
      {context.mpiInstallationPath, 260},
  });
}

TEST(LauncherContext, StartsWithNumbersAndFlagsOfZero) {
  BuiltContext built;
  const LauncherContext& context = *built;
  EXPECT_EQ(context.solverClass, SolverClass::Flow);
  EXPECT_EQ(context.computeMode, ComputeMode::Serial);
  EXPECT_EQ(context.debugTraceFlag, 0);
  EXPECT_EQ(context.conformalCoolingFlag, 0);
  EXPECT_EQ(context.configurationAbortFlag, 0);
}

TEST(LauncherContext, StartsWithEmptySettings) {
  BuiltContext built;
  const TaskManagerSettings& tasks = (*built).taskManagerSettings;
  ExpectEmpty({
      {tasks.Version, 32},
      {tasks.IDTaskMode, 32},
      {tasks.flagAccelerationType, 32},
      {tasks.ValueNoTask, 32},
      {tasks.ValueLocalNoTask, 32},
      {tasks.ValueConsoleRedirection, 32},
  });
  const RemoteMachineSettings& remote = (*built).remoteMachineSettings;
  ExpectEmpty({
      {remote.Version, 32},
      {remote.ValueNoMachine, 32},
      {remote.ValueRemoteNoTask, 32},
      {remote.ValueMap, 32},
      {remote.ValueShareFolderName, 260},
      {remote.ValueParallelWorkingFolder, 260},
      {remote.ValueLocalHost, 32},
      {remote.ValueStorageNode, 32},
  });
  EXPECT_TRUE(remote.machines.empty());
  const MachineEntry machine;
  ExpectEmpty({{machine.hostName, 32}, {machine.taskCount, 32}, {machine.weighting, 32}});
  const MultiShotSettings& shot = (*built).multiShotSettings;
  ExpectEmpty({
      {shot.Version, 32},
      {shot.ValueShotProjectPath, 1024},
      {shot.ValueShotProjectName, 1024},
  });
  EXPECT_EQ(shot.FlagPrevShot, 0);
  EXPECT_EQ(shot.ValueShotRunID, 0);
  EXPECT_EQ(shot.FlagPrevShotProject, 0);
}

}  // namespace
}  // namespace qvx
