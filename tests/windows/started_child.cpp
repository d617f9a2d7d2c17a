#include "tests/windows/started_child.h"

#include <array>
#include <filesystem>

#include "tests/support/machine_state.h"

namespace qvx::test {

std::string SamplePath(const std::string& name) {
  std::array<char, 4096> program{};
  GetModuleFileNameA(nullptr, program.data(), program.size());
  const std::filesystem::path tests = std::filesystem::path(program.data()).parent_path();
  return (tests.parent_path() / "samples" / name).string();
}

StartedChild::StartedChild(const std::string& script) {
  const EnvironmentVariable variable("QUORVEX_FAKE_SOLVER");
  variable.Set(script);
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  CreateProcessA(SamplePath("QuorvexFakeSolver.exe").c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                 nullptr, nullptr, &startup, &process_);
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
