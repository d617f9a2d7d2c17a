// The name of a launch's console log, and the pattern that finds earlier ones.
#pragma once

#include <string>

#include "launcher/launcher_context.h"

namespace qvx {

struct ConsoleLogNames {
  std::string path;
  std::string cleanUpPattern;  ///< matches the logs of the same mode and solver class
};

/// `modePrefix`: "console_redirect_serial_" and the like. The folder is the current run path.
ConsoleLogNames NameConsoleLog(const LauncherContext& context, const char* modePrefix,
                               const std::string& timestamp);

}  // namespace qvx
