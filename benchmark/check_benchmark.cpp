// The check of a usual run without the network, against a bare program that loads the same
// libraries: both from their start to their end.
#include <windows.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "benchmark/figures.h"
#include "benchmark/redirected_child.h"
#include "tests/support/program_path.h"
#include "tests/support/temporary_folder.h"

namespace qvx::benchmark {
namespace {

/// The child's whole time; `ready`: what has to stand in its output.
double SecondsOf(const std::string& program, const std::string& commandLine,
                 const std::string& ready) {
  return Seconds([&] {
    const RedirectedChild child(program.c_str(), commandLine, CREATE_NO_WINDOW);
    std::string output;
    std::array<char, 4096> chunk;
    DWORD size = 0;
    while (ReadFile(child.output, chunk.data(), chunk.size(), &size, nullptr) != 0) {
      output.append(chunk.data(), size);
    }
    WaitForSingleObject(child.process.hProcess, INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(child.process.hProcess, &status);
    Require(status == 0 && output.find(ready) != std::string::npos,
            "no good end of " + program + ": " + output);
  });
}

}  // namespace
}  // namespace qvx::benchmark

int main() {
  using namespace qvx;
  const test::TemporaryFolder folder;
  folder.Write("Project\\Analysis\\Run01\\Sample01.cmx",
               "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n");
  std::filesystem::create_directories(folder.Path("Home\\Bin"));
  std::filesystem::copy_file(test::ProgramPath("samples\\QuorvexFakeSolver.exe"),
                             folder.Path("Home\\Bin\\Qvx3DFlow.exe"));
  const std::string call = "check --json --no-network -- L$1 " + folder.Path("Home") + "*" +
                           folder.Path("Project") + "*Sample*0*01 Qvx3DFlow.exe";
  std::vector<double> seconds;
  const double ratio = benchmark::MedianRatio(
      [&] {
        seconds.push_back(benchmark::SecondsOf(test::ProgramPath("bin\\QVXRunCheck.exe"), call,
                                               R"("verdict": "ready")"));
        return seconds.back();
      },
      [&] {
        return benchmark::SecondsOf(test::ProgramPath("benchmark\\bare_loader.exe"),
                                    "bare_loader advapi32.dll shell32.dll ws2_32.dll "
                                    "QVXSolverArgumentTool.dll QVXMPITool.dll QVXUnicodeTool.dll",
                                    "");
      });
  benchmark::Report("check: a usual run, to loading its libraries", ratio, 1.5);
  benchmark::Report("check: seconds of a usual run", benchmark::Median(seconds), 0.5);
}
