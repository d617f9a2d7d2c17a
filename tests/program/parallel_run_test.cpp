// Runs under the MPI process launcher, on this machine and over several.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"
#include "tests/program/under_launcher.h"

namespace qvx::test {
namespace {

using Logs = std::map<std::string, std::string>;

const std::string kBanner = "Launch parallel computing\r\n";
const std::string kImpiexec = "C:\\NODE1\\mpi\\impiexec.exe";
const std::string kSmpSolver = "\"<site>\\Home\\Bin\\Qvx3DFlow.exe\" " +
                               FlowArguments("-parallel 1 -processes 2 -weights 0.5,0.5");
const std::string kSmpCommandLine = kImpiexec + " -env 0 0 -localonly -n 2  " + kSmpSolver;
const std::string kSmpLog = "console_redirect_smp_Flow_<time>.txt";

const std::string kSmpChild =
    ArgumentLines(kSmpSolver) + "PMI_SIZE=2\r\n0=0\r\nI_MPI_SMPD_VERSION_CHECK=0\r\n";

const PlannedRun kSmp({
    .cmx = kSmpCmx,
    .script = "rank 1 args;rank 1 variable PMI_SIZE;rank 1 variable 0;"
              "rank 1 variable I_MPI_SMPD_VERSION_CHECK" +
              kAwaitShown,
    .meanwhile = LetGoOnceShown(kSmpChild),
});

RUN_TEST(SharedMemoryRun, StartsTheProcessesUnderTheMpiProcessLauncher, &kSmp) {
  EXPECT_EQ(kSmp->complaint, "");
  EXPECT_EQ(kSmp->output, ConsoleOf(kBanner, kSmpChild, kImpiexec, 0) + kCountdown);
  EXPECT_EQ(kSmp->status, 0);
  EXPECT_EQ(kSmp->logs, (Logs{{kSmpLog, LogOf(kSmpCommandLine, kSmpChild, kImpiexec, 0)}}));
}

const PlannedRun kSmpFails({.cmx = kSmpCmx, .script = "exit 70000"});

RUN_TEST(SharedMemoryRun, ReturnsTheProcessLaunchersExitCode, &kSmpFails) {
  EXPECT_EQ(kSmpFails->output, ConsoleOf(kBanner, "", kImpiexec, 70000) + kCountdown);
  EXPECT_EQ(kSmpFails->status, 70000);
}

const PlannedRun kNoManager({.machine = Machine::NoProcessManager, .cmx = kSmpCmx});

RUN_TEST(SharedMemoryRun, ExplainsAMissingProcessManager, &kNoManager) {
  const std::string impiexec = "C:\\NODE1\\mpi2\\impiexec.exe";  // one backslash
  const std::string advice =
      "\nIntel(R) MPI Library(4.0) Process Manager(smpd) is not started!\n"
      "Run the following command-line as Administrator to start smpd:\n"
      "\"C:\\Program Files\\Intel MPI 4.0\\x64\\smpd-intel-4.0.3.009-x64.exe\" -install\n";
  const std::string sign = "Unknown option: -d\r\n";
  EXPECT_EQ(
      kNoManager->output,
      ConsoleOf(kBanner, sign + Replaced(advice, "\n", "\r\n"), impiexec, -7000) + kCountdown);
  EXPECT_EQ(kNoManager->status, -7000);
  const std::string commandLine = impiexec + " -env 0 0 -localonly -n 2  " + kSmpSolver;
  EXPECT_EQ(kNoManager->logs,
            (Logs{{kSmpLog, LogOf(commandLine, sign + advice, impiexec, -7000)}}));
}

/// Home and project as the share's machines reach them; the project in lower case.
std::string SharedArguments(const std::string& parallel) {
  return "-home \"<share>\\Home\" -project \"<share>\\Work\\sample\" -name \"Sample\" -run \"01\" "
         "-molding 1 -option 0 " +
         parallel;
}

std::string DmpCommandLine(const std::string& hosts, const std::string& arguments) {
  return kImpiexec + " -env 0 0 -hosts " + hosts + "   \"<share>\\Home\\Bin\\Qvx3DFlow.exe\" " +
         arguments;
}

const std::string kDmpArguments = SharedArguments("-parallel 2 -processes 3 -weights 0.3,0.3,0.4");
const std::string kDmpLog = "console_redirect_dmp_Flow_<time>.txt";

/// The processes do not get the launcher's environment.
const std::string kDmpChild = ArgumentLines("solver " + kDmpArguments) +
                              "PMI_HOST=NODE2\r\nPMI_SIZE=3\r\n0=0\r\n"
                              "I_MPI_SMPD_VERSION_CHECK is not set\r\n";

const PlannedRun kDmp({
    .cmx = kDmpCmx,
    .script = "rank 2 args;rank 2 variable PMI_HOST;rank 2 variable PMI_SIZE;rank 2 variable 0;"
              "rank 2 variable I_MPI_SMPD_VERSION_CHECK" +
              kAwaitShown,
    .meanwhile = LetGoOnceShown(kDmpChild),
});

RUN_TEST(DistributedRun, StartsTheSharedSolverOnEveryMachineAndLogsOnTheShare, &kDmp) {
  EXPECT_EQ(kDmp->complaint, "");
  EXPECT_EQ(kDmp->output, ConsoleOf(kBanner, kDmpChild, kImpiexec, 0) + kCountdown);
  EXPECT_EQ(kDmp->status, 0);
  EXPECT_EQ(kDmp->logs,
            (Logs{{kDmpLog, "Used compute nodes:\r\nNODE1:2\r\nNODE2:1\r\n\r\n" +
                                LogOf(DmpCommandLine("2 NODE1 2 NODE2 1", kDmpArguments), kDmpChild,
                                      kImpiexec, 0)}}));
}

std::string WithMachines(const std::string& lines) {
  const std::string cmx = kDmpCmx;
  return cmx.substr(0, cmx.find("ValueNoMachine")) + lines + "ValueLocalHost=NODE1\n" +
         "ValueShareFolderName=<name>\\Work\nValueParallelWorkingFolder=<site>\\Work\n";
}

const PlannedRun kNoMachines({.cmx = WithMachines("ValueNoMachine=0\n")});
const PlannedRun kTextForMachines({.cmx = WithMachines("ValueNoMachine=two\n")});

/// The process launcher's own answer to a hosts list without hosts ends such a run. How much of it
/// the console still shows is a matter of luck.
void ExpectRunWithoutHosts(const PlannedRun& run, const std::string& count,
                           const std::string& answer) {
  const std::string whole = answer + "\r\nUnable to parse the mpiexec command arguments.\r\n";
  const std::size_t frame = (ConsoleOf(kBanner, "", kImpiexec, -1) + kCountdown).size();
  ASSERT_GE(run->output.size(), frame) << run->output;
  const std::string child = run->output.substr(kBanner.size(), run->output.size() - frame);
  EXPECT_TRUE(whole.starts_with(child)) << child;
  const std::string commandLine = kImpiexec + " -env 0 0 -hosts " + count +
                                  "   \"<share>\\Home\\Bin\\Qvx3DFlow.exe\" " +
                                  SharedArguments("-parallel 2 -processes 0");
  EXPECT_EQ(run->output, ConsoleOf(kBanner, child, kImpiexec, -1) + kCountdown);
  EXPECT_EQ(run->status, -1);
  EXPECT_EQ(
      run->logs,
      (Logs{{kDmpLog, "Used compute nodes:\r\n\r\n" + LogOf(commandLine, child, kImpiexec, -1)}}));
}

RUN_TEST(DistributedRun, ListsNoHostsForACountThatIsNoPositiveNumber, &kNoMachines,
         &kTextForMachines) {
  ExpectRunWithoutHosts(kNoMachines, "0", "You must specify a number greater than 0 after -hosts.");
  ExpectRunWithoutHosts(kTextForMachines, "two",
                        "You must specify the number of hosts after the -hosts option.");
}

const PlannedRun kMoreThanLines({.machine = Machine::Traced,
                                 .cmx = WithMachines("ValueNoMachine=3\nValueMachineSetting\n"
                                                     "1=NODE1\t1\n</REMOTE_MACHINES>\n")});

RUN_TEST(DistributedRun, ListsEmptyMachinesWhenLinesAreMissing, &kMoreThanLines) {
  EXPECT_NE(kMoreThanLines->output.find("-hosts 3 NODE1 1 NULL NULL "), std::string::npos)
      << kMoreThanLines->output;
}

const PlannedRun kOldDmpLogs(
    {.cmx = kDmpCmx, .script = "flush", .prepare = [](const Site& site) {
       site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_dmp_Flow_old.txt", "old");
       site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_dmp_Cool_old.txt", "kept");
     }});

RUN_TEST(DistributedRun, DeletesOldLogsInTheLocalRunFolder, &kOldDmpLogs) {
  EXPECT_EQ(kOldDmpLogs->logs.count("console_redirect_dmp_Flow_old.txt"), 0U);
  EXPECT_EQ(kOldDmpLogs->logs.count("console_redirect_dmp_Cool_old.txt"), 1U);
  EXPECT_EQ(kOldDmpLogs->logs.count(kDmpLog), 1U);
}

const PlannedRun kManyHosts({.cmx = [] {
  std::string lines = "ValueNoMachine=1500\nValueMachineSetting\n";
  for (int i = 0; i < 1500; ++i) lines += "x=a-machine-with-a-long-name\t1\n";
  return WithMachines(lines);
}()});

RUN_TEST(DistributedRun, CannotStartWithACommandLineBeyondTheSystemsLimit, &kManyHosts) {
  EXPECT_EQ(kManyHosts->output.rfind("Launch parallel computing\r\nCreateProcess [", 0), 0U);
  EXPECT_NE(kManyHosts->output.find("] failed. system error("), std::string::npos);
  EXPECT_EQ(kManyHosts->status, -1);
}

}  // namespace
}  // namespace qvx::test
