// Whole runs of the launcher, carried out side by side, because each one sleeps five seconds in its
// countdown. RUN_TEST names the runs that a test looks at. The first look at one carries out those
// of all the tests that the filter chose, and no other.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/program/launcher_process.h"
#include "tests/program/site.h"

namespace qvx::test {

/// What a whole machine has, so that runs with different ones cannot be side by side.
enum class Machine {
  Plain,
  Traced,            ///< the debug-trace switch file exists
  WithoutMpi,        ///< no MPI installation path in the registry
  NoProcessManager,  ///< impiexec.exe finds none; its path has a trailing backslash
  ScriptedMpi,       ///< impiexec.exe is the stand-in solver
};

constexpr const char* kSerialCmx =
    "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n";
constexpr const char* kSmpCmx =
    "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=2\r\nValueLocalNoTask=2\r\n</TASKMANAGER>\r\n";
constexpr const char* kDmpCmx =
    "<TASKMANAGER>\r\nIDTaskMode=1\r\n</TASKMANAGER>\r\n"
    "<REMOTE_MACHINES>\r\nValueNoMachine=2\r\nValueLocalHost=NODE1\r\n"
    "ValueShareFolderName=<name>\\Work\r\nValueParallelWorkingFolder=<site>\\WORK\r\n"
    "ValueMachineSetting\r\n1=NODE1\t2\r\n2=NODE2\t1\r\n"
    "ValueMachineWeighting\r\n1=0.6\r\n2=0.4\r\n</REMOTE_MACHINES>\r\n";

/// Texts may hold <site>, <share> and <name>, see Site.
struct RunPlan {
  Machine machine = Machine::Plain;
  std::string solver = "Qvx3DFlow.exe";
  std::string cmx = kSerialCmx;
  std::string script = "command-line;flush";  ///< of the stand-in solver
  /// Of single solvers, by their names without ".exe".
  std::map<std::string, std::string> scripts = {};
  std::string firstArgument = "L$1";
  /// Behind the first; by default tokens and solver.
  std::optional<std::vector<std::string>> arguments = std::nullopt;
  std::map<std::string, std::string> environment = {};
  std::string currentFolder = {};
  /// Last touches before the start.
  std::function<void(const Site&)> prepare = {};
  /// Runs beside the launcher; returns what went wrong, empty when nothing did.
  std::function<std::string(LauncherProcess&, const Site&)> meanwhile = {};
};

struct RunResult {
  std::string output;  ///< with <site> and <share>
  std::string error;
  int status = 0;
  double seconds = 0;
  std::map<std::string, std::string> logs;
  std::string complaint;  ///< what `meanwhile` returned
};

class PlannedRun {
 public:
  explicit PlannedRun(RunPlan plan) : plan_(std::move(plan)) {}
  PlannedRun(const PlannedRun&) = delete;
  PlannedRun& operator=(const PlannedRun&) = delete;

  /// Fails the test when the run was not carried out.
  const RunResult* operator->() const;

  Machine On() const { return plan_.machine; }

  void LayOut() const;

  /// A launcher that cannot be started is the failure of the tests that look at this run.
  void CarryOut() const;

 private:
  RunPlan plan_;
  mutable std::unique_ptr<Site> site_;
  mutable RunResult result_;
  mutable std::string whyNot_ = "the test does not name this run";
};

using Runs = std::vector<const PlannedRun*>;

/// Which runs the test "Suite.Name" looks at, with all its parameters when it has some.
class RunsOfTest {
 public:
  RunsOfTest(const char* test, Runs (*runs)());
};

#define RUN_TEST(suite, name, ...)                                                                \
  const qvx::test::RunsOfTest suite##_##name##_Runs(#suite "." #name,                             \
                                                    [] { return qvx::test::Runs{__VA_ARGS__}; }); \
  TEST(suite, name)

constexpr const char* kTokens = "<site>\\Home*<site>\\Work\\Sample*Sample*3*01";

/// The console of one launch whose child printed `child`.
std::string ConsoleOf(const std::string& banner, const std::string& child,
                      const std::string& reportedPath, int status);
inline std::string SerialConsole(const std::string& child, const std::string& path, int status) {
  return ConsoleOf("Launch serial computing\r\n", child, path, status);
}

/// The log of one launch whose child printed `child`.
std::string LogOf(const std::string& commandLine, const std::string& child,
                  const std::string& reportedPath, int status);

/// What the stand-in solver's command `fill` writes.
std::string Filled(std::size_t total);

/// The argument string of the FLOW and PACK record.
std::string FlowArguments(const std::string& parallel);
constexpr const char* kSerialSettings = "-parallel 0 -processes 1";

}  // namespace qvx::test
