// StartLauncher.exe starts QVXSolverLauncher by hand. A run in words is checked first; the other
// form starts what it is told to, as a front end would.
#include <windows.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>
#include <vector>

#include "runcheck/files.h"
#include "runcheck/found_run.h"
#include "runstart/program.h"
#include "version.h"

// Tokens on the command line are separated by "*": mingw-w64's C runtime must not expand wildcards.
#if defined(__MINGW32__)
extern "C" {
int _dowildcard = 0;  // NOLINT(bugprone-reserved-identifier): the runtime's name
}
#endif

namespace qvx::runstart {
namespace {

using Texts = std::vector<std::string>;

constexpr int kNotStarted = 1;
constexpr int kWrongCall = 2;

constexpr const char* kUsage =
    "StartLauncher asks QVXRunCheck about a run, starts QVXSolverLauncher for it unless there are\n"
    "errors, and returns its exit status. Both lie beside this program.\n"
    "\n"
    "  StartLauncher.exe [options] --project DIR --run NUMBER --solver NAME [--home DIR]\n"
    "                    [--name NAME] [--molding-type N] [--option N]\n"
    "  StartLauncher.exe APPLICATION FIRST_ARGUMENT [ARGUMENT]...\n"
    "\n"
    "The second form checks nothing: it starts APPLICATION with FIRST_ARGUMENT where a program's\n"
    "name usually stands, prints its exit status and returns 0.";

constexpr const char* kStatuses =
    "\nExit status of the first form: the launcher's own, with all 32 bits; 1 when it was not\n"
    "started, 2 when this call is wrong. Only a started launcher's is printed.\n";

int Refuse(int status, const std::string& why) {
  std::fprintf(stderr, "StartLauncher: %s\n", why.c_str());
  return status;
}

int RefuseProgram(const std::string& path, const ProgramEnd& end) {
  return Refuse(kNotStarted, "cannot start " + path + ": system error " + std::to_string(end.code));
}

int PrintStatus(const ProgramEnd& end) {
  const int status = static_cast<int>(end.code);
  // The launcher's countdown leaves its line open.
  std::printf("\nexit status %d\n", status);
  return status;
}

/// A Ctrl-C is for the launcher, which shares the console and still has a status to return.
BOOL WINAPI LeaveToTheLauncher(DWORD event) {
  return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT ? TRUE : FALSE;
}

int StartApplication(const Texts& arguments) {
  const std::string& application = arguments[0];
  if (arguments[1].find('"') != std::string::npos) {
    return Refuse(kNotStarted, "FIRST_ARGUMENT must not hold a quote");
  }
  const ProgramEnd end = RunProgram(application, {arguments.begin() + 1, arguments.end()});
  if (!end.wasStarted) return RefuseProgram(application, end);
  PrintStatus(end);
  return 0;
}

/// `options`: the check's own, beside the run.
int CheckAndStart(const Texts& launcherArguments, const Texts& options, bool isForced) {
  const std::string folder = runcheck::OwnFolder() + "\\";
  Texts checkArguments = {"QVXRunCheck.exe"};
  checkArguments.insert(checkArguments.end(), options.begin(), options.end());
  checkArguments.emplace_back("--");
  checkArguments.insert(checkArguments.end(), launcherArguments.begin(), launcherArguments.end());
  const ProgramEnd check = RunProgram(folder + "QVXRunCheck.exe", checkArguments);
  if (!isForced) {
    if (!check.wasStarted) return RefuseProgram(folder + "QVXRunCheck.exe", check);
    if (check.code != 0) return Refuse(kNotStarted, "not started; --force starts it all the same");
  }
  std::printf("\n");
  const ProgramEnd end = RunProgram(folder + "QVXSolverLauncher.exe", launcherArguments);
  if (!end.wasStarted) return RefuseProgram(folder + "QVXSolverLauncher.exe", end);
  return PrintStatus(end);
}

struct Call {
  runcheck::RunWords words;
  bool wantsHelp = false;
  bool wantsVersion = false;
  bool isForced = false;
  bool asksNoNetwork = false;
  std::string timeout;  ///< as it was written; empty when it was not
};

void AddOptions(CLI::App& app, Call& call) {
  app.allow_windows_style_options(false);
  app.set_help_flag("");
  app.add_flag("--help,-h", call.wantsHelp, "show this help, like /?");
  app.add_flag("--version", call.wantsVersion, "show the version");
  app.add_flag("--force", call.isForced, "start the launcher whatever the check says");
  app.add_flag("--no-network", call.asksNoNetwork, "for the check: ask no host and no share");
  app.add_option("--timeout", call.timeout,
                 "for the check: seconds that the network has to answer (5)")
      ->type_name("SECONDS");
  runcheck::AddRunWords(app, call.words);
}

int StartRun(const Texts& arguments) {
  Call call;
  CLI::App app(kUsage, "StartLauncher.exe");
  AddOptions(app, call);
  const std::string wrong = runcheck::ParseWords(app, arguments).text;
  if (!wrong.empty()) return Refuse(kWrongCall, wrong);
  if (call.wantsHelp || arguments.empty()) {
    std::printf("%s%s", app.help().c_str(), kStatuses);
    return call.wantsHelp ? 0 : kWrongCall;
  }
  if (call.wantsVersion) {
    std::printf("StartLauncher " QVX_VERSION "\n");
    return 0;
  }
  const std::string missing = runcheck::MissingWord(call.words);
  if (!missing.empty()) return Refuse(kWrongCall, missing);
  const runcheck::FoundRun run = runcheck::FindRun(call.words);
  if (!run.wrong.empty()) return Refuse(kWrongCall, run.wrong);

  Texts options;
  if (call.asksNoNetwork) options.emplace_back("--no-network");
  if (!call.timeout.empty()) options.insert(options.end(), {"--timeout", call.timeout});
  return CheckAndStart(run.arguments, options, call.isForced);
}

int Main(const Texts& arguments) {
  SetConsoleCtrlHandler(LeaveToTheLauncher, TRUE);
  if (arguments.size() >= 2 && !arguments[0].starts_with('-')) return StartApplication(arguments);
  return StartRun(arguments == Texts{"/?"} ? Texts{"--help"} : arguments);
}

}  // namespace
}  // namespace qvx::runstart

// NOLINTNEXTLINE(bugprone-exception-escape): only an option declared twice throws
int main(int count, char** arguments) {
  return qvx::runstart::Main({arguments + 1, arguments + count});
}
