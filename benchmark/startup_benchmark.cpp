// The whole way of a run to the child's end against a bare parent, which creates the same child
// with the same flags and waits. Once inside this process, from the entry sequence on; and once
// from the start of each one's program, which adds the loading of the libraries that the launcher
// imports.
#include <io.h>
#include <windows.h>

#include <array>
#include <string>

#include "benchmark/bare_parent.h"
#include "benchmark/figures.h"
#include "benchmark/no_countdown.h"
#include "launcher/entry_sequence.h"
#include "tests/support/machine_state.h"
#include "tests/support/program_path.h"
#include "tests/support/temporary_folder.h"

namespace qvx::benchmark {
namespace {

int RunLauncher(std::string tokens) {
  const NoCountdown noCountdown;
  std::string first = "L$1";
  std::string name = "Qvx3DFlow.exe";
  char* arguments[] = {first.data(), tokens.data(), name.data()};
  return RunEntrySequence(3, arguments);
}

constexpr int kExitCode = 7;

/// Seconds until the program prints its countdown's first line, after the exit code of its solver;
/// it is ended then.
double SecondsToCountdown(const std::string& program, const std::string& commandLine) {
  return Seconds([&] {
    const RedirectedChild child(program.c_str(), commandLine, 0);
    std::string output;
    std::array<char, 4096> chunk;
    DWORD size = 0;
    const std::string countdown = " = " + std::to_string(kExitCode) + "\r\n\r4";
    while (output.find(countdown) == std::string::npos) {
      Require(ReadFile(child.output, chunk.data(), chunk.size(), &size, nullptr) != 0,
              "no run of the solver by " + program);
      output.append(chunk.data(), size);
    }
    TerminateProcess(child.process.hProcess, 0);
  });
}

}  // namespace
}  // namespace qvx::benchmark

int main() {
  using namespace qvx;
  const test::TemporaryFolder folder;
  const test::EnvironmentVariable script("QUORVEX_FAKE_SOLVER");
  script.Set("exit " + std::to_string(benchmark::kExitCode));
  folder.Write("Project\\Analysis\\Run01\\Sample01.cmx",
               "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n");
  const std::string solver = folder.Path("Home\\Bin\\Qvx3DFlow.exe");
  std::filesystem::create_directories(folder.Path("Home\\Bin"));
  std::filesystem::copy_file(test::ProgramPath("samples\\QuorvexFakeSolver.exe"), solver);
  const std::string tokens = folder.Path("Home") + "*" + folder.Path("Project") + "*Sample*0*01";
  const auto seconds = [](auto&& run) {
    return benchmark::Seconds(
        [&] { benchmark::Require(run() == benchmark::kExitCode, "no run of the solver"); });
  };
  // The launcher's lines go where nobody looks.
  const int table = _dup(1);
  std::freopen("NUL", "w", stdout);
  const double inside = benchmark::MedianRatio(
      [&] { return seconds([&] { return benchmark::RunLauncher(tokens); }); },
      [&] { return seconds([&] { return benchmark::RunBareParent(solver); }); });
  std::fflush(stdout);
  _dup2(table, 1);
  benchmark::Report("start-up: from the entry sequence to the child's end", inside, 1.15);
  benchmark::Report(
      "start-up: the same with the program's own loading",
      benchmark::MedianRatio(
          [&] {
            return benchmark::SecondsToCountdown(test::ProgramPath("bin\\QVXSolverLauncher.exe"),
                                                 "L$1 " + tokens + " Qvx3DFlow.exe");
          },
          [&] {
            return benchmark::SecondsToCountdown(test::ProgramPath("benchmark\\bare_parent.exe"),
                                                 "bare_parent " + solver);
          }));
}
