// What the tests of the launches share: an installation, a project with one run, an MPI
// installation, and a look at what a launch leaves behind.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "launcher/launcher_context.h"
#include "tests/support/machine_state.h"
#include "tests/support/temporary_folder.h"
#include "tests/windows/console_of.h"

namespace qvx::test {

constexpr const char* kSerialBanner = "Launch serial computing\r\n";
constexpr const char* kParallelBanner = "Launch parallel computing\r\n";

struct Outcome {
  int result;
  Console console;
};

/// Waits a minute at most, which fails the test.
void Await(const std::function<bool()>& condition);

/// Waits until the file is there.
void Await(const std::string& path);

/// The last line of a log.
std::string ReturnValue(const std::string& path, int value);

/// A FLOW run with the solver arguments "-a b". Solver and MPI process launcher are copies of the
/// scripted solver.
class LaunchTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  LaunchTest();
  ~LaunchTest() override;

  Outcome Run(int (*operation)(LauncherContext& context));

  /// Compares all that a run leaves behind: on the console `shown`, in the log `logged`, and behind
  /// both the return value of `program`.
  void ExpectOutcome(const Outcome& outcome, int result, const std::string& program,
                     const std::string& shown, const std::string& logged) const;

  /// A launch that could not start `commandLine`.
  static void ExpectFailure(const Outcome& outcome, const std::string& banner,
                            const std::string& commandLine);

  /// Waits until a log ends with `text`: then the console has it too. (That the child's output was
  /// read, which the child can wait for, says neither.)
  void AwaitLogged(const std::string& text) const;

  /// Bytes of the only file in `logFolder`, whose name has to be `logName` less its timestamp.
  std::string Log() const;

  std::string Bytes(const std::string& name) const;

  static void MakeFiles(const std::string& inFolder, const Names& names);
  static Names NamesIn(const std::string& inFolder);
  static void Install(const std::string& sample, const std::string& program);

  const TemporaryFolder folder;
  const MpiInstallPathValue mpiInstallPath;
  const EnvironmentVariable script{"QUORVEX_FAKE_SOLVER"};
  const EnvironmentVariable versionCheck{"I_MPI_SMPD_VERSION_CHECK"};
  const std::string home = folder.Path("Home");
  const std::string runFolder = folder.Path("Project\\Analysis\\Run01");
  const std::string solver = home + "\\Bin\\Qvx3DFlow.exe";
  const std::string impiexec = folder.Path("MPI\\impiexec.exe");
  std::string logFolder = runFolder;
  std::string logName;
  LauncherContext context;
};

}  // namespace qvx::test
