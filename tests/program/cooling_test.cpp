// Cooling and warpage runs: conformal cooling's two passes in every mode, multi-shot settings.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"
#include "tests/program/under_launcher.h"

namespace qvx::test {
namespace {

using Logs = std::map<std::string, std::string>;

const std::string kConformal = "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel = 1\r\n</SOLID_COOL>\r\n";
const std::string kFlowPath = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kCoolPath = "<site>\\Home\\Bin\\Qvx3DCool.exe";
const std::string kNoPreviousShot =
    " -prevshot 0 -prevproject \" \" -prevrun \"00\" -prevname \" \"";

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

const PlannedRun kSerial({
    .solver = "Qvx3DCool.exe",
    .cmx = kSerialCmx + kConformal,
    .script = "command-line;flush;exit 4",
});

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
    .scripts = {{"Qvx3DFlow", "print flow;flush;exit 3"}},
});

RUN_TEST(ConformalCooling, GoesOnAfterAFirstPassThatFailed, &kFirstFails) {
  EXPECT_EQ(kFirstFails->output, SerialConsole("flow\r\n", kFlowPath, 3) +
                                     SerialConsole("cool\r\n", kCoolPath, 0) + kCountdown);
  EXPECT_EQ(kFirstFails->status, 0);
}

const std::string kBanner = "Launch parallel computing\r\n";
const std::string kImpiexec = "C:\\NODE1\\mpi\\impiexec.exe";

/// Both passes, each of which ends once the console shows its arguments.
RunPlan ParallelPlan(const std::string& cmx, const std::string& flow, const std::string& cool) {
  return {
      .solver = "Qvx3DCool.exe",
      .cmx = cmx + kConformal,
      .scripts = {{"Qvx3DFlow", "rank 0 print flow;rank 0 args;flush;await <site>\\flow"},
                  {"Qvx3DCool", "rank 0 print cool;rank 0 args;flush;await <site>\\cool"}},
      .meanwhile = [flow, cool](LauncherProcess& launcher, const Site& site) -> std::string {
        const std::string complaint = LetGoOnceShown(flow, "flow")(launcher, site);
        return complaint + LetGoOnceShown(cool, "cool")(launcher, site);
      },
  };
}

void ExpectBothPasses(const PlannedRun& run, const std::string& flow, const std::string& cool) {
  EXPECT_EQ(run->complaint, "");
  EXPECT_EQ(run->output, ConsoleOf(kBanner, flow, kImpiexec, 0) +
                             ConsoleOf(kBanner, cool, kImpiexec, 0) + kCountdown);
}

const std::string kSmpSettings = "-parallel 1 -processes 2 -weights 0.5,0.5";
const std::string kSmpFlow = "flow\r\n" + ArgumentLines("p " + LocalArguments(2, kSmpSettings));
const std::string kSmpCool =
    "cool\r\n" + ArgumentLines("p " + LocalArguments(3, kSmpSettings + kNoPreviousShot));
const PlannedRun kSmp(ParallelPlan(kSmpCmx, kSmpFlow, kSmpCool));

RUN_TEST(ConformalCooling, RunsBothPassesInSharedMemory, &kSmp) {
  ExpectBothPasses(kSmp, kSmpFlow, kSmpCool);
  EXPECT_EQ(kSmp->logs.size(), 2U);
}

std::string SharedArguments(int option, const std::string& rest) {
  return ArgumentLines("p " + Arguments("<share>\\Home", "<share>\\Work\\sample", option,
                                        "-parallel 2 -processes 3 -weights 0.3,0.3,0.4" + rest));
}

const std::string kDmpFlow = "flow\r\n" + SharedArguments(2, "");
const std::string kDmpCool = "cool\r\n" + SharedArguments(3, kNoPreviousShot);
const PlannedRun kDmp(ParallelPlan(kDmpCmx, kDmpFlow, kDmpCool));

RUN_TEST(ConformalCooling, MovesBothPassesToTheShare, &kDmp) {
  ExpectBothPasses(kDmp, kDmpFlow, kDmpCool);
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
