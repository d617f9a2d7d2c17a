// The rooms of the launcher that call Windows and that the check uses, in their place: what they
// find on this machine.
#include "execution/mpi_configuration.h"
#include "execution/mpi_options.h"
#include "launcher/debug_trace.h"
#include "support/bounded_text.h"
#include "support/trailing_backslash.h"

namespace qvx {

int SwitchDebugTrace(LauncherContext& context) { return context.debugTraceFlag = 0; }

int ReadParallelFolderName(LauncherContext& context) {
  char iniFile[kPathWidth];
  FormatText(iniFile, "project ini file", "%s\\Bin\\QVXProject.ini", context.homeFolder);
  CopyText(context.parallelFolderName, "parallel folder name", "Share");
  return 0;
}

const char* ReadMpiInstallationPath(LauncherContext& context) {
  CopyText(context.mpiInstallationPath, "MPI installation path", "I\\");
  RemoveTrailingBackslash(context.mpiInstallationPath);
  return context.mpiInstallationPath;
}

std::wstring MpiConfigurationFolder() { return {}; }
std::string MpiConfiguration(LauncherContext& /*context*/, const std::wstring& /*folder*/) {
  return "C";
}

}  // namespace qvx
