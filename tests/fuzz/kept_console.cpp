// Takes the place of support/console.cpp.
#include "tests/fuzz/kept_console.h"

#include <cstdio>
#include <cstdlib>

#include "support/console.h"

namespace qvx {
namespace {

// One for all inputs, and no other on the stack: the sanitizer takes care of each new one.
char text[1 << 20];
std::size_t length = 0;

}  // namespace

void PrintV(const char* format, std::va_list arguments) {
  const int printed = std::vsnprintf(text + length, sizeof text - length, format, arguments);
  if (printed < 0 || static_cast<std::size_t>(printed) >= sizeof text - length) std::abort();
  length += static_cast<std::size_t>(printed);
}

void Print(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  PrintV(format, arguments);
  va_end(arguments);
}

std::string_view fuzz::Shown() { return {text, length}; }
void fuzz::ClearShown() { length = 0; }

}  // namespace qvx
