// QVXRunCheck.exe: says before a run what the launcher would do, why, and what is wrong.
#include <windows.h>

#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "runcheck/call.h"
#include "runcheck/call_facts.h"
#include "runcheck/check.h"
#include "runcheck/explain_status.h"
#include "runcheck/files.h"
#include "runcheck/found_run.h"
#include "runcheck/terminal.h"
#include "version.h"

// Tokens on the command line are separated by "*": mingw-w64's C runtime must not expand wildcards.
#if defined(__MINGW32__)
extern "C" {
int _dowildcard = 0;  // NOLINT(bugprone-reserved-identifier): the runtime's name
}
#endif

namespace qvx::runcheck {
namespace {

constexpr int kWrongCall = 2;

void Print(const Terminal& terminal, const Call& call, const Report& report) {
  if (call.json) {
    terminal.WriteUtf8(JsonReport(report, AnsiToUtf8));
  } else {
    terminal.Write(TextReport(report, terminal.Style()));
  }
}

/// What was asked for instead of a check: text, or a note in the report.
int Inform(const Terminal& terminal, const Call& call, const std::string& text) {
  if (call.json) {
    Report report;
    report.diagnostics.push_back(Diagnostic("information", text));
    terminal.WriteUtf8(JsonReport(report, AnsiToUtf8));
  } else {
    terminal.Write(text + "\n");
  }
  return 0;
}

int Refuse(const Terminal& terminal, const Call& call, const std::string& what) {
  Report report;
  Diagnostic diagnostic("wrong-call", what);
  if (!call.meant.empty()) diagnostic.suggestion = call.meant;
  report.diagnostics.push_back(diagnostic);
  if (call.json) {
    Print(terminal, call, report);
  } else {
    terminal.Write(DiagnosticText(report.diagnostics.front(), terminal.Style()));
  }
  return kWrongCall;
}

int CheckAndPrint(const Terminal& terminal, const Call& call,
                  const std::vector<std::string>& arguments, const std::string& made) {
  CheckOptions options;
  options.asksNetwork = !call.noNetwork;
  options.timeout = std::chrono::milliseconds(static_cast<long long>(call.timeout * 1000));
  long long seconds = 0;
  if (!call.json && terminal.IsTerminal()) {
    options.onWait = [&](std::chrono::milliseconds passed, std::size_t hosts) {
      const auto now = std::chrono::duration_cast<std::chrono::seconds>(passed).count();
      if (now == seconds) return;
      seconds = now;
      terminal.Write("\rasking " + std::to_string(hosts) + " names, " + std::to_string(now) +
                     " s ");
    };
  }
  Check check = CheckRun(arguments, options);
  if (seconds != 0) terminal.Write("\r" + std::string(40, ' ') + "\r");
  check.report.call = made;
  Print(terminal, call, check.report);
  const int status = ExitStatusOf(check.report);
  // An orderly end could wait for a lock that a thread, still waiting for the network, holds.
  if (check.leavesThreads) TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
  return status;
}

int CheckSecondForm(const Terminal& terminal, const Call& call) {
  const FoundRun run = FindRun(call.words);
  if (!run.wrong.empty()) return Refuse(terminal, call, run.wrong);
  return CheckAndPrint(terminal, call, run.arguments, CommandLineOf(run.arguments));
}

int Main(const std::vector<std::string>& arguments) {
  const Terminal terminal;
  const Call call = ParseCall(arguments);
  if (call.help) {
    Inform(terminal, call, HelpText());
    // Nothing was asked for, so nothing is in order either.
    return arguments.empty() ? kWrongCall : 0;
  }
  if (!call.wrong.empty()) return Refuse(terminal, call, call.wrong);
  if (call.version) return Inform(terminal, call, "QVXRunCheck " QVX_VERSION);
  if (call.explainStatus) {
    const std::optional<int> status = ParseStatus(*call.explainStatus);
    if (!status) {
      return Refuse(terminal, call, *call.explainStatus + " is no exit status of 32 bits");
    }
    return Inform(terminal, call, ExplainStatus(*status, SystemTextOf));
  }
  if (call.launcherArguments) return CheckAndPrint(terminal, call, *call.launcherArguments, "");
  return CheckSecondForm(terminal, call);
}

}  // namespace
}  // namespace qvx::runcheck

int main(int count, char** arguments) {
  return qvx::runcheck::Main({arguments + 1, arguments + count});
}
