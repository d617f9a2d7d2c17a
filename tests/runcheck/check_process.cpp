#include "tests/runcheck/check_process.h"

#include "tests/program/launcher_process.h"

namespace qvx::test {

CheckResult RunQvxRunCheck(const std::vector<std::string>& arguments, const std::string& program) {
  LauncherProcess check({.program = program.empty() ? "bin\\QVXRunCheck.exe" : program,
                         .firstArgument = "QVXRunCheck.exe",
                         .arguments = arguments,
                         .hasOwnConsole = false});
  const int status = check.Wait();
  return {check.Output(), check.Error(), status};
}

}  // namespace qvx::test
