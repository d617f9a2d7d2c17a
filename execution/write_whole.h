// Writing to the console and to its log, which the system may take in pieces.
#pragma once

#include <windows.h>

namespace qvx {

/// Writes all of `text`, also when the system takes it in pieces. Returns nonzero for success.
BOOL WriteWhole(HANDLE file, const char* text, DWORD length);

}  // namespace qvx
