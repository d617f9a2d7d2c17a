// A running QVXSolverLauncher.exe, started as the front end starts it: an application name, a
// command line of one's own, standard handles into pipes, a console of its own. Other programs of
// the build too.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace qvx::test {

struct LauncherStart {
  std::string program = "bin\\QVXSolverLauncher.exe";  ///< below the build folder, or a path
  std::string firstArgument = {};
  std::vector<std::string> arguments = {};
  std::map<std::string, std::string> environment = {};  ///< beside the test's own
  std::string currentFolder = {};                       ///< empty: the test's own
  bool hasOwnConsole = true;                            ///< else the test's
};

class LauncherProcess {
 public:
  explicit LauncherProcess(const LauncherStart& start);
  ~LauncherProcess();
  LauncherProcess(const LauncherProcess&) = delete;
  LauncherProcess& operator=(const LauncherProcess&) = delete;

  /// Blocks until standard output holds `text`; false when it ended without, or after ten minutes.
  bool WaitForOutput(const std::string& text);

  /// Sends a real Ctrl-C to the launcher's console; false when that is impossible.
  bool SendCtrlC() const;

  bool Runs() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }

  /// How many threads it has. One more while the system calls its console control handler.
  std::size_t Threads() const;

  /// The most memory that it had at a time so far, in bytes.
  std::size_t PeakWorkingSet() const;

  /// Waits for the end, and ends a launcher that takes more than ten minutes. Exit status with all
  /// 32 bits.
  int Wait();

  /// Everything that was written; complete after Wait.
  const std::string& Output() const { return output_; }
  const std::string& Error() const { return error_; }

 private:
  void Read(HANDLE pipe, std::string& text);

  PROCESS_INFORMATION process_ = {};
  std::mutex mutex_;
  std::condition_variable grown_;
  std::string output_;
  std::string error_;
  bool outputEnded_ = false;
  std::thread outputReader_;
  std::thread errorReader_;
};

}  // namespace qvx::test
