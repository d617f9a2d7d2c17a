// The check's own command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "runcheck/run_words.h"

namespace qvx::runcheck {

struct Call {
  bool json = false;
  bool noNetwork = false;
  double timeout = 5;  ///< seconds
  bool version = false;
  bool help = false;
  std::optional<std::string> explainStatus;  ///< as it was written

  /// What the launcher would be started with; nothing in the other form of call.
  std::optional<std::vector<std::string>> launcherArguments;

  RunWords words;

  std::string wrong;  ///< what is wrong with the call; empty when nothing is
  std::string meant;  ///< the option that a wrong one may have been meant for
};

/// `arguments`: without the program's own name.
Call ParseCall(const std::vector<std::string>& arguments);

std::string HelpText();

}  // namespace qvx::runcheck
