#include "execution/mpi_configuration.h"

#include <windows.h>

#include <iterator>

#include "launcher/argument_record.h"
#include "launcher/debug_trace.h"
#include "support/bounded_text.h"
#include "support/console.h"
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

int ConvertMpiAccounts(LauncherContext& context) {
  char folder[kPathWidth] = {};
  wchar_t wideFolder[1024] = {};
  VisitArgumentRecord(context, [&]<typename Record>(const Record& record) {
    if constexpr (HasRunSettings<Record>) {
      context.mpiUnicodeTool.AnsiToUtf16(record.homeFolder, wideFolder, std::size(wideFolder));
      CopyText(folder, "home folder", record.homeFolder);
    }
  });
  const int result = context.mpiTool.ConvertAcc2RegistryForIntelMPI(wideFolder, false);
  Trace(context, "ConvertAcc2RegistryForIntelMPI(%s)\n", folder);
  if (result == CQVXMPITool::kAccountFileNotUsable) {
    context.configurationAbortFlag = 1;
    Print("Error: Please check if acc.ini is properly configured!\n");
  }
  return result;
}

}  // namespace qvx
