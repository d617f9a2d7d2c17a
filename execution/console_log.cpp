#include "execution/console_log.h"

#include <cstdarg>

#include "execution/old_logs.h"
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

DWORD CleanUpOldLogs(const LauncherContext& context, const std::string& pattern) {
  return ForEachOldLog(context, pattern, [](const char* path) { DeleteFileA(path); });
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
