// Serial runs: what only real pipes, processes and files show.
#include "tests/program/expected_run.h"
#include "tests/program/tests.h"

namespace qvx::test {

void AddSerialRuns(PlannedTests& tests) {
  const RunPlan bothStreams = {.script = "command-line;error to stderr;stdin;flush"};
  tests.Add("SerialRun", "EchoesAndLogsWhatTheSolverPrintsOnBothStreams", bothStreams,
            [](const RunResult& run) {
              ExpectRun(run, {.shown = "to stderr\r\nstdin: 0 bytes\r\n"});
              // The countdown's; that they are not more say the transcripts.
              EXPECT_GE(run.seconds, 4.9);
            });

  const std::vector<RunPlan> exits = {
      {.script = "exit -1"}, {.script = "exit 259"}, {.script = "exit 123456789"}};
  tests.Add("SerialRun", "ReturnsTheSolversExitCodeUnchanged", exits, [](const Results& runs) {
    ExpectRun(runs[0], {.status = -1});
    ExpectRun(runs[1], {.status = 259});
    ExpectRun(runs[2], {.status = 123456789});
  });

  const RunPlan bytes = {.script =
                             "raw 6100620A;flush;raw 80A4FF25730D0A1A41;flush;print next;flush"};
  tests.Add("SerialRun", "KeepsAllBytesButCutsAChunkOfTheLogAtItsFirstZero", bytes,
            [](const RunResult& run) {
              const std::string behind =
                  "\x80\xA4\xFF%s\r\n\x1A"
                  "Anext\r\n";
              ExpectRun(run, {.shown = std::string("a\0b\n", 4) + behind, .logged = "a" + behind});
            });

  const RunPlan chunks = {.script =
                              "fill 4096 4096;flush;fill 4097 4097;flush;fill 1048576 65536;flush"};
  tests.Add("SerialRun", "LosesNothingOfFullChunks", chunks, [](const RunResult& run) {
    ExpectRun(run, {.shown = Filled(4096) + Filled(4097) + Filled(1048576)});
  });

  // Under Wine the solver's console keeps the pipe open as long as the solver lives.
  const RunPlan closed = {.script = "print x;flush;close;exit 7"};
  tests.Add("SerialRun", "ReturnsTheExitCodeOfASolverThatClosedItsOutput", closed,
            [](const RunResult& run) { ExpectRun(run, {.shown = "x\r\n", .status = 7}); });

  const RunPlan folder = {.script = "command-line;folder;flush", .currentFolder = "<site>\\Home"};
  tests.Add("SerialRun", "StartsTheSolverInItsOwnFolder", folder,
            [](const RunResult& run) { ExpectRun(run, {.shown = "<site>\\Home\r\n"}); });

  // Arguments after the third count for nothing but the trace.
  const RunPlan wildcards = {
      .machine = Machine::Traced,
      .arguments = std::vector<std::string>{kTokens, "Qvx3DFlow.exe", "*", "B?n"},
      .currentFolder = "<site>\\Home",
  };
  tests.Add("SerialRun", "LeavesWildcardsOnItsCommandLineAlone", wildcards,
            [](const RunResult& run) {
              EXPECT_EQ(run.output.substr(0, run.output.find("$ symbol")),
                        "argv[0]=[L$1]\r\nargv[1]=[" + std::string(kTokens) +
                            "]\r\nargv[2]=[Qvx3DFlow.exe]\r\nargv[3]=[*]\r\nargv[4]=[B?n]\r\n\r\n");
              EXPECT_EQ(run.status, 0);
            });

  const RunPlan cooling = {.solver = "Qvx3DCool.exe",
                           .cmx = std::string(kSerialCmx) + kConformalCmx,
                           .script = "command-line;flush;exit 4"};
  tests.Add("SerialRun", "OfConformalCoolingRunsTheFlowSolverAndThenTheCoolingSolver", cooling,
            [](const RunResult& run) {
              ExpectPasses(run, {{.status = 4}, {.status = 4}});
            });
}

}  // namespace qvx::test
