// Spares a test the countdown's five seconds.
#pragma once

#include <windows.h>

#include <atomic>

#include "tests/support/import_patch.h"

extern "C" void* __imp_Sleep;

namespace qvx::test {

inline const auto kSystemSleep = reinterpret_cast<decltype(&Sleep)>(__imp_Sleep);

inline std::atomic<int> countdownSteps = 0;

inline void WINAPI SleepUnlessCountingDown(DWORD milliseconds) {
  if (milliseconds == 1000) {
    ++countdownSteps;
  } else {
    kSystemSleep(milliseconds);
  }
}

/// While one lives, a countdown's steps of a second each take no time and are counted.
class NoCountdown {
 public:
  NoCountdown() { countdownSteps = 0; }

  int Seconds() const { return countdownSteps; }

 private:
  const ImportPatch patch_{&__imp_Sleep, reinterpret_cast<void*>(SleepUnlessCountingDown)};
};

}  // namespace qvx::test
