// What a run meets: its command line, its files, the machine around it, what the solver does, and
// what goes wrong at which call.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/transcripts/libraries/library_host.h"

namespace qvx::test {

/// The n-th call of a function, counted from 1.
using CallNumber = std::pair<std::string, int>;

/// A solver or an MPI process launcher.
struct Child {
  std::vector<std::string> output = {};  ///< one text for each read
  DWORD exitCode = 0;
  bool endsEarly = false;            ///< before its last text is read
  DWORD startError = ERROR_SUCCESS;  ///< why the system does not start it
};

struct FolderEntry {
  std::string path;
  DWORD attributes = FILE_ATTRIBUTE_ARCHIVE;
};

struct Scenario {
  std::vector<std::string> arguments;
  std::map<std::string, std::string> files;  ///< by path, what the launcher itself can open
  int failingRead = 0;                       ///< of all lines read, counted from 1; 0 for none
  std::vector<FolderEntry> oldLogs;
  std::vector<Child> children;
  std::optional<std::string> installPath =
      std::string("C:\\MPI\\x64\\") + '\0';     ///< the value's bytes
  std::string parallelFolderName = "QvxShare";  ///< in the project-wide ini file
  std::wstring applicationData = L"C:\\Users\\Ann\\AppData\\Roaming";
  LibraryAnswers libraries;
  std::map<CallNumber, DWORD> failures;             ///< with their last-error codes
  std::map<CallNumber, std::vector<DWORD>> events;  ///< console events that come in at a call
  std::map<CallNumber, DWORD> shortWrites;          ///< how many bytes are taken
  /// A number that no command line gives, put into the launcher context at a call.
  std::map<CallNumber, std::uint32_t> solverClasses;
  WORD hour = 9;              ///< of the first launch
  bool isAtConsole = false;   ///< standard output is one, no pipe
  std::string exhaustedFrom;  ///< no memory after this function's first call
};

}  // namespace qvx::test
