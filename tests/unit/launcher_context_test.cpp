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

void ExpectEmpty(std::size_t width, std::initializer_list<std::span<const char>> fields) {
  for (const auto& field : fields) {
    EXPECT_EQ(field.size(), width);
    EXPECT_EQ(field.front(), '\0');
  }
}

TEST(LauncherContext, StartsWithEmptyTextsOfTheirWidths) {
  BuiltContext built;
  LauncherContext& context = *built;
  ExpectEmpty(64, {context.solverExecutableName, context.savedSolverExecutableName});
  ExpectEmpty(260, {context.cmxPath, context.currentRunPath, context.localRunPath,
                    context.remoteHomePath, context.homeFolder, context.applicationDataFolder,
                    context.parallelFolderName, context.mpiInstallationPath});
  ExpectEmpty(4096, {context.solverArgumentString});
  ExpectEmpty(32768, {context.redirectLogScratch});
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
  ExpectEmpty(32, {tasks.Version, tasks.IDTaskMode, tasks.flagAccelerationType, tasks.ValueNoTask,
                   tasks.ValueLocalNoTask, tasks.ValueConsoleRedirection});
  const RemoteMachineSettings& remote = (*built).remoteMachineSettings;
  ExpectEmpty(32, {remote.Version, remote.ValueNoMachine, remote.ValueRemoteNoTask, remote.ValueMap,
                   remote.ValueLocalHost, remote.ValueStorageNode});
  ExpectEmpty(260, {remote.ValueShareFolderName, remote.ValueParallelWorkingFolder});
  EXPECT_TRUE(remote.machines.empty());
  const MachineEntry machine;
  ExpectEmpty(32, {machine.hostName, machine.taskCount, machine.weighting});
  const MultiShotSettings& shot = (*built).multiShotSettings;
  ExpectEmpty(32, {shot.Version});
  ExpectEmpty(1024, {shot.ValueShotProjectPath, shot.ValueShotProjectName});
  EXPECT_EQ(shot.FlagPrevShot, 0);
  EXPECT_EQ(shot.ValueShotRunID, 0);
  EXPECT_EQ(shot.FlagPrevShotProject, 0);
}

}  // namespace
}  // namespace qvx
