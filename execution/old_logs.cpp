#include "execution/old_logs.h"

#include "support/bounded_text.h"

namespace qvx {

DWORD ForEachOldLog(const LauncherContext& context, const std::string& pattern,
                    const std::function<void(const char* path)>& visit) {
  WIN32_FIND_DATAA entry;
  const HANDLE enumeration = FindFirstFileA(pattern.c_str(), &entry);
  if (enumeration == INVALID_HANDLE_VALUE) return 0;
  do {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
    char path[1024];
    // The local run folder, whatever folder the pattern names: deliberate, kept as it stands.
    FormatTruncated(path, "%s\\%s", context.localRunPath, entry.cFileName);
    visit(path);
  } while (FindNextFileA(enumeration, &entry) != 0);
  const DWORD error = GetLastError();
  FindClose(enumeration);
  return error;
}

}  // namespace qvx
