// The solver processes of one run. They belong to a job that dies with impiexec, so whoever kills
// impiexec kills them too.
#pragma once

#include <windows.h>

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "replacements/impiexec/handle.h"

namespace impiexec {

/// What one process is started with.
struct Rank {
  std::string node;
  std::string application;
  std::string commandLine;
  std::wstring environment;
  std::string folder;       ///< empty for impiexec's own
  std::string outputLabel;  ///< in front of every line of its output
};

class SolverGroup {
 public:
  SolverGroup();

  /// Creates the next rank's process. It does not run before `Run`. Returns 0 or the system error
  /// number.
  DWORD Create(const Rank& rank);

  /// Runs the processes to their end and relays what they write. Returns the exit code that came
  /// last.
  int Run();

  /// Whether a rank crashed, which ended the others.
  [[nodiscard]] bool IsAborted() const { return isAborted_; }

  /// A line for each rank: what it ended with, and where.
  [[nodiscard]] std::string ExitCodes() const;

 private:
  struct Solver {
    std::string node;
    std::string outputLabel;
    Handle process;
    Handle mainThread;
    Handle output;
    std::optional<DWORD> exitCode;
  };

  void AwaitEnd(Solver& solver);

  Handle job_;
  Handle ownInput_;
  Handle silentInput_;
  Handle silentInputsWriteEnd_;  ///< open for as long as the group, so that the input never ends
  std::vector<Solver> solvers_;
  std::mutex mutex_;  ///< guards exit codes and what is below
  DWORD lastExitCode_ = 0;
  bool isAborted_ = false;
};

}  // namespace impiexec
