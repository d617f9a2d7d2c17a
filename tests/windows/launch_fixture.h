// What the tests of real launches share: an installation, a project with one run, and a look at
// what a launch leaves behind.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "launcher/launcher_context.h"
#include "tests/support/machine_state.h"
#include "tests/support/temporary_folder.h"
#include "tests/windows/console_of.h"

namespace qvx::test {

constexpr const char* kSerialBanner = "Launch serial computing\r\n";

struct Outcome {
  int result;
  Console console;
};

/// The last line of a log.
std::string ReturnValue(const std::string& path, int value);

/// A serial FLOW run with the solver arguments "-a b". The solver is the scripted one.
class LaunchTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  LaunchTest();
  ~LaunchTest() override;

  Outcome RunSerially();

  /// Compares all that a run leaves behind: on the console `shown`, in the log `logged`, and behind
  /// both the solver's return value.
  void ExpectOutcome(const Outcome& outcome, int result, const std::string& shown,
                     const std::string& logged) const;

  /// Waits until a log ends with `text`: then the console has it too. (That the child's output was
  /// read, which the child can wait for, says neither.)
  void AwaitLogged(const std::string& text) const;

  /// Bytes of the only file in the run folder.
  std::string Log() const;

  std::string Bytes(const std::string& name) const;

  static void MakeFiles(const std::string& inFolder, const Names& names);
  static Names NamesIn(const std::string& inFolder);
  static void Install(const std::string& sample, const std::string& program);

  const TemporaryFolder folder;
  const EnvironmentVariable script{"QUORVEX_FAKE_SOLVER"};
  const std::string home = folder.Path("Home");
  const std::string runFolder = folder.Path("Project\\Analysis\\Run01");
  const std::string solver = home + "\\Bin\\Qvx3DFlow.exe";
  LauncherContext context;
};

}  // namespace qvx::test
