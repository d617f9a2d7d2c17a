#include "tests/fuzz/memory_file.h"

#include <cstdio>

namespace qvx::fuzz {
namespace {

std::string served;
std::size_t position = 0;

ssize_t Read(void* /*cookie*/, char* buffer, std::size_t size) {
  const std::size_t length = served.copy(buffer, size, position);
  position += length;
  return static_cast<ssize_t>(length);
}

}  // namespace

std::string InTextMode(const std::string& bytes) {
  std::string text;
  for (const char c : bytes) {
    if (c == 0x1A) break;
    if (c == '\n' && !text.empty() && text.back() == '\r') text.pop_back();
    text += c;
  }
  return text;
}

void ServeFile(const std::string& bytes) { served = InTextMode(bytes); }

/// Linked in place of fopen (--wrap=fopen).
extern "C" std::FILE* __wrap_fopen(const char* /*path*/, const char* mode) {
  position = 0;
  return fopencookie(nullptr, mode,
                     {.read = Read, .write = nullptr, .seek = nullptr, .close = nullptr});
}

}  // namespace qvx::fuzz
