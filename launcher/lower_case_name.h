// Lower-casing of names and paths, for comparisons that ignore letter case.
#pragma once

#include <string>

#include "launcher/launcher_context.h"

namespace qvx {

/// Replaces `text`, in the system's ANSI code page, by its lower-case form. The way leads through
/// UTF-16, one unit at a time. A text that the code page cannot carry both ways stays as it is.
void LowerCaseName(LauncherContext& context, std::string& text);

}  // namespace qvx
