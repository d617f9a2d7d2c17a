// The least that starts a solver as the launcher does and waits until its output ends and it ends.
// (The output ends last, under Wine: the hidden console's host keeps the pipe open for a while.)
#pragma once

#include <windows.h>

#include <array>
#include <string>

namespace qvx::benchmark {

inline void RunBareParent(std::string solver) {
  SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  CreatePipe(&readEnd, &writeEnd, &inheritable, 0);
  SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = writeEnd;
  startup.hStdError = writeEnd;
  PROCESS_INFORMATION process = {};
  CreateProcessA(nullptr, solver.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                 &startup, &process);
  CloseHandle(writeEnd);
  std::array<char, 4096> chunk;
  DWORD size = 0;
  while (ReadFile(readEnd, chunk.data(), chunk.size(), &size, nullptr) != 0) {
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  for (const HANDLE handle : {readEnd, process.hProcess, process.hThread}) CloseHandle(handle);
}

}  // namespace qvx::benchmark
