#include "runcheck/check.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "launcher/lower_case_name.h"
#include "runcheck/call_rules.h"
#include "runcheck/cmx_rules.h"
#include "runcheck/files.h"
#include "runcheck/libraries.h"
#include "runcheck/network.h"
#include "runcheck/places.h"
#include "runcheck/share_rules.h"
#include "support/numbers.h"

namespace qvx::runcheck {
namespace {

constexpr std::size_t kLargestCmxFile = SIZE_MAX / 2;

class RunCheck {
 public:
  RunCheck(const std::vector<std::string>& arguments, const CheckOptions& options)
      : options_(options), call_(FactsOf(arguments)) {}

  Check Run() {
    Diagnostics libraries;
    const bool hasLibraries = CheckLibraries(libraries);
    if (hasLibraries) prediction_ = Predict(call_.arguments);
    if (prediction_.context != nullptr && prediction_.isInterpreted) {
      call_.family = prediction_.family;
    }
    const RunPlaces places = PlacesOf(call_, prediction_);
    CmxFile cmx = {places.cmxName, ReadFileStart(places.cmxPath, kLargestCmxFile).value_or("")};
    const CmxFacts facts(std::move(cmx), call_.family);
    const bool machinesMatter = facts.IsMeantDistributed();

    Diagnostics& found = check_.report.diagnostics;
    found = CheckCmxFile(facts);
    const bool tokensAreMeant = CheckCall(call_, found, LeadsToARun(places));
    const bool isTooLong = CheckFault(facts, found);
    found.insert(found.end(), libraries.begin(), libraries.end());
    if (tokensAreMeant && !isTooLong) CheckRunPlaces(call_, places, facts.File(), found);
    if (machinesMatter) CheckShares(facts, prediction_, found);
    CheckPrograms(prediction_, places, machinesMatter, found);
    CheckOldLogs(prediction_, found);
    CheckCommandLines(prediction_, found);
    CheckMachine(prediction_, found);
    Describe(places, facts);
    if (machinesMatter && options_.asksNetwork) AskAround();
    SortByPlace(found);
    return std::move(check_);
  }

 private:
  /// True when everything is there that the launcher needs, however the call looks.
  [[nodiscard]] bool LeadsToARun(const RunPlaces& places) const {
    return KindOf(places.home + "\\Bin") == FileKind::Folder &&
           KindOf(places.runFolder) == FileKind::Folder &&
           (AlwaysRunsSerially(call_.family) || KindOf(places.cmxPath) == FileKind::File);
  }

  /// What ends the launcher, unless a rule over the lines has told it with its place. True for a
  /// text of the call that is too long.
  bool CheckFault(const CmxFacts& facts, Diagnostics& found) const {
    if (!prediction_.fault) return false;
    const ThrownFault& fault = *prediction_.fault;
    const bool isTold = std::ranges::any_of(found, [&](const Diagnostic& diagnostic) {
      return diagnostic.code == "text-too-long" && diagnostic.summary == fault.message;
    });
    if (isTold) return false;
    switch (fault.kind) {
      case ThrownFault::Kind::TextTooLong:
        found.push_back(Diagnostic("text-too-long", fault.message));
        return true;
      case ThrownFault::Kind::CannotAllocate:
      case ThrownFault::Kind::OutOfMemory:
        found.push_back(CannotAllocate(facts, fault));
        break;
      case ThrownFault::Kind::UnexpectedException:
        found.push_back(Diagnostic("library-failed", "a library of the suite throws an exception"));
        break;
    }
    return false;
  }

  static Diagnostic CannotAllocate(const CmxFacts& facts, const ThrownFault& fault) {
    Diagnostic diagnostic("cannot-allocate", fault.message);
    if (const SettingLine* count = CountTooLarge(facts, fault)) {
      diagnostic.At(ValueRange(facts.File(), *count), count->line->whole);
    }
    return diagnostic;
  }

  /// The line that asks for it; null when none does alone.
  static const SettingLine* CountTooLarge(const CmxFacts& facts, const ThrownFault& fault) {
    const bool isMachines = fault.field == "ValueNoMachine";
    const bool isRemote = isMachines || facts.IsDistributed();
    const SectionReading* reading =
        facts.Reading(isRemote ? kRemoteMachinesSection : kTaskManagerSection);
    if (reading == nullptr) return nullptr;
    if (!isRemote) return reading->Find("ValueNoTask");
    return isMachines ? reading->Find("ValueNoMachine") : reading->MostTasks();
  }

  void Describe(const RunPlaces& places, const CmxFacts& facts) {
    Report& report = check_.report;
    report.runNumber = places.run;
    report.projectDirectory = places.project;
    report.runFolder = places.runFolder;
    report.family = call_.family;
    report.reasons.push_back({"family", FamilyReason(), std::nullopt});
    if (prediction_.hasFlowPass) AddFlowReason(facts);
    AddModeReason(facts);
    if (!prediction_.passes.empty() && prediction_.passes.back().mode == ComputeMode::Dmp) {
      for (const MachineEntry& machine : prediction_.context->remoteMachineSettings.machines) {
        report.machines.push_back({machine.hostName, ParseInteger(machine.taskCount),
                                   ParseDecimal(machine.weighting), std::nullopt, "not asked"});
      }
    }
    report.passes = std::move(prediction_.passes);
  }

  [[nodiscard]] std::string FamilyReason() const {
    const ClassRule* rule = call_.rule;
    if (rule == nullptr) return "no rule fits " + call_.solver;
    const std::string word = "\"" + std::string(rule->text) + "\"";
    if (rule->whenIn3d == rule->otherwise) return word + " in " + call_.solver;
    return word + (call_.family == rule->whenIn3d ? " and" : " without") + " \"3d\" in " +
           call_.solver;
  }

  void AddFlowReason(const CmxFacts& facts) {
    const SectionReading* reading = facts.Reading(kSolidCoolSection);
    const SettingLine* flag =
        reading == nullptr ? nullptr : reading->Find("Flag3DSolidCoolingChannel");
    if (flag == nullptr) return;
    check_.report.reasons.push_back({"flow pass",
                                     "Flag3DSolidCoolingChannel = " + std::string(flag->value),
                                     ValueRange(facts.File(), *flag)});
  }

  void AddModeReason(const CmxFacts& facts) {
    std::vector<Reason>& reasons = check_.report.reasons;
    const SectionReading* tasks = facts.Reading(kTaskManagerSection);
    if (tasks == nullptr) {
      reasons.push_back({"mode", std::string(TextsOf(call_.family).name) + " always runs serially",
                         std::nullopt});
      return;
    }
    const char* key = facts.IsDistributed() ? "IDTaskMode" : "ValueLocalNoTask";
    const SettingLine* setting = tasks->Find(key);
    if (setting == nullptr) {
      reasons.push_back({"mode", std::string(key) + " is empty", std::nullopt});
    } else {
      reasons.push_back({"mode", std::string(key) + " = " + std::string(setting->value),
                         LineRange(facts.File(), *setting->line)});
    }
  }

  /// The hosts' names, the storage node's shares, the shared solver and the shared run folder.
  void AskAround() {
    Report& report = check_.report;
    if (report.passes.empty() || report.passes.back().mode != ComputeMode::Dmp) return;
    const LauncherContext& context = *prediction_.context;
    const std::string home = context.remoteHomePath;
    std::vector<std::string> hosts;
    const auto addHost = [&](const std::string& host) {
      if (!host.empty() && std::ranges::find(hosts, host) == hosts.end()) hosts.push_back(host);
    };
    for (const MachineReport& machine : report.machines) addHost(machine.host);
    addHost(context.remoteMachineSettings.ValueStorageNode);
    std::vector<std::string> paths = {home};
    for (const Pass& pass : report.passes) {
      paths.push_back(WithExtension(pass.solverPath));
      paths.push_back(pass.logFolder);
    }
    const NetworkAnswers answers =
        AskNetwork(hosts, paths, options_.timeout, [&](std::chrono::milliseconds passed) {
          if (options_.onWait) options_.onWait(passed, hosts.size());
        });
    check_.leavesThreads = !answers.isComplete;
    TellHosts(answers, hosts);
    TellPaths(answers, home);
    report.diagnostics.push_back(
        Diagnostic("not-seen", "what remote machines see cannot be told from here"));
  }

  void TellHosts(const NetworkAnswers& answers, const std::vector<std::string>& hosts) {
    Report& report = check_.report;
    for (MachineReport& machine : report.machines) {
      const auto answer = answers.hosts.find(machine.host);
      if (answer == answers.hosts.end()) continue;
      switch (answer->second.answer) {
        case Answer::Yes:
          machine.name = "found";
          machine.address = answer->second.address;
          break;
        case Answer::No:
          machine.name = "unknown";
          break;
        case Answer::Silent:
          machine.name = "silent";
          break;
      }
    }
    std::size_t silent = 0;
    std::string firstSilent;
    for (const std::string& host : hosts) {
      const Answer answer = answers.hosts.at(host).answer;
      if (answer == Answer::No) {
        report.diagnostics.push_back(
            Diagnostic("host-unknown", "the name " + host + " is not known here"));
      } else if (answer == Answer::Silent && ++silent == 1) {
        firstSilent = host;
      }
    }
    if (silent == 0) return;
    report.diagnostics.push_back(Diagnostic(
        "host-silent", silent == 1
                           ? "the name " + firstSilent + " was not answered for in time"
                           : std::to_string(silent) + " names were not answered for in time, " +
                                 firstSilent + " among them"));
  }

  void TellPaths(const NetworkAnswers& answers, const std::string& home) {
    Report& report = check_.report;
    const auto tell = [&](const std::string& path, const std::string& what,
                          const std::string& consequence, const std::string& help = {}) {
      const Answer answer = answers.paths.at(path);
      if (answer == Answer::Yes) return true;
      if (answer == Answer::Silent) {
        report.diagnostics.push_back(Diagnostic("host-silent", path + " did not answer in time"));
      } else {
        Diagnostic diagnostic("share-unreachable",
                              "the " + what + " " + path + " cannot be reached from here");
        if (!help.empty()) diagnostic.Help(help);
        report.diagnostics.push_back(std::move(diagnostic).Because(consequence));
      }
      return false;
    };
    const bool hasHome = tell(home, "shared installation", "the machines would find no solver");
    std::vector<std::string> told;
    for (const Pass& pass : report.passes) {
      if (hasHome) {
        tell(WithExtension(pass.solverPath), "shared solver", "the machines would not start it",
             "the solver lies in Bin of the shared installation");
      }
      if (std::ranges::find(told, pass.logFolder) != told.end()) continue;
      told.push_back(pass.logFolder);
      tell(pass.logFolder, "shared run folder", "the run would lose its log");
    }
  }

  const CheckOptions& options_;
  CallFacts call_;
  Prediction prediction_;
  Check check_;
};

}  // namespace

Check CheckRun(const std::vector<std::string>& arguments, const CheckOptions& options) {
  if (arguments.size() < 2) {
    Check check;
    check.report.diagnostics.push_back(
        Diagnostic("call-arguments", "the call has " + std::to_string(arguments.size()) +
                                         (arguments.size() == 1 ? " argument" : " arguments") +
                                         ", fewer than two"));
    return check;
  }
  return RunCheck(arguments, options).Run();
}

}  // namespace qvx::runcheck
