// The debug trace of whole runs, letter by letter.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"
#include "tests/program/under_launcher.h"

namespace qvx::test {
namespace {

const std::string kFlowPath = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kImpiexec = "C:\\NODE1\\mpi\\impiexec.exe";

/// The trace up to the tokens.
std::string CommandLineTrace(const std::string& solver, const std::string& className) {
  const std::string tokens = kTokens;
  return "argv[0]=[L$1]\r\nargv[1]=[" + tokens + "]\r\nargv[2]=[" + solver + "]\r\n\r\n" +
         "$ symbol is at position(1) of argv[0]\r\n"
         "szMoldingType from argv[0] = 1\r\n"
         "MoldingType from argv[0]   = 1\r\n" +
         className + "Parse argv[1]=[" + tokens + "]\r\n" + Replaced(tokens, "*", "\r\n") + "\r\n";
}

const std::string kPathTrace =
    "cmx path = <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx\r\n"
    "Current run path = <site>\\Work\\Sample\\Analysis\\Run01\r\n";

std::string TaskManagerTrace(const std::string& mode, const std::string& tasks) {
  return "Version                    = \r\n"
         "IDTaskMode                 = " +
         mode +
         "\r\n"
         "FlagAccelerationType       = \r\n"
         "ValueNoTask                = " +
         (mode == "0" && tasks != "1" ? tasks : "") +
         "\r\n"
         "ValueLocalNoTask           = " +
         tasks +
         "\r\n"
         "ValueConsoleRedirection    = \r\n";
}

const std::string kNoMachinesTrace =
    "Version                    = \r\n"
    "ValueNoMachine             = \r\n"
    "ValueRemoteNoTask          = \r\n"
    "ValueMap                   = \r\n"
    "ValueShareFolderName       = \r\n"
    "ValueParallelWorkingFolder = \r\n"
    "ValueLocalHost             = \r\n"
    "ValueStorageNode           = \r\n";

std::string LaunchTrace(const std::string& banner, const std::string& commandLine) {
  return banner + "\r\n\r\nCommandline=[" + commandLine + "]\r\n\r\n";
}

const PlannedRun kSerial({.machine = Machine::Traced, .script = "print x;flush"});

RUN_TEST(Trace, OfASerialRun, &kSerial) {
  const std::string arguments = FlowArguments(kSerialSettings);
  EXPECT_EQ(kSerial->output,
            CommandLineTrace("Qvx3DFlow.exe", "SolverClass=FLOW\r\n") + kPathTrace +
                TaskManagerTrace("0", "1") + kNoMachinesTrace + "ComputeMode=Serial\r\n" +
                "Solver arguments = [" + arguments + "]\r\n" +
                ConsoleOf(LaunchTrace("Launch serial computing\r\n", kFlowPath + " " + arguments),
                          "x\r\n", kFlowPath, 0) +
                kCountdown);
}

const PlannedRun kSmp({.machine = Machine::Traced,
                       .cmx = kSmpCmx,
                       .script = "rank 0 print up" + kAwaitShown,
                       .meanwhile = LetGoOnceShown("up\r\n")});

RUN_TEST(Trace, OfASharedMemoryRun, &kSmp) {
  const std::string arguments = FlowArguments("-parallel 1 -processes 2 -weights 0.5,0.5");
  EXPECT_EQ(kSmp->output, CommandLineTrace("Qvx3DFlow.exe", "SolverClass=FLOW\r\n") + kPathTrace +
                              TaskManagerTrace("0", "2") + kNoMachinesTrace +
                              "ComputeMode=SMP\r\n" + "Solver arguments = [" + arguments + "]\r\n" +
                              ConsoleOf(LaunchTrace("Launch parallel computing\r\n",
                                                    kImpiexec + " -env 0 0 -localonly -n 2  \"" +
                                                        kFlowPath + "\" " + arguments),
                                        "up\r\n", kImpiexec, 0) +
                              kCountdown);
}

const PlannedRun kDmp({.machine = Machine::Traced,
                       .cmx = kDmpCmx,
                       .script = "rank 0 print up" + kAwaitShown,
                       .meanwhile = LetGoOnceShown("up\r\n")});

RUN_TEST(Trace, OfADistributedRun, &kDmp) {
  const std::string arguments =
      "-home \"<share>\\Home\" -project \"<share>\\Work\\sample\" -name \"Sample\" -run \"01\" "
      "-molding 1 -option 0 -parallel 2 -processes 3 -weights 0.3,0.3,0.4";
  const std::string lowerSite = "c:\\node1\\<name>";
  EXPECT_EQ(kDmp->output,
            CommandLineTrace("Qvx3DFlow.exe", "SolverClass=FLOW\r\n") + kPathTrace +
                "Quorvex Home Remote=<share>\\Home\r\n" + TaskManagerTrace("1", "") +
                "Version                    = \r\n"
                "ValueNoMachine             = 2\r\n"
                "ValueRemoteNoTask          = \r\n"
                "ValueMap                   = \r\n"
                "ValueShareFolderName       = <name>\\Work\r\n"
                "ValueParallelWorkingFolder = <site>\\WORK\r\n"
                "ValueLocalHost             = NODE1\r\n"
                "ValueStorageNode           = NODE1\r\n"
                "[0]NODE1\t:2\t0.6\r\n"
                "[1]NODE2\t:1\t0.4\r\n"
                "ComputeMode=DMP\r\n"
                "ConvertAcc2RegistryForIntelMPI(<site>\\Home)\r\n"
                "Before, strProjectDirLocal=[<site>\\Work\\Sample]\r\n"
                "After, strProjectDirLocal=[" +
                lowerSite +
                "\\work\\sample]\r\n"
                "Before, strParallelWorkingFolder=[<site>\\WORK]\r\n"
                "After, strParallelWorkingFolder=[" +
                lowerSite +
                "\\work]\r\n"
                "Solver arguments = [" +
                arguments +
                "]\r\n"
                "Current run path (remote) = <share>\\Work\\sample\\Analysis\\Run01\r\n" +
                ConsoleOf(LaunchTrace("Launch parallel computing\r\n",
                                      kImpiexec +
                                          " -env 0 0 -hosts 2 NODE1 2 NODE2 1   "
                                          "\"<share>\\Home\\Bin\\Qvx3DFlow.exe\" " +
                                          arguments),
                          "up\r\n", kImpiexec, 0) +
                kCountdown);
}

const PlannedRun kCool({
    .machine = Machine::Traced,
    .solver = "Qvx3DCool.exe",
    .cmx = std::string(kSerialCmx) + "<SOLID_COOL>\nFlag3DSolidCoolingChannel=1\n</SOLID_COOL>\n",
    .script = "print x;flush",
});

RUN_TEST(Trace, OfAConformalCoolingRun, &kCool) {
  const std::string coolPath = "<site>\\Home\\Bin\\Qvx3DCool.exe";
  const auto pass = [](const std::string& path, const std::string& arguments) {
    return "ComputeMode=Serial\r\nSolver arguments = [" + arguments + "]\r\n" +
           ConsoleOf(LaunchTrace("Launch serial computing\r\n", path + " " + arguments), "x\r\n",
                     path, 0);
  };
  EXPECT_EQ(
      kCool->output,
      CommandLineTrace("Qvx3DCool.exe", "SolverClass=COOL\r\n") + kPathTrace +
          TaskManagerTrace("0", "1") + kNoMachinesTrace +
          "Flag3DSolidCoolingChannel=1\r\nm_bIsConformalCooling=true\r\n" +
          pass(kFlowPath, Replaced(FlowArguments(kSerialSettings), "-option 0", "-option 2")) +
          pass(coolPath, Replaced(FlowArguments(kSerialSettings), "-option 0", "-option 3") +
                             " -prevshot 0 -prevproject \" \" -prevrun \"00\" -prevname \" \"") +
          kCountdown);
}

const PlannedRun kShell({
    .machine = Machine::Traced,
    .solver = "QvxFlow.exe",
    .script = "print x;flush",
    .firstArgument = "L$1*<site>\\Home\\*<site>\\Work\\Sample*Sample*3*1*a",
    .arguments = std::vector<std::string>{"-", "QvxFlow.exe"},
});

RUN_TEST(Trace, OfAShellRunNamesNoComputeMode, &kShell) {
  const std::string path = "<site>\\Home\\Bin\\QvxFlow.exe";
  const std::string arguments =
      "-home \"<site>\\Home\" -project \"<site>\\Work\\Sample\" -name \"Sample\" -run \"01\" "
      "-option 3 -extra \"a\" -extra \" \" -extra \" \"";
  EXPECT_EQ(kShell->output,
            "argv[0]=[L$1*<site>\\Home\\*<site>\\Work\\Sample*Sample*3*1*a]\r\n"
            "argv[1]=[-]\r\nargv[2]=[QvxFlow.exe]\r\n\r\n"
            "$ symbol is at position(1) of argv[0]\r\n"
            "szMoldingType from argv[0] = 1*C:\\NO\r\n"
            "MoldingType from argv[0]   = 1\r\n"
            "SolverClass=SHELLFLOW\r\nParse argv[1]=[-]\r\n"
            "<site>\\Home\\\r\n<site>\\Work\\Sample\r\nSample\r\n3\r\n1\r\na\r\n" +
                kPathTrace + "Solver arguments = [" + arguments + "]\r\n" +
                ConsoleOf(LaunchTrace("Launch serial computing\r\n", path + " " + arguments),
                          "x\r\n", path, 0) +
                kCountdown);
}

}  // namespace
}  // namespace qvx::test
