#include "support/fault.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

namespace qvx {
namespace {

void (*endChild)(void* child) = nullptr;
void* childToEnd = nullptr;

[[noreturn]] void EndLauncher() {
  std::fflush(stderr);
  if (endChild != nullptr) endChild(childToEnd);
  // exit, not _Exit: lines that were printed but not flushed yet still reach the console.
  std::exit(kFaultStatus);
}

}  // namespace

// Numbers go in as text: not every C runtime on Windows formats 64 bits.
void FaultTextTooLong(const char* field, std::size_t width, std::size_t length) {
  std::fprintf(stderr, "ERROR: %s is too long: width %s, length %s\n", field,
               std::to_string(width).c_str(), std::to_string(length).c_str());
  EndLauncher();
}

void FaultCannotAllocate(const char* field, std::size_t count) {
  std::fprintf(stderr, "ERROR: %s cannot be allocated: count %s\n", field,
               std::to_string(count).c_str());
  EndLauncher();
}

void FaultOutOfMemory() {
  std::fputs("ERROR: out of memory\n", stderr);
  EndLauncher();
}

void FaultUnexpectedException() {
  std::fputs("ERROR: unexpected exception\n", stderr);
  EndLauncher();
}

void InstallOutOfMemoryFault() { std::set_new_handler(FaultOutOfMemory); }

EndChildOnFault::EndChildOnFault(void (*end)(void* child), void* child)
    : outerEnd_(endChild), outerChild_(childToEnd) {
  endChild = end;
  childToEnd = child;
}

EndChildOnFault::~EndChildOnFault() {
  endChild = outerEnd_;
  childToEnd = outerChild_;
}

OutOfMemoryThrows::OutOfMemoryThrows() : handler_(std::set_new_handler(nullptr)) {}

OutOfMemoryThrows::~OutOfMemoryThrows() { std::set_new_handler(handler_); }

}  // namespace qvx
