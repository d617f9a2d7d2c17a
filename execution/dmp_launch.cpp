#include "execution/dmp_launch.h"

#include "execution/child_process.h"
#include "execution/console_log.h"
#include "execution/mpi_launch.h"

namespace qvx {
namespace {

LaunchCommand PrepareDmpCommand(LauncherContext& context) {
  return PrepareMpiCommand(context, DmpProcesses(context));
}

void WriteComputeNodes(LauncherContext& context, HANDLE log) {
  WriteLog(context, log, "Used compute nodes:\r\n");
  for (const MachineEntry& machine : context.remoteMachineSettings.machines) {
    WriteLog(context, log, "%s:%s\r\n", machine.hostName, machine.taskCount);
  }
  WriteLog(context, log, "\r\n");
}

constexpr LaunchKind kDmpLaunch = {
    .modePrefix = kDmpLogPrefix,
    .banner = kParallelBanner,
    .moveRunPath = MoveRunPathToShare,
    .prepareCommand = PrepareDmpCommand,
    .writeLogHeading = WriteComputeNodes,
    .endsPump = nullptr,
    .closesReadEnd = false,
};

}  // namespace

int LaunchDmp(LauncherContext& context) { return Launch(context, kDmpLaunch); }

}  // namespace qvx
