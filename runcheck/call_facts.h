// The arguments of a launcher's call, taken apart for the rules.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "launcher/class_rule.h"
#include "launcher/command_line.h"
#include "launcher/solver_class.h"

namespace qvx::runcheck {

/// Those that every family has.
constexpr std::size_t kTokenCount = kFirstExtraText;

struct CallFacts {
  std::vector<std::string> arguments;
  std::string solver;     ///< as the launcher takes it
  const ClassRule* rule;  ///< null when none fits
  SolverClass family;
  bool isShell;
  std::string_view tokenSource;     ///< the list that the launcher splits
  std::vector<std::string> tokens;  ///< without empty ones; the launcher keeps only their fields
  bool hasEmptyToken;               ///< two separators stand side by side

  [[nodiscard]] std::string Token(TokenNumber number) const;

  /// The run number as the run folder's name has it.
  [[nodiscard]] std::string FolderNumber() const;
};

/// `arguments`: at least two.
CallFacts FactsOf(std::vector<std::string> arguments);

/// The shell solvers, which read their tokens from the first argument.
constexpr bool IsShell(SolverClass solverClass) {
  return solverClass >= SolverClass::ShellFlow && solverClass <= SolverClass::ShellWarp;
}

/// For a class that is known at run time, where the launcher knows the record's type: the families
/// whose record has the molding type and, but FLOW and PACK, the option.
constexpr bool TakesMoldingType(SolverClass solverClass) {
  return solverClass <= SolverClass::Stress;
}
constexpr bool TakesOption(SolverClass solverClass) {
  return (solverClass >= SolverClass::Cool && solverClass <= SolverClass::Stress) ||
         IsShell(solverClass);
}

/// The first of `characters` from `from` on; npos without one. A letter's second half may be the
/// byte of a backslash and is none.
std::size_t FindCharacter(std::string_view text, std::string_view characters, std::size_t from);

/// Holds a character that no file name does.
bool LooksLikePath(std::string_view text);

/// With a backslash or slash that is a character of its own.
bool EndsInSlash(std::string_view path);

/// The last backslash or slash that is a character of its own; npos without one.
std::size_t LastSeparator(std::string_view path);

/// What stands behind it; the whole path without one.
std::string LastPart(std::string_view path);

/// ".exe" is added by the system to a name without an extension.
std::string WithExtension(const std::string& path);

/// The launcher's own, which a first argument is: with or without a path before it, ".exe", and a
/// molding type or tokens behind it.
bool IsLauncherName(std::string_view argument);

/// "C:\..." or "\\..."; forward slashes count too.
bool IsAbsolutePath(std::string_view path);

/// The launcher's arguments as one line that a shell takes.
std::string CommandLineOf(const std::vector<std::string>& launcherArguments);

}  // namespace qvx::runcheck
