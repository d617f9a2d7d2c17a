#include "tests/plain/plain_run.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "tests/plain/bounded.h"

namespace qvx::plain {
namespace {

// Solver classes, by their numbers.
constexpr int kFlow = 0, kCool = 2, kWarp = 3, kStress = 4, kShellFlow = 5;
constexpr int kShellWarp = 8, kIc = 9, kWs = 10, kPs = 11, kOptics = 12;

constexpr const char* kLabels[] = {"Flow",      "Pack",      "Cool",      "Warp",      "Stress",
                                   "ShellFlow", "ShellPack", "ShellCool", "ShellWarp", "IC",
                                   "WS",        "PS",        "Optics"};

// Compute modes.
constexpr int kSerial = 0, kSmp = 1, kDmp = 2;

constexpr const char* kModeNames[] = {"Serial", "SMP", "DMP"};
constexpr const char* kLogPrefixes[] = {"console_redirect_serial_", "console_redirect_smp_",
                                        "console_redirect_dmp_"};

std::string Join(std::initializer_list<std::string_view> parts) {
  std::size_t length = 0;
  for (const std::string_view part : parts) length += part.size();
  std::string text;
  text.reserve(length);
  for (const std::string_view part : parts) text += part;
  return text;
}

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

std::string Upper(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

std::string TwoDigits(std::int32_t number) {
  const std::string digits = std::to_string(number);
  return digits.size() < 2 ? "0" + digits : digits;
}

std::string WithoutLastBackslash(std::string_view path) {
  if (path.ends_with('\\')) path.remove_suffix(1);
  return std::string(path);
}

constexpr int kFitsNoRule = -1;

int ClassOf(const std::string& solver) {
  const std::string name = Lower(solver);
  const auto has = [&](const char* text) { return name.find(text) != std::string::npos; };
  const char* const families[] = {"flow", "pack", "cool", "warp"};
  for (int i = 0; i < 4; ++i) {
    if (has(families[i])) return has("3d") ? i : kShellFlow + i;
  }
  if (has("stress")) return kStress;
  if (has("qvx3dicps")) return kPs;
  if (has("qvx3dic")) return kWs;
  if (has("optics")) return kOptics;
  if (has("ic")) return kIc;
  return has("fake") ? kFlow : kFitsNoRule;
}

std::vector<std::string_view> Tokens(std::string_view list) {
  std::vector<std::string_view> tokens;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find('*'), list.size());
    if (end > 0) tokens.push_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return tokens;
}

class Predictor {
 public:
  Predictor(const Surroundings& world, Run& run) : world_(world), run_(run) {}

  void ReadCommandLine(const std::vector<std::string>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      Trace({"argv[", std::to_string(i), "]=[", arguments[i], "]\n"});
    }
    Trace({"\n"});
    const std::size_t marker = arguments[0].find('$');
    const bool isMarked = marker != std::string::npos;
    const std::string digits = isMarked ? arguments[0].substr(marker + 1, 7) : "";
    const std::int32_t molding = isMarked ? Integer(digits) : -1;
    Trace({"$ symbol is at position(", isMarked ? std::to_string(marker) : "-1",
           ") of argv[0]\nszMoldingType from argv[0] = ", digits,
           "\nMoldingType from argv[0]   = ", std::to_string(molding), "\n"});
    if (arguments.size() < 2) {
      Print({"SolverExe is not specified! Use QuorvexFakeSolver.exe as the solver.\n"});
    }
    run_.solver = arguments.size() < 2 ? "QuorvexFakeSolver.exe"
                                       : arguments[std::min<std::size_t>(arguments.size() - 1, 2)];
    Bound("solver executable name", 64, run_.solver);
    if (Ended()) return;
    run_.solverClass = ClassOf(run_.solver);
    if (run_.solverClass == kFitsNoRule) {
      run_.solverClass = kFlow;
    } else {
      Trace({"SolverClass=", Upper(kLabels[run_.solverClass]), "\n"});
    }
    if (arguments.size() < 2) return;
    Trace({"Parse argv[1]=[", arguments[1], "]\n"});
    if (run_.solverClass <= kStress) run_.record.molding = molding;
    StoreTokens(arguments);
    Bound("home folder", 260, run_.record.home);
  }

  void FindLocations() {
    const Record& record = run_.record;
    Bound("project ini file", 260, Join({record.home, "\\Bin\\QVXProject.ini"}));
    run_.runFolder = Join({record.project, "\\Analysis\\Run", record.run});
    run_.cmxPath = Join({run_.runFolder, "\\", record.name, record.run, ".cmx"});
    Bound("CMX path", 260, run_.cmxPath);
    Trace({"cmx path = ", run_.cmxPath, "\n"});
    Bound("current run path", 260, run_.runFolder);
    Trace({"Current run path = ", run_.runFolder, "\n"});
  }

  void ReadSettings() {
    if (run_.solverClass > kStress || Ended()) return;
    const CmxFile file(world_.cmx.value_or(""));
    const auto read = [&](auto& settings, auto reader) {
      if (Ended()) return;
      if (!world_.cmx) return Print({" Read CMX file: ", run_.cmxPath, " failed!\n"});
      settings = reader(file, run_.end);
    };
    read(run_.taskManager, ReadTaskManager);
    read(run_.remoteMachines, ReadRemoteMachines);
    if (IsDistributed()) {
      run_.remoteHome =
          Join({"\\\\", run_.remoteMachines.ValueStorageNode, "\\", world_.parallelFolder});
      Bound("remote home path", 260, run_.remoteHome);
      Trace({"Quorvex Home Remote=", run_.remoteHome, "\n"});
    }
    if (world_.isTraced) TraceSettings();
    if (run_.solverClass == kCool || run_.solverClass == kWarp) read(run_.multiShot, ReadMultiShot);
    std::int32_t channel = 0;
    if (run_.solverClass == kCool) read(channel, ReadSolidCool);
    run_.isConformal = channel == 1 && !Ended();
    if (run_.isConformal) {
      Trace({"Flag3DSolidCoolingChannel=1\nm_bIsConformalCooling=true\n"});
    }
  }

  void AddPasses() {
    if (run_.isConformal) {
      Record flow = run_.record;
      flow.option = flow.option == 3 ? 2 : 1;
      AddPass(kFlow, "Qvx3DFlow.exe", flow);
    }
    AddPass(run_.solverClass, run_.solver, run_.record);
  }

  void PrepareRecord(Pass& pass) {
    Record& record = pass.record;
    record.parallelMode = pass.mode;
    record.processes = 1;
    if (pass.mode == kSmp) {
      record.processes = Counted(run_.end, Integer(run_.taskManager.ValueNoTask));
      record.weights.assign(static_cast<std::size_t>(std::max(record.processes, 0)),
                            1.0 / record.processes);
      record.hasWeights = record.processes > 0;
    }
    if (pass.mode == kDmp) {
      MoveToShare(pass);
      SpreadWeightings(record);
      record.hasWeights = true;
    }
    if (pass.solverClass < kCool) return;
    record.previousShot = run_.multiShot.FlagPrevShot;
    record.previousProject = run_.multiShot.ValueShotProjectPath;
    record.previousRun = TwoDigits(run_.multiShot.ValueShotRunID);
    record.previousName = run_.multiShot.ValueShotProjectName;
  }

 private:
  bool Ended() const { return run_.end.Happened(); }

  void Print(std::initializer_list<std::string_view> parts) {
    if (Ended()) return;
    for (const std::string_view part : parts) *console_ += part;
  }

  void Trace(std::initializer_list<std::string_view> parts) {
    if (world_.isTraced) Print(parts);
  }

  void Bound(const char* field, std::size_t width, std::string_view text) {
    Bounded(run_.end, field, width, text);
  }

  void StoreTokens(const std::vector<std::string>& arguments) {
    const int solverClass = run_.solverClass;
    const bool isShell = solverClass >= kShellFlow && solverClass <= kShellWarp;
    const bool takesOption = isShell || (solverClass >= kCool && solverClass <= kStress);
    std::vector<std::string_view> tokens = Tokens(arguments[isShell ? 0 : 1]);
    if (isShell && !tokens.empty()) tokens.erase(tokens.begin());
    Record& record = run_.record;
    for (std::size_t i = 0; i < tokens.size() && !Ended(); ++i) {
      const std::string_view token = tokens[i];
      Trace({token, "\n"});
      if (i == 0) {
        Bound("home folder", 1024, token);
        record.home = WithoutLastBackslash(token);
      }
      if (i == 1) Bound("project directory", 1024, record.project = token);
      if (i == 2) Bound("project name", 256, record.name = token);
      if (i == 3 && takesOption) record.option = Integer(token);
      if (i == 4) {
        record.run = isShell ? TwoDigits(Integer(token)) : token;
        Bound("run number", 32, record.run);
      }
      if (i >= 5 && i <= 7 && isShell) Bound("extra text", 1024, record.extras[i - 5] = token);
    }
    if (solverClass == kStress) record.secondOption = record.option;
  }

  bool IsDistributed() const { return run_.taskManager.IDTaskMode != "0"; }

  int Mode() const {
    if (run_.solverClass > kStress) return kSerial;
    if (IsDistributed()) return kDmp;
    return run_.taskManager.ValueLocalNoTask == "1" ? kSerial : kSmp;
  }

  void TraceSettings() {
    const TaskManager& tasks = run_.taskManager;
    const RemoteMachines& remote = run_.remoteMachines;
    Print({"Version                    = ", tasks.Version, "\nIDTaskMode                 = ",
           tasks.IDTaskMode, "\nFlagAccelerationType       = ", tasks.flagAccelerationType,
           "\nValueNoTask                = ", tasks.ValueNoTask,
           "\nValueLocalNoTask           = ", tasks.ValueLocalNoTask,
           "\nValueConsoleRedirection    = ", tasks.ValueConsoleRedirection, "\n"});
    Print({"Version                    = ", remote.Version, "\nValueNoMachine             = ",
           remote.ValueNoMachine, "\nValueRemoteNoTask          = ", remote.ValueRemoteNoTask,
           "\nValueMap                   = ", remote.ValueMap,
           "\nValueShareFolderName       = ", remote.ValueShareFolderName,
           "\nValueParallelWorkingFolder = ", remote.ValueParallelWorkingFolder,
           "\nValueLocalHost             = ", remote.ValueLocalHost,
           "\nValueStorageNode           = ", remote.ValueStorageNode, "\n"});
    for (std::size_t i = 0; i < remote.machines.size(); ++i) {
      const Machine& machine = remote.machines[i];
      Print({"[", std::to_string(i), "]", machine.host, "\t:", machine.tasks, "\t",
             machine.weighting, "\n"});
    }
  }

  void AddPass(int solverClass, const std::string& solver, const Record& record) {
    if (Ended()) return;
    Pass& pass = run_.passes.emplace_back();
    console_ = &pass.prepared;
    pass.solverClass = solverClass;
    pass.solver = solver;
    pass.mode = Mode();
    pass.record = record;
    pass.launches = pass.mode != kDmp || world_.accountsAreUsable;
    if (solverClass <= kStress) Trace({"ComputeMode=", kModeNames[pass.mode], "\n"});
    if (pass.mode == kDmp) {
      Trace({"ConvertAcc2RegistryForIntelMPI(", record.home, ")\n"});
      if (!pass.launches) {
        return Print({"Error: Please check if acc.ini is properly configured!\n"});
      }
    }
    if (solverClass <= kStress) PrepareRecord(pass);
    if (Ended()) return;
    pass.arguments = world_.argumentString(solverClass, pass.record);
    Bound("solver argument string", 4096, pass.arguments);
    Trace({"Solver arguments = [", pass.arguments, "]\n"});
    if (Ended()) return;
    console_ = &pass.launched;
    AddLaunch(pass);
    run_.end.isOfLaunch = Ended();
  }

  void MoveToShare(Pass& pass) {
    const RemoteMachines& remote = run_.remoteMachines;
    const std::string& working = remote.ValueParallelWorkingFolder;
    const std::string lowerWorking = Lower(working);
    std::string rest = Lower(pass.record.project);
    if (pass.solverClass < kCool) {
      Trace({"Before, strProjectDirLocal=[", pass.record.project, "]\nAfter, strProjectDirLocal=[",
             rest, "]\nBefore, strParallelWorkingFolder=[", working,
             "]\nAfter, strParallelWorkingFolder=[", lowerWorking, "]\n"});
    }
    const std::size_t at = rest.find(lowerWorking);
    if (at != std::string::npos) rest.erase(0, at + working.size() + 1);
    pass.record.home = Join({"\\\\", remote.ValueStorageNode, "\\", world_.parallelFolder});
    pass.record.project =
        Join({"\\\\", remote.ValueStorageNode, "\\", remote.ValueShareFolderName, "\\", rest})
            .substr(0, 1023);
  }

  void SpreadWeightings(Record& record) {
    constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
    std::int64_t total = 0;
    for (const Machine& machine : run_.remoteMachines.machines) total += Integer(machine.tasks);
    record.processes = Counted(run_.end, std::max(total, kLeast));
    const auto count = static_cast<std::size_t>(std::max(record.processes, 0));
    for (const Machine& machine : run_.remoteMachines.machines) {
      const std::int32_t tasks = Integer(machine.tasks);
      const double weight = Decimal(machine.weighting) / tasks;
      for (int i = 0; i < tasks && record.weights.size() < count; ++i) {
        record.weights.push_back(weight);
      }
    }
    record.weights.resize(count);
  }

  void AddLaunch(Pass& pass) {
    const std::vector<Machine>& machines = run_.remoteMachines.machines;
    std::string folder = run_.runFolder;
    if (pass.mode == kDmp) {
      folder = Join({pass.record.project, "\\Analysis\\Run", pass.record.run});
      Bound("current run path", 260, folder);
      Trace({"Current run path (remote) = ", folder, "\n"});
    }
    pass.logPath = Join({folder, "\\", kLogPrefixes[pass.mode], kLabels[pass.solverClass], "_"});
    const std::string impiexec = Join({WithoutLastBackslash(world_.mpiPath), "\\impiexec.exe"});
    if (pass.mode != kSerial) {
      Bound("MPI installation path", 260, world_.mpiPath);
      Bound("impiexec.exe path", 260, impiexec);
    }
    const std::string solverPath =
        Join({pass.mode == kDmp ? run_.remoteHome : run_.record.home, "\\Bin\\", pass.solver});
    Bound("solver path", 260, solverPath);
    pass.reportedPath = pass.mode == kSerial ? solverPath : impiexec;
    if (pass.mode == kSerial) {
      pass.commandLine = Join({solverPath, " ", pass.arguments});
      Print({"Launch serial computing\n"});
    } else {
      if (pass.mode == kSmp) {
        pass.processes = Join({"-localonly -n ", run_.taskManager.ValueNoTask});
      } else {
        pass.processes = HostsList(run_.remoteMachines);
        pass.logHeading = "Used compute nodes:\r\n";
        for (const Machine& machine : machines) {
          pass.logHeading += Join({machine.host, ":", machine.tasks, "\r\n"});
        }
        pass.logHeading += "\r\n";
      }
      pass.commandLine = Join({impiexec, " -env 0 0 ", pass.processes, " ", world_.mpiConfiguration,
                               " \"", solverPath, "\" ", pass.arguments});
      Print({"Launch parallel computing\n"});
    }
    Trace({"\n\nCommandline=[", pass.commandLine, "]\n\n"});
    const std::string logged = Join({"Commandline=[", pass.commandLine, "]\r\n"});
    Bound("console log text", 32768, logged);
    pass.logHeading += logged;
  }

  const Surroundings& world_;
  Run& run_;
  std::string* console_ = &run_.console;
};

}  // namespace

std::string HostsList(const RemoteMachines& remote) {
  std::string hosts = Join({"-hosts ", remote.ValueNoMachine, " "});
  for (const Machine& machine : remote.machines)
    hosts += Join({machine.host, " ", machine.tasks, " "});
  return hosts;
}

Run ReadCommandLine(const std::vector<std::string>& arguments, bool isTraced) {
  Run run;
  const Surroundings world = {.cmx = {}, .isTraced = isTraced};
  Predictor(world, run).ReadCommandLine(arguments);
  return run;
}

void PrepareRecord(const Surroundings& world, Run& run, Pass& pass) {
  Predictor(world, run).PrepareRecord(pass);
}

Run PlainRun(const std::vector<std::string>& arguments, const Surroundings& world) {
  Run run;
  if (arguments.size() < 2) {
    run.console = "incorrect argument\n";
    run.status = -1;
    return run;
  }
  Predictor predictor(world, run);
  predictor.ReadCommandLine(arguments);
  predictor.FindLocations();
  predictor.ReadSettings();
  predictor.AddPasses();
  if (run.end.Happened()) {
    run.status = -2;
  } else if (!run.passes.back().launches) {
    run.status = -1;
  }
  return run;
}

}  // namespace qvx::plain
