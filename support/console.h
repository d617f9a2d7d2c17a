// The launcher's own lines on standard output. Safe to call from the console control handler's
// thread: the C runtime locks the stream for each call.
#pragma once

#include <cstdarg>

#include "support/printf_like.h"

namespace qvx {

/// Prints and flushes.
void Print(const char* format, ...) QVX_PRINTF_LIKE(1, 2);
void PrintV(const char* format, std::va_list arguments) QVX_PRINTF_LIKE(1, 0);

/// For the few lines that are left in the stream's buffer on purpose.
void PrintUnflushed(const char* format, ...) QVX_PRINTF_LIKE(1, 2);

}  // namespace qvx
