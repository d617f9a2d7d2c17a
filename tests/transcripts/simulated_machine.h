// The machine that answers the launcher's calls: its handles, the last-error code, the children,
// and what the scenario lets happen at which call. One at a time, for one run.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "launcher/launcher_context.h"
#include "tests/transcripts/scenario.h"

namespace qvx::test {

/// The last-error code behind any call that does not set one of its own: whoever takes the code
/// later than on the next line gets this.
constexpr DWORD kErrorOfAnotherCall = 99999;

/// What a handle stands for.
struct OpenHandle {
  std::string role;
  bool open = true;
  bool inheritable = false;
  int child = -1;  ///< for a process or thread; the number among the scenario's children
};

struct RunningState {
  std::uint32_t processIdentifier = 0;
  std::size_t reads = 0;
  bool ended = false;
  DWORD exitCode = STILL_ACTIVE;
};

class SimulatedMachine {
 public:
  explicit SimulatedMachine(const Scenario& scenario) : scenario(scenario) {}

  bool BeginCall(const std::string& function);
  void EndCall(const std::string& function);
  /// How many calls of the function there were, the present one included.
  int CallsOf(const std::string& function) const { return calls_.at(function); }

  HANDLE Open(OpenHandle handle);
  /// Null for a handle that was never opened.
  OpenHandle* Find(HANDLE handle);
  /// "output pipe, read end", "none", "INVALID_HANDLE_VALUE"; says when the handle is closed.
  std::string RoleOf(HANDLE handle);
  std::string OpenRoles() const;
  std::string InheritableRoles() const;

  void EndChild(int child, DWORD exitCode);

  const Scenario scenario;
  DWORD lastError = ERROR_SUCCESS;
  std::map<std::string, std::string> environment;
  PHANDLER_ROUTINE consoleHandler = nullptr;
  std::vector<RunningState> children;
  std::vector<FolderEntry> logs;
  int linesRead = 0;
  bool readFailed = false;
  LauncherContext* context = nullptr;  ///< known as soon as its first member is built

 private:
  std::string Roles(bool inheritableOnly) const;
  void LetConsoleEventIn(const std::string& function, DWORD code);

  std::map<std::string, int> calls_;
  std::vector<OpenHandle> handles_;
};

/// The one of the present run.
SimulatedMachine& Machine();

/// Takes down a call, `line`, that answers TRUE, with `more` behind it, or FALSE, with the
/// last-error code; returns the answer.
BOOL Answered(const std::string& line, bool succeeds, const std::string& more = {});

/// Answers for `scenario` from here on; the last machine is forgotten.
void StartMachine(const Scenario& scenario);

}  // namespace qvx::test
