// The console logs of earlier launches, as a launch finds them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "launcher/launcher_context.h"

namespace qvx {

/// Calls `visit` for what matches `pattern`, folders excepted, with the path of the same name in
/// the local run folder. Returns the last-error code that ended the enumeration, normally
/// ERROR_NO_MORE_FILES, or 0 when nothing matched.
DWORD ForEachOldLog(const LauncherContext& context, const std::string& pattern,
                    const std::function<void(const char* path)>& visit);

}  // namespace qvx
