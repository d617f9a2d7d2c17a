// Every solver class in every mode that it can have: the child's command line and the log's name.
#include <gtest/gtest.h>

#include <memory>

#include "tests/program/planned_run.h"
#include "tests/program/under_launcher.h"

namespace qvx::test {
namespace {

const std::string kImpiexec = "C:\\NODE1\\mpi\\impiexec.exe";

/// What is the class's own in its arguments; %p stands for the parallel settings.
struct ClassFacts {
  const char* solver;
  const char* label;
  const char* arguments;
};

constexpr ClassFacts kParallelClasses[] = {
    {"Qvx3DFlow.exe", "Flow", "-molding 1 -option 0 %p"},
    {"Qvx3DPack.exe", "Pack", "-molding 1 -option 0 %p"},
    {"Qvx3DCool.exe", "Cool",
     "-molding 1 -option 3 %p -prevshot 0 -prevproject \" \" -prevrun \"00\" -prevname \" \""},
    {"Qvx3DWarp.exe", "Warp",
     "-molding 1 -option 3 %p -prevshot 0 -prevproject \" \" -prevrun \"00\" -prevname \" \" "
     "-option2 0"},
    {"QvxStress.exe", "Stress",
     "-molding 1 -option 3 %p -prevshot 0 -prevproject \" \" -prevrun \"00\" -prevname \" \" "
     "-option2 3"},
};

constexpr ClassFacts kShellClasses[] = {
    {"QvxFlow.exe", "ShellFlow", "-option 3 -extra \"a\" -extra \" \" -extra \" \""},
    {"QvxPack.exe", "ShellPack", "-option 3 -extra \"a\" -extra \" \" -extra \" \""},
    {"QvxCool.exe", "ShellCool", "-option 3 -extra \"a\" -extra \" \" -extra \" \""},
    {"QvxWarp.exe", "ShellWarp", "-option 3 -extra \"a\" -extra \" \" -extra \" \""},
};

constexpr ClassFacts kOtherClasses[] = {
    {"Ic.exe", "IC", ""},
    {"qvx3dic.exe", "WS", ""},
    {"qvx3dicps.exe", "PS", ""},
    {"QvxOptics.exe", "Optics", ""},
};

struct Mode {
  const char* name;
  const char* cmx;
  const char* settings;

  bool IsSerial() const { return name == std::string("serial"); }
  bool IsDistributed() const { return name == std::string("dmp"); }
  const char* Site() const { return IsDistributed() ? "<share>" : "<site>"; }
};

constexpr Mode kSerial = {"serial", kSerialCmx, "-parallel 0 -processes 1"};
constexpr Mode kSmp = {"smp", kSmpCmx, "-parallel 1 -processes 2 -weights 0.5,0.5"};
constexpr Mode kDmp = {"dmp", kDmpCmx, "-parallel 2 -processes 3 -weights 0.3,0.3,0.4"};
/// A file that asks for a distributed run of a class that always runs serially.
constexpr Mode kSerialAnyhow = {"serial", kDmpCmx, ""};

/// One class in one mode.
class ClassRun {
 public:
  ClassRun(const ClassFacts& facts, const Mode& mode, bool tokensInFirstArgument)
      : facts_(facts), mode_(mode), run_(Plan(facts, mode, tokensInFirstArgument)) {}

  const PlannedRun& Run() const { return run_; }

  void Check() const {
    SCOPED_TRACE(std::string(facts_.solver) + " " + mode_.name);
    EXPECT_EQ(run_->complaint, "");
    EXPECT_EQ(run_->output, ConsoleOf(mode_.IsSerial() ? "Launch serial computing\r\n"
                                                       : "Launch parallel computing\r\n",
                                      Child(facts_, mode_),
                                      mode_.IsSerial() ? Path(facts_, mode_) : kImpiexec, 6) +
                                kCountdown);
    EXPECT_EQ(run_->status, 6);
    ASSERT_EQ(run_->logs.size(), 1U);
    EXPECT_EQ(run_->logs.begin()->first,
              std::string("console_redirect_") + mode_.name + "_" + facts_.label + "_<time>.txt");
  }

 private:
  static std::string Path(const ClassFacts& facts, const Mode& mode) {
    return std::string(mode.Site()) + "\\Home\\Bin\\" + facts.solver;
  }

  /// What the solver prints.
  static std::string Child(const ClassFacts& facts, const Mode& mode) {
    const std::string site = mode.Site();
    const std::string rest = Replaced(facts.arguments, "%p", mode.settings);
    const std::string commandLine =
        Path(facts, mode) + " -home \"" + site + "\\Home\" -project \"" + site +
        (mode.IsDistributed() ? "\\Work\\sample" : "\\Work\\Sample") +
        "\" -name \"Sample\" -run \"01\"" + (rest.empty() ? "" : " ") + rest;
    return mode.IsSerial() ? commandLine + "\r\n" : ArgumentLines(commandLine);
  }

  static RunPlan Plan(const ClassFacts& facts, const Mode& mode, bool tokensInFirstArgument) {
    RunPlan plan = {.solver = facts.solver, .cmx = mode.cmx};
    if (mode.IsSerial()) {
      plan.script = "command-line;flush;exit 6";
    } else {
      plan.script = "rank 1 args" + kAwaitShown + "exit 6";
      plan.meanwhile = LetGoOnceShown(Child(facts, mode));
    }
    if (tokensInFirstArgument) {
      plan.firstArgument = std::string("L$1*") + Replaced(kTokens, "*01", "*1*a");
      plan.arguments = {"-", facts.solver};
    }
    return plan;
  }

  const ClassFacts& facts_;
  const Mode& mode_;
  const PlannedRun run_;
};

std::vector<std::unique_ptr<ClassRun>> PlanAll() {
  std::vector<std::unique_ptr<ClassRun>> runs;
  for (const ClassFacts& facts : kParallelClasses) {
    for (const Mode* mode : {&kSerial, &kSmp, &kDmp}) {
      runs.push_back(std::make_unique<ClassRun>(facts, *mode, false));
    }
  }
  for (const ClassFacts& facts : kShellClasses) {
    runs.push_back(std::make_unique<ClassRun>(facts, kSerialAnyhow, true));
  }
  for (const ClassFacts& facts : kOtherClasses) {
    runs.push_back(std::make_unique<ClassRun>(facts, kSerialAnyhow, false));
  }
  return runs;
}

const std::vector<std::unique_ptr<ClassRun>> kRuns = PlanAll();

const RunsOfTest kRunsOfTest("SolverClass.RunsInEveryModeThatItCanHave", [] {
  Runs runs;
  for (const auto& run : kRuns) runs.push_back(&run->Run());
  return runs;
});

TEST(SolverClass, RunsInEveryModeThatItCanHave) {
  ASSERT_EQ(kRuns.size(), 23U);
  for (const auto& run : kRuns) run->Check();
}

}  // namespace
}  // namespace qvx::test
