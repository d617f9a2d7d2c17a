// StartLauncher.exe plays the front end:
//   StartLauncher APPLICATION FIRST_ARGUMENT [ARGUMENT]...
// starts APPLICATION with FIRST_ARGUMENT where a program's own name usually stands, waits for it
// and prints its exit status with all 32 bits, which not every shell can show.
#include <windows.h>

#include <cstdio>
#include <string>

#include "replacements/quoted_argument.h"

int main(int count, char** arguments) {
  if (count < 3) {
    std::fputs("usage: StartLauncher APPLICATION FIRST_ARGUMENT [ARGUMENT]...\n", stderr);
    return 1;
  }
  const char* const application = arguments[1];
  // Quotes are all the syntax that the first token of a command line has, so it cannot hold one.
  const std::string first = arguments[2];
  if (first.find('"') != std::string::npos) {
    std::fputs("StartLauncher: FIRST_ARGUMENT must not hold a quote\n", stderr);
    return 1;
  }
  std::string commandLine = '"' + first + '"';
  for (int i = 3; i < count; ++i) {
    commandLine += ' ' + replacements::QuotedArgument(arguments[i]);
  }

  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION started{};
  if (!CreateProcessA(application, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                      &startup, &started)) {
    std::fprintf(stderr, "StartLauncher: cannot start %s: system error %lu\n", application,
                 GetLastError());
    return 1;
  }
  WaitForSingleObject(started.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(started.hProcess, &status);
  std::printf("exit status %d\n", static_cast<int>(status));
  return 0;
}
