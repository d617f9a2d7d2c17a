#include "launcher/entry_sequence.h"

#include <windows.h>

#include <new>

#include "launcher/conformal_cooling.h"
#include "launcher/console_control_handler.h"
#include "launcher/debug_trace.h"
#include "launcher/launcher_context.h"
#include "launcher/process_wide_values.h"
#include "launcher/run_driver.h"
#include "launcher/run_preparation.h"
#include "support/console.h"
#include "support/fault.h"

namespace qvx {
namespace {

/// The flow solver first, then the cooling solver. Only a cancel skips the second pass: after a
/// first pass that failed, the second one's result counts.
int RunConformalCooling(LauncherContext& context) {
  BeginFlowPass(context);
  const int flowResult = RunDriver(context);
  if (cancelFlag != 0) return flowResult;
  BeginCoolPass(context);
  return RunDriver(context);
}

/// Five seconds after every run, failed or not: deliberate, kept.
void CountDown() {
  constexpr DWORD kMillisecondsAStep = 1000;
  for (int n = 4; n >= 0; --n) {
    Print("\r%d   ", n);
    Sleep(kMillisecondsAStep);
  }
}

}  // namespace

int RunEntrySequence(int argumentCount, char** arguments) try {
  InstallOutOfMemoryFault();
  if (argumentCount < 2) {
    Print("incorrect argument\n");
    return -1;
  }
  if (!RegisterConsoleControlHandler()) Print("ERROR: Could not set control handler\n");
  LauncherContext context;
  SwitchDebugTrace(context);
  PrepareRun(context, argumentCount, arguments);
  const int result =
      context.conformalCoolingFlag != 0 ? RunConformalCooling(context) : RunDriver(context);
  CountDown();
  return result;
} catch (const std::bad_alloc&) {
  // Closed libraries alone throw. By now the context is gone, built or half built, last member
  // first.
  FaultOutOfMemory();
} catch (...) {
  FaultUnexpectedException();
}

}  // namespace qvx
