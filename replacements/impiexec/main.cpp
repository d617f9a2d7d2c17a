// impiexec.exe, replacement for the MPI process launcher: runs all processes on this computer, each
// told its place by PMI_RANK, PMI_SIZE and PMI_HOST. With a file impiexec_no_smpd.txt beside it,
// it acts as on a machine without a process manager.
#include <windows.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "replacements/impiexec/command_line.h"
#include "replacements/impiexec/solver_group.h"
#include "replacements/impiexec/standard_output.h"

namespace impiexec {
namespace {

constexpr int kFailed = -1;
constexpr DWORD kHangMilliseconds = 60'000;

int Fail(const std::string& error) {
  WriteOutputLine("Error: " + error);
  return kFailed;
}

bool IsProcessManagerMissing() {
  std::array<wchar_t, 4096> path{};
  GetModuleFileNameW(nullptr, path.data(), path.size());
  return std::filesystem::exists(
      std::filesystem::path(path.data()).replace_filename(L"impiexec_no_smpd.txt"));
}

std::string ComputerName() {
  std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name{};
  DWORD size = name.size();
  GetComputerNameA(name.data(), &size);
  return name.data();
}

/// The program's path as the system finds it; `program` itself when it does not.
std::string FindProgram(const std::string& program) {
  std::array<char, 4096> path{};
  const DWORD length =
      SearchPathA(nullptr, program.c_str(), ".exe", path.size(), path.data(), nullptr);
  return length > 0 && length < path.size() ? std::string(path.data(), length) : program;
}

/// The solvers inherit the environment of this process, which has no use for it of its own.
bool SetVariable(const std::string& name, const std::string& value) {
  return SetEnvironmentVariableA(name.c_str(), value.c_str()) != FALSE;
}

int Run(const CommandLine& commandLine) {
  const std::string program = FindProgram(commandLine.program);
  for (const Variable& variable : commandLine.variables) {
    if (!SetVariable(variable.name, variable.value)) {
      return Fail("cannot set variable " + variable.name);
    }
  }
  std::int64_t size = 0;
  for (const Host& host : commandLine.hosts) size += host.processCount;
  SetVariable("PMI_SIZE", std::to_string(size));

  SolverGroup solvers;
  std::int64_t rank = 0;
  for (const Host& host : commandLine.hosts) {
    SetVariable("PMI_HOST", host.name.empty() ? ComputerName() : host.name);
    for (int i = 0; i < host.processCount; ++i) {
      SetVariable("PMI_RANK", std::to_string(rank++));
      const DWORD error = solvers.Create(program, commandLine.solverCommandLine);
      if (error != 0) {
        return Fail("cannot start " + commandLine.program + ": system error " +
                    std::to_string(error));
      }
    }
  }
  return solvers.Run();
}

}  // namespace
}  // namespace impiexec

int main() {
  using namespace impiexec;
  if (IsProcessManagerMissing()) {
    WriteOutputLine("Unknown option: -d");
    Sleep(kHangMilliseconds);
    return 1;
  }
  const CommandLine commandLine = ParseCommandLine(GetCommandLineA());
  for (const std::string& option : commandLine.unknownOptions) {
    WriteOutputLine("Unknown option: " + option);
  }
  if (!commandLine.error.empty()) return Fail(commandLine.error);
  return Run(commandLine);
}
