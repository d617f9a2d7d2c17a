// Runs under the MPI process launcher, on this machine and over several.
#include "tests/program/expected_run.h"
#include "tests/program/tests.h"
#include "tests/program/under_launcher.h"

namespace qvx::test {
namespace {

/// One process shows its arguments and `variables`, and stays until the console has them all.
RunPlan ShownPlan(RunPlan plan, const std::string& rank, const std::string& variables,
                  const std::string& shown, int status) {
  plan.script = rank + "args;" + variables;
  plan.meanwhile = LetGoOnceShown(ShownArguments(plan).front() + shown);
  plan.script += kAwaitShown + "exit " + std::to_string(status);
  return plan;
}

}  // namespace

void AddParallelRuns(PlannedTests& tests) {
  const std::string ownEnvironment = "PMI_SIZE=2\r\n0=0\r\nI_MPI_SMPD_VERSION_CHECK=0\r\n";
  const RunPlan shared = ShownPlan(
      {.cmx = kSmpCmx}, "rank 1 ",
      "rank 1 variable PMI_SIZE;rank 1 variable 0;rank 1 variable I_MPI_SMPD_VERSION_CHECK",
      ownEnvironment, 70000);
  tests.Add("SharedMemoryRun", "StartsTheProcessesUnderTheMpiProcessLauncher", shared,
            [ownEnvironment](const RunResult& run) {
              ExpectRun(run, {.shown = ownEnvironment, .status = 70000});
            });

  const RunPlan noManager = {
      .machine = Machine::NoProcessManager, .cmx = kSmpCmx, .script = "print never;flush"};
  tests.Add("SharedMemoryRun", "ExplainsAMissingProcessManager", noManager,
            [](const RunResult& run) {
              const std::string advice =
                  "\nIntel(R) MPI Library(4.0) Process Manager(smpd) is not started!\n"
                  "Run the following command-line as Administrator to start smpd:\n"
                  "\"C:\\Program Files\\Intel MPI 4.0\\x64\\smpd-intel-4.0.3.009-x64.exe\""
                  " -install\n";
              const std::string sign = "Unknown option: -d\r\n";
              ExpectRun(run, {.shown = sign + Replaced(advice, "\n", "\r\n"),
                              .status = -7000,
                              .logged = sign + advice});
            });

  // The processes do not get the launcher's environment. Traced, for the real switch file.
  const std::string cleanEnvironment =
      "PMI_HOST=NODE2\r\nPMI_SIZE=3\r\n0=0\r\nI_MPI_SMPD_VERSION_CHECK is not set\r\n";
  const RunPlan distributed =
      ShownPlan({.machine = Machine::Traced, .cmx = kDmpCmx}, "rank 2 ",
                "rank 2 variable PMI_HOST;rank 2 variable PMI_SIZE;rank 2 variable 0;"
                "rank 2 variable I_MPI_SMPD_VERSION_CHECK",
                cleanEnvironment, 0);
  tests.Add(
      "DistributedRun", "StartsTheSharedSolverOnEveryMachineAndLogsOnTheShare", distributed,
      [cleanEnvironment](const RunResult& run) { ExpectRun(run, {.shown = cleanEnvironment}); });

  // The process launcher's own answer ends such a run. How much of it the console still shows is a
  // matter of luck.
  RunPlan noMachines = {.cmx = Replaced(kDmpCmx, "ValueNoMachine=2", "ValueNoMachine=0"),
                        .script = ""};
  tests.Add("DistributedRun", "OverNoMachinesIsRefusedByTheProcessLauncher", noMachines,
            [](const RunResult& run) {
              const std::string whole =
                  "You must specify a number greater than 0 after -hosts.\r\n"
                  "Unable to parse the mpiexec command arguments.\r\n";
              const std::size_t begin = run.output.find("\r\n") + 2;
              const std::size_t end = run.output.rfind("\r\n>>> Return value of ");
              ASSERT_LE(begin, end) << run.output;
              const std::string child = run.output.substr(begin, end - begin);
              EXPECT_TRUE(whole.starts_with(child)) << child;
              ExpectRun(run, {.shown = child, .status = -1});
            });

  std::string machines = "ValueNoMachine=1500\nValueMachineSetting\n";
  for (int i = 0; i < 1500; ++i) machines += "x=a-machine-with-a-long-name\t1\n";
  const RunPlan tooLong = {.cmx = Replaced(kDmpCmx, "ValueNoMachine=2\r\n", machines)};
  tests.Add("DistributedRun", "CannotStartWithACommandLineBeyondTheSystemsLimit", tooLong,
            [](const RunResult& run) {
              EXPECT_TRUE(run.output.starts_with("Launch parallel computing\r\nCreateProcess ["));
              EXPECT_NE(run.output.find("] failed. system error("), std::string::npos);
              EXPECT_EQ(run.status, -1);
            });
}

}  // namespace qvx::test
