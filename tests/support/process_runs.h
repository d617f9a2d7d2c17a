#pragma once

#include <windows.h>

namespace qvx::test {

inline bool ProcessRuns(DWORD identifier) {
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, identifier);
  if (process == nullptr) return false;
  const bool runs = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  CloseHandle(process);
  return runs;
}

}  // namespace qvx::test
