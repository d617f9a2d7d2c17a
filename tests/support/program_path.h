// Where the build put a program: the folder of the running program lies beside bin, samples, tests
// and benchmark.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace qvx::test {

/// `relative`: to the build folder, such as "bin\\QVXSolverLauncher.exe".
inline std::string ProgramPath(const std::string& relative) {
  char program[1024] = {};
  GetModuleFileNameA(nullptr, program, sizeof program);
  return (std::filesystem::path(program).parent_path().parent_path() / relative).string();
}

}  // namespace qvx::test
