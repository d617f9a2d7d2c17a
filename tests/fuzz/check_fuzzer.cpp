// What the check of a run predicts, as far as it makes no Windows call, has to be what the plain
// formulation says, and a text that is too long has to be told where and only where a reader stops.
// The input's first three lines are the arguments, the rest is the file.
#include <algorithm>

#include "runcheck/call_facts.h"
#include "runcheck/cmx_rules.h"
#include "runcheck/prediction.h"
#include "tests/fuzz/argument_library.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/memory_file.h"

namespace qvx::fuzz {
namespace {

void CheckPass(const plain::Pass& expected, const runcheck::Pass& pass) {
  CheckNumber("mode", expected.mode, static_cast<int>(pass.mode));
  CheckNumber("class", expected.solverClass, static_cast<int>(pass.family));
  Check("command line", expected.commandLine, pass.commandLine);
  Check("reported path", expected.reportedPath, pass.reportedPath);
  Check("log", expected.logPath + "<time>.txt", pass.log.path);
  // In a record that has none, one process runs.
  if (expected.record.parallelMode != 0) {
    CheckNumber("processes", expected.record.processes, pass.processCount);
  }
  if (expected.mode == 0) {
    CheckNumber("weights", std::size_t{0}, pass.weights.size());
    return;
  }
  CheckNumber("weights", expected.record.weights.size(), pass.weights.size());
  for (std::size_t i = 0; i < pass.weights.size(); ++i) {
    Check("weight", std::to_string(expected.record.weights[i]), std::to_string(pass.weights[i]));
  }
}

/// The words with which the section's reader stops; empty when it does not.
std::string ReaderFault(const runcheck::SectionReading& reading, const plain::CmxFile& file,
                        bool& isTooLarge) {
  plain::End end;
  const std::string_view name = reading.section->name;
  if (name == "TASKMANAGER") {
    plain::ReadTaskManager(file, end);
  } else if (name == "REMOTE_MACHINES") {
    plain::ReadRemoteMachines(file, end);
  } else if (name == "SOLID_MCM") {
    plain::ReadMultiShot(file, end);
  } else {
    plain::ReadSolidCool(file, end);
  }
  isTooLarge = isTooLarge || end.isTooLarge;
  return end.fault;
}

/// The text that stops each reader is told, the first reader's first; without any such text none
/// is.
void CheckTooLong(const runcheck::CmxFacts& facts, const plain::Run& run, std::string_view cmx) {
  runcheck::Diagnostics told;
  runcheck::CheckWidths(facts, told);
  // A run without a fault went through the same readers.
  if (run.end.fault.empty() && facts.Family() == static_cast<SolverClass>(run.solverClass)) {
    if (!told.empty()) Differ("too long", "", told.front().summary);
    return;
  }
  const plain::CmxFile file(cmx);
  bool isTooLarge = false;
  bool stops = false;
  for (const runcheck::SectionReading& reading : facts.Readings()) {
    const std::string fault = ReaderFault(reading, file, isTooLarge);
    if (isTooLarge) return;
    if (fault.empty()) continue;
    const auto found = std::ranges::find(told, fault, &runcheck::Diagnostic::summary);
    if (found == told.end() || (!stops && found != told.begin())) {
      Differ("too long", fault, told.empty() ? "" : told.front().summary);
    }
    stops = true;
  }
  if (!stops && !told.empty()) Differ("too long", "", told.front().summary);
}

}  // namespace

void RunInput(std::string_view input) {
  std::vector<std::string> arguments = TakeLines(input, 3);
  arguments.resize(3);
  const plain::Run run = plain::PlainRun(arguments, {.cmx = input,
                                                     .parallelFolder = "Share",
                                                     .mpiPath = "I\\",
                                                     .mpiConfiguration = "C",
                                                     .argumentString = ArgumentString});
  if (run.end.isTooLarge) return;
  const MemoryFile file(input);
  const runcheck::Prediction prediction = runcheck::Predict(arguments);
  Check("fault", run.end.fault, prediction.fault ? prediction.fault->message : "");
  const std::size_t whole = run.end.fault.empty() ? run.passes.size() : prediction.passes.size();
  CheckNumber("passes", whole, prediction.passes.size());
  for (std::size_t i = 0; i < whole; ++i) CheckPass(run.passes[i], prediction.passes[i]);

  const SolverClass family =
      prediction.isInterpreted ? prediction.family : runcheck::FactsOf(arguments).family;
  CheckTooLong(runcheck::CmxFacts({"a.cmx", std::string(input)}, family), run, input);
}

}  // namespace qvx::fuzz
