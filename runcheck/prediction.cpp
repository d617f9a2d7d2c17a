#include "runcheck/prediction.h"

#include <new>

#include "execution/argument_string.h"
#include "execution/launch_command.h"
#include "execution/mpi_options.h"
#include "execution/parallel_settings.h"
#include "launcher/argument_record.h"
#include "launcher/compute_mode.h"
#include "launcher/conformal_cooling.h"
#include "launcher/debug_trace.h"
#include "launcher/run_preparation.h"

namespace qvx::runcheck {
namespace {

const char* LogPrefix(ComputeMode mode) {
  switch (mode) {
    case ComputeMode::Smp:
      return kSmpLogPrefix;
    case ComputeMode::Dmp:
      return kDmpLogPrefix;
    default:
      return kSerialLogPrefix;
  }
}

void TakeCommand(LauncherContext& context, Pass& pass) {
  LaunchCommand command;
  if (pass.IsUnderMpi()) {
    const MpiProcesses processes =
        pass.mode == ComputeMode::Smp ? SmpProcesses(context) : DmpProcesses(context);
    const MpiExecutables executables = LocateMpiExecutables(context, processes.solverHome);
    command = MpiCommand(context, executables, processes,
                         MpiConfiguration(context, MpiConfigurationFolder()));
    pass.solverPath = executables.solverPath;
    pass.impiexecPath = executables.impiexecPath;
  } else {
    command = SerialCommand(context);
    pass.solverPath = command.reportedPath;
  }
  pass.commandLine = command.commandLine;
  pass.reportedPath = command.reportedPath;
}

/// The run driver's way, without its launch and its accounts.
Pass PredictPass(LauncherContext& context) {
  context.computeMode = DecideComputeMode(context);
  PrepareParallelSettings(context);
  BuildSolverArgumentString(context);
  Pass pass;
  pass.family = context.solverClass;
  pass.mode = context.computeMode;
  VisitArgumentRecord(context, [&]<typename Record>(const Record& record) {
    pass.processCount = 1;
    if constexpr (HasRunSettings<Record>) {
      pass.processCount = record.processCount;
      // A serial run has none, whatever the record held before.
      if (record.weights == nullptr || pass.mode == ComputeMode::Serial) return;
      if (record.processCount > 0) {
        pass.weights.assign(record.weights, record.weights + record.processCount);
      }
    }
  });
  if (pass.mode == ComputeMode::Dmp) MoveRunPathToShare(context);
  pass.logFolder = context.currentRunPath;
  pass.log = NameConsoleLog(context, LogPrefix(pass.mode), kTimePlace);
  TakeCommand(context, pass);
  return pass;
}

void PredictRun(Prediction& prediction, std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  prediction.context = std::make_unique<LauncherContext>();
  LauncherContext& context = *prediction.context;
  SwitchDebugTrace(context);
  PrepareRun(context, static_cast<int>(arguments.size()), pointers.data());
  prediction.isPrepared = true;
  prediction.family = context.solverClass;
  VisitArgumentRecord(
      context, [&](const QVXRunTexts& run) { prediction.projectDirectory = run.projectDirectory; });
  prediction.hasFlowPass = context.conformalCoolingFlag != 0;
  if (prediction.hasFlowPass) {
    BeginFlowPass(context);
    prediction.passes.push_back(PredictPass(context));
    BeginCoolPass(context);
  }
  prediction.passes.push_back(PredictPass(context));
}

}  // namespace

Prediction Predict(const std::vector<std::string>& arguments) {
  Prediction prediction;
  try {
    PredictRun(prediction, arguments);
  } catch (const ThrownFault& fault) {
    prediction.fault = fault;
  } catch (const std::bad_alloc&) {
    prediction.fault = ThrownFault{ThrownFault::Kind::OutOfMemory, "out of memory", {}};
  } catch (...) {
    // Only a closed library's.
    prediction.fault =
        ThrownFault{ThrownFault::Kind::UnexpectedException, "unexpected exception", {}};
  }
  LauncherContext* context = prediction.context.get();
  prediction.isInterpreted = context != nullptr && context->currentRunPath[0] != '\0';
  if (context != nullptr && !prediction.isPrepared) {
    prediction.family = context->solverClass;
    VisitArgumentRecord(*context, [&](const QVXRunTexts& run) {
      prediction.projectDirectory = run.projectDirectory;
    });
  }
  return prediction;
}

}  // namespace qvx::runcheck
