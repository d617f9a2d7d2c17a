#include "support/console.h"

#include <cstdio>

namespace qvx {

void PrintV(const char* format, std::va_list arguments) {
  std::vprintf(format, arguments);
  std::fflush(stdout);
}

void Print(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  PrintV(format, arguments);
  va_end(arguments);
}

void PrintUnflushed(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
}

}  // namespace qvx
