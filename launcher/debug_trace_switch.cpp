#include <shlobj.h>
#include <windows.h>

#include <cstdio>

#include "launcher/debug_trace.h"
#include "support/bounded_text.h"

namespace qvx {

int SwitchDebugTrace(LauncherContext& context) {
  context.debugTraceFlag = 0;
  context.applicationDataFolder[0] = '\0';
  static_assert(kPathWidth == MAX_PATH);
  if (SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_DEFAULT,
                       context.applicationDataFolder) != S_OK) {
    return 0;
  }
  char switchFile[kPathWidth];
  FormatText(switchFile, "debug-trace switch file", "%s\\NelvornSystem\\qvxsolverlauncherdebug.txt",
             context.applicationDataFolder);
  std::FILE* file = std::fopen(switchFile, "r");
  if (file == nullptr) return 0;
  context.debugTraceFlag = 1;
  std::fclose(file);
  return 0;
}

}  // namespace qvx
