// All rules of the check over arguments and CMX file, and both forms of its report: none crashes or
// hangs, whatever the bytes. The input's first three lines are the arguments, the rest is the file.
#include <functional>

#include "runcheck/call_rules.h"
#include "runcheck/cmx_rules.h"
#include "runcheck/prediction.h"
#include "runcheck/report.h"
#include "runcheck/share_rules.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/input_memory.h"
#include "tests/fuzz/memory_file.h"

namespace qvx::fuzz {
namespace {

std::string AsItIs(const std::string& text) { return text; }

/// Writing all the reports takes longer than what stands in them: one input of 64 is written,
/// in one way.
void Write(const runcheck::Report& report, std::size_t way) {
  constexpr std::size_t kWidths[] = {0, 1, 80};
  if (way < std::size(kWidths)) {
    runcheck::TextStyle style;
    style.width = kWidths[way];
    runcheck::TextReport(report, style);
  } else if (way == std::size(kWidths)) {
    runcheck::JsonReport(report, AsItIs);
  }
}

runcheck::Prediction PredictionOf(const std::vector<std::string>& arguments, std::string_view cmx) {
  const MemoryFile file(cmx);
  const BlockLimit limit(256 * 1024);
  return runcheck::Predict(arguments);
}

}  // namespace

void RunInput(std::string_view input) {
  const std::size_t way = std::hash<std::string_view>()(input) % 256;
  std::vector<std::string> arguments = TakeLines(input, 3);
  arguments.resize(3);
  const runcheck::CallFacts call = runcheck::FactsOf(arguments);
  const runcheck::CmxFacts facts({"a.cmx", std::string(input)}, call.family);
  runcheck::Report report;
  report.diagnostics = runcheck::CheckCmxFile(facts);
  runcheck::CheckCall(call, report.diagnostics);
  // The target `check` predicts every input; here one of 16 is, those that are written among them.
  if (facts.IsMeantDistributed() && way % 64 < 4) {
    runcheck::Prediction prediction = PredictionOf(arguments, input);
    runcheck::CheckShares(facts, prediction, report.diagnostics);
    runcheck::CheckCommandLines(prediction, report.diagnostics);
    report.passes = std::move(prediction.passes);
  }
  runcheck::SortByPlace(report.diagnostics);
  Write(report, way);
}

}  // namespace qvx::fuzz
