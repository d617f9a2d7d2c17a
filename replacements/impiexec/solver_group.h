// The solver processes of one run. They belong to a job that dies with impiexec, so whoever kills
// impiexec kills them too.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "replacements/impiexec/handle.h"

namespace impiexec {

class SolverGroup {
 public:
  SolverGroup();

  /// Creates the next rank's process with the present environment. It does not run before `Run`.
  /// Returns 0 or the system error number.
  DWORD Create(const std::string& application, std::string commandLine);

  /// Runs the processes to their end and relays what they write. Returns the exit code of the
  /// lowest rank that has one other than 0, or 0.
  int Run();

 private:
  struct Solver {
    Handle process;
    Handle mainThread;
    Handle output;
  };

  Handle job_;
  Handle noInput_;
  std::vector<Solver> solvers_;
};

}  // namespace impiexec
