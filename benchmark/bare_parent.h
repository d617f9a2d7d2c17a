// The least that starts a solver as the launcher does and waits until its output ends and it ends.
// (The output ends last, under Wine: the hidden console's host keeps the pipe open for a while.)
#pragma once

#include <array>
#include <string>

#include "benchmark/redirected_child.h"

namespace qvx::benchmark {

/// Returns the solver's exit code.
inline int RunBareParent(const std::string& solver) {
  const RedirectedChild child(nullptr, solver, CREATE_NO_WINDOW);
  std::array<char, 4096> chunk;
  DWORD size = 0;
  while (ReadFile(child.output, chunk.data(), chunk.size(), &size, nullptr) != 0) {
  }
  WaitForSingleObject(child.process.hProcess, INFINITE);
  DWORD exitCode = 0;
  GetExitCodeProcess(child.process.hProcess, &exitCode);
  return static_cast<int>(exitCode);
}

}  // namespace qvx::benchmark
