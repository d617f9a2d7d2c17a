// Runs at the edge of what a machine, a file or a user does to the launcher.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/program/planned_run.h"
#include "tests/support/texts.h"

namespace qvx::test {
namespace {

namespace fs = std::filesystem;

const std::string kSolver = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kCommandLine = kSolver + " " + FlowArguments(kSerialSettings);
const std::string kLogName = "console_redirect_serial_Flow_<time>.txt";
using Logs = std::map<std::string, std::string>;

void ExpectSerial(const PlannedRun& run, const std::string& child) {
  EXPECT_EQ(run->complaint, "");
  // Not EXPECT_EQ: it would print hundreds of megabytes.
  EXPECT_TRUE(run->output == SerialConsole(child, kSolver, 3) + kCountdown);
  EXPECT_EQ(run->error, "");
  EXPECT_EQ(run->status, 3);
  EXPECT_TRUE(run->logs == (Logs{{kLogName, LogOf(kCommandLine, child, kSolver, 3)}}));
}

constexpr std::size_t kFlood = std::size_t{256} << 20;
std::size_t floodPeak = 0;

const PlannedRun kFlooded({
    .script = "fill " + std::to_string(kFlood) + " 65536;flush;exit 3",
    .meanwhile = [](LauncherProcess& launcher, const Site&) -> std::string {
      for (; launcher.Runs(); Sleep(100))
        floodPeak = std::max(floodPeak, launcher.PeakWorkingSet());
      return "";
    },
});

RUN_TEST(Flood, Of256MiBArrivesWholeAndIsNotKept, &kFlooded) {
  ExpectSerial(kFlooded, Filled(kFlood));
  EXPECT_GT(floodPeak, 0U);
  EXPECT_LT(floodPeak, std::size_t{64} << 20);
}

const PlannedRun kDripping({.script = "fill 20000 1;flush;exit 3"});

RUN_TEST(Dripping, OneByteAtATimeArrivesWhole, &kDripping) {
  ExpectSerial(kDripping, Filled(20'000));
}

/// Does something to the run folder while the solver waits for it.
RunPlan Meddle(std::string (*meddle)(const Site& site)) {
  return {.script = "print up;flush;await <site>\\go;print on;flush;exit 3",
          .meanwhile = [meddle](LauncherProcess& launcher, const Site& site) -> std::string {
            if (!launcher.WaitForOutput("up\r\n")) return "the solver does not run";
            const std::string complaint = meddle(site);
            site.Write("go", "");
            return complaint;
          }};
}

const PlannedRun kLogDeleted(Meddle([](const Site& site) -> std::string {
  for (const auto& entry : fs::directory_iterator(site.RunFolder())) {
    if (entry.path().extension() != ".txt") continue;
    return DeleteFileA(entry.path().string().c_str()) == 0 &&
                   GetLastError() == ERROR_SHARING_VIOLATION
               ? ""
               : "the log could be deleted";
  }
  return "there is no log";
}));

RUN_TEST(RunningLog, CannotBeDeleted, &kLogDeleted) { ExpectSerial(kLogDeleted, "up\r\non\r\n"); }

const PlannedRun kRunFolderCleared(Meddle([](const Site& site) -> std::string {
  std::error_code error;
  fs::remove_all(site.RunFolder(), error);
  return error ? "" : "the run folder could be removed";
}));

RUN_TEST(RunFolder, KeepsItsLogWhenSomebodyRemovesIt, &kRunFolderCleared) {
  ExpectSerial(kRunFolderCleared, "up\r\non\r\n");
}

/// The folder goes while the first pass runs, and comes back for a look at its log.
const PlannedRun kRunFolderMoved({
    .solver = "Qvx3DCool.exe",
    .cmx = std::string(kSerialCmx) +
           "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel=1\r\n</SOLID_COOL>\r\n",
    .script = "print up;flush;await <site>\\go;print on;flush;exit 3",
    .meanwhile = [](LauncherProcess& launcher, const Site& site) -> std::string {
      if (!launcher.WaitForOutput("up\r\n")) return "the solver does not run";
      const std::string gone = site.RunFolder() + "gone";
      std::error_code error;
      fs::rename(site.RunFolder(), gone, error);
      site.Write("go", "");
      if (error) return "the run folder cannot be moved";
      launcher.Wait();
      fs::rename(gone, site.RunFolder(), error);
      return error ? "the run folder cannot be moved back" : "";
    },
});

RUN_TEST(RunFolder, ThatVanishesInTheFirstPassCostsTheSecondItsLogAlone, &kRunFolderMoved) {
  EXPECT_EQ(kRunFolderMoved->complaint, "");
  const std::string output = WithoutTimestamps(kRunFolderMoved->output);
  // The line about the log is not flushed, and so it may come before or behind the solver's.
  const std::string missing =
      "CreateFile(<site>\\Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Cool_<time>.txt)"
      "::INVALID_HANDLE_VALUE LastError=3\r\n";
  EXPECT_NE(output.find(missing), std::string::npos) << output;
  EXPECT_EQ(Replaced(output, missing, ""),
            SerialConsole("up\r\non\r\n", kSolver, 3) +
                SerialConsole("up\r\non\r\n", "<site>\\Home\\Bin\\Qvx3DCool.exe", 3) + kCountdown);
  EXPECT_EQ(kRunFolderMoved->status, 3);
  const std::string first =
      kSolver + " " + Replaced(FlowArguments(kSerialSettings), "-option 0", "-option 2");
  EXPECT_EQ(kRunFolderMoved->logs, (Logs{{kLogName, LogOf(first, "up\r\non\r\n", kSolver, 3)}}));
}

constexpr const char* kScriptedImpiexec = "C:\\NODE1\\mpi3\\impiexec.exe";

std::string Machines(int count, const std::string& name) {
  std::string cmx =
      "<TASKMANAGER>\nIDTaskMode=1\n</TASKMANAGER>\n<REMOTE_MACHINES>\nValueLocalHost=NODE1\n"
      "ValueShareFolderName=<name>\\Work\nValueParallelWorkingFolder=<site>\\Work\n"
      "ValueNoMachine=" +
      std::to_string(count) + "\nValueMachineSetting\n";
  for (int i = 0; i < count; ++i) cmx += "x=" + name + "\t1\n";
  return cmx + "</REMOTE_MACHINES>\n";
}

const PlannedRun kManyMachines({
    .machine = Machine::ScriptedMpi,
    .cmx = Machines(500, "node"),
    .script = "print up;flush;exit 3",
});

RUN_TEST(Machines, MayBeFiveHundred, &kManyMachines) {
  std::string hosts;
  std::string nodes;
  for (int i = 0; i < 500; ++i) {
    hosts += "node 1 ";
    nodes += "node:1\r\n";
  }
  EXPECT_EQ(
      kManyMachines->output,
      ConsoleOf("Launch parallel computing\r\n", "up\r\n", kScriptedImpiexec, 3) + kCountdown);
  EXPECT_EQ(kManyMachines->status, 3);
  ASSERT_EQ(kManyMachines->logs.size(), 1U);
  const std::string& log = kManyMachines->logs.begin()->second;
  EXPECT_TRUE(log.starts_with("Used compute nodes:\r\n" + nodes + "\r\nCommandline=[" +
                              kScriptedImpiexec + " -env 0 0 -hosts 500 " + hosts + "  \"<share>"))
      << log;
}

/// A distributed run whose command line has so many characters; the hosts' names make up the
/// length.
struct LongRun {
  LongRun(int length, const std::string& script, decltype(RunPlan::meanwhile) meanwhile = {})
      : length(length),
        run({.machine = Machine::ScriptedMpi,
             .cmx = "",
             .script = script,
             .prepare = [length](const Site& site) { WriteCmx(site, length); },
             .meanwhile = std::move(meanwhile)}) {}

  static constexpr int kMachines = 1000;

  /// The part of the command line that no host's name is in.
  static std::string Frame(const Site& site) {
    std::string arguments =
        "-home \"<share>\\Home\" -project \"<share>\\Work\\sample\" -name \"Sample\" -run \"01\" "
        "-molding 1 -option 0 -parallel 2 -processes 1000 -weights 0";
    for (int i = 1; i < kMachines; ++i) arguments += ",0";
    return site.Specific(std::string(kScriptedImpiexec) + " -env 0 0 -hosts 1000 " +
                         "  \"<share>\\Home\\Bin\\Qvx3DFlow.exe\" " + arguments);
  }

  static void WriteCmx(const Site& site, int length) {
    // Each host takes its name, a blank, a task count of one digit and a blank.
    const auto names = static_cast<std::size_t>(length) - Frame(site).size() - kMachines * 3;
    std::string cmx = Machines(0, "");
    cmx = cmx.substr(0, cmx.find("ValueNoMachine")) + "ValueNoMachine=1000\nValueMachineSetting\n";
    for (std::size_t i = 0; i < kMachines; ++i) {
      const std::size_t name = names / kMachines + (i < names % kMachines ? 1 : 0);
      cmx += "x=" + std::string(name, 'n') + "\t1\n";
    }
    site.WriteCmx(cmx + "</REMOTE_MACHINES>\n");
  }

  int length;
  PlannedRun run;
};

const std::string kRunForAMinute = "await <site>\\never";

std::size_t loggedLength = 0;

/// The results of a run have shorter words for the site, so the log is measured beside it.
std::string MeasureLog(LauncherProcess& launcher, const Site& site) {
  launcher.Wait();
  const Logs logs = site.Logs();
  if (logs.empty()) return "there is no log";
  const std::string log = site.Specific(logs.begin()->second);
  const std::string before = "Commandline=[";
  loggedLength = log.find("]\r\n") - log.find(before) - before.size();
  return "";
}

// The log takes 32751 characters beside its own words; the system starts 32766.
const LongRun kLogged(32751, "print up;flush;exit 3", MeasureLog);
const LongRun kTooLongForTheLog(32752, kRunForAMinute);
const LongRun kLongestForTheSystem(32766, kRunForAMinute);
const LongRun kTooLongForTheSystem(32767, kRunForAMinute);

RUN_TEST(CommandLine, Of32751CharactersIsLogged, &kLogged.run) {
  EXPECT_EQ(kLogged.run->error, "");
  EXPECT_EQ(
      kLogged.run->output,
      ConsoleOf("Launch parallel computing\r\n", "up\r\n", kScriptedImpiexec, 3) + kCountdown);
  EXPECT_EQ(kLogged.run->status, 3);
  EXPECT_EQ(kLogged.run->complaint, "");
  EXPECT_EQ(loggedLength, 32751U);
  ASSERT_EQ(kLogged.run->logs.size(), 1U);
  const std::string& log = kLogged.run->logs.begin()->second;
  EXPECT_TRUE(log.ends_with(",0]\r\nup\r\n>>> Return value of " + std::string(kScriptedImpiexec) +
                            " = 3\r\n"))
      << log;
}

RUN_TEST(CommandLine, ThatTheLogCannotTakeEndsTheChildAndTheLauncher, &kTooLongForTheLog.run,
         &kLongestForTheSystem.run) {
  for (const LongRun* longRun : {&kTooLongForTheLog, &kLongestForTheSystem}) {
    EXPECT_EQ(longRun->run->error, "ERROR: console log text is too long: width 32768, length " +
                                       std::to_string(longRun->length + 16) + "\r\n");
    EXPECT_EQ(longRun->run->output, "Launch parallel computing\r\n");
    EXPECT_EQ(longRun->run->status, -2);
    // A child left behind would hold on to the launcher's output for its minute.
    EXPECT_LT(longRun->run->seconds, 30);
  }
}

RUN_TEST(CommandLine, BeyondTheSystemsLimitIsReported, &kTooLongForTheSystem.run) {
  const RunResult& result = *kTooLongForTheSystem.run.operator->();
  EXPECT_EQ(result.error, "");
  EXPECT_TRUE(result.output.starts_with("Launch parallel computing\r\nCreateProcess ["));
  // Windows has a code of its own for it, Wine calls the parameter invalid.
  const std::string ends[] = {"] failed. system error(206)\r\n", "] failed. system error(87)\r\n"};
  EXPECT_TRUE(result.output.ends_with(ends[0] + kCountdown) ||
              result.output.ends_with(ends[1] + kCountdown))
      << result.output;
  EXPECT_EQ(result.status, -1);
  EXPECT_TRUE(result.logs.empty());
}

}  // namespace
}  // namespace qvx::test
