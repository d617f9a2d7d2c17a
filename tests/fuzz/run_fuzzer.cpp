// The whole way from the command line and the CMX file to the solver's folders and the MPI command
// line, as far as it makes no Windows call. The input's first three lines are the arguments, the
// rest is the file.
#include "execution/argument_string.h"
#include "execution/mpi_command_line.h"
#include "execution/parallel_settings.h"
#include "launcher/compute_mode.h"
#include "launcher/conformal_cooling.h"
#include "launcher/debug_trace.h"
#include "launcher/locations.h"
#include "support/bounded_text.h"
#include "tests/fuzz/argument_library.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/kept_console.h"
#include "tests/fuzz/memory_file.h"
#include "tests/fuzz/product.h"

namespace qvx::fuzz {
namespace {

/// The product's run, compared with the plain one as it goes on. What the rooms that call Windows
/// do in between is done in their place.
class Comparison {
 public:
  explicit Comparison(const plain::Run& run) : run_(run) { ClearShown(); }

  void Carry(const std::vector<std::string>& arguments, bool isTraced) {
    context_->debugTraceFlag = isTraced ? 1 : 0;
    CheckFault(run_.end.isOfLaunch ? "" : run_.end.fault, [&] { Start(arguments); });
    Check("console", *expected_, Shown());
  }

 private:
  void Start(const std::vector<std::string>& arguments) {
    LauncherContext& context = *context_;
    Interpret(context, arguments);
    char iniFile[kPathWidth];
    FormatText(iniFile, "project ini file", "%s\\Bin\\QVXProject.ini", context.homeFolder);
    CopyText(context.parallelFolderName, "parallel folder name", "Share");
    BuildCmxPath(context);
    BuildCurrentRunPath(context);
    BuildRemoteHomePath(context);
    if (context.solverClass == SolverClass::Cool || context.solverClass == SolverClass::Warp) {
      ReadMultiShotSettings(context.cmxPath, context.multiShotSettings);
    }
    if (context.solverClass == SolverClass::Cool) ApplyConformalCoolingSetting(context);
    CheckBeginning();
    if (context.conformalCoolingFlag != 0) {
      CopyCoolArgumentToFlowArgument(context);
      context.solverClass = SolverClass::Flow;
      CopyText(context.solverExecutableName, "solver executable name", "Qvx3DFlow.exe");
      if (!CarryPass()) return;
      context.solverClass = SolverClass::Cool;
      CopyText(context.solverExecutableName, "solver executable name", arguments[2]);
    }
    CarryPass();
  }

  void CheckBeginning() {
    const LauncherContext& context = *context_;
    CheckCommandLine(run_, *context_);
    Check("CMX path", run_.cmxPath, context.cmxPath);
    Check("run folder", run_.runFolder, context.currentRunPath);
    Check("remote home", run_.remoteHome, context.remoteHomePath);
    CheckTaskManager(run_.taskManager, context.taskManagerSettings);
    CheckRemoteMachines(run_.remoteMachines, context.remoteMachineSettings);
    CheckMultiShot(run_.multiShot, context.multiShotSettings);
    CheckNumber("conformal", run_.isConformal ? 1 : 0, int{context.conformalCoolingFlag});
  }

  /// Returns whether the run goes on after it.
  bool CarryPass() {
    LauncherContext& context = *context_;
    if (passes_ == run_.passes.size()) Differ("passes", std::to_string(passes_), "more");
    const plain::Pass& pass = run_.passes[passes_++];
    Check("console", *expected_, Shown());
    expected_ = &pass.prepared;
    ClearShown();
    context.computeMode = DecideComputeMode(context);
    if (context.computeMode == ComputeMode::Dmp) {
      Trace(context, "ConvertAcc2RegistryForIntelMPI(%s)\n", context.homeFolder);
    }
    PrepareParallelSettings(context);
    BuildSolverArgumentString(context);
    CheckNumber("class", pass.solverClass, static_cast<int>(context.solverClass));
    CheckNumber("mode", pass.mode, static_cast<int>(context.computeMode));
    CheckRecord(pass.record, context);
    Check("arguments", pass.arguments, context.solverArgumentString);
    if (run_.end.isOfLaunch) return false;
    if (context.computeMode != ComputeMode::Serial) CheckMpi(pass);
    return true;
  }

  void CheckMpi(const plain::Pass& pass) {
    LauncherContext& context = *context_;
    const bool isDistributed = context.computeMode == ComputeMode::Dmp;
    if (isDistributed) FormatCurrentRunPath(context);
    Check("log folder", pass.logPath.substr(0, pass.logPath.rfind('\\')), context.currentRunPath);
    Check("command line", pass.commandLine,
          MpiCommandLine("I\\impiexec.exe",
                         isDistributed ? HostsList(context.remoteMachineSettings)
                                       : LocalProcesses(context.taskManagerSettings),
                         "C",
                         std::string(isDistributed ? context.remoteHomePath : context.homeFolder) +
                             "\\Bin\\" + context.solverExecutableName,
                         context.solverArgumentString));
  }

  const plain::Run& run_;
  const Context context_;
  const std::string* expected_ = &run_.console;
  std::size_t passes_ = 0;
};

}  // namespace

void RunInput(std::string_view input) {
  const bool isTraced = IsTraced(input);
  std::vector<std::string> arguments = TakeLines(input, 3);
  arguments.resize(3);
  const plain::Surroundings world = {.cmx = input,
                                     .parallelFolder = "Share",
                                     .mpiPath = "I\\",
                                     .mpiConfiguration = "C",
                                     .isTraced = isTraced,
                                     .argumentString = ArgumentString};
  const plain::Run run = plain::PlainRun(arguments, world);
  if (run.end.isTooLarge) return;
  const MemoryFile file(input);
  Comparison(run).Carry(arguments, isTraced);
}

}  // namespace qvx::fuzz
