// Cooling and warpage runs: conformal cooling's two passes in every mode, multi-shot settings.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"

namespace qvx::test {
namespace {

using Logs = std::map<std::string, std::string>;

const std::string kConformal = "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel = 1\r\n</SOLID_COOL>\r\n";
const std::string kFlowPath = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kCoolPath = "<site>\\Home\\Bin\\Qvx3DCool.exe";
const std::string kNoPreviousShot = " -prevshot 0 -prevproject \"\" -prevrun \"00\" -prevname \"\"";

/// Arguments of one pass; the option value of the tokens is 3.
std::string Arguments(const std::string& home, const std::string& project, int option,
                      const std::string& rest) {
  return "-home \"" + home + "\" -project \"" + project +
         "\" -name \"Sample\" -run \"01\" -molding 1 -option " + std::to_string(option) + " " +
         rest;
}

std::string LocalArguments(int option, const std::string& rest) {
  return Arguments("<site>\\Home", "<site>\\Work\\Sample", option, rest);
}

RunPlan ConformalPlan(const std::string& cmx, const std::string& script) {
  return {.solver = "Qvx3DCool.exe", .cmx = cmx + kConformal, .script = script};
}

const PlannedRun kSerial(ConformalPlan(kSerialCmx, "command-line;flush;exit 4"));

RUN_TEST(ConformalCooling, RunsTheFlowSolverAndThenTheCoolingSolver, &kSerial) {
  const std::string flow = kFlowPath + " " + LocalArguments(2, kSerialSettings);
  const std::string cool = kCoolPath + " " + LocalArguments(3, kSerialSettings + kNoPreviousShot);
  EXPECT_EQ(kSerial->output, SerialConsole(flow + "\r\n", kFlowPath, 4) +
                                 SerialConsole(cool + "\r\n", kCoolPath, 4) + kCountdown);
  EXPECT_EQ(kSerial->status, 4);
  EXPECT_EQ(
      kSerial->logs,
      (Logs{
          {"console_redirect_serial_Flow_<time>.txt", LogOf(flow, flow + "\r\n", kFlowPath, 4)},
          {"console_redirect_serial_Cool_<time>.txt", LogOf(cool, cool + "\r\n", kCoolPath, 4)}}));
}

const PlannedRun kFirstFails({
    .solver = "Qvx3DCool.exe",
    .cmx = kSerialCmx + kConformal,
    .script = "print cool;flush",
    .environment = {{"QUORVEX_FAKE_SOLVER_QVX3DFLOW", "print flow;flush;exit 3"}},
});

RUN_TEST(ConformalCooling, GoesOnAfterAFirstPassThatFailed, &kFirstFails) {
  EXPECT_EQ(kFirstFails->output, SerialConsole("flow\r\n", kFlowPath, 3) +
                                     SerialConsole("cool\r\n", kCoolPath, 0) + kCountdown);
  EXPECT_EQ(kFirstFails->status, 0);
}

const std::string kBanner = "Launch parallel computing\r\n";
const std::string kImpiexec = "C:\\NODE1\\mpi\\impiexec.exe";

const PlannedRun kSmp(ConformalPlan(kSmpCmx, "rank 0 command-line;flush"));

RUN_TEST(ConformalCooling, RunsBothPassesInSharedMemory, &kSmp) {
  const std::string settings = "-parallel 1 -processes 2 -weights 0.5,0.5";
  const std::string flow = "\"" + kFlowPath + "\" " + LocalArguments(2, settings);
  const std::string cool = "\"" + kCoolPath + "\" " + LocalArguments(3, settings + kNoPreviousShot);
  EXPECT_EQ(kSmp->output, ConsoleOf(kBanner, flow + "\r\n", kImpiexec, 0) +
                              ConsoleOf(kBanner, cool + "\r\n", kImpiexec, 0) + kCountdown);
  EXPECT_EQ(kSmp->logs.size(), 2U);
}

const PlannedRun kDmp(ConformalPlan(kDmpCmx, "rank 0 command-line;flush"));

RUN_TEST(ConformalCooling, MovesBothPassesToTheShare, &kDmp) {
  const std::string settings = "-parallel 2 -processes 3 -weights 0.3,0.3,0.4";
  const auto command = [&](const std::string& solver, int option, const std::string& rest) {
    return "\"<share>\\Home\\Bin\\" + solver + "\" " +
           Arguments("<share>\\Home", "<share>\\Work\\sample", option, settings + rest);
  };
  const std::string flow = command("Qvx3DFlow.exe", 2, "");
  const std::string cool = command("Qvx3DCool.exe", 3, kNoPreviousShot);
  EXPECT_EQ(kDmp->output, ConsoleOf(kBanner, flow + "\r\n", kImpiexec, 0) +
                              ConsoleOf(kBanner, cool + "\r\n", kImpiexec, 0) + kCountdown);
  EXPECT_EQ(kDmp->logs.count("console_redirect_dmp_Flow_<time>.txt"), 1U);
  EXPECT_EQ(kDmp->logs.count("console_redirect_dmp_Cool_<time>.txt"), 1U);
}

const PlannedRun kTwo({.solver = "Qvx3DCool.exe",
                       .cmx = std::string(kSerialCmx) +
                              "<SOLID_COOL>\nFlag3DSolidCoolingChannel=2\n</SOLID_COOL>\n",
                       .script = "print x;flush"});

RUN_TEST(ConformalCooling, IsAskedForByOneOnly, &kTwo) {
  EXPECT_EQ(kTwo->output, SerialConsole("x\r\n", kCoolPath, 0) + kCountdown);
}

constexpr const char* kPreviousShot =
    "<SOLID_MCM>\nFlagPrevShot=1\nValueShotRunID=2\nValueShotProjectPath=D:\\Shot\n"
    "ValueShotProjectName=First\n</SOLID_MCM>\n";
const std::string kShotArguments =
    " -prevshot 1 -prevproject \"D:\\Shot\" -prevrun \"02\" -prevname \"First\"";

const PlannedRun kShotCool({.solver = "Qvx3DCool.exe",
                            .cmx = std::string(kSerialCmx) + kPreviousShot});
const PlannedRun kShotWarp({.solver = "Qvx3DWarp.exe",
                            .cmx = std::string(kSerialCmx) + kPreviousShot});
const PlannedRun kShotStress({.solver = "QvxStress.exe",
                              .cmx = std::string(kSerialCmx) + kPreviousShot});

RUN_TEST(MultiShot, ReachesTheCoolingAndWarpageSolvers, &kShotCool, &kShotWarp) {
  EXPECT_EQ(
      kShotCool->output,
      SerialConsole(kCoolPath + " " + LocalArguments(3, kSerialSettings + kShotArguments) + "\r\n",
                    kCoolPath, 0) +
          kCountdown);
  const std::string warp = "<site>\\Home\\Bin\\Qvx3DWarp.exe";
  EXPECT_EQ(
      kShotWarp->output,
      SerialConsole(
          warp + " " + LocalArguments(3, kSerialSettings + kShotArguments + " -option2 0") + "\r\n",
          warp, 0) +
          kCountdown);
}

RUN_TEST(MultiShot, IsNotReadForStress, &kShotStress) {
  const std::string stress = "<site>\\Home\\Bin\\QvxStress.exe";
  EXPECT_EQ(kShotStress->output,
            SerialConsole(stress + " " +
                              LocalArguments(3, kSerialSettings + kNoPreviousShot + " -option2 3") +
                              "\r\n",
                          stress, 0) +
                kCountdown);
}

}  // namespace
}  // namespace qvx::test
