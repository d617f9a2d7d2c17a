// Random settings, as the soak has them: what the check predicts of five hundred has to be what the
// plain formulation says, and two hundred that are in order get no warning. Nothing is launched;
// the soak launches the five hundred and compares what happens.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "runcheck/check.h"
#include "runcheck/files.h"
#include "tests/plain/plain_run.h"
#include "tests/program/site.h"
#include "tests/runcheck/truth_answer.h"
#include "tests/soak/random_run.h"
#include "tests/soak/setting.h"
#include "tests/support/machine_state.h"
#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

constexpr const char* kMpi = "C:\\NODE1\\mpi";

/// Every solver there is, an MPI installation, and old logs of every mode.
struct World {
  World() {
    for (const char* solver : {"Pack", "Cool", "Warp"}) {
      site.InstallSolver("Qvx3D" + std::string(solver) + ".exe");
    }
    for (const char* solver : {"QvxStress", "QvxFlow", "QvxPack", "QvxCool", "QvxWarp", "Ic",
                               "qvx3dic", "qvx3dicps", "QvxOptics"}) {
      site.InstallSolver(solver + std::string(".exe"));
    }
    std::filesystem::create_directories(kMpi);
    std::filesystem::copy_file(ProgramPath("samples\\impiexec.exe"),
                               std::string(kMpi) + "\\impiexec.exe",
                               std::filesystem::copy_options::overwrite_existing);
    mpiPath.Set(kMpi);
    for (const char* mode : {"serial", "smp", "dmp"}) {
      for (const char* family : {"Flow", "Pack", "Cool", "Warp"}) {
        oldLogs.push_back("console_redirect_" + std::string(mode) + "_" + family +
                          "_2020-01-01_00-00-00.txt");
        site.Write("Work\\Sample\\Analysis\\Run01\\" + oldLogs.back(), "Commandline=[]\r\n");
      }
    }
  }

  std::string Specific(std::string text) const { return site.Specific(std::move(text)); }

  Site site;
  MpiInstallPathValue mpiPath;
  std::vector<std::string> oldLogs;
};

class RandomChecks : public testing::Test {
 protected:
  static void SetUpTestSuite() { world_ = new World; }
  static void TearDownTestSuite() {
    delete world_;
    world_ = nullptr;
  }

  static std::vector<std::string> ArgumentsOf(const RunPlan& plan) {
    std::vector<std::string> arguments = {world_->Specific(plan.firstArgument)};
    for (const std::string& argument : plan.arguments.value()) {
      arguments.push_back(world_->Specific(argument));
    }
    return arguments;
  }

  static CheckAnswer Ask(const RunPlan& plan) {
    world_->site.WriteCmx(plan.cmx);
    runcheck::CheckOptions options;
    options.asksNetwork = false;
    return ParseCheckAnswer(runcheck::JsonReport(
        runcheck::CheckRun(ArgumentsOf(plan), options).report, runcheck::AnsiToUtf8));
  }

  static plain::Run Expected(const RunPlan& plan) {
    const std::string cmx = world_->Specific(plan.cmx);
    return plain::PlainRun(
        ArgumentsOf(plan),
        {.cmx = cmx, .parallelFolder = world_->Specific("<name>\\Home"), .mpiPath = kMpi});
  }

  static void Compare(const plain::Run& expected, const CheckAnswer& answer) {
    ASSERT_EQ(answer.passes.size(), expected.passes.size()) << LinesOf(answer.diagnostics);
    for (std::size_t i = 0; i < expected.passes.size(); ++i) {
      ComparePass(expected.passes[i], answer.passes[i]);
    }
    const bool isDistributed = expected.passes.back().mode == 2;
    const std::vector<plain::Machine>& machines = expected.remoteMachines.machines;
    ASSERT_EQ(answer.machines.size(), isDistributed ? machines.size() : 0U);
    for (std::size_t i = 0; i < answer.machines.size(); ++i) {
      EXPECT_EQ(answer.machines[i].host, machines[i].host);
      EXPECT_EQ(answer.machines[i].tasks, plain::Integer(machines[i].tasks));
      EXPECT_EQ(answer.machines[i].weighting, plain::Decimal(machines[i].weighting));
    }
  }

  static void ComparePass(const plain::Pass& expected, const AnsweredPass& pass) {
    constexpr const char* kModes[] = {"serial", "shared-memory", "distributed"};
    EXPECT_EQ(pass.mode, kModes[expected.mode]);
    EXPECT_EQ(pass.commandLine, expected.commandLine);
    EXPECT_EQ(pass.reportedPath, expected.reportedPath);
    EXPECT_EQ(pass.log, expected.logPath + "<time>.txt");
    EXPECT_NE(pass.commandLine.find(pass.solver), std::string::npos) << pass.solver;
    EXPECT_EQ(pass.processCount, expected.solverClass < 5 ? expected.record.processes : 1);
    EXPECT_EQ(pass.weights, expected.record.weights);
    std::map<std::string, std::string> environment;
    if (expected.mode != 0) environment["I_MPI_SMPD_VERSION_CHECK"] = "0";
    EXPECT_EQ(pass.environment, environment);
    const std::size_t name = expected.logPath.rfind('\\') + 1;
    std::vector<std::string> deletes;
    for (const std::string& log : world_->oldLogs) {
      if (log.starts_with(expected.logPath.substr(name))) deletes.push_back(log);
    }
    std::vector<std::string> predicted;
    for (const std::string& path : pass.deletes) {
      EXPECT_TRUE(std::filesystem::exists(path)) << path;
      predicted.push_back(path.substr(path.rfind('\\') + 1));
    }
    EXPECT_EQ(predicted, deletes);
  }

  static World* world_;
};

World* RandomChecks::world_ = nullptr;

TEST_F(RandomChecks, PredictWhatThePlainFormulationSays) {
  constexpr unsigned kRuns = 500;
  for (unsigned number = 0; number < kRuns && !HasFailure(); ++number) {
    SCOPED_TRACE("seed " + std::to_string(Seed()) + ", run " + std::to_string(number));
    const RunPlan plan = MakeRandomRun(Seed(), number).plan;
    const CheckAnswer answer = Ask(plan);
    EXPECT_EQ(answer.errorCount, 0U) << LinesOf(answer.diagnostics);
    Compare(Expected(plan), answer);
  }
}

TEST_F(RandomChecks, HaveNoWarningForRunsInOrder) {
  constexpr unsigned kRuns = 200;
  for (unsigned number = 0; number < kRuns && !HasFailure(); ++number) {
    SCOPED_TRACE("seed " + std::to_string(Seed()) + ", run " + std::to_string(number));
    const RunPlan plan = MakeRandomRun(Seed(), number, RandomSettings::InOrder).plan;
    const CheckAnswer answer = Ask(plan);
    EXPECT_EQ(answer.errorCount + answer.warningCount, 0U)
        << world_->Specific(plan.firstArgument) << '\n'
        << world_->Specific(plan.cmx) << LinesOf(answer.diagnostics);
    EXPECT_EQ(answer.verdict, "ready");
    Compare(Expected(plan), answer);
  }
}

TEST_F(RandomChecks, LeaveTheProcessAsItIs) {
  const auto environment = [] {
    std::string block;
    char* variables = GetEnvironmentStringsA();
    for (const char* one = variables; *one != '\0'; one += std::string(one).size() + 1) {
      block += one + std::string("\n");
    }
    FreeEnvironmentStringsA(variables);
    return block;
  };
  const std::string before = environment();
  const std::filesystem::path folder = std::filesystem::current_path();
  const UINT errorMode = GetErrorMode();
  for (unsigned number = 0; number < 30; ++number) Ask(MakeRandomRun(Seed(), number).plan);
  EXPECT_EQ(environment(), before);
  EXPECT_EQ(std::filesystem::current_path(), folder);
  EXPECT_EQ(GetErrorMode(), errorMode);
}

}  // namespace
}  // namespace qvx::test
