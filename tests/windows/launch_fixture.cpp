#include "tests/windows/launch_fixture.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "launcher/process_wide_values.h"
#include "support/bounded_text.h"
#include "tests/support/program_path.h"
#include "tests/support/texts.h"

namespace qvx::test {
namespace {

namespace fs = std::filesystem;

}  // namespace

void Await(const std::function<bool()>& condition) {
  constexpr int kPollMilliseconds = 10;
  constexpr int kMostPolls = 6000;
  for (int i = 0; i < kMostPolls; ++i) {
    if (condition()) return;
    Sleep(kPollMilliseconds);
  }
  ADD_FAILURE() << "awaited in vain";
}

void Await(const std::string& path) {
  Await([&] { return fs::exists(path); });
}

std::string ReturnValue(const std::string& path, int value) {
  return ">>> Return value of " + path + " = " + std::to_string(value) + "\r\n";
}

LaunchTest::LaunchTest() {
  Install("QuorvexFakeSolver.exe", solver);
  Install("QuorvexFakeSolver.exe", impiexec);
  fs::create_directories(runFolder);
  mpiInstallPath.Set(folder.Path("MPI"));
  script.Set("exit 0");
  CopyText(context.homeFolder, "home folder", home);
  CopyText(context.solverExecutableName, "solver executable name", "Qvx3DFlow.exe");
  CopyText(context.solverArgumentString, "solver argument string", "-a b");
  CopyText(context.currentRunPath, "current run path", runFolder);
  CopyText(context.localRunPath, "local run path", runFolder);
}

LaunchTest::~LaunchTest() {
  cancelFlag = 0;
  childProcessIdentifier = 0;
}

Outcome LaunchTest::Run(int (*operation)(LauncherContext& context)) {
  int result = 0;
  const Console console = ConsoleOf([&] { result = operation(context); });
  return {result, console};
}

void LaunchTest::ExpectOutcome(const Outcome& outcome, int result, const std::string& program,
                               const std::string& shown, const std::string& logged) const {
  EXPECT_EQ(outcome.result, result);
  EXPECT_EQ(outcome.console.written, shown);
  EXPECT_EQ(outcome.console.buffered, "\r\n" + ReturnValue(program, result));
  EXPECT_EQ(Log(), logged + ReturnValue(program, result));
}

void LaunchTest::ExpectFailure(const Outcome& outcome, const std::string& banner,
                               const std::string& commandLine) {
  EXPECT_EQ(outcome.result, -1);
  EXPECT_EQ(outcome.console.written,
            banner + "CreateProcess [" + commandLine + "] failed. system error(2)\r\n");
  EXPECT_EQ(outcome.console.buffered, "");
}

void LaunchTest::AwaitLogged(const std::string& text) const {
  Await([&] {
    try {
      return std::ranges::any_of(NamesIn(logFolder), [&](const std::string& name) {
        return name.starts_with("console_redirect_") && Bytes(name).ends_with(text);
      });
    } catch (const fs::filesystem_error&) {
      return false;  // Wine now and then refuses to list a folder that is just being changed.
    }
  });
}

std::string LaunchTest::Bytes(const std::string& name) const {
  std::ifstream file(fs::path(logFolder) / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string LaunchTest::Log() const {
  const Names names = NamesIn(logFolder);
  if (names.size() != 1) {
    ADD_FAILURE() << names.size() << " files in " << logFolder;
    return "";
  }
  EXPECT_EQ(WithoutTimestamps(names.front()), logName);
  return Bytes(names.front());
}

void LaunchTest::MakeFiles(const std::string& inFolder, const Names& names) {
  fs::create_directories(inFolder);
  for (const std::string& name : names) std::ofstream(fs::path(inFolder) / name) << "old";
}

LaunchTest::Names LaunchTest::NamesIn(const std::string& inFolder) {
  Names names;
  for (const auto& entry : fs::directory_iterator(inFolder)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

void LaunchTest::Install(const std::string& sample, const std::string& program) {
  fs::create_directories(fs::path(program).parent_path());
  fs::copy_file(ProgramPath("samples\\" + sample), program, fs::copy_options::overwrite_existing);
}

}  // namespace qvx::test
