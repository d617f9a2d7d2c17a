// Working folders, process weights and hosts list from settings of any form, also such as no file
// gives. The input's lines: parallel mode, project directory, working folder, storage node, share,
// task count; then a machine each: host name, task count and weighting, separated by tabs.
#include <cstdlib>
#include <memory>

#include "execution/mpi_command_line.h"
#include "execution/parallel_settings.h"
#include "support/bounded_text.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/plain_run.h"
#include "tests/fuzz/product_facts.h"

namespace qvx::fuzz {
namespace {

struct Input {
  int mode;
  std::string project;
  Facts taskManager;
  PlainRemoteMachines remote;
};

Input Parse(std::string text) {
  std::vector<std::string> lines = TakeLines(text, 6);
  lines.resize(6);
  constexpr std::size_t kMostMachines = 100;
  const auto cut = [](const std::string& line, std::size_t width) {
    return line.substr(0, width - 1);
  };
  Input input = {.mode = std::abs(PlainInteger(lines[0]) % 3),
                 .project = cut(lines[1], 1024),
                 .taskManager = {{"ValueNoTask", cut(lines[5], 32)}},
                 .remote = {.fields = {{"ValueParallelWorkingFolder", cut(lines[2], 260)},
                                       {"ValueStorageNode", cut(lines[3], 32)},
                                       {"ValueShareFolderName", cut(lines[4], 260)}},
                            .machines = {}}};
  if (text.empty()) return input;
  for (const std::string& line : TakeLines(text, kMostMachines)) {
    std::vector<std::string> words(3);
    std::size_t word = 0;
    for (const char c : line) {
      if (c == '\t' && word < 2) {
        ++word;
      } else {
        words[word] += c;
      }
    }
    input.remote.machines.push_back({cut(words[0], 32), cut(words[1], 32), cut(words[2], 32)});
  }
  return input;
}

Facts Product(const Input& input) {
  const auto owner = std::make_unique<LauncherContext>();
  LauncherContext& context = *owner;
  context.computeMode = static_cast<ComputeMode>(input.mode);
  CopyTruncated(context.parallelFolderName, "Share");
  CopyTruncated(context.flowArgument.projectDirectory, input.project);
  CopyTruncated(context.taskManagerSettings.ValueNoTask, input.taskManager.at("ValueNoTask"));
  RemoteMachineSettings& remote = context.remoteMachineSettings;
  const Facts& fields = input.remote.fields;
  CopyTruncated(remote.ValueParallelWorkingFolder, fields.at("ValueParallelWorkingFolder"));
  CopyTruncated(remote.ValueStorageNode, fields.at("ValueStorageNode"));
  CopyTruncated(remote.ValueShareFolderName, fields.at("ValueShareFolderName"));
  for (const PlainMachine& machine : input.remote.machines) {
    MachineEntry& entry = remote.machines.emplace_back();
    CopyTruncated(entry.hostName, machine.host);
    CopyTruncated(entry.taskCount, machine.tasks);
    CopyTruncated(entry.weighting, machine.weighting);
  }
  PrepareParallelSettings(context);
  Facts facts = ParallelFacts("", context.flowArgument, context.flowArgument);
  facts["hosts"] = HostsList(remote);
  return facts;
}

Facts Plain(const Input& input) {
  Facts facts = PlainParallel("", input.mode, {"", input.project}, input.taskManager, input.remote);
  facts["hosts"] = PlainHosts(input.remote);
  return facts;
}

}  // namespace

void RunInput(const std::string& text) {
  const Input input = Parse(text);
  Compare([&] { return Plain(input); }, [&] { return Product(input); });
}

}  // namespace qvx::fuzz
