// The console log of a launch: the clean-up of earlier ones, and writing to it. The log
// is a file in the run folder that receives what the child prints, as bytes, without any
// translation of line ends.
#pragma once

#include <windows.h>

#include <string>

#include "execution/console_log_name.h"
#include "launcher/launcher_context.h"
#include "support/printf_like.h"

namespace qvx {

/// "2024-03-05_09-07-02": local time, no milliseconds. Two launches of one mode and class within a
/// second share a log name.
std::string LogTimestamp();

/// Deletes what `ForEachOldLog` visits for `pattern`, and returns what it returns.
DWORD CleanUpOldLogs(const LauncherContext& context, const std::string& pattern);

/// Formats into the context's scratch text and writes it. Returns -1 for a null handle, else the
/// result of the write: nonzero for success. A text of more than 32767 characters is a fault.
int WriteLog(LauncherContext& context, HANDLE log, const char* format, ...) QVX_PRINTF_LIKE(3, 4);

}  // namespace qvx
