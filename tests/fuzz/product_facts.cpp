#include "tests/fuzz/product_facts.h"

#include <memory>
#include <type_traits>

#include "execution/mpi_command_line.h"
#include "execution/parallel_settings.h"
#include "launcher/argument_record.h"
#include "launcher/command_line.h"
#include "launcher/compute_mode.h"
#include "launcher/conformal_cooling.h"
#include "launcher/locations.h"
#include "support/bounded_text.h"
#include "tests/fuzz/memory_file.h"
#include "tests/fuzz/plain_run.h"

namespace qvx::fuzz {
namespace {

/// `arguments` as a program gets them: the product splits them in place.
void Interpret(LauncherContext& context, std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  InterpretCommandLine(context, static_cast<int>(pointers.size()), pointers.data());
}

Facts CommandLineFacts(LauncherContext& context, bool isParsed) {
  Facts facts;
  facts["solver"] = context.solverExecutableName;
  facts["class"] = std::to_string(static_cast<int>(context.solverClass));
  if (!isParsed) return facts;
  facts["context home"] = context.homeFolder;
  VisitArgumentRecord(context, [&]<typename Record>(const Record& record) {
    facts["home"] = record.homeFolder;
    facts["project"] = record.projectDirectory;
    facts["name"] = record.projectName;
    facts["run"] = record.runNumber;
    if constexpr (std::is_base_of_v<QVXRunSettings, Record>) {
      facts["molding"] = std::to_string(record.moldingType);
    }
    if constexpr (std::is_base_of_v<QVXShellSettings, Record>) {
      for (std::size_t i = 0; i < 3; ++i) {
        facts["extra " + std::to_string(i)] = record.extraTexts[i];
      }
    }
    if constexpr (requires { record.optionValue; } &&
                  !std::is_same_v<Record, CQVXFlowFlowEPackArgument>) {
      facts["option"] = std::to_string(record.optionValue);
    }
  });
  if (context.solverClass == SolverClass::Stress) {
    facts["second option"] = std::to_string(context.warpArgument.secondOptionValue);
  }
  return facts;
}

}  // namespace

Facts ParallelFacts(const std::string& prefix, const QVXRunTexts& texts,
                    const QVXRunSettings& settings) {
  std::string weights;
  // A serial run has one process and no weights.
  const int count = settings.parallelMode == 0 ? 0 : settings.processCount;
  for (int i = 0; i < count; ++i) weights += Exact(settings.weights[i]);
  return {{prefix + "home", texts.homeFolder},
          {prefix + "project", texts.projectDirectory},
          {prefix + "parallel mode", std::to_string(settings.parallelMode)},
          {prefix + "process count", std::to_string(settings.processCount)},
          {prefix + "weights", weights}};
}

Facts ProductCommandLine(const std::vector<std::string>& arguments) {
  const auto context = std::make_unique<LauncherContext>();
  Interpret(*context, arguments);
  return CommandLineFacts(*context, arguments.size() >= 2);
}

Facts ProductRun(const std::vector<std::string>& arguments, const std::string& file) {
  const auto owner = std::make_unique<LauncherContext>();
  LauncherContext& context = *owner;
  ServeFile(file);
  Interpret(context, arguments);
  CopyText(context.parallelFolderName, "parallel folder name", "Share");
  BuildCmxPath(context);
  BuildCurrentRunPath(context);
  BuildRemoteHomePath(context);
  Facts facts = CommandLineFacts(context, true);
  facts["cmx"] = context.cmxPath;
  facts["run folder"] = context.currentRunPath;
  if (AlwaysRunsSerially(context.solverClass)) return facts;

  if (context.solverClass == SolverClass::Cool || context.solverClass == SolverClass::Warp) {
    ReadMultiShotSettings(context.cmxPath, context.multiShotSettings);
  }
  context.computeMode = DecideComputeMode(context);
  if (context.computeMode == ComputeMode::Dmp) facts["remote home"] = context.remoteHomePath;
  if (context.solverClass == SolverClass::Cool) ApplyConformalCoolingSetting(context);
  if (context.conformalCoolingFlag != 0) {
    CopyCoolArgumentToFlowArgument(context);
    context.solverClass = SolverClass::Flow;
    PrepareParallelSettings(context);
    context.solverClass = SolverClass::Cool;
    facts["flow option"] = std::to_string(context.flowArgument.optionValue);
    facts["flow molding"] = std::to_string(context.flowArgument.moldingType);
    facts.merge(ParallelFacts("flow ", context.flowArgument, context.flowArgument));
  }
  PrepareParallelSettings(context);
  facts.erase("home");
  facts.erase("project");
  VisitArgumentRecord(context, [&]<typename Record>(const Record& record) {
    if constexpr (std::is_base_of_v<QVXRunSettings, Record>) {
      facts.merge(ParallelFacts("", record, record));
    }
    if constexpr (std::is_base_of_v<QVXPreviousShot, Record>) {
      facts["previous shot"] = std::to_string(record.previousShotFlag) + "|" +
                               record.previousShotProjectPath + "|" + record.previousShotRunId +
                               "|" + record.previousShotProjectName;
    }
  });
  const std::string processes = context.computeMode == ComputeMode::Dmp
                                    ? HostsList(context.remoteMachineSettings)
                                    : LocalProcesses(context.taskManagerSettings);
  facts["mpi"] = MpiCommandLine("I", processes, "C", "S", "A");
  return facts;
}

}  // namespace qvx::fuzz
