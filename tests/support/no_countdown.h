// Spares a test the countdown's five seconds.
#pragma once

#include <windows.h>

#include "tests/support/import_patch.h"

extern "C" void* __imp_Sleep;

namespace qvx::test {

inline void WINAPI DoNotSleep(DWORD) {}

/// While one lives, no Sleep of the program's waits.
class NoCountdown {
 private:
  const ImportPatch patch_{&__imp_Sleep, reinterpret_cast<void*>(DoNotSleep)};
};

}  // namespace qvx::test
