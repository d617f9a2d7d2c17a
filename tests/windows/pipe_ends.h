// Counts the pipe ends that a process holds, among all its handles.
#pragma once

#include <windows.h>

#include <cstdint>

namespace qvx::test {

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

inline PipeEnds OpenPipeEnds() {
  constexpr std::uintptr_t kStep = 4;
  constexpr std::uintptr_t kEnd = 0x2000;
  PipeEnds ends;
  for (std::uintptr_t value = kStep; value < kEnd; value += kStep) {
    const auto handle = reinterpret_cast<HANDLE>(value);
    DWORD flags = 0;
    if (!IsPipeEnd(handle) || !GetHandleInformation(handle, &flags)) continue;
    ++((flags & HANDLE_FLAG_INHERIT) != 0 ? ends.inheritable : ends.own);
  }
  return ends;
}

}  // namespace qvx::test
