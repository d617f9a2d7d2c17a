// Cooling and warpage runs: conformal cooling with its two passes, and the previous shot.
#include <gtest/gtest.h>

#include "tests/transcripts/run.h"
#include "tests/transcripts/scenarios.h"

namespace qvx::test {
namespace {

const std::string kMultiShot = CmxLines(
    {"<SOLID_MCM>", "Version=1", "FlagPrevShot=1", "ValueShotRunID=7", "FlagPrevShotProject=1",
     "ValueShotProjectPath=D:\\Shots\\First", "ValueShotProjectName=First", "</SOLID_MCM>"});

std::string SolidCool(const std::string& value) {
  return CmxLines({"<SOLID_COOL>", "Flag3DSolidCoolingChannel=" + value, "</SOLID_COOL>"});
}

Scenario CoolingRun(const std::string& modeAndMachines) {
  Scenario scenario = RunOf("Qvx3DCool.exe", modeAndMachines + kMultiShot + SolidCool("1"));
  scenario.children = {{.output = {"flow pass\r\n"}, .exitCode = 4},
                       {.output = {"cooling pass\r\n"}, .exitCode = 5}};
  return scenario;
}

Scenario SerialCoolingRun() { return CoolingRun(TaskManager("0", "2", "1")); }

TEST(Transcript, OfSerialConformalCooling) {
  Scenario scenario = SerialCoolingRun();
  scenario.oldLogs = {{kRunFolder + "\\console_redirect_serial_Flow_2024-01-01_00-00-00.txt"},
                      {kRunFolder + "\\console_redirect_serial_Cool_2024-01-01_00-00-00.txt"}};
  ExpectTranscript("cooling-serial", Traced(scenario));
}

/// The flow solver's name takes neither a folder nor a missing extension from the cooling solver's.
TEST(Transcript, OfSharedMemoryConformalCooling) {
  Scenario scenario = CoolingRun(TaskManager("0", "2", "2"));
  scenario.arguments[2] = "Sub\\Qvx3DCool";
  ExpectTranscript("cooling-shared-memory", scenario);
}

Scenario DistributedCoolingRun() {
  return CoolingRun(TaskManager("1", "2", "2") + RemoteMachines());
}

/// Both passes find their old logs on the share and delete those of the same names on this machine.
/// The cooling solver's name is as long as its field takes; nothing is a format.
TEST(Transcript, OfDistributedConformalCooling) {
  Scenario scenario = DistributedCoolingRun();
  scenario.arguments[2] = "My3DCOOL" + std::string(63 - 12, 'l') + ".exe";
  scenario.libraries.argumentString = " -set %s %n \"a b\" ";
  scenario.installPath = "C:\\%s %n";
  scenario.parallelFolderName = "QvxShare\\";
  scenario.libraries.accountResults[0] = -7;
  scenario.libraries.accountResults[1] = 6;
  for (const std::string solver : {"Flow", "Cool"}) {
    const std::string name = "\\console_redirect_dmp_" + solver + "_2024-01-01_00-00-00.txt";
    scenario.oldLogs.push_back({R"(\\NODE1\Projects\part\Analysis\Run03)" + name});
    scenario.oldLogs.push_back({kRunFolder + name});
  }
  ExpectTranscript("cooling-distributed", Traced(scenario));
}

TEST(Transcript, OfCoolingWithoutConformalChannels) {
  Scenario scenario =
      RunOf("Qvx3DCool.exe", TaskManager("0", "2", "1") + kMultiShot + SolidCool("2"));
  scenario.children = {{.output = {"cooling pass\r\n"}, .exitCode = 5}};
  ExpectTranscript("cooling-without-conformal-channels", Traced(scenario));
}

TEST(Transcript, OfAccountsRefusedInACoolingRun) {
  Scenario scenario = DistributedCoolingRun();
  for (int& result : scenario.libraries.accountResults) result = -6;
  ExpectTranscript("cooling-accounts-refused", scenario);
}

/// Once is enough for both passes.
TEST(Transcript, OfAccountsRefusedInTheFirstCoolingPass) {
  Scenario scenario = DistributedCoolingRun();
  scenario.libraries.accountResults[0] = -6;
  ExpectTranscript("cooling-accounts-refused-once", scenario);
}

/// The second pass runs all the same, and its child inherits what the first left open.
TEST(Transcript, OfACoolingRunWhoseFlowSolverCannotBeStarted) {
  Scenario scenario = SerialCoolingRun();
  scenario.children[0].startError = ERROR_FILE_NOT_FOUND;
  ExpectTranscript("cooling-flow-solver-not-started", scenario);
}

/// The second pass runs all the same. When its child does not, the first one's identifier still
/// stands.
TEST(Transcript, OfASharedMemoryCoolingRunWithoutSolvers) {
  Scenario scenario = CoolingRun(TaskManager("0", "2", "2"));
  scenario.children = {{.output = {"Unknown option: -d\r\n"}, .exitCode = 1},
                       {.startError = ERROR_FILE_NOT_FOUND}};
  scenario.events = {{{"Sleep", 1}, {CTRL_C_EVENT}}};
  ExpectTranscript("cooling-shared-memory-without-solvers", scenario);
}

/// As soon as the handler is there.
TEST(Transcript, OfACancelBeforeTheFirstCoolingPass) {
  Scenario scenario = SerialCoolingRun();
  scenario.events = {{{"construction", 1}, {CTRL_C_EVENT}}};
  ExpectTranscript("cooling-cancelled-before-the-first-pass", scenario);
}

TEST(Transcript, OfACancelInTheFirstCoolingPass) {
  Scenario scenario = SerialCoolingRun();
  scenario.events = {{{"ReadFile", 1}, {CTRL_C_EVENT}}};
  ExpectTranscript("cooling-cancelled-in-the-first-pass", scenario);
}

/// The first pass's child has ended; its identifier still stands.
TEST(Transcript, OfACancelBetweenTheCoolingPasses) {
  Scenario scenario = SerialCoolingRun();
  scenario.events = {{{"CloseHandle", 7}, {CTRL_BREAK_EVENT}}};
  ExpectTranscript("cooling-cancelled-between-the-passes", scenario);
}

/// The second pass has begun, its child has not.
TEST(Transcript, OfACancelInTheSecondCoolingPassBeforeItsChild) {
  Scenario scenario = SerialCoolingRun();
  scenario.events = {{{"CreateCoolArgument", 1}, {CTRL_C_EVENT}}};
  ExpectTranscript("cooling-cancelled-before-the-second-child", scenario);
}

TEST(Transcript, OfAWarpageRunAfterAnotherShot) {
  ExpectTranscript("warpage-after-another-shot",
                   RunOf("Qvx3DWarp.exe", TaskManager("0", "0", "4") + kMultiShot));
}

/// Its option value is its second one too; no section of another shot is read.
TEST(Transcript, OfADistributedStressRun) {
  ExpectTranscript("stress-distributed", RunOf("QvxStress.exe", TaskManager("00", "4", "1") +
                                                                    RemoteMachines() + kMultiShot));
}

}  // namespace
}  // namespace qvx::test
