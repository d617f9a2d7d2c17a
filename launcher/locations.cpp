#include "launcher/locations.h"

#include "launcher/argument_record.h"
#include "launcher/debug_trace.h"
#include "support/bounded_text.h"

namespace qvx {

int BuildCmxPath(LauncherContext& context) {
  VisitArgumentRecord(context, [&](const QVXRunTexts& run) {
    FormatText(context.cmxPath, "CMX path", "%s\\Analysis\\Run%s\\%s%s.cmx", run.projectDirectory,
               run.runNumber, run.projectName, run.runNumber);
  });
  Trace(context, "cmx path = %s\n", context.cmxPath);
  return 0;
}

void FormatCurrentRunPath(LauncherContext& context) {
  VisitArgumentRecord(context, [&](const QVXRunTexts& run) {
    FormatText(context.currentRunPath, "current run path", "%s\\Analysis\\Run%s",
               run.projectDirectory, run.runNumber);
  });
}

int BuildCurrentRunPath(LauncherContext& context) {
  FormatCurrentRunPath(context);
  CopyText(context.localRunPath, "local run path", context.currentRunPath);
  Trace(context, "Current run path = %s\n", context.currentRunPath);
  return 0;
}

int BuildRemoteHomePath(LauncherContext& context) {
  if (AlwaysRunsSerially(context.solverClass)) return 0;
  ReadTaskManagerSettings(context.cmxPath, context.taskManagerSettings);
  ReadRemoteMachineSettings(context.cmxPath, context.remoteMachineSettings);
  if (IsDistributed(context.taskManagerSettings)) {
    FormatText(context.remoteHomePath, "remote home path", "\\\\%s\\%s",
               context.remoteMachineSettings.ValueStorageNode, context.parallelFolderName);
    Trace(context, "Quorvex Home Remote=%s\n", context.remoteHomePath);
  }
  if (context.debugTraceFlag != 0) {
    DumpTaskManagerSettings(context.taskManagerSettings);
    DumpRemoteMachineSettings(context.remoteMachineSettings);
  }
  return 0;
}

}  // namespace qvx
