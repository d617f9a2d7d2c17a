#include "runstart/program.h"

#include <windows.h>

#include <cstdio>

#include "replacements/quoted_argument.h"

namespace qvx::runstart {

ProgramEnd RunProgram(const std::string& path, const std::vector<std::string>& arguments) {
  std::string commandLine = '"' + arguments.front() + '"';
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    commandLine += ' ' + replacements::QuotedArgument(arguments[i]);
  }
  std::fflush(stdout);

  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process = {};
  if (CreateProcessA(path.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    return {false, GetLastError()};
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
  return {true, code};
}

}  // namespace qvx::runstart
