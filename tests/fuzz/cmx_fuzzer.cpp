// The four section readers. The input is the file.
#include "runconfig/multi_shot_settings.h"
#include "runconfig/remote_machine_settings.h"
#include "runconfig/solid_cool_settings.h"
#include "runconfig/task_manager_settings.h"
#include "tests/fuzz/facts.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/memory_file.h"
#include "tests/fuzz/plain_reading.h"

namespace qvx::fuzz {
namespace {

/// Empty texts are what is not named.
Facts Named(Facts facts) {
  std::erase_if(facts, [](const auto& fact) { return fact.second.empty(); });
  return facts;
}

Facts Numbered(Facts facts, const std::vector<PlainMachine>& machines) {
  for (std::size_t i = 0; i < machines.size(); ++i) {
    const PlainMachine& machine = machines[i];
    facts["machine " + std::to_string(i)] =
        machine.host + "|" + machine.tasks + "|" + machine.weighting;
  }
  return facts;
}

Facts TaskManager() {
  TaskManagerSettings record;
  ReadTaskManagerSettings("", record);
  return Named({{"Version", record.Version},
                {"IDTaskMode", record.IDTaskMode},
                {"flagAccelerationType", record.flagAccelerationType},
                {"ValueNoTask", record.ValueNoTask},
                {"ValueLocalNoTask", record.ValueLocalNoTask},
                {"ValueConsoleRedirection", record.ValueConsoleRedirection}});
}

Facts RemoteMachines() {
  RemoteMachineSettings record;
  ReadRemoteMachineSettings("", record);
  std::vector<PlainMachine> machines;
  for (const MachineEntry& machine : record.machines) {
    machines.push_back({machine.hostName, machine.taskCount, machine.weighting});
  }
  return Numbered(Named({{"Version", record.Version},
                         {"ValueNoMachine", record.ValueNoMachine},
                         {"ValueRemoteNoTask", record.ValueRemoteNoTask},
                         {"ValueMap", record.ValueMap},
                         {"ValueShareFolderName", record.ValueShareFolderName},
                         {"ValueParallelWorkingFolder", record.ValueParallelWorkingFolder},
                         {"ValueLocalHost", record.ValueLocalHost},
                         {"ValueStorageNode", record.ValueStorageNode}}),
                  machines);
}

std::string NumberOrNothing(int number) { return number == 0 ? "" : std::to_string(number); }

Facts MultiShot() {
  MultiShotSettings record;
  ReadMultiShotSettings("", record);
  return Named({{"Version", record.Version},
                {"FlagPrevShot", NumberOrNothing(record.FlagPrevShot)},
                {"ValueShotRunID", NumberOrNothing(record.ValueShotRunID)},
                {"FlagPrevShotProject", NumberOrNothing(record.FlagPrevShotProject)},
                {"ValueShotProjectPath", record.ValueShotProjectPath},
                {"ValueShotProjectName", record.ValueShotProjectName}});
}

Facts PlainMultiShotNumbers(const std::string& file) {
  Facts facts = PlainMultiShot(file);
  for (const char* name : {"FlagPrevShot", "ValueShotRunID", "FlagPrevShotProject"}) {
    if (facts[name] == "0") facts[name] = "";
  }
  return Named(facts);
}

}  // namespace

void RunInput(const std::string& file) {
  ServeFile(file);
  Compare([&] { return Named(PlainTaskManager(file)); }, TaskManager);
  Compare(
      [&] {
        const PlainRemoteMachines remote = PlainRemote(file);
        return Numbered(Named(remote.fields), remote.machines);
      },
      RemoteMachines);
  Compare([&] { return PlainMultiShotNumbers(file); }, MultiShot);
  Compare(
      [&] {
        return Facts{{"cooling", std::to_string(PlainCooling(file))}};
      },
      [] {
        std::int32_t flag = -1;
        ReadSolidCoolSettings("", flag);
        return Facts{{"cooling", std::to_string(flag)}};
      });
}

}  // namespace qvx::fuzz
