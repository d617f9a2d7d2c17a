#include "runconfig/remote_machine_settings.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "runconfig/cmx_section_reader.h"
#include "support/bounded_text.h"
#include "support/console.h"
#include "support/fault.h"
#include "support/numbers.h"

namespace qvx {
namespace {

/// A run of `ValueNoMachine` lines, one a machine. Neither the closing tag nor a second opening
/// resets the count, so a block that the tag interrupts goes on in a later section.
struct LineBlock {
  bool open = false;
  int lines = 0;

  /// The machine of the next line; null past the list.
  MachineEntry* Advance(RemoteMachineSettings& record) {
    ++lines;
    if (lines == ParseInteger(record.ValueNoMachine)) open = false;
    const auto index = static_cast<std::size_t>(lines) - 1;
    return index < record.machines.size() ? &record.machines[index] : nullptr;
  }
};

void MakeMachineList(RemoteMachineSettings& record) {
  const int count = std::max(ParseInteger(record.ValueNoMachine), 0);
  record.machines = AllocateCounted("ValueNoMachine", static_cast<std::size_t>(count),
                                    [](std::size_t n) { return std::vector<MachineEntry>(n); });
}

void StoreMachine(MachineEntry& machine, const char* value) {
  char hostName[kCmxTextWidth];
  char taskCount[kCmxTextWidth];
  char rest[kCmxTextWidth];
  char ignored[kCmxTextWidth];
  SplitKeyValue(value, '\t', hostName, rest);
  SplitKeyValue(rest, '\t', taskCount, ignored);
  CopyText(machine.hostName, "machine host name", hostName);
  CopyText(machine.taskCount, "machine task count", taskCount);
}

void StoreWeighting(MachineEntry& machine, std::string_view value) {
  CopyText(machine.weighting, "machine weighting", value.substr(0, value.find(' ')));
}

}  // namespace

int ReadRemoteMachineSettings(const char* path, RemoteMachineSettings& record) {
  const CmxTextField fields[] = {
      {"Version", record.Version},
      {"ValueNoMachine", record.ValueNoMachine},
      {"ValueRemoteNoTask", record.ValueRemoteNoTask},
      {"ValueMap", record.ValueMap},
      {"ValueStorageNode", record.ValueStorageNode},
      {"ValueShareFolderName", record.ValueShareFolderName},
      {"ValueParallelWorkingFolder", record.ValueParallelWorkingFolder},
      {"ValueLocalHost", record.ValueLocalHost},
  };
  LineBlock machineBlock;
  LineBlock weightingBlock;
  const bool read = ReadCmxSection(path, "REMOTE_MACHINES", [&](const CmxSetting& setting) {
    const std::string_view key = setting.key;
    if (machineBlock.open) {
      MachineEntry* machine = machineBlock.Advance(record);
      if (machine != nullptr) StoreMachine(*machine, setting.value);
    } else if (weightingBlock.open) {
      MachineEntry* machine = weightingBlock.Advance(record);
      if (machine != nullptr) StoreWeighting(*machine, setting.value);
    } else {
      StoreTextField(fields, setting);
      machineBlock.open = key == "ValueMachineSetting";
      weightingBlock.open = key == "ValueMachineWeighting";
      if (key == "ValueNoMachine") MakeMachineList(record);
    }
  });
  if (read && record.ValueStorageNode[0] == '\0') {
    // Deliberate: the storage node defaults to the local host.
    CopyText(record.ValueStorageNode, "ValueStorageNode", record.ValueLocalHost);
  }
  return 0;
}

void DumpRemoteMachineSettings(const RemoteMachineSettings& record) {
  Print(
      "Version                    = %s\n"
      "ValueNoMachine             = %s\n"
      "ValueRemoteNoTask          = %s\n"
      "ValueMap                   = %s\n"
      "ValueShareFolderName       = %s\n"
      "ValueParallelWorkingFolder = %s\n"
      "ValueLocalHost             = %s\n"
      "ValueStorageNode           = %s\n",
      record.Version, record.ValueNoMachine, record.ValueRemoteNoTask, record.ValueMap,
      record.ValueShareFolderName, record.ValueParallelWorkingFolder, record.ValueLocalHost,
      record.ValueStorageNode);
  for (std::size_t i = 0; i < record.machines.size(); ++i) {
    const MachineEntry& machine = record.machines[i];
    Print("[%d]%s\t:%s\t%s\n", static_cast<int>(i), machine.hostName, machine.taskCount,
          machine.weighting);
  }
}

}  // namespace qvx
