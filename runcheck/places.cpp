#include "runcheck/places.h"

#include <algorithm>
#include <cstring>
#include <thread>

#include "launcher/argument_record.h"
#include "runcheck/files.h"
#include "runcheck/similar_name.h"
#include "support/numbers.h"
#include "support/trailing_backslash.h"

namespace qvx::runcheck {
namespace {

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

/// The CMX file of another run or name lies there.
void AddCmxNeighbours(const RunPlaces& places, Diagnostic& diagnostic) {
  std::vector<std::string> names = NamesMatching(places.runFolder + "\\*.cmx*");
  if (names.empty()) {
    names = NamesMatching(places.runFolder + "\\" + places.name + places.run + ".*");
  }
  if (names.empty()) {
    for (const char* above : {"\\", "\\Analysis\\"}) {
      const std::string path = places.project + above + places.cmxName;
      if (KindOf(path) == FileKind::File) diagnostic.Suggest(path, "there is a file " + path);
    }
    return;
  }
  const std::string meant = names.size() == 1 ? names[0] : std::string();
  const std::string help = "the run folder holds " + Joined(names);
  if (meant.empty()) {
    diagnostic.Help(help);
  } else {
    diagnostic.Suggest(meant, help);
  }
}

/// The only folder in `folder` that holds `inside`.
void AddFolderBelow(const std::string& folder, const std::string& inside, Diagnostic& diagnostic) {
  std::vector<std::string> paths;
  for (const std::string& name : NamesMatching(folder + "\\*")) {
    const std::string path = folder + "\\" + name;
    if (KindOf(path + "\\" + inside) == FileKind::Folder) paths.push_back(path);
  }
  if (paths.size() == 1) diagnostic.Suggest(paths[0], paths[0] + " holds one");
}

/// A folder beside the missing one, with nearly its name.
void AddNeighbour(const std::string& folder, Diagnostic& diagnostic) {
  const std::string parent = folder.substr(0, LastSeparator(folder) + 1);
  const std::vector<std::string> names = NamesMatching(parent + "*");
  const std::vector<std::string_view> views(names.begin(), names.end());
  const std::string_view meant = MostSimilar(LastPart(folder), views);
  const std::string path = parent + std::string(meant);
  if (meant.empty() || KindOf(path) != FileKind::Folder) return;
  diagnostic.Suggest(path, "there is a folder " + path);
}

/// What follows when there is no run folder.
std::string LostRun(const CallFacts& call) {
  return AlwaysRunsSerially(call.family)
             ? "the run would lose its log"
             : "without its CMX file the run would be distributed and lose its log";
}

/// `diagnostic`: without its summary.
bool CheckFolder(Diagnostic diagnostic, const char* what, const std::string& folder,
                 const char* inside, Diagnostics& found) {
  // A blank or mark around it is told with the call.
  if (folder.empty() || TrimmedOfInvisible(folder) != folder) return false;
  const auto suggestAbove = [&] {
    // One that lies within it was meant to be it.
    const std::size_t at = (AsciiLower(folder) + "\\").find("\\" + AsciiLower(inside) + "\\");
    if (at == std::string::npos) return;
    diagnostic.Suggest(folder.substr(0, at), "it is written " + folder.substr(0, at));
  };
  if (!IsAbsolutePath(folder)) {
    diagnostic.summary = "the " + std::string(what) + " " + folder + " is relative";
    diagnostic.Because("the launcher would look below the folder that it is started in");
    if (folder.starts_with('%')) diagnostic.Help("a variable between % is not replaced here");
  } else if (const FileKind kind = KindOf(folder); kind == FileKind::Missing) {
    diagnostic.summary = "the " + std::string(what) + " " + folder + " does not exist";
    if (folder.find('?') != std::string::npos) {
      diagnostic.Help("a ? stands for a letter that the ANSI code page does not hold");
    }
    AddNeighbour(folder, diagnostic);
  } else if (kind == FileKind::File) {
    diagnostic.summary = "the " + std::string(what) + " " + folder + " is a file";
    suggestAbove();
  } else if (KindOf(folder + "\\" + inside) != FileKind::Folder) {
    diagnostic.summary = "the " + std::string(what) + " " + folder + " holds no folder " + inside;
    AddNeighbour(folder + "\\" + inside, diagnostic);
    AddFolderBelow(folder, inside, diagnostic);
    suggestAbove();
  } else {
    return true;
  }
  found.push_back(diagnostic);
  return false;
}

/// A folder beside the run folder that the run number was meant for; empty for none.
std::string MeantRunNumber(const RunPlaces& places) {
  const std::string analysis = places.project + "\\Analysis\\Run";
  std::vector<std::string> candidates = {"0" + places.run, "00" + places.run};
  if (places.run.starts_with('0')) {
    candidates.push_back(
        places.run.substr(std::min(places.run.find_first_not_of('0'), places.run.size() - 1)));
    candidates.push_back(places.run.substr(1));
  }
  for (const std::string& run : candidates) {
    if (run != places.run && KindOf(analysis + run) == FileKind::Folder) return run;
  }
  return {};
}

void AddMissingRunFolder(const CallFacts& call, const RunPlaces& places, Diagnostics& found) {
  const auto told = std::ranges::find(found, "run-number", &Diagnostic::code);
  if (told != found.end()) {
    told->Grave().Because("the launcher would look in the folder Run" + places.run +
                          ", which does not exist");
    return;
  }
  const std::string analysis = places.project + "\\Analysis\\";
  const std::string option = call.Token(kOptionValue);
  if (option.size() > 1 && KindOf(analysis + "Run" + option) == FileKind::Folder) {
    found.push_back(
        Diagnostic("call-token-order",
                   "the option is " + option + " and the run number is " + call.Token(kRunNumber))
            .Grave());
    return;
  }
  if (const std::string meant = MeantRunNumber(places); !meant.empty()) {
    Diagnostic diagnostic("run-number", "the run folder Run" + places.run +
                                            " does not exist and Run" + meant + " does");
    diagnostic.Grave().Because(LostRun(call));
    if (call.isShell) {
      // However it is written: it is formatted anew.
      const std::string name = "Run" + places.run;
      diagnostic.Suggest(name, "a shell solver's run folder is named " + name);
    } else {
      diagnostic.Suggest(meant, "the run number is written " + meant);
    }
    found.push_back(diagnostic);
    return;
  }
  Diagnostic diagnostic("run-folder", "the run folder " + places.runFolder + " does not exist");
  diagnostic.Because(LostRun(call));
  std::vector<std::string> others = NamesMatching(analysis + "Run*");
  constexpr std::size_t kMost = 10;
  std::ranges::sort(others);
  others.resize(std::min(others.size(), kMost));
  if (!others.empty()) diagnostic.Help("Analysis holds " + Joined(others));
  found.push_back(diagnostic);
}

/// True when there is a run folder to look into.
bool CheckRunFolder(const CallFacts& call, const RunPlaces& places, Diagnostics& found) {
  if (places.run.empty()) return false;
  const FileKind kind = KindOf(places.runFolder);
  if (kind == FileKind::Missing) {
    AddMissingRunFolder(call, places, found);
    return false;
  }
  // The folder that is named as the run number is written is the one that was meant.
  const auto told = std::ranges::find(found, "run-number", &Diagnostic::code);
  const std::string asWritten = places.project + "\\Analysis\\Run" + call.Token(kRunNumber);
  if (told != found.end() && call.isShell && KindOf(asWritten) == FileKind::Folder) told->Grave();
  if (kind == FileKind::File) {
    found.push_back(Diagnostic("run-folder", "the run folder " + places.runFolder + " is a file")
                        .Because(LostRun(call)));
    return false;
  }
  if (!MayWriteInto(places.runFolder)) {
    found.push_back(
        Diagnostic("run-folder", "the run folder " + places.runFolder + " cannot be written to")
            .Help("its rights keep this user from writing there"));
  }
  return true;
}

void CheckCmxPlace(const CallFacts& call, const RunPlaces& places, const CmxFile& cmx,
                   Diagnostics& found) {
  // The solvers that always run serially have their own use for it; the launcher has none.
  const bool isRead = !AlwaysRunsSerially(call.family);
  const bool isNameTold = LooksLikePath(places.name) ||
                          TrimmedOfInvisible(places.name) != places.name ||
                          places.name.find('"') != std::string::npos;
  if (!isRead && isNameTold) return;
  const FileKind kind = KindOf(places.cmxPath);
  const bool isReadable = kind == FileKind::File && ReadFileStart(places.cmxPath, 1).has_value();
  if (isReadable && !cmx.bytes.empty()) return;
  const char* what = kind == FileKind::Missing  ? " does not exist"
                     : kind == FileKind::Folder ? " is a folder"
                     : isReadable               ? " is empty"
                                                : " cannot be read";
  Diagnostic diagnostic("cmx-file", "the CMX file " + places.cmxPath + what);
  if (isRead) {
    diagnostic.Grave();
  } else {
    diagnostic.Because("the solver would not find it");
  }
  if (kind == FileKind::Missing) AddCmxNeighbours(places, diagnostic);
  if (kind == FileKind::File && !isReadable) {
    diagnostic.Help("its rights, or a program that holds it, keep it from being read");
  }
  found.push_back(diagnostic);
}

}  // namespace

RunPlaces PlacesOf(const CallFacts& call, const Prediction& prediction) {
  RunPlaces places;
  places.home = call.Token(kHomeFolder);
  RemoveTrailingBackslash(places.home.data());
  places.home.resize(std::strlen(places.home.c_str()));
  places.project = call.Token(kProjectDirectory);
  places.name = call.Token(kProjectName);
  places.run = call.FolderNumber();
  if (prediction.isInterpreted) {
    LauncherContext& context = *prediction.context;
    places.home = context.homeFolder;
    places.project = prediction.projectDirectory;
    places.runFolder = context.localRunPath;
    places.cmxPath = context.cmxPath;
    const SolverClass now = context.solverClass;
    context.solverClass = prediction.family;
    VisitArgumentRecord(context, [&](const QVXRunTexts& run) {
      places.name = run.projectName;
      places.run = run.runNumber;
    });
    context.solverClass = now;
  } else {
    places.runFolder = places.project + "\\Analysis\\Run" + places.run;
    places.cmxPath = places.runFolder + "\\" + places.name + places.run + ".cmx";
  }
  places.cmxName = LastPart(places.cmxPath);
  return places;
}

void CheckRunPlaces(const CallFacts& call, const RunPlaces& places, const CmxFile& cmx,
                    Diagnostics& found) {
  const bool isSwapped = KindOf(places.home + "\\Analysis") == FileKind::Folder &&
                         KindOf(places.project + "\\Bin") == FileKind::Folder &&
                         KindOf(places.home + "\\Bin") != FileKind::Folder;
  if (isSwapped) {
    found.push_back(Diagnostic("call-token-order", "the home folder " + places.home +
                                                       " is a project and the project directory " +
                                                       places.project + " an installation")
                        .Grave());
    return;
  }
  CheckFolder(Diagnostic("home-folder", ""), "home folder", places.home, "Bin", found);
  if (!CheckFolder(Diagnostic("project-folder", "").Because(LostRun(call)), "project directory",
                   places.project, "Analysis", found)) {
    return;
  }
  if (CheckRunFolder(call, places, found)) CheckCmxPlace(call, places, cmx, found);
}

void CheckMachine(const Prediction& prediction, Diagnostics& found) {
  if (prediction.context == nullptr) return;
  const unsigned processors = std::thread::hardware_concurrency();
  for (const Pass& pass : prediction.passes) {
    if (pass.mode != ComputeMode::Smp || processors == 0) continue;
    if (pass.processCount <= static_cast<int>(processors)) continue;
    found.push_back(Diagnostic("processors", std::to_string(pass.processCount) + " tasks share " +
                                                 std::to_string(processors) + " processors"));
    break;
  }
  const MultiShotSettings& shot = prediction.context->multiShotSettings;
  const std::string path = shot.ValueShotProjectPath;
  if (prediction.fault || Cleaned(path) != path) {
    // The settings are read as far as it, or it is told with its line.
  } else if (shot.FlagPrevShot != 0 && path.empty()) {
    found.push_back(
        Diagnostic("previous-shot", "FlagPrevShot is set and ValueShotProjectPath is empty"));
  } else if (shot.FlagPrevShot != 0 && KindOf(path) != FileKind::Folder) {
    found.push_back(
        Diagnostic("previous-shot", "the previous shot's project " + path + " does not exist"));
  }
  if (prediction.context->debugTraceFlag != 0) {
    found.push_back(
        Diagnostic("debug-trace", "the debug trace is switched on by " +
                                      std::string(prediction.context->applicationDataFolder) +
                                      "\\NelvornSystem\\qvxsolverlauncherdebug.txt"));
  }
}

}  // namespace qvx::runcheck
