#include "tests/windows/started_child.h"

#include "tests/support/machine_state.h"
#include "tests/support/program_path.h"

namespace qvx::test {

StartedChild::StartedChild(const std::string& script) {
  const EnvironmentVariable variable("QUORVEX_FAKE_SOLVER");
  variable.Set(script);
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  CreateProcessA(ProgramPath("samples\\QuorvexFakeSolver.exe").c_str(), nullptr, nullptr, nullptr,
                 FALSE, 0, nullptr, nullptr, &startup, &process_);
}

StartedChild::~StartedChild() {
  TerminateProcess(process_.hProcess, 0);
  CloseHandle(process_.hProcess);
  CloseHandle(process_.hThread);
}

int StartedChild::ExitCode() const {
  WaitForSingleObject(process_.hProcess, INFINITE);
  DWORD exitCode = 0;
  GetExitCodeProcess(process_.hProcess, &exitCode);
  return static_cast<int>(exitCode);
}

}  // namespace qvx::test
