// A run in words: what the check and StartLauncher take in place of the launcher's own arguments.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qvx::runcheck {

struct RunWords {
  std::string project;
  std::string run;
  std::string solver;
  std::optional<std::string> home;
  std::optional<std::string> name;
  int moldingType = 1;
  int option = 0;
};

/// Makes them options of `app`, whose help then shows no usage line. `words` has to outlive it.
void AddRunWords(CLI::App& app, RunWords& words);

/// The first of the words' options that was parsed, in the help's order; empty for none.
std::string GivenRunWord(const CLI::App& app);

/// "--run is missing" or the like; empty when all words are there that have no default.
std::string MissingWord(const RunWords& words);

/// What is wrong with arguments; all empty when nothing is.
struct WordsMistake {
  std::string text;
  std::string unexpected;  ///< the argument that belongs to no option, where that is it
  std::string meant;       ///< the option that it may have been meant for
};

/// Parses `arguments`, which are without the program's own name.
WordsMistake ParseWords(CLI::App& app, const std::vector<std::string>& arguments);

/// The launcher's arguments, its first one included. `home` and `name` are those of the words, or
/// found for them.
std::vector<std::string> LauncherArguments(const RunWords& words, const std::string& home,
                                           const std::string& name);

}  // namespace qvx::runcheck
