// Counts the handles that a process holds, of one kind or another. The system names none of them:
// every value that can be one is tried.
#pragma once

#include <windows.h>

#include <cstdint>

namespace qvx::test {

/// `isCounted`: asked for every value, most of which are no handles.
template <typename Predicate>
int CountHandles(Predicate&& isCounted) {
  constexpr std::uintptr_t kStep = 4;
  constexpr std::uintptr_t kEnd = 0x2000;
  int count = 0;
  for (std::uintptr_t value = kStep; value < kEnd; value += kStep) {
    if (isCounted(reinterpret_cast<HANDLE>(value))) ++count;
  }
  return count;
}

inline int OpenProcessesThreadsAndFiles() {
  return CountHandles([](HANDLE handle) {
    return GetProcessId(handle) != 0 || GetThreadId(handle) != 0 ||
           GetFileType(handle) == FILE_TYPE_DISK;
  });
}

struct PipeEnds {
  int inheritable = 0;
  int own = 0;

  friend bool operator==(const PipeEnds&, const PipeEnds&) = default;
  friend PipeEnds operator-(const PipeEnds& left, const PipeEnds& right) {
    return {left.inheritable - right.inheritable, left.own - right.own};
  }
};

/// The pipes that the system's own services talk through carry messages and do not count.
inline bool IsPipeEnd(HANDLE handle) {
  DWORD kind = 0;
  return GetFileType(handle) == FILE_TYPE_PIPE &&
         GetNamedPipeInfo(handle, &kind, nullptr, nullptr, nullptr) != 0 &&
         (kind & PIPE_TYPE_MESSAGE) == 0;
}

inline bool IsInheritable(HANDLE handle) {
  DWORD flags = 0;
  return GetHandleInformation(handle, &flags) != 0 && (flags & HANDLE_FLAG_INHERIT) != 0;
}

inline PipeEnds OpenPipeEnds() {
  const int all = CountHandles(IsPipeEnd);
  const int inheritable =
      CountHandles([](HANDLE handle) { return IsPipeEnd(handle) && IsInheritable(handle); });
  return {.inheritable = inheritable, .own = all - inheritable};
}

}  // namespace qvx::test
