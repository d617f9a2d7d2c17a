#include "execution/mpi_configuration.h"

#include <windows.h>

#include "support/bounded_text.h"
#include "support/trailing_backslash.h"

namespace qvx {

const char* ReadMpiInstallationPath(LauncherContext& context) {
  char(&path)[kPathWidth] = context.mpiInstallationPath;
  path[0] = '\0';
  // One byte more than is asked for: a registry text need not end with a zero.
  BYTE text[kPathWidth + 1] = {};
  HKEY key = nullptr;
  if (RegOpenKeyA(HKEY_LOCAL_MACHINE, "SOFTWARE\\NelvornSystem", &key) == ERROR_SUCCESS) {
    DWORD size = kPathWidth;
    if (RegQueryValueExA(key, "IntelMPI_InstallPath", nullptr, nullptr, text, &size) ==
        ERROR_SUCCESS) {
      CopyText(path, "MPI installation path", reinterpret_cast<const char*>(text));
    }
    RegCloseKey(key);
  }
  RemoveTrailingBackslash(path);
  return path;
}

int ReadParallelFolderName(LauncherContext& context) {
  char iniFile[kPathWidth];
  FormatText(iniFile, "project ini file", "%s\\Bin\\QVXProject.ini", context.homeFolder);
  GetPrivateProfileStringA("Configuration", "QVX_PARALLEL_FOLDER_NAME", "",
                           context.parallelFolderName, sizeof context.parallelFolderName, iniFile);
  return 0;
}

}  // namespace qvx
