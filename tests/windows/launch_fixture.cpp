#include "tests/windows/launch_fixture.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "execution/serial_launch.h"
#include "launcher/process_wide_values.h"
#include "support/bounded_text.h"
#include "tests/support/program_path.h"
#include "tests/support/texts.h"

namespace qvx::test {
namespace {

namespace fs = std::filesystem;

}  // namespace

std::string ReturnValue(const std::string& path, int value) {
  return ">>> Return value of " + path + " = " + std::to_string(value) + "\r\n";
}

LaunchTest::LaunchTest() {
  Install("QuorvexFakeSolver.exe", solver);
  fs::create_directories(runFolder);
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

Outcome LaunchTest::RunSerially() {
  int result = 0;
  const Console console = ConsoleOf([&] { result = LaunchSerial(context); });
  return {result, console};
}

void LaunchTest::ExpectOutcome(const Outcome& outcome, int result, const std::string& shown,
                               const std::string& logged) const {
  EXPECT_EQ(outcome.result, result);
  EXPECT_EQ(outcome.console.written, shown);
  EXPECT_EQ(outcome.console.buffered, "\r\n" + ReturnValue(solver, result));
  EXPECT_EQ(Log(), logged + ReturnValue(solver, result));
}

void LaunchTest::AwaitLogged(const std::string& text) const {
  const auto isLogged = [&] {
    try {
      return std::ranges::any_of(NamesIn(runFolder), [&](const std::string& name) {
        return name.starts_with("console_redirect_") && Bytes(name).ends_with(text);
      });
    } catch (const fs::filesystem_error&) {
      return false;  // Wine now and then refuses to list a folder that is just being changed.
    }
  };
  constexpr DWORD kPollMilliseconds = 10;
  while (!isLogged()) Sleep(kPollMilliseconds);
}

std::string LaunchTest::Bytes(const std::string& name) const {
  std::ifstream file(fs::path(runFolder) / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string LaunchTest::Log() const {
  const Names names = NamesIn(runFolder);
  if (names.size() != 1) {
    ADD_FAILURE() << names.size() << " files in " << runFolder;
    return "";
  }
  EXPECT_EQ(WithoutTimestamps(names.front()), "console_redirect_serial_Flow_<time>.txt");
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
