#include "runcheck/run_words.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "runcheck/call_facts.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

std::string FirstLetterLower(std::string text) {
  if (text.size() > 1 && text[1] >= 'a') text[0] = static_cast<char>(std::tolower(text[0]));
  return text;
}

/// What else may have gone wrong with them.
std::string MarkHint(const std::vector<std::string>& texts) {
  const bool hasMark = std::ranges::any_of(
      texts, [](const std::string& text) { return text.find('"') != std::string::npos; });
  return hasMark ? "; a backslash before a quotation mark takes what follows with it" : "";
}

/// The first of `arguments` that the parser could not use.
std::string Unexpected(const CLI::App& app, const std::vector<std::string>& arguments) {
  const std::vector<std::string> rest = app.remaining();
  const std::string first = *std::ranges::find_if(arguments, [&](const std::string& argument) {
    return std::ranges::find(rest, argument) != rest.end();
  });
  const std::string name =
      AsciiLower(first.substr(std::min(first.find_first_not_of("-/"), first.size())));
  if (name.size() == first.size()) {
    return first + " belongs to no option; a text with blanks stands in quotation marks";
  }
  const bool isKnown = !name.empty() && app.get_option_no_throw("--" + name) != nullptr;
  return first + " is no option" + (isKnown ? "; it is written --" + name : "");
}

}  // namespace

void AddRunWords(CLI::App& app, RunWords& words) {
  app.add_option("--project", words.project, "project directory")->type_name("DIR");
  app.add_option("--run", words.run, "run number, as in the name of its folder")
      ->type_name("NUMBER");
  app.add_option("--solver", words.solver, "the solver's file name")->type_name("NAME");
  app.add_option("--home", words.home, "installation (the folder above this program's Bin)")
      ->type_name("DIR");
  app.add_option("--name", words.name, "project name (from the run folder's only CMX file)")
      ->type_name("NAME");
  app.add_option("--molding-type", words.moldingType, "molding type (1)")->type_name("N");
  app.add_option("--option", words.option, "option value (0)")->type_name("N");
}

std::string MissingWord(const RunWords& words) {
  const std::string hint = MarkHint({words.project, words.run, words.solver});
  if (words.project.empty()) return "--project is missing" + hint;
  if (words.run.empty()) return "--run is missing" + hint;
  if (words.solver.empty()) return "--solver is missing" + hint;
  return "";
}

std::string ParseWords(CLI::App& app, const std::vector<std::string>& arguments) {
  // The parser takes them from the end.
  std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::ExtrasError&) {
    return Unexpected(app, arguments) + MarkHint(arguments);
  } catch (const CLI::ParseError& error) {
    return FirstLetterLower(error.what()) + MarkHint(arguments);
  }
  return "";
}

std::vector<std::string> LauncherArguments(const RunWords& words, const std::string& home,
                                           const std::string& name) {
  const std::string tokens = home + "*" + words.project + "*" + name + "*" +
                             std::to_string(words.option) + "*" + words.run;
  const std::string first = "QVXSolverLauncher.exe$" + std::to_string(words.moldingType);
  const CallFacts facts = FactsOf({first, tokens, words.solver});
  if (facts.isShell) return {first + "*" + tokens, "-", words.solver};
  return {first, tokens, words.solver};
}

}  // namespace qvx::runcheck
