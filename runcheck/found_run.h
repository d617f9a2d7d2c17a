// What a run in words leaves out, found on this machine.
#pragma once

#include <string>
#include <vector>

#include "runcheck/run_words.h"

namespace qvx::runcheck {

struct FoundRun {
  std::vector<std::string> arguments;  ///< the launcher's, its first one included
  std::string wrong;                   ///< why there are none; empty when there are
};

/// The home folder is the one above this program's Bin; the project's name that of the run folder's
/// only CMX file, without one the name of the project's folder.
FoundRun FindRun(const RunWords& words);

}  // namespace qvx::runcheck
