#include "execution/serial_launch.h"

#include "execution/child_process.h"

namespace qvx {
namespace {

LaunchCommand PrepareSerialCommand(LauncherContext& context) { return SerialCommand(context); }

constexpr LaunchKind kSerialLaunch = {
    .modePrefix = kSerialLogPrefix,
    .banner = "Launch serial computing\n",
    .moveRunPath = nullptr,
    .prepareCommand = PrepareSerialCommand,
    .writeLogHeading = nullptr,
    .endsPump = nullptr,
    .closesReadEnd = false,
};

}  // namespace

int LaunchSerial(LauncherContext& context) { return Launch(context, kSerialLaunch); }

}  // namespace qvx
