#include "execution/mpi_launch.h"

#include <shlobj.h>

#include <algorithm>
#include <cstddef>
#include <memory>

#include "execution/mpi_command_line.h"
#include "execution/mpi_configuration.h"
#include "support/bounded_text.h"

namespace qvx {

MpiExecutables LocateMpiExecutables(LauncherContext& context, const char* solverHome) {
  MpiExecutables executables;
  FormatText(executables.impiexecPath, "impiexec.exe path", "%s\\impiexec.exe",
             ReadMpiInstallationPath(context));
  FormatText(executables.solverPath, "solver path", "%s\\Bin\\%s", solverHome,
             context.solverExecutableName);
  return executables;
}

std::wstring MpiConfigurationFolder() {
  wchar_t applicationData[kPathWidth] = {};
  SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_DEFAULT, applicationData);
  std::wstring folder = std::wstring(applicationData) + L"\\NelvornSystem\\Quorvex R13.0";
  folder.resize(std::min(folder.size(), kPathWidth - 1));
  return folder;
}

std::string MpiConfiguration(LauncherContext& context, const std::wstring& folder) {
  const wchar_t* text = context.mpiTool.GetIntelMPIConfigurationStringForMpiexec(folder.c_str());
  const std::wstring wide = text == nullptr ? L"" : text;
  char* utf8 = nullptr;
  context.mpiUnicodeTool.Utf16ToUtf8(wide.c_str(), utf8);
  const std::unique_ptr<char[]> owner(utf8);
  return utf8 == nullptr ? "" : utf8;
}

LaunchCommand PrepareMpiCommand(LauncherContext& context, const std::string& processes,
                                const char* solverHome) {
  const MpiExecutables executables = LocateMpiExecutables(context, solverHome);
  const std::wstring folder = MpiConfigurationFolder();
  // No result is looked at: an existing folder is fine, and the run goes on without one.
  SHCreateDirectory(nullptr, folder.c_str());
  const std::string configuration = MpiConfiguration(context, folder);
  LaunchCommand command = {MpiCommandLine(executables.impiexecPath, processes, configuration,
                                          executables.solverPath, context.solverArgumentString),
                           executables.impiexecPath};
  // The child inherits it. Never reset.
  SetEnvironmentVariableA("I_MPI_SMPD_VERSION_CHECK", "0");
  return command;
}

}  // namespace qvx
