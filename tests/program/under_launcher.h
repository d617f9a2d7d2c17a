// Runs under the process launcher, which does not flush: what its processes print right before
// their end can be lost. So they stay until the console has shown it, and only then end.
#pragma once

#include <functional>
#include <string>

#include "tests/program/launcher_process.h"
#include "tests/program/site.h"

namespace qvx::test {

/// At the end of a script whose run has `LetGoOnceShown`.
const std::string kAwaitShown = ";flush;await <site>\\shown;";

/// For RunPlan::meanwhile: makes `file` when the console shows `text`.
inline std::function<std::string(LauncherProcess&, const Site&)> LetGoOnceShown(
    const std::string& text, const std::string& file = "shown") {
  return [text, file](LauncherProcess& launcher, const Site& site) -> std::string {
    const bool isShown = launcher.WaitForOutput(site.Specific(text));
    site.Write(file, "");
    return isShown ? "" : "the console does not show all";
  };
}

/// What the stand-in solver's command `args` prints of a command line without escapes, the program
/// in front. The arguments are looked at one by one, because the process launcher quotes them anew.
inline std::string ArgumentLines(const std::string& commandLine) {
  std::string lines;
  std::string argument;
  bool isQuoted = false;
  int number = 0;
  for (const char character : commandLine + " ") {
    if (character == '"') {
      isQuoted = !isQuoted;
    } else if (character != ' ' || isQuoted) {
      argument += character;
    } else {
      if (number > 0) lines += "argument " + std::to_string(number) + ": " + argument + "\r\n";
      ++number;
      argument.clear();
    }
  }
  return lines;
}

}  // namespace qvx::test
