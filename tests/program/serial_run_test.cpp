// Serial runs: console, log and exit status as a whole.
#include <gtest/gtest.h>

#include "tests/program/planned_run.h"

namespace qvx::test {
namespace {

const std::string kSolver = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kCommandLine = kSolver + " " + FlowArguments(kSerialSettings);
const std::string kLog = "console_redirect_serial_Flow_<time>.txt";

std::string Console(const std::string& child, int status) {
  return SerialConsole(child, kSolver, status) + kCountdown;
}

using Logs = std::map<std::string, std::string>;

Logs OneLog(const std::string& child, int status) {
  return {{kLog, LogOf(kCommandLine, child, kSolver, status)}};
}

const PlannedRun kPlain({.script = "command-line;error to stderr;stdin;flush"});

RUN_TEST(SerialRun, EchoesAndLogsWhatTheSolverPrintsOnBothStreams, &kPlain) {
  const std::string child = kCommandLine + "\r\nto stderr\r\nstdin: 0 bytes\r\n";
  EXPECT_EQ(kPlain->output, Console(child, 0));
  EXPECT_EQ(kPlain->error, "");
  EXPECT_EQ(kPlain->status, 0);
  EXPECT_EQ(kPlain->logs, OneLog(child, 0));
}

// That they are not more says CoolingRun, which need not look at a clock.
RUN_TEST(SerialRun, EndsWithACountdownOfFiveSeconds, &kPlain) { EXPECT_GE(kPlain->seconds, 4.9); }

const PlannedRun kOne({.script = "print x;flush;exit 1"});
const PlannedRun kMinusOne({.script = "print x;flush;exit -1"});
const PlannedRun kStillActive({.script = "print x;flush;exit 259"});
const PlannedRun kLarge({.script = "print x;flush;exit 123456789"});
const PlannedRun kMinus9876({.script = "print x;flush;exit -9876"});

RUN_TEST(SerialRun, ReturnsTheSolversExitCodeUnchanged, &kOne, &kMinusOne, &kStillActive, &kLarge,
         &kMinus9876) {
  const std::pair<const PlannedRun&, int> runs[] = {
      {kOne, 1}, {kMinusOne, -1}, {kStillActive, 259}, {kLarge, 123456789}, {kMinus9876, -9876}};
  for (const auto& [run, status] : runs) {
    EXPECT_EQ(run->output, Console("x\r\n", status));
    EXPECT_EQ(run->status, status);
    EXPECT_EQ(run->logs, OneLog("x\r\n", status));
  }
}

const PlannedRun kZeroBytes({.script = "raw 6100620A;flush;print next;flush"});

RUN_TEST(SerialRun, CutsAChunkAtItsFirstZeroByteInTheLogOnly, &kZeroBytes) {
  const std::string bytes("a\0b\n", 4);
  EXPECT_EQ(kZeroBytes->output, Console(bytes + "next\r\n", 0));
  EXPECT_EQ(kZeroBytes->logs, OneLog("anext\r\n", 0));
}

const PlannedRun kHighBytes({.script = "raw 80A4FF25730D0A1A41;flush"});

RUN_TEST(SerialRun, KeepsBytesThatAreNoText, &kHighBytes) {
  const std::string bytes =
      "\x80\xA4\xFF%s\r\n\x1A"
      "A";
  EXPECT_EQ(kHighBytes->output, Console(bytes, 0));
  EXPECT_EQ(kHighBytes->logs, OneLog(bytes, 0));
}

const PlannedRun kFullChunk({.script = "fill 4096 4096;flush;fill 4097 4097;flush"});
const PlannedRun kMebibyte({.script = "fill 1048576 65536;flush"});

RUN_TEST(SerialRun, LosesNothingOfFullChunks, &kFullChunk, &kMebibyte) {
  EXPECT_EQ(kFullChunk->output, Console(Filled(4096) + Filled(4097), 0));
  EXPECT_EQ(kFullChunk->logs, OneLog(Filled(4096) + Filled(4097), 0));
  EXPECT_EQ(kMebibyte->output, Console(Filled(1048576), 0));
  EXPECT_EQ(kMebibyte->logs, OneLog(Filled(1048576), 0));
}

const PlannedRun kSilent({.script = "exit 0"});

RUN_TEST(SerialRun, LogsASolverThatPrintsNothing, &kSilent) {
  EXPECT_EQ(kSilent->output, Console("", 0));
  EXPECT_EQ(kSilent->logs, OneLog("", 0));
}

const PlannedRun kClosed({.script = "print x;flush;close;exit 7"});

// Under Wine the solver's console keeps the pipe open as long as the solver lives.
RUN_TEST(SerialRun, ReturnsTheExitCodeOfASolverThatClosedItsOutput, &kClosed) {
  EXPECT_EQ(kClosed->output, Console("x\r\n", 7));
  EXPECT_EQ(kClosed->status, 7);
}

const PlannedRun kFolder({.script = "folder;flush",
                          .currentFolder = "<site>\\Work",
                          .prepare = {}});

RUN_TEST(SerialRun, StartsTheSolverInTheLaunchersOwnFolder, &kFolder) {
  EXPECT_EQ(kFolder->output, Console("<site>\\Work\r\n", 0));
}

const PlannedRun kOldLogs({.prepare = [](const Site& site) {
  const std::string folder = "Work\\Sample\\Analysis\\Run01\\";
  site.Write(folder + "console_redirect_serial_Flow_2020-01-01_00-00-00.txt", "old");
  site.Write(folder + "console_redirect_serial_FlowOfAnother.txt", "old");
  site.Write(folder + "console_redirect_smp_Flow_2020-01-01_00-00-00.txt", "kept");
  site.Write(folder + "console_redirect_serial_Pack_2020-01-01_00-00-00.txt", "kept");
  site.Write(folder + "console_redirect_serial_Flow_folder.txt\\inside", "kept");
}});

RUN_TEST(SerialRun, DeletesTheOldLogsOfItsModeAndClassOnly, &kOldLogs) {
  EXPECT_EQ(kOldLogs->logs, (Logs{{kLog, LogOf(kCommandLine, kCommandLine + "\r\n", kSolver, 0)},
                                  {"console_redirect_smp_Flow_<time>.txt", "kept"},
                                  {"console_redirect_serial_Pack_<time>.txt", "kept"}}));
}

const PlannedRun kBlanks({
    .solver = "QvxOptics.exe",
    .script = "args;flush",
    .arguments = std::vector<std::string>{"<site>\\Home*<site>\\Work\\Sample*My \"part\" 1\\*3*01",
                                          "QvxOptics.exe"},
});

RUN_TEST(SerialRun, KeepsBlanksAndQuotesOfTheProjectName, &kBlanks) {
  EXPECT_EQ(kBlanks->output,
            SerialConsole("argument 1: -home\r\nargument 2: <site>\\Home\r\n"
                          "argument 3: -project\r\nargument 4: <site>\\Work\\Sample\r\n"
                          "argument 5: -name\r\nargument 6: My \"part\" 1\\ \r\n"
                          "argument 7: -run\r\nargument 8: 01\r\n",
                          "<site>\\Home\\Bin\\QvxOptics.exe", 0) +
                kCountdown);
}

// Arguments behind the third count for nothing but the trace.
const PlannedRun kWildcards({
    .machine = Machine::Traced,
    .script = "print x;flush",
    .arguments = std::vector<std::string>{kTokens, "Qvx3DFlow.exe", "*", "B?n"},
    .currentFolder = "<site>\\Home",
});

RUN_TEST(SerialRun, LeavesWildcardsOnItsCommandLineAlone, &kWildcards) {
  const std::string& output = kWildcards->output;
  EXPECT_EQ(output.substr(0, output.find("$ symbol")),
            "argv[0]=[L$1]\r\nargv[1]=[" + std::string(kTokens) +
                "]\r\nargv[2]=[Qvx3DFlow.exe]\r\nargv[3]=[*]\r\nargv[4]=[B?n]\r\n\r\n");
  EXPECT_EQ(kWildcards->status, 0);
}

}  // namespace
}  // namespace qvx::test
