// Lets the compiler check the arguments of a function that formats like printf.
#pragma once

#if defined(__GNUC__)
#define QVX_PRINTF_LIKE(formatIndex, firstArgument) \
  __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define QVX_PRINTF_LIKE(formatIndex, firstArgument)
#endif
