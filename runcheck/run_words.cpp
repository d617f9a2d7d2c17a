#include "runcheck/run_words.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <set>

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
std::string FirstUnexpected(const CLI::App& app, const std::vector<std::string>& arguments) {
  const std::vector<std::string> rest = app.remaining();
  return *std::ranges::find_if(arguments, [&](const std::string& argument) {
    return std::ranges::find(rest, argument) != rest.end();
  });
}

/// The option that `argument` is nearly; empty for none.
std::string MeantOption(const CLI::App& app, const std::string& argument) {
  const std::size_t start = std::min(argument.find_first_not_of("-/"), argument.size());
  const std::string name = argument.substr(start, argument.find('=') - start);
  std::vector<std::string_view> names;
  for (const CLI::Option* option : app.get_options()) {
    names.insert(names.end(), option->get_lnames().begin(), option->get_lnames().end());
  }
  const std::string_view meant = MostSimilar(name, names);
  return start == 0 || meant.empty() ? "" : "--" + std::string(meant);
}

WordsMistake Unexpected(const CLI::App& app, const std::vector<std::string>& arguments) {
  const std::string first = FirstUnexpected(app, arguments);
  const std::string meant = MeantOption(app, first);
  const std::string text =
      !first.starts_with('-') && !first.starts_with('/')
          ? " belongs to no option; a text with blanks stands in quotation marks"
          : " is no option" + (meant.empty() ? "" : "; it is written " + meant);
  return {first + text + MarkHint(arguments), first, meant};
}

/// An option that lacks its value or stands twice: the parser would take the next option as the
/// value, and has words of its own for the rest. Empty for none.
std::string WrongValue(const CLI::App& app, const std::vector<std::string>& arguments) {
  std::set<std::string> seen;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const std::string name = argument->substr(0, argument->find('='));
    const CLI::Option* option = name.starts_with("--") ? app.get_option_no_throw(name) : nullptr;
    if (option == nullptr || option->get_items_expected_min() == 0) continue;
    const bool isNext = *argument == name;
    if (isNext) ++argument;
    const bool hasValue = isNext ? argument != arguments.end() && !argument->starts_with("--")
                                 : *argument != name + "=";
    if (!hasValue) return name + " is not followed by its value";
    if (!seen.insert(name).second) return name + " stands twice";
  }
  return "";
}

/// For an option that is one.
CLI::Validator WholeNumber(const std::string& option) {
  const auto check = [option](const std::string& text) -> std::string {
    int number = 0;
    if (CLI::detail::lexical_cast(text, number)) return "";
    // Only this kind is told without the option's name before it.
    throw CLI::ConversionError(option + " takes a whole number, not " + text);
  };
  return {check, ""};
}

class WithoutUsage : public CLI::Formatter {
 public:
  std::string make_usage(const CLI::App* /*app*/, std::string /*name*/) const override {
    return "";
  }
};

constexpr const char* kRunWords[] = {"--project", "--run",          "--solver", "--home",
                                     "--name",    "--molding-type", "--option"};

}  // namespace

void AddRunWords(CLI::App& app, RunWords& words) {
  app.formatter(std::make_shared<WithoutUsage>());  // the description shows the forms of the call
  app.add_option("--project", words.project, "project directory")->type_name("DIR");
  app.add_option("--run", words.run, "run number, as in the name of its folder")
      ->type_name("NUMBER");
  app.add_option("--solver", words.solver, "the solver's file name")->type_name("NAME");
  app.add_option("--home", words.home, "installation (the folder above this program's Bin)")
      ->type_name("DIR");
  app.add_option("--name", words.name, "project name (from the run folder's only CMX file)")
      ->type_name("NAME");
  app.add_option("--molding-type", words.moldingType, "molding type (1)")
      ->type_name("N")
      ->check(WholeNumber("--molding-type"));
  app.add_option("--option", words.option, "option value (0)")
      ->type_name("N")
      ->check(WholeNumber("--option"));
}

std::string GivenRunWord(const CLI::App& app) {
  const auto* given =
      std::ranges::find_if(kRunWords, [&](const char* word) { return app.count(word) > 0; });
  return given == std::end(kRunWords) ? "" : *given;
}

std::string MissingWord(const RunWords& words) {
  const std::string hint = MarkHint({words.project, words.run, words.solver});
  if (words.project.empty()) return "--project is missing" + hint;
  if (words.run.empty()) return "--run is missing" + hint;
  if (words.solver.empty()) return "--solver is missing" + hint;
  return "";
}

WordsMistake ParseWords(CLI::App& app, const std::vector<std::string>& arguments) {
  const std::string wrongValue = WrongValue(app, arguments);
  if (!wrongValue.empty()) return {wrongValue + MarkHint(arguments), "", ""};
  // The parser takes them from the end.
  std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::ExtrasError&) {
    return Unexpected(app, arguments);
  } catch (const CLI::ParseError& error) {
    return {FirstLetterLower(error.what()) + MarkHint(arguments), "", ""};
  }
  return {};
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
