#include "execution/launch_command.h"

#include "execution/mpi_command_line.h"
#include "execution/mpi_configuration.h"
#include "launcher/debug_trace.h"
#include "launcher/locations.h"
#include "support/bounded_text.h"

namespace qvx {

LaunchCommand SerialCommand(const LauncherContext& context) {
  char solverPath[kPathWidth];
  FormatText(solverPath, "solver path", "%s\\Bin\\%s", context.homeFolder,
             context.solverExecutableName);
  // Wide enough for any solver path and argument string.
  char commandLine[6144];
  static_assert(sizeof solverPath + sizeof context.solverArgumentString <= sizeof commandLine);
  // The path is not quoted, deliberately: the system resolves a home folder with blanks in it.
  FormatText(commandLine, "command line", "%s %s", solverPath, context.solverArgumentString);
  return {commandLine, solverPath};
}

MpiProcesses SmpProcesses(const LauncherContext& context) {
  return {LocalProcesses(context.taskManagerSettings), context.homeFolder};
}

MpiProcesses DmpProcesses(const LauncherContext& context) {
  return {HostsList(context.remoteMachineSettings), context.remoteHomePath};
}

void MoveRunPathToShare(LauncherContext& context) {
  FormatCurrentRunPath(context);
  Trace(context, "Current run path (remote) = %s\n", context.currentRunPath);
}

MpiExecutables LocateMpiExecutables(LauncherContext& context, const char* solverHome) {
  MpiExecutables executables;
  FormatText(executables.impiexecPath, "impiexec.exe path", "%s\\impiexec.exe",
             ReadMpiInstallationPath(context));
  FormatText(executables.solverPath, "solver path", "%s\\Bin\\%s", solverHome,
             context.solverExecutableName);
  return executables;
}

LaunchCommand MpiCommand(const LauncherContext& context, const MpiExecutables& executables,
                         const MpiProcesses& processes, const std::string& configuration) {
  return {MpiCommandLine(executables.impiexecPath, processes.options, configuration,
                         executables.solverPath, context.solverArgumentString),
          executables.impiexecPath};
}

}  // namespace qvx
