#include "execution/parallel_settings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "launcher/argument_record.h"
#include "launcher/debug_trace.h"
#include "launcher/lower_case_name.h"
#include "support/bounded_text.h"
#include "support/fault.h"
#include "support/numbers.h"

namespace qvx {
namespace {

void PrepareSerial(QVXRunSettings& record) {
  record.processCount = 1;
  record.parallelMode = 0;
}

void PrepareSmp(const LauncherContext& context, QVXRunSettings& record) {
  record.parallelMode = 1;
  record.processCount = ParseInteger(context.taskManagerSettings.ValueNoTask);
  if (record.processCount < 1) return;
  std::ranges::fill(AllocateWeights(record, record.processCount), 1.0 / record.processCount);
}

std::int32_t SumTaskCounts(const std::vector<MachineEntry>& machines) {
  using Limits = std::numeric_limits<std::int32_t>;
  std::int64_t sum = 0;
  for (const MachineEntry& machine : machines) sum += ParseInteger(machine.taskCount);
  if (sum > Limits::max()) FaultCannotAllocate("process weights", static_cast<std::size_t>(sum));
  return static_cast<std::int32_t>(std::max<std::int64_t>(sum, Limits::min()));
}

/// Each machine's weighting, in equal parts over its tasks. Not normalised.
void SpreadWeightings(const std::vector<MachineEntry>& machines, std::span<double> weights) {
  for (const MachineEntry& machine : machines) {
    const std::int32_t tasks = ParseInteger(machine.taskCount);
    if (tasks < 1) continue;
    const auto share = weights.first(std::min(weights.size(), static_cast<std::size_t>(tasks)));
    std::ranges::fill(share, ParseDecimal(machine.weighting) / tasks);
    weights = weights.subspan(share.size());
  }
}

/// Moves the record's folders to the storage node's shares: cuts the local parallel working folder
/// off the project directory and puts the share in its place. What is left stays lower case,
/// deliberately.
template <typename Record>
void MoveFoldersToShare(LauncherContext& context, Record& record) {
  const RemoteMachineSettings& remote = context.remoteMachineSettings;
  constexpr bool kTraces = std::is_same_v<Record, CQVXFlowFlowEPackArgument>;
  FormatTruncated(record.homeFolder, "\\\\%s\\%s", remote.ValueStorageNode,
                  context.parallelFolderName);
  std::string projectDirectory = record.projectDirectory;
  std::string workingFolder = remote.ValueParallelWorkingFolder;
  if (kTraces) Trace(context, "Before, strProjectDirLocal=[%s]\n", projectDirectory.c_str());
  LowerCaseName(context, projectDirectory);
  if (kTraces) {
    Trace(context, "After, strProjectDirLocal=[%s]\n", projectDirectory.c_str());
    Trace(context, "Before, strParallelWorkingFolder=[%s]\n", workingFolder.c_str());
  }
  LowerCaseName(context, workingFolder);
  if (kTraces) Trace(context, "After, strParallelWorkingFolder=[%s]\n", workingFolder.c_str());
  const std::size_t found = projectDirectory.find(workingFolder);
  if (found != std::string::npos) {
    // One more for the separator behind the working folder. A folder that is configured with a
    // separator of its own costs the next letter; it is taken as it stands.
    projectDirectory.erase(0, found + std::strlen(remote.ValueParallelWorkingFolder) + 1);
  }
  FormatTruncated(record.projectDirectory, "\\\\%s\\%s\\%s", remote.ValueStorageNode,
                  remote.ValueShareFolderName, projectDirectory.c_str());
}

template <typename Record>
void PrepareDmp(LauncherContext& context, Record& record) {
  const std::vector<MachineEntry>& machines = context.remoteMachineSettings.machines;
  MoveFoldersToShare(context, record);
  record.parallelMode = 2;
  record.processCount = SumTaskCounts(machines);
  SpreadWeightings(machines, AllocateWeights(record, record.processCount));
}

void CopyPreviousShot(const MultiShotSettings& settings, QVXPreviousShot& record) {
  record.previousShotFlag = settings.FlagPrevShot;
  CopyTruncated(record.previousShotProjectPath, settings.ValueShotProjectPath);
  FormatTruncated(record.previousShotRunId, "%02d", settings.ValueShotRunID);
  CopyTruncated(record.previousShotProjectName, settings.ValueShotProjectName);
}

}  // namespace

int PrepareParallelSettings(LauncherContext& context) {
  VisitArgumentRecord(context, [&]<typename Record>(Record& record) {
    if constexpr (HasRunSettings<Record>) {
      switch (context.computeMode) {
        case ComputeMode::Smp:
          PrepareSmp(context, record);
          break;
        case ComputeMode::Dmp:
          PrepareDmp(context, record);
          break;
        default:  // Serial
          PrepareSerial(record);
          break;
      }
    }
    if constexpr (std::is_base_of_v<QVXPreviousShot, Record>) {
      CopyPreviousShot(context.multiShotSettings, record);
    }
  });
  return 0;
}

}  // namespace qvx
