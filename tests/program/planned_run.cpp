#include "tests/program/planned_run.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>

#include "tests/support/machine_state.h"
#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

constexpr std::size_t kSideBySide = 32;
const std::string kMpi = "C:\\NODE1\\mpi";
const std::string kMpiWithoutManager = "C:\\NODE1\\mpi2";
const std::string kScriptedMpi = "C:\\NODE1\\mpi3";

std::map<std::string, Runs (*)()>& RunsByTest() {
  static std::map<std::string, Runs (*)()> runs;
  return runs;
}

/// The runs that the tests look at which the filter chose; each one once.
std::set<const PlannedRun*> ChosenRuns() {
  std::set<const PlannedRun*> chosen;
  const testing::UnitTest& all = *testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const testing::TestSuite& suite = *all.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) {
      const testing::TestInfo& test = *suite.GetTestInfo(j);
      if (!test.should_run()) continue;
      const std::string name = std::string(test.test_suite_name()) + '.' + test.name();
      const auto found = RunsByTest().find(name.substr(0, name.find('/', name.find('.'))));
      if (found != RunsByTest().end())
        for (const PlannedRun* run : found->second()) chosen.insert(run);
    }
  }
  return chosen;
}

void InstallImpiexec(const std::string& folder, const std::string& sample = "impiexec.exe") {
  std::filesystem::create_directories(folder);
  std::filesystem::copy_file(ProgramPath("samples\\" + sample), folder + "\\impiexec.exe",
                             std::filesystem::copy_options::overwrite_existing);
}

void ForEachSideBySide(const Runs& runs, const std::function<void(const PlannedRun&)>& action) {
  std::atomic<std::size_t> next = 0;
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < std::min(kSideBySide, runs.size()); ++i) {
    threads.emplace_back([&] {
      for (std::size_t run = next++; run < runs.size(); run = next++) action(*runs[run]);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

void CarryOutChosenRuns() {
  const std::set<const PlannedRun*> chosen = ChosenRuns();
  InstallImpiexec(kMpi);
  InstallImpiexec(kMpiWithoutManager);
  InstallImpiexec(kScriptedMpi, "QuorvexFakeSolver.exe");
  std::ofstream(kMpiWithoutManager + "\\impiexec_no_smpd.txt");
  const MpiInstallPathValue mpiPath;
  const DebugTraceSwitchFile traceSwitch;
  const std::map<Machine, std::string> mpiPaths = {
      {Machine::Plain, kMpi},
      {Machine::Traced, kMpi},
      {Machine::WithoutMpi, ""},
      {Machine::NoProcessManager, kMpiWithoutManager + "\\"},
      {Machine::ScriptedMpi, kScriptedMpi},
  };
  for (const auto& [machine, path] : mpiPaths) {
    mpiPath.Set(path);
    if (machine == Machine::WithoutMpi) mpiPath.Remove();
    if (machine == Machine::Traced) std::ofstream{traceSwitch.Path()};
    Runs runs;
    std::ranges::copy_if(chosen, std::back_inserter(runs),
                         [wanted = machine](const PlannedRun* run) { return run->On() == wanted; });
    // All files first: a launcher would inherit one that is just being written, and keep the solver
    // in it from being started.
    for (const PlannedRun* run : runs) run->LayOut();
    ForEachSideBySide(runs, [](const PlannedRun& run) { run.CarryOut(); });
    std::filesystem::remove(traceSwitch.Path());
  }
}

}  // namespace

const RunResult* PlannedRun::operator->() const {
  static std::once_flag once;
  std::call_once(once, CarryOutChosenRuns);
  EXPECT_EQ(whyNot_, "");
  return &result_;
}

RunsOfTest::RunsOfTest(const char* test, Runs (*runs)()) { RunsByTest().emplace(test, runs); }

void PlannedRun::LayOut() const {
  site_ = std::make_unique<Site>();
  site_->InstallSolver(plan_.solver);
  // In files, because a distributed run's solvers do not get the launcher's environment.
  std::map<std::string, std::string> scripts = plan_.scripts;
  scripts.emplace("Qvx3DFlow", plan_.script);
  scripts.emplace(plan_.solver.substr(0, plan_.solver.find('.')), plan_.script);
  for (const auto& [solver, script] : scripts) {
    site_->Write("Home\\Bin\\" + solver + ".script", site_->Specific(script));
  }
  site_->WriteCmx(plan_.cmx);
  if (plan_.prepare) plan_.prepare(*site_);
}

void PlannedRun::CarryOut() const try {
  const Site& site = *site_;
  LauncherStart start = {
      .firstArgument = site.Specific(plan_.firstArgument),
      .arguments = plan_.arguments.value_or(std::vector<std::string>{kTokens, plan_.solver}),
      .environment = plan_.environment,
      .currentFolder = site.Specific(plan_.currentFolder),
  };
  for (std::string& argument : start.arguments) argument = site.Specific(argument);
  start.environment.emplace("QUORVEX_FAKE_SOLVER", plan_.script);
  for (auto& [name, value] : start.environment) value = site.Specific(value);

  const auto begin = std::chrono::steady_clock::now();
  LauncherProcess launcher(start);
  if (plan_.meanwhile) result_.complaint = plan_.meanwhile(launcher, site);
  result_.status = launcher.Wait();
  result_.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  result_.output = site.Generic(launcher.Output());
  result_.error = site.Generic(launcher.Error());
  result_.logs = site.Logs();
  site_.reset();
  whyNot_.clear();
} catch (const std::exception& reason) {
  whyNot_ = reason.what();
}

std::string ConsoleOf(const std::string& banner, const std::string& child,
                      const std::string& reportedPath, int status) {
  return banner + child + "\r\n>>> Return value of " + reportedPath + " = " +
         std::to_string(status) + "\r\n";
}

std::string LogOf(const std::string& commandLine, const std::string& child,
                  const std::string& reportedPath, int status) {
  return "Commandline=[" + commandLine + "]\r\n" + child + ">>> Return value of " + reportedPath +
         " = " + std::to_string(status) + "\r\n";
}

std::string Filled(std::size_t total) {
  std::string bytes;
  while (bytes.size() < total) {
    bytes += "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz\r\n";
  }
  bytes.resize(total);
  return bytes;
}

std::string FlowArguments(const std::string& parallel) {
  return "-home \"<site>\\Home\" -project \"<site>\\Work\\Sample\" -name \"Sample\" -run \"01\" "
         "-molding 1 -option 0 " +
         parallel;
}

}  // namespace qvx::test
