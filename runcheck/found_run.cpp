#include "runcheck/found_run.h"

#include <optional>

#include "runcheck/call_facts.h"
#include "runcheck/files.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

/// Nothing when this program does not lie in a Bin.
std::optional<std::string> OwnHome() {
  const std::string folder = OwnFolder();
  if (AsciiLower(LastPart(folder)) != "bin") return std::nullopt;
  return folder.substr(0, LastSeparator(folder));
}

/// The names that CMX files of the run give the project.
std::vector<std::string> ProjectNames(const RunWords& words) {
  const std::string run = FactsOf(LauncherArguments(words, "home", "name")).FolderNumber();
  const std::string ending = AsciiLower(run + ".cmx");
  std::vector<std::string> names;
  for (const std::string& name :
       NamesMatching(words.project + "\\Analysis\\Run" + run + "\\*.cmx")) {
    if (name.size() > ending.size() && AsciiLower(name).ends_with(ending)) {
      names.push_back(name.substr(0, name.size() - ending.size()));
    }
  }
  return names;
}

/// What a project is usually called.
std::string NameOfFolder(std::string path) {
  while (EndsInSlash(path)) path.pop_back();
  return LastPart(path);
}

}  // namespace

FoundRun FindRun(const RunWords& words) {
  const std::optional<std::string> home = words.home ? words.home : OwnHome();
  if (!home) return {{}, "--home is missing, and this program lies in no Bin"};
  std::string name = words.name.value_or("");
  if (name.empty()) {
    const std::vector<std::string> names = ProjectNames(words);
    if (names.size() > 1) {
      return {{},
              "--name is missing, and the run folder holds the CMX files of " + names[0] + " and " +
                  names[1]};
    }
    name = names.empty() ? NameOfFolder(words.project) : names[0];
  }
  return {LauncherArguments(words, *home, name), ""};
}

}  // namespace qvx::runcheck
