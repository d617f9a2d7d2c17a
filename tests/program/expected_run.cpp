#include "tests/program/expected_run.h"

#include <cstring>

#include "tests/plain/plain_run.h"
#include "tests/program/under_launcher.h"
#include "tests/support/texts.h"

namespace qvx::test {
namespace {

plain::Run PlainRunOf(const RunPlan& plan) {
  std::vector<std::string> arguments =
      plan.arguments.value_or(std::vector<std::string>{kTokens, plan.solver});
  arguments.insert(arguments.begin(), plan.firstArgument);
  return plain::PlainRun(arguments, {.cmx = plan.cmx,
                                     .parallelFolder = "<name>\\Home",
                                     .mpiPath = MpiPath(plan.machine),
                                     .isTraced = plan.machine == Machine::Traced});
}

/// As a run's results have it: <share> is the site on the machine \\NODE1.
std::string Shared(const std::string& text) {
  return Replaced(text, "\\\\NODE1\\<name>", "<share>");
}

std::string OnConsole(const std::string& lines) { return Shared(Replaced(lines, "\n", "\r\n")); }

std::string ShownBy(const RunPlan& plan, const plain::Pass& pass) {
  if (plan.script.starts_with("command-line")) return Shared(pass.commandLine) + "\r\n";
  const bool showsArguments =
      plan.script.starts_with("rank ") && plan.script.find(" args") == std::strlen("rank 0");
  if (!showsArguments) return "";
  // The solver's own line begins with its quoted path.
  return ArgumentLines(Shared(pass.commandLine.substr(pass.commandLine.find('"'))));
}

}  // namespace

std::vector<std::string> ShownArguments(const RunPlan& plan) {
  std::vector<std::string> shown;
  for (const plain::Pass& pass : PlainRunOf(plan).passes) shown.push_back(ShownBy(plan, pass));
  return shown;
}

void ExpectPasses(const RunResult& run, const std::vector<Solver>& solvers) {
  const plain::Run expected = PlainRunOf(run.plan);
  std::string output = OnConsole(expected.console);
  std::map<std::string, std::string> logs;
  ASSERT_LE(solvers.size(), expected.passes.size());
  for (std::size_t i = 0; i < solvers.size(); ++i) {
    const plain::Pass& pass = expected.passes[i];
    const Solver& solver = solvers[i];
    const std::string arguments = ShownBy(run.plan, pass);
    const std::string ending = Shared(">>> Return value of " + pass.reportedPath + " = " +
                                      std::to_string(solver.status) + "\r\n");
    output += OnConsole(pass.prepared + pass.launched) + arguments + solver.shown + "\r\n" + ending;
    const std::string name = pass.logPath.substr(pass.logPath.rfind('\\') + 1) + "<time>.txt";
    logs[name] =
        Shared(pass.logHeading) + arguments + solver.logged.value_or(solver.shown) + ending;
  }
  EXPECT_EQ(run.complaint, "");
  // Not EXPECT_EQ: it takes hours to compare megabytes.
  EXPECT_TRUE(run.output == output + kCountdown) << run.output.substr(0, 9000) << "\nshould be\n"
                                                 << output.substr(0, 9000) << kCountdown;
  EXPECT_EQ(run.error, "");
  EXPECT_EQ(run.status, solvers.back().status);
  EXPECT_TRUE(run.logs == logs) << testing::PrintToString(run.logs).substr(0, 9000)
                                << "\nshould be\n"
                                << testing::PrintToString(logs).substr(0, 9000);
}

RunResult WithoutOneCtrlC(RunResult run) {
  const std::size_t at = run.output.find(kCtrlC);
  EXPECT_NE(at, std::string::npos) << run.output;
  if (at != std::string::npos) run.output.erase(at, kCtrlC.size());
  return run;
}

void ExpectNoStart(const RunResult& run) {
  const plain::Run expected = PlainRunOf(run.plan);
  const plain::Pass& pass = expected.passes.at(0);
  EXPECT_EQ(run.complaint, "");
  EXPECT_EQ(run.output,
            OnConsole(expected.console + pass.prepared + pass.launched + "CreateProcess [" +
                      pass.commandLine + "] failed. system error(2)\n") +
                kCountdown);
  EXPECT_EQ(run.error, "");
  EXPECT_EQ(run.status, -1);
  EXPECT_EQ(run.logs, (std::map<std::string, std::string>{}));
}

void ExpectFault(const RunResult& run) {
  const plain::End end = PlainRunOf(run.plan).end;
  ASSERT_NE(end.fault, "");
  EXPECT_EQ(run.complaint, "");
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.error, "ERROR: " + end.fault + "\r\n");
  EXPECT_EQ(run.status, -2);
  EXPECT_EQ(run.logs, (std::map<std::string, std::string>{}));
}

std::string Filled(std::size_t total) {
  std::string bytes;
  while (bytes.size() < total) {
    bytes += "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz\r\n";
  }
  bytes.resize(total);
  return bytes;
}

}  // namespace qvx::test
