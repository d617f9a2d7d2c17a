#include "tests/soak/random_run.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <vector>

#include "tests/program/under_launcher.h"

namespace qvx::test {
namespace {

// Not a std::string: the runs are planned while objects of other files may not be there yet.
constexpr const char* kImpiexec = "C:\\NODE1\\mpi\\impiexec.exe";

enum class Arguments { Flow, Shot, Shell, Plain };

struct Family {
  const char* solver;
  const char* label;
  Arguments arguments;
};

constexpr Family kFamilies[] = {
    {"Qvx3DFlow.exe", "Flow", Arguments::Flow},     {"Qvx3DPack.exe", "Pack", Arguments::Flow},
    {"Qvx3DCool.exe", "Cool", Arguments::Shot},     {"Qvx3DWarp.exe", "Warp", Arguments::Shot},
    {"QvxStress.exe", "Stress", Arguments::Shot},   {"QvxFlow.exe", "ShellFlow", Arguments::Shell},
    {"QvxPack.exe", "ShellPack", Arguments::Shell}, {"QvxCool.exe", "ShellCool", Arguments::Shell},
    {"QvxWarp.exe", "ShellWarp", Arguments::Shell}, {"Ic.exe", "IC", Arguments::Plain},
    {"qvx3dic.exe", "WS", Arguments::Plain},        {"qvx3dicps.exe", "PS", Arguments::Plain},
    {"QvxOptics.exe", "Optics", Arguments::Plain},
};

struct Machine {
  std::string host;
  int tasks;
  double weighting;
};

std::string Short(double number) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%g", number);
  return text.data();
}

std::string TwoDigits(int number) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%02d", number);
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
  Generator(unsigned seed, unsigned number) : random_(seed * 1000 + number) {}

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
      machines_.push_back({"NODE" + std::to_string(i), static_cast<int>(Below(3)) + 1,
                           static_cast<double>(Below(1000)) / 1000});
    }
    if (hasShot && Below(2) == 0) shotProject_ = "D:\\Shots\\no " + std::to_string(Below(100));

    RandomRun run;
    constexpr int kStatuses[] = {0, 0, 1, -1, 255, 259, 70000, -9876};
    run.status = kStatuses[Below(std::size(kStatuses))];
    run.plan.solver = family.solver;
    run.plan.cmx = CmxFile();
    PlanArguments(family, run.plan);
    const Output output = MakeOutput();
    run.plan.script = Script(output, "own", run.status);
    if (conformal_) {
      run.plan.scripts = {{"Qvx3DFlow", Script(output, "flow", run.status)}};
      ExpectPass(kFamilies[0], Flow(), output, run);
    }
    ExpectPass(family, Rest(family), output, run);
    run.output += kCountdown;
    if (mode_ != 0) {
      run.plan.meanwhile = [shown = shown_](LauncherProcess& launcher,
                                            const Site& site) -> std::string {
        std::string complaint;
        for (std::size_t pass = 0; pass < shown.size(); ++pass) {
          const bool isLast = pass + 1 == shown.size();
          complaint += LetGoOnceShown(shown[pass], isLast ? "own" : "flow")(launcher, site);
        }
        return complaint;
      };
    }
    return run;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }

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
        std::to_string(machines_.size()) + "|";
    if (!machines_.empty()) {
      remote += "ValueMachineSetting|";
      for (const Machine& machine : machines_) {
        remote += "m=" + machine.host + "\t" + std::to_string(machine.tasks) + "|";
      }
      remote += "ValueMachineWeighting|";
      for (const Machine& machine : machines_) remote += "w=" + Short(machine.weighting) + " x|";
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
      plan.firstArgument += "*" + tokens + "*1*an extra text";
      plan.arguments = {"-", family.solver};
    } else {
      plan.arguments = {tokens + "*01", family.solver};
    }
  }

  std::string Parallel() const {
    if (mode_ == 0) return "-parallel 0 -processes 1";
    std::string weights;
    int processes = tasks_;
    if (mode_ == 1) {
      for (int i = 0; i < tasks_; ++i) weights += "," + Short(1.0 / tasks_);
    } else {
      processes = 0;
      for (const Machine& machine : machines_) {
        processes += machine.tasks;
        for (int i = 0; i < machine.tasks; ++i) {
          weights += "," + Short(machine.weighting / machine.tasks);
        }
      }
    }
    return "-parallel " + std::to_string(mode_) + " -processes " + std::to_string(processes) +
           " -weights " + weights.substr(1);
  }

  std::string Molding(int option) const {
    return " -molding " + std::to_string(moldingType_) + " -option " + std::to_string(option) +
           " " + Parallel();
  }

  /// The flow solver's pass before a conformal-cooling run's own.
  std::string Flow() const { return Molding(option_ == 3 ? 2 : 1); }

  std::string Rest(const Family& family) const {
    const std::string option = std::to_string(option_);
    switch (family.arguments) {
      case Arguments::Flow:
        return Molding(0);
      case Arguments::Shell:
        return " -option " + option + " -extra \"an extra text\" -extra \" \" -extra \" \"";
      case Arguments::Shot:
        return Molding(option_) +
               (shotProject_.empty()
                    ? " -prevshot 0 -prevproject \" \" -prevrun \"00\" -prevname \" \""
                    : " -prevshot 1 -prevproject \"" + shotProject_ + "\" -prevrun \"" +
                          TwoDigits(7) + "\" -prevname \"First\"") +
               SecondOption(family);
      case Arguments::Plain:
      default:
        return "";
    }
  }

  std::string SecondOption(const Family& family) const {
    const std::string label = family.label;
    if (label == "Cool") return "";
    return " -option2 " + std::to_string(label == "Stress" ? option_ : 0);
  }

  void ExpectPass(const Family& family, const std::string& rest, const Output& output,
                  RandomRun& run) {
    const char* const modes[] = {"serial", "smp", "dmp"};
    const std::string site = mode_ == 2 ? "<share>" : "<site>";
    const std::string path = site + "\\Home\\Bin\\" + family.solver;
    const std::string arguments = " -home \"" + site + "\\Home\" -project \"" + site +
                                  (mode_ == 2 ? "\\Work\\sample" : "\\Work\\Sample") +
                                  "\" -name \"Sample\" -run \"01\"" + rest;
    const std::string solverLine = (mode_ == 0 ? path : "\"" + path + "\"") + arguments;
    const std::string reported = mode_ == 0 ? path : kImpiexec;
    const std::string printed = mode_ == 0 ? solverLine + "\r\n" : ArgumentLines(solverLine);
    shown_.push_back(printed + output.shown);
    std::string commandLine = solverLine;
    std::string heading;
    if (mode_ == 1) {
      commandLine = std::string(kImpiexec) + " -env 0 0 -localonly -n " + std::to_string(tasks_) +
                    "  " + solverLine;
    }
    if (mode_ == 2) {
      std::string hosts = "-hosts " + std::to_string(machines_.size()) + " ";
      heading = "Used compute nodes:\r\n";
      for (const Machine& machine : machines_) {
        hosts += machine.host + " " + std::to_string(machine.tasks) + " ";
        heading += machine.host + ":" + std::to_string(machine.tasks) + "\r\n";
      }
      heading += "\r\n";
      commandLine = std::string(kImpiexec) + " -env 0 0 " + hosts + "  " + solverLine;
    }
    run.output +=
        ConsoleOf(mode_ == 0 ? "Launch serial computing\r\n" : "Launch parallel computing\r\n",
                  printed + output.shown, reported, run.status);
    run.logs[std::string("console_redirect_") + modes[mode_] + "_" + family.label + "_<time>.txt"] =
        heading + LogOf(commandLine, printed + output.logged, reported, run.status);
  }

  std::mt19937 random_;
  int mode_ = 0;
  bool conformal_ = false;
  int moldingType_ = 0;
  int option_ = 0;
  int tasks_ = 0;
  std::vector<Machine> machines_;
  std::string shotProject_;
  std::vector<std::string> shown_;  ///< by each pass's solver
};

}  // namespace

RandomRun MakeRandomRun(unsigned seed, unsigned number) { return Generator(seed, number).Make(); }

}  // namespace qvx::test
