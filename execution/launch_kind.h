// What tells the serial, shared-memory and distributed launches apart. Everything else of a launch
// is one sequence, see child_process.h.
#pragma once

#include <windows.h>

#include "execution/launch_command.h"
#include "launcher/launcher_context.h"

namespace qvx {

struct RunningChild {
  HANDLE process;
  HANDLE log;  ///< INVALID_HANDLE_VALUE: the run goes on without a log
};

struct LaunchKind {
  const char* modePrefix;  ///< opens the log's file name
  const char* banner;
  /// Moves the current run path, and with it the log, elsewhere; null for staying in the run
  /// folder.
  void (*moveRunPath)(LauncherContext& context);
  /// Builds the command line and does what the child needs beforehand.
  LaunchCommand (*prepareCommand)(LauncherContext& context);
  /// Log lines before the command line; null for none.
  void (*writeLogHeading)(LauncherContext& context, HANDLE log);
  /// Sees every chunk after it was echoed and logged; true ends the pump. Null for none.
  bool (*endsPump)(LauncherContext& context, const RunningChild& child, const char* chunk);
  /// Which pipe end to close after the pump. Two launches close the write end a second time and
  /// leave the read end to the system; deliberate, kept as it stands.
  bool closesReadEnd;
};

}  // namespace qvx
