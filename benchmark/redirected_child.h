// A child whose standard output comes through a pipe.
#pragma once

#include <windows.h>

#include <string>

#include "benchmark/figures.h"

namespace qvx::benchmark {

struct RedirectedChild {
  HANDLE output = nullptr;  ///< the read end
  PROCESS_INFORMATION process = {};

  /// `program`: null when the command line names it.
  RedirectedChild(const char* program, std::string commandLine, DWORD flags) {
    SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
    HANDLE writeEnd = nullptr;
    Require(CreatePipe(&output, &writeEnd, &inheritable, 0) != 0 &&
                SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0) != 0,
            "no pipe for a child");
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writeEnd;
    startup.hStdError = writeEnd;
    const BOOL created = CreateProcessA(program, commandLine.data(), nullptr, nullptr, TRUE, flags,
                                        nullptr, nullptr, &startup, &process);
    Require(created != 0,
            "no child [" + commandLine + "]: system error " + std::to_string(GetLastError()));
    CloseHandle(writeEnd);
  }
  ~RedirectedChild() {
    for (const HANDLE handle : {output, process.hProcess, process.hThread}) CloseHandle(handle);
  }
  RedirectedChild(const RedirectedChild&) = delete;
  RedirectedChild& operator=(const RedirectedChild&) = delete;
};

}  // namespace qvx::benchmark
