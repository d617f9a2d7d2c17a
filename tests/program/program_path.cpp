#include "tests/program/program_path.h"

#include <windows.h>

#include <filesystem>

namespace qvx::test {

std::string ProgramPath(const std::string& relative) {
  char program[1024] = {};
  GetModuleFileNameA(nullptr, program, sizeof program);
  const std::filesystem::path tests = std::filesystem::path(program).parent_path();
  return (tests.parent_path() / relative).string();
}

}  // namespace qvx::test
