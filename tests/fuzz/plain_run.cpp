#include "tests/fuzz/plain_run.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <regex>

namespace qvx::fuzz {
namespace {

// Solver classes, by their numbers.
constexpr int kFlow = 0, kCool = 2, kWarp = 3, kStress = 4, kShellFlow = 5;
constexpr int kShellWarp = 8, kIc = 9, kWs = 10, kPs = 11, kOptics = 12;

std::string Get(const Facts& facts, const std::string& name) {
  const auto found = facts.find(name);
  return found == facts.end() ? "" : found->second;
}

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

std::string TwoDigits(int number) {
  std::string digits = std::to_string(number);
  return digits.size() < 2 ? "0" + digits : digits;
}

int ClassOf(const std::string& solver) {
  const std::string name = Lower(solver);
  const auto has = [&](const char* text) { return name.find(text) != std::string::npos; };
  const bool in3d = has("3d");
  const char* const families[] = {"flow", "pack", "cool", "warp"};
  for (int i = 0; i < 4; ++i) {
    if (has(families[i])) return in3d ? i : kShellFlow + i;
  }
  if (has("stress")) return kStress;
  if (has("qvx3dicps")) return kPs;
  if (has("qvx3dic")) return kWs;
  if (has("optics")) return kOptics;
  return has("ic") ? kIc : kFlow;
}

std::vector<std::string> Tokens(const std::string& list) {
  std::vector<std::string> tokens;
  std::string token;
  for (const char c : list + "*") {
    if (c != '*') {
      token += c;
    } else if (!token.empty()) {
      tokens.push_back(token);
      token.clear();
    }
  }
  return tokens;
}

double PlainDecimal(const std::string& text) {
  static const std::regex kNumber(R"(^[ \t]*([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?))");
  std::smatch found;
  return std::regex_search(text, found, kNumber) ? std::strtod(found.str(1).c_str(), nullptr) : 0;
}

}  // namespace

std::string Exact(double number) {
  char text[64];
  std::snprintf(text, sizeof text, "%a ", number);
  return text;
}

std::string PlainHosts(const PlainRemoteMachines& remote) {
  std::string hosts = "-hosts " + Get(remote.fields, "ValueNoMachine") + " ";
  for (const PlainMachine& machine : remote.machines) {
    hosts += machine.host + " " + machine.tasks + " ";
  }
  return hosts;
}

Facts PlainParallel(const std::string& prefix, int mode, PlainFolders folders,
                    const Facts& taskManager, const PlainRemoteMachines& remote) {
  std::int64_t count = 1;
  std::string weights;
  if (mode == 1) {
    count = PlainCount(Get(taskManager, "ValueNoTask"));
    for (int i = 0; i < count; ++i) weights += Exact(1.0 / static_cast<double>(count));
  }
  if (mode == 2) {
    const std::string storage = Get(remote.fields, "ValueStorageNode");
    const std::string working = Get(remote.fields, "ValueParallelWorkingFolder");
    std::string rest = Lower(folders.project);
    const std::size_t at = rest.find(Lower(working));
    if (at != std::string::npos) {
      rest = rest.substr(std::min(at + working.size() + 1, rest.size()));
    }
    folders.home = ("\\\\" + storage + "\\Share").substr(0, 1023);
    folders.project =
        ("\\\\" + storage + "\\" + Get(remote.fields, "ValueShareFolderName") + "\\" + rest)
            .substr(0, 1023);
    count = 0;
    for (const PlainMachine& machine : remote.machines) count += PlainCount(machine.tasks);
    count = std::max<std::int64_t>(PlainCount(std::to_string(count)), INT32_MIN);
    std::int64_t k = 0;
    for (const PlainMachine& machine : remote.machines) {
      const int tasks = PlainInteger(machine.tasks);
      const double weighting = PlainDecimal(machine.weighting);
      for (int i = 0; i < tasks && k < count; ++i, ++k) weights += Exact(weighting / tasks);
    }
    for (; k < count; ++k) weights += Exact(0);
  }
  return {{prefix + "home", folders.home},
          {prefix + "project", folders.project},
          {prefix + "parallel mode", std::to_string(mode)},
          {prefix + "process count", std::to_string(count)},
          {prefix + "weights", weights}};
}

Facts PlainCommandLine(const std::vector<std::string>& arguments) {
  Facts facts;
  const std::size_t marker = arguments[0].find('$');
  const bool marked = marker != std::string::npos;
  const int moldingType = marked ? PlainInteger(arguments[0].substr(marker + 1, 7)) : -1;
  const std::string solver = arguments.size() > 2    ? arguments[2]
                             : arguments.size() == 2 ? arguments[1]
                                                     : "QuorvexFakeSolver.exe";
  facts["solver"] = Bounded("solver executable name", 64, solver);
  const int solverClass = ClassOf(solver);
  facts["class"] = std::to_string(solverClass);
  if (arguments.size() < 2) return facts;

  const bool isShell = solverClass >= kShellFlow && solverClass <= kShellWarp;
  const bool takesOption = isShell || (solverClass >= kCool && solverClass <= kStress);
  std::vector<std::string> tokens = Tokens(arguments[isShell ? 0 : 1]);
  if (isShell && !tokens.empty()) tokens.erase(tokens.begin());
  tokens.resize(std::max<std::size_t>(tokens.size(), 8));
  const auto take = [&](std::size_t number, const char* name, const char* field,
                        std::size_t width) { facts[name] = Bounded(field, width, tokens[number]); };
  take(0, "home", "home folder", 1024);
  if (!facts["home"].empty() && facts["home"].back() == '\\') facts["home"].pop_back();
  take(1, "project", "project directory", 1024);
  take(2, "name", "project name", 256);
  if (takesOption) facts["option"] = std::to_string(PlainInteger(tokens[3]));
  if (isShell) {
    facts["run"] = tokens[4].empty() ? "" : TwoDigits(PlainInteger(tokens[4]));
    take(5, "extra 0", "extra text", 1024);
    take(6, "extra 1", "extra text", 1024);
    take(7, "extra 2", "extra text", 1024);
  } else {
    take(4, "run", "run number", 32);
  }
  if (solverClass <= kStress) facts["molding"] = std::to_string(moldingType);
  if (solverClass == kStress) facts["second option"] = facts["option"];
  facts["context home"] = Bounded("home folder", 260, facts["home"]);
  return facts;
}

Facts PlainRun(const std::vector<std::string>& arguments, const std::string& file) {
  Facts facts = PlainCommandLine(arguments);
  const int solverClass = std::stoi(facts["class"]);
  const std::string runFolder = facts["project"] + "\\Analysis\\Run" + facts["run"];
  facts["cmx"] = Bounded("CMX path", 260, runFolder + "\\" + facts["name"] + facts["run"] + ".cmx");
  facts["run folder"] = Bounded("current run path", 260, runFolder);
  if (solverClass > kStress) return facts;

  const Facts taskManager = PlainTaskManager(file);
  const PlainRemoteMachines remote = PlainRemote(file);
  const bool distributed = Get(taskManager, "IDTaskMode") != "0";
  const int mode = distributed ? 2 : Get(taskManager, "ValueLocalNoTask") == "1" ? 0 : 1;
  if (distributed) {
    facts["remote home"] = Bounded("remote home path", 260,
                                   "\\\\" + Get(remote.fields, "ValueStorageNode") + "\\Share");
  }
  Facts shot;
  if (solverClass == kCool || solverClass == kWarp) shot = PlainMultiShot(file);
  const PlainFolders folders = {facts["home"], facts["project"]};
  if (solverClass == kCool && PlainCooling(file) == 1) {
    facts["flow option"] = facts["option"] == "3" ? "2" : "1";
    facts["flow molding"] = facts["molding"];
    facts.merge(PlainParallel("flow ", mode, folders, taskManager, remote));
  }
  facts.erase("home");
  facts.erase("project");
  facts.merge(PlainParallel("", mode, folders, taskManager, remote));
  if (solverClass >= kCool) {
    const auto number = [&](const char* key) { return PlainInteger(Get(shot, key)); };
    facts["previous shot"] =
        std::to_string(number("FlagPrevShot")) + "|" + Get(shot, "ValueShotProjectPath") + "|" +
        TwoDigits(number("ValueShotRunID")) + "|" + Get(shot, "ValueShotProjectName");
  }
  const std::string processes =
      distributed ? PlainHosts(remote) : "-localonly -n " + Get(taskManager, "ValueNoTask");
  facts["mpi"] = "I -env 0 0 " + processes + " C \"S\" A";
  return facts;
}

}  // namespace qvx::fuzz
