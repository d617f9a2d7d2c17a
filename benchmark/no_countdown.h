// Spares a benchmark the countdown's five seconds.
#pragma once

#include <windows.h>

#include "tests/support/import_patch.h"

extern "C" void* __imp_Sleep;

namespace qvx::benchmark {

inline const auto kSystemSleep = reinterpret_cast<decltype(&Sleep)>(__imp_Sleep);

inline void WINAPI SleepUnlessCountingDown(DWORD milliseconds) {
  if (milliseconds != 1000) kSystemSleep(milliseconds);
}

/// While one lives, a countdown's steps of a second each take no time.
struct NoCountdown {
  const test::ImportPatch patch{&__imp_Sleep, reinterpret_cast<void*>(SleepUnlessCountingDown)};
};

}  // namespace qvx::benchmark
