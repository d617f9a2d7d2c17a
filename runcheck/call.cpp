#include "runcheck/call.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

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
    "Behind -- stands exactly what the launcher would be started with.";

/// Empty for one that may be asked for.
std::string WrongTimeout(const std::string& text) {
  double seconds = 0;
  const bool isNumber = CLI::detail::lexical_cast(text, seconds);
  if (isNumber && seconds >= 0.1 && seconds <= 600) return "";
  return text + " is no number from 0.1 to 600";
}

std::unique_ptr<CLI::App> MakeApp(Call& call) {
  auto app = std::make_unique<CLI::App>(kUsage, "QVXRunCheck.exe");
  app->allow_windows_style_options(false);
  app->set_help_flag("");
  app->add_flag("--help,-h", call.help, "show this help, like /?");
  app->add_flag("--version", call.version, "show the version");
  app->add_flag("--json", call.json, "print one JSON object");
  app->add_flag("--no-network", call.noNetwork, "ask no host and no share");
  app->add_option("--timeout", call.timeout,
                  "seconds that the network has to answer, 0.1 to 600 (5)")
      ->type_name("SECONDS")
      ->check(CLI::Validator(WrongTimeout, ""));
  app->add_option("--explain-status", call.explainStatus, "say what a launcher's exit status means")
      ->type_name("N");
  AddRunWords(*app, call.words);
  return app;
}

/// What the parser cannot know.
std::string WrongCombination(const CLI::App& app, const Call& call) {
  const std::string word = GivenRunWord(app);
  if (call.explainStatus) {
    if (call.explainStatus->empty()) return "--explain-status is not followed by its value";
    return !word.empty() || call.launcherArguments ? "--explain-status stands alone" : "";
  }
  if (call.launcherArguments) {
    return word.empty() ? "" : word + " does not stand together with --";
  }
  return MissingWord(call.words);
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
  const WordsMistake mistake = ParseWords(*app, options);
  call.wrong = mistake.text;
  call.meant = mistake.meant;
  if (mistake.unexpected.find_first_of("*$") != std::string::npos) {
    call.wrong = mistake.unexpected +
                 " stands without -- before it: what the launcher is started with "
                 "stands behind --";
    call.meant.clear();
  }
  if (!call.wrong.empty()) return call;
  if (!call.help && !call.version) call.wrong = WrongCombination(*app, call);
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

}  // namespace qvx::runcheck
