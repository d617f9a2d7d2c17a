#include "tests/fuzz/memory_file.h"

#include <stdio_ext.h>

#include <cstdio>
#include <cstdlib>

#include "tests/plain/plain_run.h"

namespace qvx::fuzz {
namespace {

std::string_view served;
std::size_t position = 0;
bool isOpen = false;

ssize_t Read(void* /*cookie*/, char* buffer, std::size_t size) {
  const std::size_t length = served.copy(buffer, size, position);
  position += length;
  return static_cast<ssize_t>(length);
}

/// One stream for all inputs: making one takes longer than reading it.
std::FILE* Stream() {
  static std::FILE* const stream = [] {
    std::FILE* const made = fopencookie(
        nullptr, "r", {.read = Read, .write = nullptr, .seek = nullptr, .close = nullptr});
    __fsetlocking(made, FSETLOCKING_BYCALLER);
    return made;
  }();
  return stream;
}

}  // namespace

MemoryFile::MemoryFile(std::string_view bytes) : text_(plain::InTextMode(bytes)) { served = text_; }

MemoryFile::~MemoryFile() {
  // A reader that left the file open would have leaked it.
  if (isOpen) std::abort();
  served = {};
}

// Linked in place of the C library's (--wrap). The fuzzer writes its own files through them too.
extern "C" {

std::FILE* __real_fopen(const char* path, const char* mode);
int __real_fclose(std::FILE* file);

std::FILE* __wrap_fopen(const char* path, const char* mode) {
  if (mode != std::string_view("r")) return __real_fopen(path, mode);
  if (isOpen) std::abort();
  isOpen = true;
  position = 0;
  __fpurge(Stream());
  std::clearerr(Stream());
  return Stream();
}

int __wrap_fclose(std::FILE* file) {
  if (file != Stream()) return __real_fclose(file);
  if (!isOpen) std::abort();
  isOpen = false;
  return 0;
}
}

}  // namespace qvx::fuzz
