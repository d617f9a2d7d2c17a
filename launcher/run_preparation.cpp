#include "launcher/run_preparation.h"

#include "execution/mpi_configuration.h"
#include "launcher/command_line.h"
#include "launcher/conformal_cooling.h"
#include "launcher/locations.h"

namespace qvx {

void PrepareRun(LauncherContext& context, int argumentCount, char** arguments) {
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
}

}  // namespace qvx
