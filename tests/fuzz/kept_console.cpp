// Takes the place of support/console.cpp.
#include "tests/fuzz/kept_console.h"

#include <array>
#include <cstdio>
#include <cstdlib>

#include "support/console.h"

namespace qvx {

void PrintV(const char* format, std::va_list arguments) {
  std::array<char, 8192> text;
  const int length = std::vsnprintf(text.data(), text.size(), format, arguments);
  if (length < 0 || static_cast<std::size_t>(length) >= text.size()) std::abort();
  fuzz::shown.append(text.data(), static_cast<std::size_t>(length));
}

void Print(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  PrintV(format, arguments);
  va_end(arguments);
}

}  // namespace qvx
