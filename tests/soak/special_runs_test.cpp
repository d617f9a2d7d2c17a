// Runs at the edge of what a machine, a file or a user does to the launcher.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/program/planned_run.h"

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

/// What the solver's command `fill` writes.
std::string Filled(std::size_t total) {
  std::string bytes;
  while (bytes.size() < total) {
    bytes += "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz\r\n";
  }
  bytes.resize(total);
  return bytes;
}

constexpr std::size_t kFlood = std::size_t{256} << 20;
std::size_t floodPeak = 0;

const PlannedRun kFlooded({
    .script = "fill " + std::to_string(kFlood) + " 65536;flush;exit 3",
    .meanwhile = [](LauncherProcess& launcher, const Site&) -> std::string {
      if (!launcher.WaitForOutput("\r3   ")) return "no countdown";
      floodPeak = launcher.PeakWorkingSet();
      return "";
    },
});

TEST(Flood, Of256MiBArrivesWholeAndIsNotKept) {
  ExpectSerial(kFlooded, Filled(kFlood));
  EXPECT_GT(floodPeak, 0U);
  EXPECT_LT(floodPeak, std::size_t{64} << 20);
}

const PlannedRun kDripping({.script = "fill 20000 1;flush;exit 3"});

TEST(Dripping, OneByteAtATimeArrivesWhole) { ExpectSerial(kDripping, Filled(20'000)); }

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

TEST(RunningLog, CannotBeDeleted) { ExpectSerial(kLogDeleted, "up\r\non\r\n"); }

const PlannedRun kRunFolderCleared(Meddle([](const Site& site) -> std::string {
  std::error_code error;
  fs::remove_all(site.RunFolder(), error);
  return error ? "" : "the run folder could be removed";
}));

TEST(RunFolder, KeepsItsLogWhenSomebodyRemovesIt) {
  ExpectSerial(kRunFolderCleared, "up\r\non\r\n");
}

/// The folder goes while the first pass runs; its log lives on under the folder's new name.
const PlannedRun kRunFolderMoved({
    .solver = "Qvx3DCool.exe",
    .cmx = std::string(kSerialCmx) +
           "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel=1\r\n</SOLID_COOL>\r\n",
    .script = "print up;flush;await <site>\\go;print on;flush;exit 3",
    .meanwhile = [](LauncherProcess& launcher, const Site& site) -> std::string {
      if (!launcher.WaitForOutput("up\r\n")) return "the solver does not run";
      std::error_code error;
      fs::rename(site.RunFolder(), site.RunFolder() + "gone", error);
      site.Write("go", "");
      return error ? "the run folder cannot be moved" : "";
    },
});

TEST(RunFolder, ThatVanishesBetweenThePassesCostsTheSecondItsLogAlone) {
  EXPECT_EQ(kRunFolderMoved->complaint, "");
  const std::string cooler = "<site>\\Home\\Bin\\Qvx3DCool.exe";
  EXPECT_EQ(kRunFolderMoved->output, "");
  EXPECT_EQ(kRunFolderMoved->status, 3);
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

TEST(Machines, MayBeFiveHundred) {
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

}  // namespace
}  // namespace qvx::test
