// The launcher context: every record, text and closed-library object of one run. Built once on the
// main thread's stack, handed to every operation, destroyed at the end of the run. Only the main
// thread touches it.
#pragma once

#include <cstddef>
#include <cstdint>

#include "launcher/solver_class.h"
#include "platform/qvx_mpi_tool.h"
#include "platform/qvx_solver_argument_tool.h"
#include "platform/qvx_unicode_tool.h"
#include "runconfig/multi_shot_settings.h"
#include "runconfig/remote_machine_settings.h"
#include "runconfig/task_manager_settings.h"

namespace qvx {

/// The longest path that the system's ANSI functions take, terminating zero included.
constexpr std::size_t kPathWidth = 260;

enum class ComputeMode : std::uint32_t {
  Serial,
  Smp,  ///< shared-memory parallel under MPI on this machine
  Dmp,  ///< distributed parallel under MPI on several machines
};

/// Closed-library objects and settings are built in the order of their members. Texts end with a
/// zero and start empty; numbers and flags start as 0.
struct LauncherContext {
  CQVXSolverArgumentTool argumentTool;
  CQVXFlowFlowEPackArgument flowArgument;
  CQVXCoolArgument coolArgument;
  CQVXWarpArgument warpArgument;
  CQVXShellFlowPackArgument shellFlowArgument;
  CQVXShellCoolArgument shellCoolArgument;
  CQVXShellWarpArgument shellWarpArgument;
  CQVX3DICWSPSArgument icArgument;
  CQVXOpticsArgument opticsArgument;
  CQVXUnicodeTool unicodeTool;
  RemoteMachineSettings remoteMachineSettings;
  TaskManagerSettings taskManagerSettings;
  MultiShotSettings multiShotSettings;
  CQVXMPITool mpiTool;
  CQVXUnicodeTool mpiUnicodeTool;

  char solverExecutableName[64] = {};
  char savedSolverExecutableName[64] = {};  ///< the cooling solver's, during its flow pre-pass
  SolverClass solverClass = SolverClass::Flow;
  ComputeMode computeMode = ComputeMode::Serial;

  char cmxPath[kPathWidth] = {};
  char currentRunPath[kPathWidth] =
      {};  ///< where logs go; a distributed launch moves it to the share
  char localRunPath[kPathWidth] = {};    ///< the run folder on this machine, which never moves
  char remoteHomePath[kPathWidth] = {};  ///< the installation as remote machines reach it
  char homeFolder[kPathWidth] = {};      ///< the installation; its `Bin` holds the solvers

  std::uint8_t debugTraceFlag = 0;
  char applicationDataFolder[kPathWidth] = {};  ///< common to all users

  char solverArgumentString[4096] = {};
  char redirectLogScratch[32768] = {};  ///< every text on its way into the console log

  std::uint8_t conformalCoolingFlag = 0;
  std::uint8_t configurationAbortFlag = 0;  ///< the MPI accounts are unusable: launch nothing

  char parallelFolderName[kPathWidth] = {};
  char mpiInstallationPath[kPathWidth] = {};  ///< holds `impiexec.exe`; no trailing separator
};

}  // namespace qvx
