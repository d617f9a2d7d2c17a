#include "execution/smp_launch.h"

#include <string_view>

#include "execution/child_process.h"
#include "execution/console_log.h"
#include "execution/mpi_launch.h"
#include "support/console.h"

namespace qvx {
namespace {

/// What the MPI process launcher prints when its process manager is not installed.
constexpr std::string_view kNoProcessManagerSign = "Unknown option: -d";

constexpr const char* kStartProcessManagerAdvice =
    "\nIntel(R) MPI Library(4.0) Process Manager(smpd) is not started!\n"
    "Run the following command-line as Administrator to start smpd:\n"
    "\"C:\\Program Files\\Intel MPI 4.0\\x64\\smpd-intel-4.0.3.009-x64.exe\" -install\n";

LaunchCommand PrepareSmpCommand(LauncherContext& context) {
  return PrepareMpiCommand(context, SmpProcesses(context));
}

/// Looks at each chunk alone; a sign that two reads cut apart is not recognised, kept as it stands.
bool EndWithoutProcessManager(LauncherContext& context, const RunningChild& child,
                              const char* chunk) {
  if (std::string_view(chunk).find(kNoProcessManagerSign) == std::string_view::npos) return false;
  Print("%s", kStartProcessManagerAdvice);
  TerminateProcess(child.process, static_cast<UINT>(kNoProcessManagerStatus));
  // The log's line ends stay "\n" here, deliberately.
  if (child.log != INVALID_HANDLE_VALUE) {
    WriteLog(context, child.log, "%s", kStartProcessManagerAdvice);
  }
  return true;
}

constexpr LaunchKind kSmpLaunch = {
    .modePrefix = kSmpLogPrefix,
    .banner = kParallelBanner,
    .moveRunPath = nullptr,
    .prepareCommand = PrepareSmpCommand,
    .writeLogHeading = nullptr,
    .endsPump = EndWithoutProcessManager,
    .closesReadEnd = true,
};

}  // namespace

int LaunchSmp(LauncherContext& context) { return Launch(context, kSmpLaunch); }

}  // namespace qvx
