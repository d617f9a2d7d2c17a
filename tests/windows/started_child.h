// A child process for tests that need one without a launch: the scripted solver.
#pragma once

#include <windows.h>

#include <string>

namespace qvx::test {

class StartedChild {
 public:
  /// `script`: see the scripted solver.
  explicit StartedChild(const std::string& script);
  ~StartedChild();
  StartedChild(const StartedChild&) = delete;
  StartedChild& operator=(const StartedChild&) = delete;

  HANDLE Process() const { return process_.hProcess; }
  DWORD Id() const { return process_.dwProcessId; }

  /// Waits for its end.
  int ExitCode() const;

 private:
  PROCESS_INFORMATION process_ = {};
};

}  // namespace qvx::test
