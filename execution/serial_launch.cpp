#include "execution/serial_launch.h"

#include "execution/child_process.h"
#include "support/bounded_text.h"

namespace qvx {
namespace {

LaunchCommand BuildSerialCommand(LauncherContext& context) {
  char solverPath[kPathWidth];
  FormatText(solverPath, "solver path", "%s\\Bin\\%s", context.homeFolder,
             context.solverExecutableName);
  // Wide enough for any solver path and argument string.
  char commandLine[6144];
  static_assert(sizeof solverPath + sizeof context.solverArgumentString <= sizeof commandLine);
  // The path is not quoted, deliberately: the system resolves a home folder with blanks in it.
  FormatText(commandLine, "command line", "%s %s", solverPath, context.solverArgumentString);
  return {commandLine, solverPath};
}

constexpr LaunchKind kSerialLaunch = {
    .modePrefix = "console_redirect_serial_",
    .banner = "Launch serial computing\n",
    .moveRunPath = nullptr,
    .prepareCommand = BuildSerialCommand,
    .writeLogHeading = nullptr,
    .endsPump = nullptr,
    .closesReadEnd = false,
};

}  // namespace

int LaunchSerial(LauncherContext& context) { return Launch(context, kSerialLaunch); }

}  // namespace qvx
