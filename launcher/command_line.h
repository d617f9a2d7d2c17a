// Interprets the front end's command line: the molding type behind a "$" in the first argument, the
// run's folders and numbers as a "*"-separated list, the solver executable.
#pragma once

#include "launcher/launcher_context.h"

namespace qvx {

/// The tokens, by their number in the list; the extra texts are the shell families'.
enum TokenNumber : int {
  kHomeFolder,
  kProjectDirectory,
  kProjectName,
  kOptionValue,
  kRunNumber,
  kFirstExtraText,
  kLastExtraText = kFirstExtraText + 2,
};

/// Fills the solver identity, the home folder and the argument record of the solver's family.
/// Overwrites separators in `arguments` while it splits them. Always returns 0: missing tokens
/// leave what the record's `Reset` gave; a text too long for its field is a fault.
int InterpretCommandLine(LauncherContext& context, int argumentCount, char** arguments);

}  // namespace qvx
