// Every function that the launcher imports from Windows and that leaves the process, and those of
// the C runtime that print, read files or end the process, as the simulated machine answers them.
// Each takes down its call with all arguments and its result.
#pragma once

#include <shlobj.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#define QVX_WINDOWS_CALLS(X)  \
  X(CloseHandle)              \
  X(CreateFileA)              \
  X(CreatePipe)               \
  X(CreateProcessA)           \
  X(DeleteFileA)              \
  X(FindClose)                \
  X(FindFirstFileA)           \
  X(FindNextFileA)            \
  X(FlushFileBuffers)         \
  X(GetExitCodeProcess)       \
  X(GetFileType)              \
  X(GetLastError)             \
  X(GetLocalTime)             \
  X(GetPrivateProfileStringA) \
  X(GetStdHandle)             \
  X(OpenProcess)              \
  X(ReadFile)                 \
  X(RegCloseKey)              \
  X(RegOpenKeyA)              \
  X(RegQueryValueExA)         \
  X(SetConsoleCtrlHandler)    \
  X(SetEnvironmentVariableA)  \
  X(SetHandleInformation)     \
  X(SHCreateDirectory)        \
  X(SHGetFolderPathA)         \
  X(SHGetFolderPathW)         \
  X(Sleep)                    \
  X(TerminateProcess)         \
  X(WaitForSingleObject)      \
  X(WriteFile)

#define QVX_RUNTIME_CALLS(X) \
  X(exit)                    \
  X(fclose)                  \
  X(ferror)                  \
  X(fflush)                  \
  X(fgets)                   \
  X(fopen)                   \
  X(fprintf)                 \
  X(fputs)                   \
  X(fwrite)                  \
  X(vprintf)

namespace qvx::test {

namespace simulated {
#define QVX_DECLARE(name) \
  decltype(::name) name;  // NOLINT(bugprone-macro-parentheses): a declared name
QVX_WINDOWS_CALLS(QVX_DECLARE)
QVX_RUNTIME_CALLS(QVX_DECLARE)
#undef QVX_DECLARE
}  // namespace simulated

/// Takes the place of all of these while it lives.
class SimulatedCalls {
 public:
  SimulatedCalls();
  ~SimulatedCalls();
  SimulatedCalls(const SimulatedCalls&) = delete;
  SimulatedCalls& operator=(const SimulatedCalls&) = delete;
};

/// Gives the places back for good, for a process that ends.
void StopSimulating();

/// The C runtime's own, while its place is taken.
decltype(&std::fopen) SystemFopen();
decltype(&std::fclose) SystemFclose();
decltype(&std::fgets) SystemFgets();

}  // namespace qvx::test
