#include "runcheck/call.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "runcheck/call_facts.h"

namespace qvx::runcheck {
namespace {

constexpr const char* kUsage =
    "QVXRunCheck says before a run what QVXSolverLauncher would do, why, and what is wrong.\n"
    "It starts nothing, writes nothing and changes nothing.\n"
    "\n"
    "  QVXRunCheck.exe [options] -- FIRST_ARGUMENT [TOKENS [SOLVER ...]]\n"
    "  QVXRunCheck.exe [options] --project DIR --run NUMBER --solver NAME [--home DIR]\n"
    "                  [--name NAME] [--molding-type N] [--option N]\n"
    "  QVXRunCheck.exe --explain-status N\n"
    "\n"
    "Behind -- stands exactly what the launcher would be started with.\n";

std::unique_ptr<CLI::App> MakeApp(Call& call) {
  auto app = std::make_unique<CLI::App>(kUsage, "QVXRunCheck.exe");
  app->allow_windows_style_options(false);
  app->set_help_flag("");
  app->add_flag("--help,-h", call.help, "show this help, like /?");
  app->add_flag("--version", call.version, "show the version");
  app->add_flag("--json", call.json, "print one JSON object");
  app->add_flag("--no-network", call.noNetwork, "ask no host and no share");
  app->add_option("--timeout", call.timeout, "seconds that the network has to answer (5)")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.1, 600.0));
  app->add_option("--explain-status", call.explainStatus, "say what a launcher's exit status means")
      ->type_name("N");
  app->add_option("--project", call.project, "project directory")->type_name("DIR");
  app->add_option("--run", call.run, "run number, as in the name of its folder")
      ->type_name("NUMBER");
  app->add_option("--solver", call.solver, "the solver's file name")->type_name("NAME");
  app->add_option("--home", call.home, "installation (the folder above this program's Bin)")
      ->type_name("DIR");
  app->add_option("--name", call.name, "project name (from the run folder's only CMX file)")
      ->type_name("NAME");
  app->add_option("--molding-type", call.moldingType, "molding type (1)")->type_name("N");
  app->add_option("--option", call.option, "option value (0)")->type_name("N");
  return app;
}

std::string FirstLetterLower(std::string text) {
  if (text.size() > 1 && text[1] >= 'a') text[0] = static_cast<char>(std::tolower(text[0]));
  return text;
}

/// What the parser cannot know.
std::string WrongCombination(const Call& call) {
  const bool hasRun = !call.project.empty() || !call.run.empty() || !call.solver.empty();
  if (!call.explainStatus.empty()) {
    return hasRun || call.launcherArguments ? "--explain-status stands alone" : "";
  }
  if (call.launcherArguments) {
    return hasRun ? "--project, --run and --solver do not stand together with --" : "";
  }
  if (call.project.empty()) return "--project is missing";
  if (call.run.empty()) return "--run is missing";
  if (call.solver.empty()) return "--solver is missing";
  return "";
}

}  // namespace

Call ParseCall(const std::vector<std::string>& arguments) {
  Call call;
  const auto separator = std::ranges::find(arguments, "--");
  std::vector<std::string> options(arguments.begin(), separator);
  if (separator != arguments.end()) {
    call.launcherArguments.emplace(separator + 1, arguments.end());
  }
  // Known before anything can be wrong: a wrong call is told in the form that was asked for.
  call.json = std::ranges::find(options, "--json") != options.end();
  if (arguments.empty() || std::ranges::find(options, "/?") != options.end()) {
    call.help = true;
    return call;
  }
  const std::unique_ptr<CLI::App> app = MakeApp(call);
  // The parser takes them from the end.
  std::vector<std::string> reversed(options.rbegin(), options.rend());
  try {
    app->parse(reversed);
  } catch (const CLI::ParseError& error) {
    call.wrong = FirstLetterLower(error.what());
    const bool hasMark = std::ranges::any_of(
        options, [](const std::string& option) { return option.find('"') != std::string::npos; });
    if (hasMark) call.wrong += "; a backslash before a quotation mark takes what follows with it";
    return call;
  }
  if (!call.help && !call.version) call.wrong = WrongCombination(call);
  return call;
}

std::string HelpText() {
  Call call;
  std::string text = MakeApp(call)->help();
  text +=
      "\nExit status: 0 nothing stops the run, warnings included; 1 the run would not start, "
      "would\n"
      "start something else than meant, or would lose its log; 2 this call is wrong.";
  return text;
}

std::vector<std::string> LauncherArguments(const Call& call, const std::string& home,
                                           const std::string& name) {
  const std::string tokens =
      home + "*" + call.project + "*" + name + "*" + std::to_string(call.option) + "*" + call.run;
  const std::string first = "QVXSolverLauncher.exe$" + std::to_string(call.moldingType);
  const CallFacts facts = FactsOf({first, tokens, call.solver});
  if (facts.isShell) return {first + "*" + tokens, "-", call.solver};
  return {first, tokens, call.solver};
}

std::string CommandLineOf(const std::vector<std::string>& launcherArguments) {
  std::string line;
  for (const std::string& argument : launcherArguments) {
    const bool isQuoted = argument.empty() || argument.find_first_of(" \t") != std::string::npos;
    line += (line.empty() ? "" : " ") + (isQuoted ? '"' + argument + '"' : argument);
  }
  return line;
}

}  // namespace qvx::runcheck
