// Whole runs of the launcher, carried out side by side, because each one sleeps five seconds in its
// countdown. A test is added with the runs that it looks at. The first look at one carries out
// those of all the tests that the filter chose, and no other.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/program/launcher_process.h"
#include "tests/program/site.h"

namespace qvx::test {

/// What a whole machine has, so that runs with different ones cannot start side by side.
enum class Machine {
  Plain,
  Traced,            ///< the debug-trace switch file exists
  WithoutMpi,        ///< no MPI installation path in the registry
  NoProcessManager,  ///< impiexec.exe finds none; its path has a trailing backslash
  ScriptedMpi,       ///< impiexec.exe is the stand-in solver
};

/// Its MPI installation path, as the registry has it; empty for none.
std::string MpiPath(Machine machine);

/// Each run is asked of the check first, and has to come out as that says. Texts may hold <site>,
/// <share> and <name>, see Site.
struct RunPlan {
  Machine machine = Machine::Plain;
  std::string solver = "Qvx3DFlow.exe";
  std::string cmx = kSerialCmx;
  std::string script = "command-line;flush";  ///< of the stand-in solver
  /// Of single solvers, by their names without ".exe".
  std::map<std::string, std::string> scripts = {};
  std::string firstArgument = "L$1";
  /// Behind the first; by default tokens and solver.
  std::optional<std::vector<std::string>> arguments = std::nullopt;
  std::string currentFolder = {};
  /// Last touches before the start.
  std::function<void(const Site&)> prepare = {};
  bool isAsked = true;  ///< of the check
  /// Runs beside the launcher; returns what went wrong, empty when nothing did.
  std::function<std::string(LauncherProcess&, const Site&)> meanwhile = {};
};

struct RunResult {
  RunPlan plan = {};
  std::string output = {};  ///< with <site> and <share>
  std::string error = {};
  int status = 0;
  double seconds = 0;
  std::map<std::string, std::string> logs = {};
  std::string complaint = {};  ///< what `meanwhile` returned, or why there was no run
  std::string untruths = {};   ///< of the check, a line each
};

using Results = std::vector<RunResult>;

/// All tests of a program, with their runs.
class PlannedTests {
 public:
  PlannedTests();
  ~PlannedTests();
  PlannedTests(const PlannedTests&) = delete;
  PlannedTests& operator=(const PlannedTests&) = delete;

  /// `check` says what has to come of the runs. `file` and `line` are the caller's. (Clang 14 has
  /// no `std::source_location`.)
  void Add(const std::string& suite, const std::string& name, std::vector<RunPlan> plans,
           std::function<void(const Results&)> check, const char* file = __builtin_FILE(),
           int line = __builtin_LINE());

  void Add(const std::string& suite, const std::string& name, RunPlan plan,
           std::function<void(const RunResult&)> check, const char* file = __builtin_FILE(),
           int line = __builtin_LINE());

  struct Test {
    const testing::TestInfo* info = nullptr;
    Results runs = {};
    std::function<void(const Results&)> check = {};
  };

 private:
  void CarryOutChosenRuns();

  std::deque<Test> tests_;
  bool carriedOut_ = false;
};

}  // namespace qvx::test
