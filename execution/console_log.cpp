#include "execution/console_log.h"

#include <cstdarg>

#include "execution/write_whole.h"
#include "support/bounded_text.h"

namespace qvx {

std::string LogTimestamp() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  char timestamp[1024];
  FormatText(timestamp, "timestamp", "%04d-%02d-%02d_%02d-%02d-%02d", now.wYear, now.wMonth,
             now.wDay, now.wHour, now.wMinute, now.wSecond);
  return timestamp;
}

ConsoleLogNames NameConsoleLog(const LauncherContext& context, const char* modePrefix,
                               const std::string& timestamp) {
  const std::string stem =
      std::string(context.currentRunPath) + "\\" + modePrefix + TextsOf(context.solverClass).label;
  return {stem + "_" + timestamp + ".txt", stem + "*.txt"};
}

DWORD CleanUpOldLogs(const LauncherContext& context, const std::string& pattern) {
  WIN32_FIND_DATAA entry;
  const HANDLE enumeration = FindFirstFileA(pattern.c_str(), &entry);
  if (enumeration == INVALID_HANDLE_VALUE) return 0;
  do {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
    char path[1024];
    // The local run folder, whatever folder the pattern names: deliberate, kept as it stands.
    FormatTruncated(path, "%s\\%s", context.localRunPath, entry.cFileName);
    DeleteFileA(path);
  } while (FindNextFileA(enumeration, &entry) != 0);
  const DWORD error = GetLastError();
  FindClose(enumeration);
  return error;
}

int WriteLog(LauncherContext& context, HANDLE log, const char* format, ...) {
  if (log == nullptr) return -1;
  std::va_list arguments;
  va_start(arguments, format);
  const std::size_t length =
      FormatTextV(context.redirectLogScratch, "console log text", format, arguments);
  va_end(arguments);
  return WriteWhole(log, context.redirectLogScratch, static_cast<DWORD>(length));
}

}  // namespace qvx
