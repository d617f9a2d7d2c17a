#include "tests/fuzz/product.h"

#include <cstring>
#include <type_traits>

#include "launcher/argument_record.h"
#include "launcher/command_line.h"
#include "tests/fuzz/check.h"

namespace qvx::fuzz {

void Interpret(LauncherContext& context, std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  InterpretCommandLine(context, static_cast<int>(pointers.size()), pointers.data());
}

void CheckCommandLine(const plain::Run& run, LauncherContext& context) {
  Check("solver", run.solver, context.solverExecutableName);
  CheckNumber("class", run.solverClass, static_cast<int>(context.solverClass));
  Check("home folder", run.record.home, context.homeFolder);
  CheckRecord(run.record, context);
}

void CheckTaskManager(const plain::TaskManager& plain, const TaskManagerSettings& product) {
  Check("Version", plain.Version, product.Version);
  Check("IDTaskMode", plain.IDTaskMode, product.IDTaskMode);
  Check("flagAccelerationType", plain.flagAccelerationType, product.flagAccelerationType);
  Check("ValueNoTask", plain.ValueNoTask, product.ValueNoTask);
  Check("ValueLocalNoTask", plain.ValueLocalNoTask, product.ValueLocalNoTask);
  Check("ValueConsoleRedirection", plain.ValueConsoleRedirection, product.ValueConsoleRedirection);
}

void CheckRemoteMachines(const plain::RemoteMachines& plain, const RemoteMachineSettings& product) {
  Check("Version", plain.Version, product.Version);
  Check("ValueNoMachine", plain.ValueNoMachine, product.ValueNoMachine);
  Check("ValueRemoteNoTask", plain.ValueRemoteNoTask, product.ValueRemoteNoTask);
  Check("ValueMap", plain.ValueMap, product.ValueMap);
  Check("ValueShareFolderName", plain.ValueShareFolderName, product.ValueShareFolderName);
  Check("ValueParallelWorkingFolder", plain.ValueParallelWorkingFolder,
        product.ValueParallelWorkingFolder);
  Check("ValueLocalHost", plain.ValueLocalHost, product.ValueLocalHost);
  Check("ValueStorageNode", plain.ValueStorageNode, product.ValueStorageNode);
  CheckNumber("machines", plain.machines.size(), product.machines.size());
  for (std::size_t i = 0; i < plain.machines.size(); ++i) {
    Check("host name", plain.machines[i].host, product.machines[i].hostName);
    Check("task count", plain.machines[i].tasks, product.machines[i].taskCount);
    Check("weighting", plain.machines[i].weighting, product.machines[i].weighting);
  }
}

void CheckMultiShot(const plain::MultiShot& plain, const MultiShotSettings& product) {
  Check("Version", plain.Version, product.Version);
  CheckNumber("FlagPrevShot", plain.FlagPrevShot, product.FlagPrevShot);
  CheckNumber("ValueShotRunID", plain.ValueShotRunID, product.ValueShotRunID);
  CheckNumber("FlagPrevShotProject", plain.FlagPrevShotProject, product.FlagPrevShotProject);
  Check("ValueShotProjectPath", plain.ValueShotProjectPath, product.ValueShotProjectPath);
  Check("ValueShotProjectName", plain.ValueShotProjectName, product.ValueShotProjectName);
}

void CheckRecord(const plain::Record& plain, LauncherContext& context) {
  VisitArgumentRecord(context, [&]<typename Record>(const Record& record) {
    Check("home", plain.home, record.homeFolder);
    Check("project", plain.project, record.projectDirectory);
    Check("name", plain.name, record.projectName);
    Check("run", plain.run, record.runNumber);
    if constexpr (requires { record.optionValue; }) {
      CheckNumber("option", plain.option, record.optionValue);
    }
    if constexpr (std::is_base_of_v<QVXShellSettings, Record>) {
      for (std::size_t i = 0; i < plain.extras.size(); ++i) {
        Check("extra text", plain.extras[i], record.extraTexts[i]);
      }
    }
    if constexpr (std::is_base_of_v<QVXRunSettings, Record>) {
      CheckNumber("molding", plain.molding, record.moldingType);
      CheckNumber("parallel mode", plain.parallelMode, record.parallelMode);
      CheckNumber("processes", plain.processes, record.processCount);
      CheckNumber("has weights", plain.hasWeights ? 1 : 0, record.weights != nullptr ? 1 : 0);
      // Bit by bit: a weight need not equal itself.
      for (std::size_t i = 0; i < plain.weights.size(); ++i) {
        if (std::memcmp(&plain.weights[i], &record.weights[i], sizeof(double)) == 0) continue;
        CheckNumber("weight", plain.weights[i], record.weights[i]);
      }
    }
    if constexpr (std::is_base_of_v<QVXPreviousShot, Record>) {
      CheckNumber("previous shot", plain.previousShot, record.previousShotFlag);
      Check("previous project", plain.previousProject, record.previousShotProjectPath);
      Check("previous run", plain.previousRun, record.previousShotRunId);
      Check("previous name", plain.previousName, record.previousShotProjectName);
    }
    if constexpr (requires { record.secondOptionValue; }) {
      CheckNumber("second option", plain.secondOption, record.secondOptionValue);
    }
  });
}

}  // namespace qvx::fuzz
