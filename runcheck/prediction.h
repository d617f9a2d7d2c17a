// What the launcher would do with a call, worked out by the launcher's own modules on a context of
// the check's own. Nothing is started, made or changed.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "execution/console_log_name.h"
#include "launcher/launcher_context.h"
#include "runcheck/thrown_fault.h"

namespace qvx::runcheck {

constexpr const char* kTimePlace = "<time>";

/// One launch.
struct Pass {
  SolverClass family;
  ComputeMode mode;
  std::string solverPath;
  std::string impiexecPath;  ///< empty for a serial run
  std::string commandLine;
  std::string reportedPath;
  ConsoleLogNames log;  ///< with kTimePlace for the time
  std::string logFolder;
  std::vector<std::string> deletes;  ///< earlier logs that would go; filled in by whoever can look
  int processCount = 0;
  std::vector<double> weights;

  [[nodiscard]] bool IsUnderMpi() const {
    return mode == ComputeMode::Smp || mode == ComputeMode::Dmp;
  }
};

struct Prediction {
  std::unique_ptr<LauncherContext> context;  ///< null when a library refused to make it
  bool isInterpreted = false;                ///< the command line was taken as it stands
  bool isPrepared = false;                   ///< the context is that of the first pass
  std::string projectDirectory;              ///< on this machine
  SolverClass family = SolverClass::Flow;    ///< of the run, not of a flow pass before it
  bool hasFlowPass = false;
  std::vector<Pass> passes;
  std::optional<ThrownFault> fault;  ///< what would end the launcher
};

/// `arguments`: what the launcher would be started with, the first argument included; at least two.
Prediction Predict(const std::vector<std::string>& arguments);

}  // namespace qvx::runcheck
