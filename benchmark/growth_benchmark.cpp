// Working folders and hosts list of ever more machines: what one machine costs, against what it
// costs among a thousand: with one process each, and with ten.
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

double SecondsOf(int runs, int machines, int processes) {
  const auto context = DistributedRun(machines, processes);
  CQVXFlowFlowEPackArgument& record = context->flowArgument;
  const int weights = machines * processes;
  const std::string lastHost =
      machines == 0 ? "-hosts 0 " : "NODE1 " + std::to_string(processes) + " ";
  bool isWhole = true;
  const double seconds = Seconds([&] {
    for (int i = 0; i < runs; ++i) {
      PrepareParallelSettings(*context);
      isWhole = isWhole && record.processCount == weights &&
                (weights == 0 || record.weights[weights - 1] > 0);
      delete[] std::exchange(record.weights, nullptr);
      isWhole = isWhole && HostsList(context->remoteMachineSettings).ends_with(lastHost);
    }
  });
  Require(isWhole, "a run without all of its machines");
  return seconds;
}

/// A million machines, `count` of them a run, less what the runs cost without any.
double SecondsInAll(int count, int processes) {
  const int runs = kInAll / count;
  return SecondsOf(runs, count, processes) - SecondsOf(runs, 0, processes);
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
