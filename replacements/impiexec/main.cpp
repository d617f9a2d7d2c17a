// impiexec.exe, replacement for the MPI process launcher: runs all processes on this computer, each
// told its place by PMI_RANK, PMI_SIZE and PMI_HOST. Two files beside it change what it finds:
// with impiexec_no_smpd.txt no process manager, and no host that impiexec_unreachable_hosts.txt
// names on a line of its own.
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "replacements/impiexec/command_line.h"
#include "replacements/impiexec/environment.h"
#include "replacements/impiexec/solver_group.h"
#include "replacements/impiexec/standard_output.h"

namespace impiexec {
namespace {

constexpr int kFailed = -1;
constexpr DWORD kHangMilliseconds = 60'000;
constexpr std::string_view kUsage =
    "Usage:\r\n"
    "impiexec -n COUNT PROGRAM [ARGUMENT]...\r\n"
    "impiexec [OPTION]... PROGRAM [ARGUMENT]... [: [OPTION]... PROGRAM [ARGUMENT]...]...\r\n"
    "  -n COUNT, -np COUNT            so many processes on this computer\r\n"
    "  -localonly [COUNT]             the same\r\n"
    "  -hosts COUNT {NAME [COUNT]}... processes on so many hosts\r\n"
    "  -env NAME VALUE                a variable for the program's processes\r\n"
    "  -genv NAME VALUE               a variable for all programs' processes\r\n"
    "  -wdir DIR                      the folder that the processes start in\r\n"
    "  -l                             the rank in front of each line of output\r\n"
    "  -exitcodes                     the processes' exit codes at the end\r\n";

int Fail(const std::string& error) {
  WriteOutputLine("Error: " + error);
  return kFailed;
}

std::filesystem::path PathBeside(const wchar_t* name) {
  std::array<wchar_t, 4096> path{};
  GetModuleFileNameW(nullptr, path.data(), path.size());
  return std::filesystem::path(path.data()).replace_filename(name);
}

bool IsReachable(const std::string& host) {
  std::ifstream file(PathBeside(L"impiexec_unreachable_hosts.txt"));
  for (std::string line; std::getline(file, line);) {
    if (_stricmp(line.c_str(), host.c_str()) == 0) return false;
  }
  return true;
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

void SetAll(const std::vector<Variable>& variables, Environment& environment) {
  for (const Variable& variable : variables) environment.Set(variable.name, variable.value);
}

std::vector<Rank> RanksOf(const CommandLine& commandLine) {
  std::int64_t size = 0;
  for (const Group& group : commandLine.groups) {
    for (const Host& host : group.hosts) size += host.processCount;
  }
  std::vector<Rank> ranks;
  for (const Group& group : commandLine.groups) {
    const std::string application = FindProgram(group.program);
    for (const Host& host : group.hosts) {
      const std::string node = host.name.empty() ? ComputerName() : host.name;
      for (int i = 0; i < host.processCount; ++i) {
        const std::string number = std::to_string(ranks.size());
        Environment environment;
        environment.Set("PMI_RANK", number);
        environment.Set("PMI_SIZE", std::to_string(size));
        environment.Set("PMI_HOST", node);
        SetAll(group.variables, environment);
        SetAll(commandLine.globalVariables, environment);
        if (group.isDistributed) {
          environment.AddMachines();
        } else {
          environment.AddOwn();
        }
        ranks.push_back({node, application, group.solverCommandLine, environment.Block(),
                         group.folder, commandLine.labelsOutput ? "[" + number + "]" : ""});
      }
    }
  }
  return ranks;
}

int Run(const CommandLine& commandLine) {
  bool isFirst = true;
  for (const Group& group : commandLine.groups) {
    for (const Host& host : group.hosts) {
      if (!host.name.empty() && !IsReachable(host.name)) {
        WriteOutputLine("Unable to connect to '" + host.name + ":8676'");
        return isFirst ? kFailed : 0;  // The 0 is deliberate.
      }
      isFirst = false;
    }
  }

  SolverGroup solvers;
  for (const Rank& rank : RanksOf(commandLine)) {
    const DWORD error = solvers.Create(rank);
    if (error != 0) {
      return Fail("cannot start " + rank.application + ": system error " + std::to_string(error));
    }
  }
  const int exitCode = solvers.Run();
  if (solvers.IsAborted()) {
    WriteOutput("\r\njob aborted:\r\n" + solvers.ExitCodes());
  } else if (commandLine.showsExitCodes) {
    WriteOutput(solvers.ExitCodes());
  }
  return exitCode;
}

}  // namespace
}  // namespace impiexec

int main() {
  using namespace impiexec;
  if (std::filesystem::exists(PathBeside(L"impiexec_no_smpd.txt"))) {
    WriteOutputLine("Unknown option: -d");
    Sleep(kHangMilliseconds);
    return 1;
  }
  const CommandLine commandLine = ParseCommandLine(GetCommandLineA());
  if (commandLine.isEmpty) {
    WriteOutput(kUsage);
    return 0;
  }
  for (const std::string& option : commandLine.unknownOptions) {
    WriteOutputLine("Unknown option: " + option);
  }
  if (!commandLine.error.empty()) {
    WriteOutputLine(commandLine.error);
    WriteOutputLine("Unable to parse the mpiexec command arguments.");
    return kFailed;
  }
  return Run(commandLine);
}
