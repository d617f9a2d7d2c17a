// Where the build put a program: the tests' own folder lies beside bin and samples.
#pragma once

#include <string>

namespace qvx::test {

/// `relative`: to the build folder, such as "bin\\QVXSolverLauncher.exe".
std::string ProgramPath(const std::string& relative);

}  // namespace qvx::test
