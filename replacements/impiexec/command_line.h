// The command line of the replacement process launcher: groups of
//   [-env NAME VALUE]... [-genv NAME VALUE]... [-wdir DIR] [-l] [-exitcodes]
//   [-localonly [COUNT] | -n COUNT | -np COUNT | -hosts COUNT {NAME [PROCESSES]}...]
//   PROGRAM [ARGUMENT]...
// with a lone `:` between two. Portable, so that the grammar can be tested by itself.
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

/// Processes of one program.
struct Group {
  bool isDistributed = false;  ///< its hosts were named
  std::vector<Host> hosts;
  std::vector<Variable> variables;
  std::string folder;  ///< empty for the launcher's own
  std::string program;
  std::string solverCommandLine;  ///< program and arguments, quoted anew
};

struct CommandLine {
  bool isEmpty = false;  ///< nothing but impiexec's own name
  std::vector<Group> groups;
  std::vector<Variable> globalVariables;
  bool labelsOutput = false;
  bool showsExitCodes = false;
  std::vector<std::string> unknownOptions;
  std::string error;  ///< empty when the command line is usable
};

/// `text`: the raw command line, impiexec's own name in front.
CommandLine ParseCommandLine(std::string_view text);

/// Joins arguments for a process's command line. Deliberately not exact: an empty one vanishes, and
/// a backslash at the end of one with a blank takes the closing quote with it.
std::string QuotedAnew(const std::vector<std::string>& arguments);

}  // namespace impiexec
