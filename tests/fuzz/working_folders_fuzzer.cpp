// Working folders, process weights and hosts list from settings of any form, also such as no file
// gives. The input's lines: parallel mode, project directory, working folder, storage node, share,
// task count; then a machine each: host name, task count and weighting, separated by tabs.
#include <cstdlib>

#include "execution/mpi_command_line.h"
#include "execution/parallel_settings.h"
#include "support/bounded_text.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/kept_console.h"
#include "tests/fuzz/product.h"

namespace qvx::fuzz {
namespace {

std::vector<plain::Machine> Machines(std::string_view text) {
  constexpr std::size_t kMostMachines = 100;
  std::vector<plain::Machine> machines;
  if (text.empty()) return machines;
  for (const std::string& line : TakeLines(text, kMostMachines)) {
    plain::Machine& machine = machines.emplace_back();
    std::string* const words[] = {&machine.host, &machine.tasks, &machine.weighting};
    std::size_t word = 0;
    for (const char c : line) {
      if (c == '\t' && word < 2) {
        ++word;
      } else if (words[word]->size() < 31) {
        *words[word] += c;
      }
    }
  }
  return machines;
}

void Fill(LauncherContext& context, const plain::Run& run, const plain::Pass& pass) {
  context.computeMode = static_cast<ComputeMode>(pass.mode);
  CopyTruncated(context.parallelFolderName, "Share");
  CopyTruncated(context.flowArgument.projectDirectory, pass.record.project);
  CopyTruncated(context.taskManagerSettings.ValueNoTask, run.taskManager.ValueNoTask);
  const plain::RemoteMachines& from = run.remoteMachines;
  RemoteMachineSettings& to = context.remoteMachineSettings;
  CopyTruncated(to.ValueParallelWorkingFolder, from.ValueParallelWorkingFolder);
  CopyTruncated(to.ValueStorageNode, from.ValueStorageNode);
  CopyTruncated(to.ValueShareFolderName, from.ValueShareFolderName);
  to.machines = std::vector<MachineEntry>(from.machines.size());
  for (std::size_t i = 0; i < from.machines.size(); ++i) {
    CopyTruncated(to.machines[i].hostName, from.machines[i].host);
    CopyTruncated(to.machines[i].taskCount, from.machines[i].tasks);
    CopyTruncated(to.machines[i].weighting, from.machines[i].weighting);
  }
}

}  // namespace

void RunInput(std::string_view input) {
  const plain::Surroundings world = {
      .cmx = {}, .parallelFolder = "Share", .isTraced = IsTraced(input)};
  std::vector<std::string> lines = TakeLines(input, 6);
  lines.resize(6);
  plain::Run run;
  plain::Pass pass;
  pass.mode = std::abs(plain::Integer(lines[0]) % 3);
  pass.record.project = lines[1].substr(0, 1023);
  run.remoteMachines.ValueParallelWorkingFolder = lines[2].substr(0, 259);
  run.remoteMachines.ValueStorageNode = lines[3].substr(0, 31);
  run.remoteMachines.ValueShareFolderName = lines[4].substr(0, 259);
  run.remoteMachines.machines = Machines(input);
  run.taskManager.ValueNoTask = lines[5].substr(0, 31);

  const Context context;
  Fill(*context, run, pass);
  context->debugTraceFlag = world.isTraced ? 1 : 0;
  ClearShown();
  plain::PrepareRecord(world, run, pass);
  if (run.end.isTooLarge) return;
  CheckFault(run.end.fault, [&] { PrepareParallelSettings(*context); });
  CheckRecord(pass.record, *context);
  Check("console", run.console, Shown());
  Check("hosts", plain::HostsList(run.remoteMachines), HostsList(context->remoteMachineSettings));
}

}  // namespace qvx::fuzz
