// The launch sequence that the serial, shared-memory and distributed launches share: old logs are
// cleaned up, the child starts with its console in a pipe, what arrives there goes to the
// launcher's console and into the log, and the child's exit code is reported. The launches differ
// in a LaunchKind. Main thread only; log writes are not re-entrant.
#pragma once

#include <windows.h>

#include <string>

#include "launcher/launcher_context.h"

namespace qvx {

struct LaunchCommand {
  std::string commandLine;
  std::string reportedPath;  ///< the executable that the return-value lines name
};

struct RunningChild {
  HANDLE process;
  HANDLE log;  ///< INVALID_HANDLE_VALUE: the run goes on without a log
};

/// What one launch has of its own.
struct LaunchKind {
  const char* modePrefix;  ///< opens the log's file name
  const char* banner;
  /// Moves the current run path, where the log goes; null for staying in the run folder.
  void (*chooseLogFolder)(LauncherContext& context);
  LaunchCommand (*buildCommand)(LauncherContext& context);
  /// Log lines before the command line; null for none.
  void (*writeLogHeading)(LauncherContext& context, HANDLE log);
  /// Sees every chunk after it was echoed and logged; true ends the pump. Null for none.
  bool (*endsPump)(LauncherContext& context, const RunningChild& child, const char* chunk);
  /// Which pipe end to close behind the pump. Two launches close the write end a second time and
  /// leave the read end to the system; deliberate, kept as it stands.
  bool closesReadEnd;
};

/// Returns the child's exit code, or -1 when it could not be started.
int Launch(LauncherContext& context, const LaunchKind& kind);

}  // namespace qvx
