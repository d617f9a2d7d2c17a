// The arguments of a launcher's call, taken apart for the rules.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "launcher/class_rule.h"
#include "launcher/solver_class.h"

namespace qvx::runcheck {

/// The tokens as the launcher numbers them.
enum TokenNumber : std::size_t { kHome, kProject, kName, kOption, kRun, kTokenCount };

struct CallFacts {
  std::vector<std::string> arguments;
  std::string solver;     ///< as the launcher takes it
  const ClassRule* rule;  ///< null when none fits
  SolverClass family;
  bool isShell;
  std::string_view tokenSource;     ///< the list that the launcher splits
  std::vector<std::string> tokens;  ///< without empty ones
  bool hasEmptyToken;               ///< two separators stand side by side

  [[nodiscard]] std::string Token(TokenNumber number) const;
};

/// `arguments`: at least two.
CallFacts FactsOf(std::vector<std::string> arguments);

/// The shell solvers, which read their tokens from the first argument.
constexpr bool IsShell(SolverClass solverClass) {
  return solverClass >= SolverClass::ShellFlow && solverClass <= SolverClass::ShellWarp;
}

/// The families whose record has the molding type and, but FLOW and PACK, the option.
constexpr bool TakesMoldingType(SolverClass solverClass) {
  return solverClass <= SolverClass::Stress;
}
constexpr bool TakesOption(SolverClass solverClass) {
  return (solverClass >= SolverClass::Cool && solverClass <= SolverClass::Stress) ||
         IsShell(solverClass);
}

/// Holds a character that no file name does.
bool LooksLikePath(std::string_view text);

/// "C:\..." or "\\..."; forward slashes count too.
bool IsAbsolutePath(std::string_view path);

/// The launcher's arguments as one line that a shell takes.
std::string CommandLineOf(const std::vector<std::string>& launcherArguments);

}  // namespace qvx::runcheck
