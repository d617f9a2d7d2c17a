// The check's own command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qvx::runcheck {

struct Call {
  bool json = false;
  bool noNetwork = false;
  double timeout = 5;  ///< seconds
  bool version = false;
  bool help = false;
  std::string explainStatus;  ///< as it was written; empty when it was not asked for

  /// What the launcher would be started with; nothing in the other form of call.
  std::optional<std::vector<std::string>> launcherArguments;

  std::string project;
  std::string run;
  std::string solver;
  std::optional<std::string> home;
  std::optional<std::string> name;
  int moldingType = 1;
  int option = 0;

  std::string wrong;  ///< what is wrong with the call; empty when nothing is
};

/// `arguments`: without the program's own name.
Call ParseCall(const std::vector<std::string>& arguments);

std::string HelpText();

/// The launcher's arguments for a call of the second form. `home` and `name` are those of the call,
/// or found for it.
std::vector<std::string> LauncherArguments(const Call& call, const std::string& home,
                                           const std::string& name);

/// The same as one line that a shell takes.
std::string CommandLineOf(const std::vector<std::string>& launcherArguments);

}  // namespace qvx::runcheck
