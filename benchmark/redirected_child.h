// A child whose standard output comes through a pipe.
#pragma once

#include <windows.h>

#include <string>

namespace qvx::benchmark {

struct RedirectedChild {
  HANDLE output = nullptr;  ///< the read end
  PROCESS_INFORMATION process = {};

  /// `program`: null when the command line names it.
  RedirectedChild(const char* program, std::string commandLine, DWORD flags) {
    SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
    HANDLE writeEnd = nullptr;
    CreatePipe(&output, &writeEnd, &inheritable, 0);
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writeEnd;
    startup.hStdError = writeEnd;
    CreateProcessA(program, commandLine.data(), nullptr, nullptr, TRUE, flags, nullptr, nullptr,
                   &startup, &process);
    CloseHandle(writeEnd);
  }
  ~RedirectedChild() {
    for (const HANDLE handle : {output, process.hProcess, process.hThread}) CloseHandle(handle);
  }
  RedirectedChild(const RedirectedChild&) = delete;
  RedirectedChild& operator=(const RedirectedChild&) = delete;
};

}  // namespace qvx::benchmark
