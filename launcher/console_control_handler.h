// Answers Ctrl-C, Ctrl-Break and the end of the console, session or system: asks the run to stop
// and ends the running child. Runs on the thread that the system creates for the event and touches
// only the process-wide values and the console.
#pragma once

#include <cstdint>

namespace qvx {

/// Exit code of a child that the handler ended.
constexpr int kCancelledChildStatus = -9876;

/// Returns false when the system refuses the handler: the run then cannot be cancelled.
bool RegisterConsoleControlHandler();

/// Returns 1 when the event was handled, which keeps the launcher alive after Ctrl-C and
/// Ctrl-Break, and 0 for a code that is not a known event.
int HandleConsoleControl(std::uint32_t eventCode);

}  // namespace qvx
