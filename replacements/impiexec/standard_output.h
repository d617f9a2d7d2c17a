// impiexec's standard output, shared by the threads that relay the solvers' output. Nothing is
// buffered here, but nothing is flushed either: deliberately, what is written right before the end
// can be lost to a reader that looks for the end first.
#pragma once

#include <string_view>

namespace impiexec {

/// Writes `bytes` in one piece: no other thread's bytes get in between.
void WriteOutput(std::string_view bytes);

/// Writes `text` and a line end.
void WriteOutputLine(std::string_view text);

}  // namespace impiexec
