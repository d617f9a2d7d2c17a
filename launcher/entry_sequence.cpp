#include "launcher/entry_sequence.h"

#include <windows.h>

#include <new>

#include "execution/mpi_configuration.h"
#include "launcher/command_line.h"
#include "launcher/conformal_cooling.h"
#include "launcher/console_control_handler.h"
#include "launcher/debug_trace.h"
#include "launcher/launcher_context.h"
#include "launcher/locations.h"
#include "launcher/process_wide_values.h"
#include "launcher/run_driver.h"
#include "support/bounded_text.h"
#include "support/console.h"
#include "support/fault.h"

namespace qvx {
namespace {

/// The flow solver first, then the cooling solver. Only a cancel skips the second pass: after a
/// first pass that failed, the second one's result counts.
int RunConformalCooling(LauncherContext& context) {
  CopyCoolArgumentToFlowArgument(context);
  context.solverClass = SolverClass::Flow;
  CopyText(context.savedSolverExecutableName, "saved solver executable name",
           context.solverExecutableName);
  CopyText(context.solverExecutableName, "solver executable name", "Qvx3DFlow.exe");
  const int flowResult = RunDriver(context);
  if (cancelFlag != 0) return flowResult;
  context.solverClass = SolverClass::Cool;
  CopyText(context.solverExecutableName, "solver executable name",
           context.savedSolverExecutableName);
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
  InterpretCommandLine(context, argumentCount, arguments);
  ReadParallelFolderName(context);
  BuildCmxPath(context);
  BuildCurrentRunPath(context);
  BuildRemoteHomePath(context);
  if (context.solverClass == SolverClass::Cool || context.solverClass == SolverClass::Warp) {
    ReadMultiShotSettings(context.cmxPath, context.multiShotSettings);
  }
  context.conformalCoolingFlag = 0;
  if (context.solverClass == SolverClass::Cool) ApplyConformalCoolingSetting(context);
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
