#include "tests/program/planned_run.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <latch>
#include <stdexcept>
#include <thread>
#include <utility>

#include "tests/runcheck/truth_asked.h"
#include "tests/support/machine_state.h"
#include "tests/support/program_path.h"
#include "tests/support/texts.h"

namespace qvx::test {
namespace {

constexpr std::size_t kSideBySide = 32;

void InstallImpiexec(const std::string& folder, const std::string& sample) {
  std::filesystem::create_directories(folder);
  std::filesystem::copy_file(ProgramPath("samples\\" + sample), folder + "\\impiexec.exe",
                             std::filesystem::copy_options::overwrite_existing);
}

/// A run with its surroundings on disk.
class Run {
 public:
  explicit Run(RunResult& result) : result_(&result), site_(std::make_unique<Site>()) {
    const RunPlan& plan = result.plan;
    site_->InstallSolver(plan.solver);
    // In files, because a distributed run's solvers do not get the launcher's environment.
    std::map<std::string, std::string> scripts = plan.scripts;
    scripts.emplace("Qvx3DFlow", plan.script);
    scripts.emplace(plan.solver.substr(0, plan.solver.find('.')), plan.script);
    for (const auto& [solver, script] : scripts) {
      site_->Write("Home\\Bin\\" + solver + ".script", site_->Specific(script));
    }
    site_->WriteCmx(plan.cmx);
    if (plan.prepare) plan.prepare(*site_);
  }

  /// A launcher that cannot be started is the failure of the test that looks at this run.
  /// `underWay`: called when the launcher has asked the machine for all that it needs.
  void CarryOut(const std::function<void()>& underWay) {
    const RunPlan& plan = result_->plan;
    LauncherStart start = {
        .firstArgument = site_->Specific(plan.firstArgument),
        .arguments = plan.arguments.value_or(std::vector<std::string>{kTokens, plan.solver}),
        .environment = {{"QUORVEX_FAKE_SOLVER", site_->Specific(plan.script)}},
        .currentFolder = site_->Specific(plan.currentFolder),
    };
    for (std::string& argument : start.arguments) argument = site_->Specific(argument);
    std::optional<AskedCheck> check;
    if (plan.isAsked) check.emplace(start, *site_);
    const auto begin = std::chrono::steady_clock::now();
    try {
      LauncherProcess launcher(start);
      if (plan.meanwhile) result_->complaint = plan.meanwhile(launcher, *site_);
      launcher.WaitForOutput("\r4   ");  // the countdown, or the end
      underWay();
      result_->status = launcher.Wait();
      result_->output = site_->Generic(launcher.Output());
      result_->error = site_->Generic(launcher.Error());
      if (check) {
        result_->untruths = check->Untruths(launcher, result_->status, plan.meanwhile != nullptr);
      }
    } catch (const std::exception& reason) {
      result_->complaint = reason.what();
      underWay();
    }
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    result_->seconds = passed.count();
    result_->logs = site_->Logs();
    site_.reset();
  }

 private:
  RunResult* result_;
  std::unique_ptr<Site> site_;
};

/// Runs that start side by side on one machine; their countdowns go on beside what comes next.
class Batch {
 public:
  explicit Batch(std::vector<Run> runs)
      : runs_(std::move(runs)), underWay_(static_cast<std::ptrdiff_t>(runs_.size())) {
    for (std::size_t i = 0; i < std::min(kSideBySide, runs_.size()); ++i) {
      threads_.emplace_back([this] {
        for (std::size_t run = next_++; run < runs_.size(); run = next_++) {
          runs_[run].CarryOut([this] { underWay_.count_down(); });
        }
      });
    }
    underWay_.wait();
  }

 private:
  std::vector<Run> runs_;
  std::latch underWay_;
  std::atomic<std::size_t> next_ = 0;
  std::vector<std::jthread> threads_;
};

/// The test as GoogleTest knows it.
class Look : public testing::Test {
 public:
  explicit Look(std::function<void()> body) : body_(std::move(body)) {}
  void TestBody() override { body_(); }

 private:
  std::function<void()> body_;
};

}  // namespace

std::string MpiPath(Machine machine) {
  switch (machine) {
    case Machine::WithoutMpi:
      return "";
    case Machine::NoProcessManager:
      return "C:\\NODE1\\mpi2\\";
    case Machine::ScriptedMpi:
      return "C:\\NODE1\\mpi3";
    default:
      return "C:\\NODE1\\mpi";
  }
}

PlannedTests::PlannedTests() = default;
PlannedTests::~PlannedTests() = default;

void PlannedTests::Add(const std::string& suite, const std::string& name,
                       std::vector<RunPlan> plans, std::function<void(const Results&)> check,
                       const char* file, int line) {
  Test& test = tests_.emplace_back();
  for (RunPlan& plan : plans) test.runs.push_back({.plan = std::move(plan)});
  test.check = std::move(check);
  const auto look = [this, &test] {
    if (!std::exchange(carriedOut_, true)) CarryOutChosenRuns();
    for (const RunResult& run : test.runs) {
      EXPECT_EQ(run.untruths, "") << "the check said something else than the launcher did";
    }
    test.check(test.runs);
  };
  test.info = testing::RegisterTest(suite.c_str(), name.c_str(), nullptr, nullptr, file, line,
                                    [look]() -> testing::Test* { return new Look(look); });
}

void PlannedTests::Add(const std::string& suite, const std::string& name, RunPlan plan,
                       std::function<void(const RunResult&)> check, const char* file, int line) {
  Add(
      suite, name, std::vector<RunPlan>{std::move(plan)},
      [check = std::move(check)](const Results& runs) { check(runs.front()); }, file, line);
}

void PlannedTests::CarryOutChosenRuns() {
  InstallImpiexec(MpiPath(Machine::Plain), "impiexec.exe");
  InstallImpiexec(MpiPath(Machine::NoProcessManager), "impiexec.exe");
  InstallImpiexec(MpiPath(Machine::ScriptedMpi), "QuorvexFakeSolver.exe");
  std::ofstream(MpiPath(Machine::NoProcessManager) + "impiexec_no_smpd.txt");
  const MpiInstallPathValue mpiPath;
  const DebugTraceSwitchFile traceSwitch;
  // All files first: a launcher would inherit one that is just being written, and keep the solver
  // in it from being started.
  std::map<Machine, std::vector<Run>> runs;
  for (Test& test : tests_) {
    if (!test.info->should_run()) continue;
    for (RunResult& run : test.runs) runs[run.plan.machine].emplace_back(run);
  }
  std::deque<Batch> batches;
  for (auto& [machine, itsRuns] : runs) {
    mpiPath.Set(MpiPath(machine));
    if (machine == Machine::WithoutMpi) mpiPath.Remove();
    if (machine == Machine::Traced) std::ofstream{traceSwitch.Path()};
    batches.emplace_back(std::move(itsRuns));
    std::filesystem::remove(traceSwitch.Path());
  }
}

}  // namespace qvx::test
