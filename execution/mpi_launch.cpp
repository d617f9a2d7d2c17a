#include "execution/mpi_launch.h"

#include <shlobj.h>

#include "execution/mpi_options.h"

namespace qvx {

LaunchCommand PrepareMpiCommand(LauncherContext& context, const MpiProcesses& processes) {
  const MpiExecutables executables = LocateMpiExecutables(context, processes.solverHome);
  const std::wstring folder = MpiConfigurationFolder();
  // No result is looked at: an existing folder is fine, and the run goes on without one.
  SHCreateDirectory(nullptr, folder.c_str());
  LaunchCommand command =
      MpiCommand(context, executables, processes, MpiConfiguration(context, folder));
  // The child inherits it. Never reset.
  SetEnvironmentVariableA(kMpiVariable, kMpiVariableValue);
  return command;
}

}  // namespace qvx
