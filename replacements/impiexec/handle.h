// A Windows handle that closes itself. Empty is null, so INVALID_HANDLE_VALUE must not get in here
// unchecked.
#pragma once

#include <windows.h>

#include <memory>

namespace impiexec {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using Handle = std::unique_ptr<void, HandleCloser>;

}  // namespace impiexec
