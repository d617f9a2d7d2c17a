// Working folders and hosts list of ever more machines: what one machine costs, against what it
// costs among a thousand: with one process each, and with ten.
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "benchmark/figures.h"
#include "execution/mpi_command_line.h"
#include "execution/parallel_settings.h"
#include "launcher/launcher_context.h"
#include "support/bounded_text.h"

namespace qvx::benchmark {
namespace {

constexpr int kInAll = 1'000'000;

/// Machines of `processes` processes each.
std::unique_ptr<LauncherContext> DistributedRun(int machines, int processes) {
  auto context = std::make_unique<LauncherContext>();
  context->computeMode = ComputeMode::Dmp;
  RemoteMachineSettings& remote = context->remoteMachineSettings;
  FormatText(remote.ValueNoMachine, "ValueNoMachine", "%d", machines);
  remote.machines = std::vector<MachineEntry>(static_cast<std::size_t>(machines));
  for (MachineEntry& machine : remote.machines) {
    CopyTruncated(machine.hostName, "NODE1");
    FormatText(machine.taskCount, "task count", "%d", processes);
    CopyTruncated(machine.weighting, "0.5");
  }
  return context;
}

double SecondsOf(int runs, LauncherContext& context) {
  return Seconds([&] {
    for (int i = 0; i < runs; ++i) {
      PrepareParallelSettings(context);
      delete[] std::exchange(context.flowArgument.weights, nullptr);
      if (HostsList(context.remoteMachineSettings).empty()) std::abort();
    }
  });
}

/// A million machines, `count` of them a run, less what the runs cost without any.
double SecondsInAll(int count, int processes) {
  const int runs = kInAll / count;
  return SecondsOf(runs, *DistributedRun(count, processes)) -
         SecondsOf(runs, *DistributedRun(0, processes));
}

void ReportGrowth(int count, int processes) {
  const std::string name = "growth: one of " + std::to_string(count) + " machines with " +
                           std::to_string(processes) + ", to one of 1000";
  Report(name.c_str(),
         MedianRatio([&] { return SecondsInAll(count, processes); },
                     [&] { return SecondsInAll(1000, processes); }),
         1.5);
}

}  // namespace
}  // namespace qvx::benchmark

int main() {
  for (const int count : {10, 100, 10'000, 100'000}) qvx::benchmark::ReportGrowth(count, 1);
  for (const int count : {10, 100, 10'000}) qvx::benchmark::ReportGrowth(count, 10);
}
