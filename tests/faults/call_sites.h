// Every place where the product calls Windows, and what becomes of a run when the call fails there.
// check_call_sites compares the places, which stand in braces in call_sites.cpp, with the product's
// sources and objects.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/windows/open_handles.h"

namespace qvx::test {

/// What is run while the call fails.
enum class Scene {
  Serial,            ///< a launch whose solver prints "x" and ends with 3; two old logs
  SilentSerial,      ///< the same; the solver prints nothing
  Smp,               ///< the same under the MPI process launcher
  NoProcessManager,  ///< the MPI process launcher prints that its process manager does not run
  Entry,             ///< a whole serial run from its command line
  ConsoleEvent,      ///< Ctrl-C while a child runs
  TraceSwitch,       ///< the debug-trace switch, with its file there
  ProjectIni,        ///< the parallel folder name's reader, with the name there
};

struct CallSite {
  std::string file;
  std::string function;
  int occurrence;  ///< in the file, from 1
};

struct Failure {
  CallSite site;
  Scene scene;
  int call;             ///< which of the scene's calls of the function fails, from 1
  DWORD error;          ///< the last-error code
  int result;           ///< the operation's
  std::string console;  ///< lines that are not flushed come behind what the solver printed
  std::string left;   ///< the files in the run folder, each its name in brackets and its bytes; for
                      ///< scenes without run folder what they changed
  PipeEnds pipeEnds;  ///< that stay open
};

extern const std::vector<Failure> kFailures;

/// A call that no scene lets fail.
struct PlaceWithoutRow {
  CallSite site;
  std::string reason;
};

extern const std::vector<PlaceWithoutRow> kPlacesWithoutRow;

}  // namespace qvx::test
