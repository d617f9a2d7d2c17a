#include "execution/console_log_name.h"

namespace qvx {

ConsoleLogNames NameConsoleLog(const LauncherContext& context, const char* modePrefix,
                               const std::string& timestamp) {
  const std::string stem =
      std::string(context.currentRunPath) + "\\" + modePrefix + TextsOf(context.solverClass).label;
  return {stem + "_" + timestamp + ".txt", stem + "*.txt"};
}

}  // namespace qvx
