// The launcher context as it is built: the order of its objects, the widths of its texts, and that
// all of it is empty.
#include "launcher/launcher_context.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <new>
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

TEST(LauncherContext, StartsWithEmptyTextsOfTheirWidths) {
  BuiltContext built;
  LauncherContext& context = *built;
  const struct {
    std::span<const char> text;
    std::size_t width;
  } texts[] = {
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
  };
  for (const auto& [text, width] : texts) {
    EXPECT_EQ(text.size(), width);
    EXPECT_EQ(text.front(), '\0');
  }
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
  for (const char* text :
       {tasks.Version, tasks.IDTaskMode, tasks.flagAccelerationType, tasks.ValueNoTask,
        tasks.ValueLocalNoTask, tasks.ValueConsoleRedirection}) {
    EXPECT_STREQ(text, "");
  }
  const RemoteMachineSettings& remote = (*built).remoteMachineSettings;
  for (const char* text :
       {remote.Version, remote.ValueNoMachine, remote.ValueRemoteNoTask, remote.ValueMap,
        remote.ValueShareFolderName, remote.ValueParallelWorkingFolder, remote.ValueLocalHost,
        remote.ValueStorageNode}) {
    EXPECT_STREQ(text, "");
  }
  EXPECT_TRUE(remote.machines.empty());
  const MultiShotSettings& shot = (*built).multiShotSettings;
  for (const char* text : {shot.Version, shot.ValueShotProjectPath, shot.ValueShotProjectName}) {
    EXPECT_STREQ(text, "");
  }
  EXPECT_EQ(shot.FlagPrevShot, 0);
  EXPECT_EQ(shot.ValueShotRunID, 0);
  EXPECT_EQ(shot.FlagPrevShotProject, 0);
}

}  // namespace
}  // namespace qvx
