#include "tests/soak/random_run.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <vector>

#include "tests/program/under_launcher.h"

namespace qvx::test {
namespace {

enum class Arguments { Flow, Shot, Shell, Plain };

struct Family {
  const char* solver;
  Arguments arguments;
};

constexpr Family kFamilies[] = {
    {"Qvx3DFlow.exe", Arguments::Flow},  {"Qvx3DPack.exe", Arguments::Flow},
    {"Qvx3DCool.exe", Arguments::Shot},  {"Qvx3DWarp.exe", Arguments::Shot},
    {"QvxStress.exe", Arguments::Shot},  {"QvxFlow.exe", Arguments::Shell},
    {"QvxPack.exe", Arguments::Shell},   {"QvxCool.exe", Arguments::Shell},
    {"QvxWarp.exe", Arguments::Shell},   {"Ic.exe", Arguments::Plain},
    {"qvx3dic.exe", Arguments::Plain},   {"qvx3dicps.exe", Arguments::Plain},
    {"QvxOptics.exe", Arguments::Plain},
};

struct Node {
  std::string host;
  int tasks;
  double weighting;
};

std::string Short(double number) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%g", number);
  return text.data();
}

/// What the solver does and what comes of it: on the console every byte, in the log each chunk up
/// to its first zero byte.
struct Output {
  std::string script;
  std::string shown;
  std::string logged;

  /// `bytes`, at most a chunk, alone in the pipe.
  void Add(const std::string& command, const std::string& bytes) {
    script += command;
    shown += bytes;
    logged += bytes.substr(0, bytes.find('\0'));
  }
};

class Generator {
 public:
  Generator(unsigned seed, unsigned number, RandomSettings settings)
      : random_(seed * 1000 + number), isInOrder_(settings == RandomSettings::InOrder) {}

  RandomRun Make() {
    const Family& family = kFamilies[Below(std::size(kFamilies))];
    const bool mayBeParallel =
        family.arguments == Arguments::Flow || family.arguments == Arguments::Shot;
    mode_ = mayBeParallel ? static_cast<int>(Below(3)) : 0;
    const bool hasShot = family.solver == std::string("Qvx3DCool.exe") ||
                         family.solver == std::string("Qvx3DWarp.exe");
    conformal_ = family.solver == std::string("Qvx3DCool.exe") && Below(3) == 0;
    moldingType_ = static_cast<int>(Below(100));
    option_ = Below(2) == 0 ? 3 : static_cast<int>(Below(2000)) - 1000;
    tasks_ = static_cast<int>(Below(4)) + 1;
    for (std::size_t i = Below(3) + 1; mode_ == 2 && i > 0; --i) {
      nodes_.push_back({"NODE" + std::to_string(i), static_cast<int>(Below(3)) + 1,
                        static_cast<double>(Below(1000)) / 1000});
    }
    if (isInOrder_) ShareOut();
    if (hasShot && Below(2) == 0) shotProject_ = "D:\\Shots\\no " + std::to_string(Below(100));

    RandomRun run;
    constexpr int kStatuses[] = {0, 0, 1, -1, 255, 259, 70000, -9876};
    run.solver.status = kStatuses[Below(std::size(kStatuses))];
    run.plan.solver = family.solver;
    run.plan.cmx = CmxFile();
    PlanArguments(family, run.plan);
    const Output output = MakeOutput();
    run.solver.shown = output.shown;
    run.solver.logged = output.logged;
    run.plan.script = Script(output, "own", run.solver.status);
    if (conformal_) run.plan.scripts = {{"Qvx3DFlow", Script(output, "flow", run.solver.status)}};
    run.plan.machine = Below(4) == 0 ? Machine::Traced : Machine::Plain;
    if (mode_ != 0) LetGo(run.plan, output);
    return run;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }

  /// Weightings above 0 whose sum is 1.
  void ShareOut() {
    int left = 1000;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
      const auto others = nodes_.size() - i - 1;
      const int share =
          others == 0 ? left : static_cast<int>(Below(static_cast<std::size_t>(left) / 2)) + 1;
      nodes_[i].weighting = static_cast<double>(share) / 1000;
      left -= share;
    }
  }

  /// In a parallel run one process prints; the process launcher passes it on.
  std::string Rank() const { return mode_ == 0 ? "" : "rank 0 "; }

  /// Under the process launcher a pass ends when `file` is there, see under_launcher.h.
  std::string Script(const Output& output, const std::string& file, int status) const {
    return (mode_ == 0 ? "command-line;" : "rank 0 args;") + ("flush;" + output.script) +
           (mode_ == 0 ? "" : "await <site>\\" + file + ";") +
           (status == 0 ? "" : "exit " + std::to_string(status));
  }

  Output MakeOutput() {
    Output output;
    for (std::size_t i = Below(6); i > 0; --i) {
      const std::size_t kind = Below(mode_ == 0 ? 3 : 2);
      if (kind == 0) {
        const std::string text = "line:" + std::string(Below(200), 'x');
        output.Add(Rank() + "print " + text + ";flush;", text + "\r\n");
      } else if (kind == 1) {
        AddFill(output);
      } else {
        AddBytes(output);
      }
    }
    return output;
  }

  /// Many chunks, however they fall.
  void AddFill(Output& output) {
    const std::size_t total = Below(60'000) + 1;
    output.Add(Rank() + "fill " + std::to_string(total) + " " + std::to_string(Below(9000) + 1) +
                   ";flush;",
               Filled(total));
  }

  /// Any bytes, zero among them.
  void AddBytes(Output& output) {
    std::string bytes(Below(300) + 1, '\0');
    std::string hex;
    for (char& byte : bytes) {
      byte = static_cast<char>(Below(256));
      std::array<char, 3> digits;
      std::snprintf(digits.data(), digits.size(), "%02X", static_cast<unsigned char>(byte));
      hex += digits.data();
    }
    output.Add("raw " + hex + ";flush;", bytes);
  }

  std::string CmxFile() {
    const std::string lineEnd = Below(2) == 0 ? "\r\n" : "\n";
    const std::string blank = Below(2) == 0 ? " " : "";
    std::vector<std::string> sections = {
        "<TASKMANAGER>|Version=1|IDTask" + blank + "Mode =" + blank + (mode_ == 2 ? "1" : "0") +
            "|ValueNoTask=" + std::to_string(tasks_) +
            "|ValueLocalNoTask=" + (mode_ == 0 ? "1" : "4") + "|</TASKMANAGER>|",
        "<MESH>|ValueNoTask=99|" + std::string(Below(3000), 'm') + "|</MESH>|",
        "<SOLID_COOL>|Flag3DSolidCoolingChannel=" + blank + (conformal_ ? "1" : "0") +
            "|</SOLID_COOL>|",
    };
    if (!shotProject_.empty()) {
      sections.push_back("<SOLID_MCM>|FlagPrevShot=1|ValueShotRunID=7|ValueShotProjectPath=" +
                         shotProject_ + "|ValueShotProjectName=First|</SOLID_MCM>|");
    }
    std::string remote =
        "<REMOTE_MACHINES>|ValueLocalHost=NODE1|ValueShareFolderName=<name>\\Work|"
        "ValueParallelWorkingFolder=<site>\\WORK|ValueNoMachine=" +
        std::to_string(nodes_.size()) + "|";
    if (!nodes_.empty()) {
      remote += "ValueMachineSetting|";
      for (const Node& node : nodes_) {
        remote += "m=" + node.host + "\t" + std::to_string(node.tasks) + "|";
      }
      remote += "ValueMachineWeighting|";
      for (const Node& node : nodes_)
        remote += "w=" + Short(node.weighting) + (isInOrder_ ? "|" : " x|");
    }
    sections.push_back(remote + "</REMOTE_MACHINES>|");
    std::ranges::shuffle(sections, random_);
    std::string file;
    for (const std::string& section : sections) file += section;
    return Replaced(file, "|", lineEnd);
  }

  void PlanArguments(const Family& family, RunPlan& plan) const {
    const std::string tokens =
        "<site>\\Home*<site>\\Work\\Sample*Sample*" + std::to_string(option_);
    plan.firstArgument = "L$" + std::to_string(moldingType_);
    if (family.arguments == Arguments::Shell) {
      // The trace shows seven characters behind the "$": no half <site> should be among them.
      plan.firstArgument += " of a shell*" + tokens + "*1*an extra text";
      plan.arguments = {"-", family.solver};
    } else {
      plan.arguments = {tokens + "*01", family.solver};
    }
  }

  /// Lets each pass end when the console shows all of it.
  static void LetGo(RunPlan& plan, const Output& output) {
    std::vector<std::string> shown = ShownArguments(plan);
    for (std::string& text : shown) text += output.shown;
    plan.meanwhile = [shown](LauncherProcess& launcher, const Site& site) -> std::string {
      std::string complaint;
      for (std::size_t pass = 0; pass < shown.size(); ++pass) {
        const bool isLast = pass + 1 == shown.size();
        complaint += LetGoOnceShown(shown[pass], isLast ? "own" : "flow")(launcher, site);
      }
      return complaint;
    };
  }

  std::mt19937 random_;
  bool isInOrder_;
  int mode_ = 0;
  bool conformal_ = false;
  int moldingType_ = 0;
  int option_ = 0;
  int tasks_ = 0;
  std::vector<Node> nodes_;
  std::string shotProject_;
};

}  // namespace

RandomRun MakeRandomRun(unsigned seed, unsigned number, RandomSettings settings) {
  return Generator(seed, number, settings).Make();
}

}  // namespace qvx::test
