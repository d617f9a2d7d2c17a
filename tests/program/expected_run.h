// What has to come of a planned run: the plain formulation of the rules says so.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/program/planned_run.h"

namespace qvx::test {

/// What a solver does, the launcher's one of one pass.
struct Solver {
  std::string shown = {};  ///< behind its arguments, if its script begins with showing them
  int status = 0;
  std::optional<std::string> logged = std::nullopt;  ///< where that differs from what is shown
};

/// What each pass's solver shows of its arguments first, by its script's first command:
/// `command-line`, or `rank N args` under the process launcher.
std::vector<std::string> ShownArguments(const RunPlan& plan);

/// Compares console, status and logs of a run of so many passes, whose solvers did this.
void ExpectPasses(const RunResult& run, const std::vector<Solver>& solvers);

inline void ExpectRun(const RunResult& run, const Solver& solver) { ExpectPasses(run, {solver}); }

/// What the launcher says to a Ctrl-C.
const std::string kCtrlC = "Ctrl-C is captured.\r\n";

/// The run without those words, once; a failure when it lacks them.
RunResult WithoutOneCtrlC(RunResult run);

/// A run whose program the system does not find.
void ExpectNoStart(const RunResult& run);

/// A run that ends by a fault, before the launch.
void ExpectFault(const RunResult& run);

/// What the stand-in solver's command `fill` writes.
std::string Filled(std::size_t total);

}  // namespace qvx::test
