// The distributed launch: its hosts, its log on the share, and its limits.
#include "execution/dmp_launch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "execution/console_log.h"
#include "launcher/process_wide_values.h"
#include "support/bounded_text.h"
#include "support/console.h"
#include "tests/support/expect_fault.h"
#include "tests/support/import_patch.h"
#include "tests/windows/launch_fixture.h"
#include "tests/windows/open_handles.h"

extern "C" void* __imp_GetLocalTime;

namespace qvx {
namespace {

class DmpLaunch : public test::LaunchTest {
 protected:
  DmpLaunch() {
    logFolder = share;
    logName = "console_redirect_dmp_Flow_<time>.txt";
    MakeFiles(share, {});
    CopyText(context.flowArgument.projectDirectory, "project directory", folder.Path("Share"));
    CopyText(context.flowArgument.runNumber, "run number", "07");
    CopyText(context.remoteHomePath, "remote home path", "\\\\srv\\Quorvex");
    SetMachines("2", {{"nodeA", "4"}, {"nodeB", "2"}});
  }

  struct Machine {
    std::string hostName;
    std::string taskCount;
  };

  void SetMachines(const std::string& count, const std::vector<Machine>& machines) {
    RemoteMachineSettings& settings = context.remoteMachineSettings;
    CopyText(settings.ValueNoMachine, "ValueNoMachine", count);
    settings.machines = std::vector<MachineEntry>(machines.size());
    for (std::size_t i = 0; i < machines.size(); ++i) {
      CopyText(settings.machines[i].hostName, "host name", machines[i].hostName);
      CopyText(settings.machines[i].taskCount, "task count", machines[i].taskCount);
    }
  }

  std::string CommandLine(const std::string& hosts) const {
    return impiexec + " -env 0 0 -hosts " + hosts + "  \"\\\\srv\\Quorvex\\Bin\\Qvx3DFlow.exe\" " +
           context.solverArgumentString;
  }

  void ClearShare() {
    std::filesystem::remove_all(share);
    MakeFiles(share, {});
  }

  /// `heading`: the log's lines about the compute nodes.
  void ExpectRun(const std::string& hosts, const std::string& heading,
                 const std::string& output = "", int result = 0) {
    ExpectOutcome(Run(LaunchDmp), result, impiexec, test::kParallelBanner + output,
                  heading + "\r\nCommandline=[" + CommandLine(hosts) + "]\r\n" + output);
  }

  /// Makes the command line so long.
  void FillCommandLine(const std::string& hosts, std::size_t length) {
    context.solverArgumentString[0] = '\0';
    const std::string arguments(length - CommandLine(hosts).size(), 'a');
    CopyText(context.solverArgumentString, "solver argument string", arguments);
  }

  const std::string share = folder.Path("Share\\Analysis\\Run07");
  const std::string hosts = "2 nodeA 4 nodeB 2 ";
  const std::string heading = "Used compute nodes:\r\nnodeA:4\r\nnodeB:2\r\n";
};

TEST_F(DmpLaunch, EchoesAndLogsWhatTheProcessLauncherPrintsBehindTheComputeNodes) {
  script.Set("command-line;variable I_MPI_SMPD_VERSION_CHECK;stdin;flush;exit -3");
  ExpectRun(hosts, heading,
            CommandLine(hosts) + "\r\nI_MPI_SMPD_VERSION_CHECK=0\r\nstdin: 0 bytes\r\n", -3);
}

TEST_F(DmpLaunch, ListsNoMachineWhenThereIsNone) {
  for (const char* const count : {"0", "-1", "two", ""}) {
    SetMachines(count, {});
    ClearShare();
    ExpectRun(std::string(count) + " ", "Used compute nodes:\r\n");
  }
}

TEST_F(DmpLaunch, MovesTheCurrentRunPathToTheRecordsProject) {
  context.debugTraceFlag = 1;
  const std::string commandLine = "Commandline=[" + CommandLine(hosts) + "]\r\n";
  ExpectOutcome(Run(LaunchDmp), 0, impiexec,
                "Current run path (remote) = " + share + "\r\n" + test::kParallelBanner +
                    "\r\n\r\n" + commandLine + "\r\n",
                heading + "\r\n" + commandLine);
  EXPECT_EQ(context.currentRunPath, share);
  EXPECT_EQ(context.localRunPath, runFolder);
}

void WINAPI TellTheTime(SYSTEMTIME* now) {
  Print("the time\n");
  *now = {};
}

TEST_F(DmpLaunch, TakesTheTimeOfItsLogFirst) {
  context.debugTraceFlag = 1;
  const test::ImportPatch patch(&__imp_GetLocalTime, reinterpret_cast<void*>(TellTheTime));
  EXPECT_TRUE(Run(LaunchDmp).console.All().starts_with("the time\r\nCurrent run path (remote)"));
}

TEST_F(DmpLaunch, KeepsTheCurrentRunPathForAnUnknownClass) {
  context.solverClass = SolverClass{13};
  logFolder = runFolder;
  logName = "console_redirect_dmp__<time>.txt";
  ExpectRun(hosts, heading);
}

TEST_F(DmpLaunch, DeletesFromTheLocalRunFolderTheLogsThatItFindsOnTheShare) {
  const Names old = {"console_redirect_dmp_Flow_a.txt", "console_redirect_dmp_Pack_a.txt",
                     "console_redirect_smp_Flow_a.txt"};
  MakeFiles(share, old);
  MakeFiles(runFolder, old);
  MakeFiles(runFolder, {"console_redirect_dmp_Flow_b.txt"});
  mpiInstallPath.Remove();
  Run(LaunchDmp);
  EXPECT_EQ(NamesIn(share), old);
  EXPECT_EQ(NamesIn(runFolder),
            (Names{"console_redirect_dmp_Flow_b.txt", "console_redirect_dmp_Pack_a.txt",
                   "console_redirect_smp_Flow_a.txt"}));
}

TEST_F(DmpLaunch, TruncatesALogOfTheSameSecond) {
  test::Outcome outcome;
  do {
    ClearShare();
    const std::string name = "console_redirect_dmp_Flow_" + LogTimestamp() + ".txt";
    folder.Write("Share\\Analysis\\Run07\\" + name, std::string(10'000, 'x'));
    outcome = Run(LaunchDmp);
  } while (NamesIn(share).size() > 1);  // a new second had begun
  ExpectOutcome(outcome, 0, impiexec, test::kParallelBanner,
                heading + "\r\nCommandline=[" + CommandLine(hosts) + "]\r\n");
}

TEST_F(DmpLaunch, DoesNotWatchForTheSignOfAMissingProcessManager) {
  script.Set("print Unknown option: -d;flush;exit 4");
  ExpectRun(hosts, heading, "Unknown option: -d\r\n", 4);
}

TEST_F(DmpLaunch, FailsWithoutAnMpiInstallation) {
  mpiInstallPath.Remove();
  ExpectFailure(Run(LaunchDmp), test::kParallelBanner,
                "\\impiexec.exe -env 0 0 -hosts " + hosts +
                    "  \"\\\\srv\\Quorvex\\Bin\\Qvx3DFlow.exe\" -a b");
  EXPECT_EQ(NamesIn(share), Names{});
}

TEST_F(DmpLaunch, LeavesItsReadEndToTheSystem) {
  const test::PipeEnds before = test::OpenPipeEnds();
  Run(LaunchDmp);
  EXPECT_EQ(test::OpenPipeEnds() - before, (test::PipeEnds{.inheritable = 0, .own = 1}));
}

TEST_F(DmpLaunch, RefusesARunPathOf260Characters) {
  const std::string longest(259 - std::string("\\Analysis\\Run07").size(), 'p');
  CopyText(context.flowArgument.projectDirectory, "project directory", longest);
  script.Set("exit 3");
  EXPECT_EQ(Run(LaunchDmp).result, 3);
  CopyText(context.flowArgument.projectDirectory, "project directory", longest + "p");
  EXPECT_FAULT(LaunchDmp(context), "ERROR: current run path is too long: width 260, length 260");
}

/// Hosts enough for a command line of almost 32751 characters.
class LongDmpLaunch : public DmpLaunch {
 protected:
  LongDmpLaunch() {
    constexpr int kCount = 850;
    const std::string name(31, 'n');
    SetMachines(std::to_string(kCount), std::vector<Machine>(kCount, {name, "1"}));
    longHosts = std::to_string(kCount) + " ";
    longHeading = "Used compute nodes:\r\n";
    for (int i = 0; i < kCount; ++i) {
      longHosts += name + " 1 ";
      longHeading += name + ":1\r\n";
    }
  }

  std::string longHosts;
  std::string longHeading;
};

TEST_F(LongDmpLaunch, LogsACommandLineOf32751Characters) {
  FillCommandLine(longHosts, 32751);
  ExpectRun(longHosts, longHeading);
}

void SayHowTheChildEnded() {
  const HANDLE child =
      OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, childProcessIdentifier);
  DWORD exitCode = 0;
  WaitForSingleObject(child, INFINITE);
  GetExitCodeProcess(child, &exitCode);
  std::fprintf(stderr, "child ended with %d\n", static_cast<int>(exitCode));
}

TEST_F(LongDmpLaunch, EndsTheChildBeforeItRefusesALongerCommandLine) {
  FillCommandLine(longHosts, 32752);
  script.Set("sleep 60000");
  EXPECT_FAULT(
      {
        std::atexit(SayHowTheChildEnded);
        LaunchDmp(context);
      },
      "ERROR: console log text is too long: width 32768, length 32768\nchild ended with -2");
}

}  // namespace
}  // namespace qvx
