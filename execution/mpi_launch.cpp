#include "execution/mpi_launch.h"

#include <shlobj.h>

#include <algorithm>
#include <cstddef>
#include <memory>

#include "execution/mpi_command_line.h"
#include "execution/mpi_configuration.h"
#include "support/bounded_text.h"

namespace qvx {
namespace {

/// The current user's, created when it is missing. No result is looked at: without the folder the
/// MPI tool has nothing to say, and the run goes on.
std::wstring MpiConfigurationFolder() {
  wchar_t applicationData[kPathWidth] = {};
  SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_DEFAULT, applicationData);
  std::wstring folder = std::wstring(applicationData) + L"\\NelvornSystem\\Quorvex R13.0";
  folder.resize(std::min(folder.size(), kPathWidth - 1));
  SHCreateDirectory(nullptr, folder.c_str());
  return folder;
}

/// Options of the MPI tool's for the process launcher, UTF-8; empty when there are none.
std::string MpiConfiguration(LauncherContext& context) {
  const std::wstring folder = MpiConfigurationFolder();
  const wchar_t* text = context.mpiTool.GetIntelMPIConfigurationStringForMpiexec(folder.c_str());
  const std::wstring wide = text == nullptr ? L"" : text;
  char* utf8 = nullptr;
  context.mpiUnicodeTool.Utf16ToUtf8(wide.c_str(), utf8);
  const std::unique_ptr<char[]> owner(utf8);
  return utf8 == nullptr ? "" : utf8;
}

}  // namespace

LaunchCommand BuildMpiCommand(LauncherContext& context, const std::string& processes,
                              const char* solverHome) {
  char impiexecPath[kPathWidth];
  FormatText(impiexecPath, "impiexec.exe path", "%s\\impiexec.exe",
             ReadMpiInstallationPath(context));
  char solverPath[kPathWidth];
  FormatText(solverPath, "solver path", "%s\\Bin\\%s", solverHome, context.solverExecutableName);
  LaunchCommand command = {MpiCommandLine(impiexecPath, processes, MpiConfiguration(context),
                                          solverPath, context.solverArgumentString),
                           impiexecPath};
  // The child inherits it. Never reset: nothing else in this process reads it.
  SetEnvironmentVariableA("I_MPI_SMPD_VERSION_CHECK", "0");
  return command;
}

}  // namespace qvx
