// The command line of the replacement process launcher:
//   impiexec [-env NAME VALUE]... [-localonly [COUNT] | -n COUNT | -np COUNT |
//            -hosts COUNT {NAME [PROCESSES]}...] PROGRAM [ARGUMENT]...
// Portable, so that the grammar can be tested by itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace impiexec {

struct Variable {
  std::string name;
  std::string value;
};

struct Host {
  std::string name;  ///< empty for this computer
  int processCount = 1;
};

struct CommandLine {
  std::vector<Variable> variables;
  std::vector<Host> hosts;
  std::vector<std::string> unknownOptions;
  std::string program;
  std::string solverCommandLine;  ///< program and arguments as they were written, quotes and all
  std::string error;              ///< empty when the command line is usable
};

/// `text`: the raw command line, impiexec's own name in front.
CommandLine ParseCommandLine(std::string_view text);

}  // namespace impiexec
