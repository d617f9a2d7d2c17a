// The shared-memory launch: its command line, and the sign of a process manager that does not run.
#include "execution/smp_launch.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "support/bounded_text.h"
#include "tests/support/texts.h"
#include "tests/windows/launch_fixture.h"
#include "tests/windows/open_handles.h"

namespace qvx {
namespace {

/// The scripted solver's command for one chunk of output.
std::string Chunk(std::string_view bytes) {
  std::string command = "raw ";
  for (const char byte : bytes) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned char>(byte));
    command += digits;
  }
  return command + ";flush;";
}

constexpr const char* kAdvice =
    "\r\nIntel(R) MPI Library(4.0) Process Manager(smpd) is not started!\r\n"
    "Run the following command-line as Administrator to start smpd:\r\n"
    "\"C:\\Program Files\\Intel MPI 4.0\\x64\\smpd-intel-4.0.3.009-x64.exe\" -install\r\n";

class SmpLaunch : public test::LaunchTest {
 protected:
  SmpLaunch() {
    logName = "console_redirect_smp_Flow_<time>.txt";
    CopyText(context.taskManagerSettings.ValueNoTask, "ValueNoTask", "4");
  }

  std::string CommandLine(const std::string& taskCount) const {
    return impiexec + " -env 0 0 -localonly -n " + taskCount + "  \"" + solver + "\" -a b";
  }

  /// Runs `commands` in the MPI process launcher, which prints `output`.
  void ExpectRun(const std::string& commands, const std::string& output, int result,
                 const std::string& taskCount = "4") {
    script.Set(commands);
    ExpectOutcome(Run(LaunchSmp), result, impiexec, test::kParallelBanner + output,
                  "Commandline=[" + CommandLine(taskCount) + "]\r\n" + output);
  }

  /// The process launcher prints `output`, which holds the sign, and would go on for a minute.
  void ExpectAdvice(const std::string& output) {
    script.Set(Chunk(output) + "print more;sleep 60000");
    ExpectOutcome(
        Run(LaunchSmp), -7000, impiexec, test::kParallelBanner + output + kAdvice,
        "Commandline=[" + CommandLine("4") + "]\r\n" + output +
            "\nIntel(R) MPI Library(4.0) Process Manager(smpd) is not started!\n"
            "Run the following command-line as Administrator to start smpd:\n"
            "\"C:\\Program Files\\Intel MPI 4.0\\x64\\smpd-intel-4.0.3.009-x64.exe\" -install\n");
  }
};

TEST_F(SmpLaunch, EchoesAndLogsWhatTheProcessLauncherPrints) {
  ExpectRun("command-line;variable I_MPI_SMPD_VERSION_CHECK;stdin;flush;exit 3",
            CommandLine("4") + "\r\nI_MPI_SMPD_VERSION_CHECK=0\r\nstdin: 0 bytes\r\n", 3);
}

TEST_F(SmpLaunch, PassesTheTaskCountAsItStands) {
  for (const char* const taskCount : {"NULL", "", "0", " 2 x"}) {
    CopyText(context.taskManagerSettings.ValueNoTask, "ValueNoTask", taskCount);
    ExpectRun("exit 0", "", 0, taskCount);
  }
}

TEST_F(SmpLaunch, StartsTheSolversUnderTheProcessLauncher) {
  Install("impiexec.exe", impiexec);
  CopyText(context.taskManagerSettings.ValueNoTask, "ValueNoTask", "2");
  ExpectRun("exit 7", "", 7, "2");
}

TEST_F(SmpLaunch, TracesTheCommandLine) {
  context.debugTraceFlag = 1;
  const std::string commandLine = "Commandline=[" + CommandLine("4") + "]\r\n";
  ExpectOutcome(Run(LaunchSmp), 0, impiexec,
                test::kParallelBanner + ("\r\n\r\n" + commandLine) + "\r\n", commandLine);
}

TEST_F(SmpLaunch, ReplacesTheLogsOfItsModeAndClassOnly) {
  MakeFiles(runFolder, {"console_redirect_serial_Flow_a.txt", "console_redirect_smp_Flow_a.txt",
                        "console_redirect_smp_Pack_a.txt"});
  mpiInstallPath.Remove();
  Run(LaunchSmp);
  EXPECT_EQ(NamesIn(runFolder),
            (Names{"console_redirect_serial_Flow_a.txt", "console_redirect_smp_Pack_a.txt"}));
}

TEST_F(SmpLaunch, FailsWithoutAnMpiInstallation) {
  mpiInstallPath.Remove();
  ExpectFailure(Run(LaunchSmp), test::kParallelBanner,
                "\\impiexec.exe -env 0 0 -localonly -n 4  \"" + solver + "\" -a b");
  EXPECT_EQ(NamesIn(runFolder), Names{});
}

TEST_F(SmpLaunch, ClosesItsReadEnd) {
  const test::PipeEnds before = test::OpenPipeEnds();
  Run(LaunchSmp);
  EXPECT_EQ(test::OpenPipeEnds() - before, (test::PipeEnds{.inheritable = 0, .own = 0}));
}

TEST_F(SmpLaunch, EndsAndAdvisesWhenTheProcessLauncherMissesTheProcessManager) {
  Install("impiexec.exe", impiexec);
  folder.Write("MPI\\impiexec_no_smpd.txt", "");
  ExpectAdvice("Unknown option: -d\r\n");
}

TEST_F(SmpLaunch, FindsTheSignAnywhereInAChunk) {
  ExpectAdvice("Unknown option: -d");
  ExpectAdvice("at the end: Unknown option: -d");
  ExpectAdvice("Unknown option: -day");
}

TEST_F(SmpLaunch, AdvisesWithoutALogToo) {
  CopyText(context.currentRunPath, "current run path", folder.Path("missing"));
  script.Set(Chunk("Unknown option: -d") + "sleep 60000");
  const test::Outcome outcome = Run(LaunchSmp);
  EXPECT_EQ(outcome.result, -7000);
  EXPECT_EQ(test::WithoutTimestamps(outcome.console.All()),
            std::string(test::kParallelBanner) + "Unknown option: -d" + "CreateFile(" +
                folder.Path("missing") +
                "\\console_redirect_smp_Flow_<time>.txt)::INVALID_HANDLE_VALUE LastError=3\r\n" +
                kAdvice + "\r\n" + test::ReturnValue(impiexec, -7000));
}

TEST_F(SmpLaunch, KnowsTheSignOnlyWholeAndInItsLetterCase) {
  ExpectRun(Chunk("Unknown optio") + Chunk("n: -d"), "Unknown option: -d", 0);
  ExpectRun(Chunk("unknown option: -d"), "unknown option: -d", 0);
  ExpectRun(Chunk("nknown option: -d"), "nknown option: -d", 0);
  ExpectRun(Chunk("Unknown option: d"), "Unknown option: d", 0);
}

TEST_F(SmpLaunch, DoesNotSeeASignBehindAZeroByte) {
  const std::string output("text\0Unknown option: -d", 23);
  script.Set(Chunk(output));
  ExpectOutcome(Run(LaunchSmp), 0, impiexec, test::kParallelBanner + output,
                "Commandline=[" + CommandLine("4") + "]\r\ntext");
}

}  // namespace
}  // namespace qvx
