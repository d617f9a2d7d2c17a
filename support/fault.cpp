#include "support/fault.h"

#include <cstdio>
#include <cstdlib>
#include <new>

namespace qvx {
namespace {

void (*endChild)(void* child) = nullptr;
void* childToEnd = nullptr;

[[noreturn]] void EndProcess() {
  std::fflush(stderr);
  if (endChild != nullptr) endChild(childToEnd);
  // exit, not _Exit: lines that were printed but not flushed yet still reach the console.
  std::exit(kFaultStatus);
}

[[noreturn]] void FaultOutOfMemory() {
  std::fputs("ERROR: out of memory\n", stderr);
  EndProcess();
}

}  // namespace

void FaultTextTooLong(const char* field, std::size_t width, std::size_t length) {
  std::fprintf(stderr, "ERROR: %s is too long: width %lu, length %lu\n", field,
               static_cast<unsigned long>(width), static_cast<unsigned long>(length));
  EndProcess();
}

void FaultCannotAllocate(const char* field, std::size_t count) {
  std::fprintf(stderr, "ERROR: %s cannot be allocated: count %lu\n", field,
               static_cast<unsigned long>(count));
  EndProcess();
}

void InstallOutOfMemoryFault() { std::set_new_handler(FaultOutOfMemory); }

EndChildOnFault::EndChildOnFault(void (*end)(void* child), void* child) {
  endChild = end;
  childToEnd = child;
}

EndChildOnFault::~EndChildOnFault() { endChild = nullptr; }

OutOfMemoryThrows::OutOfMemoryThrows() : handler_(std::set_new_handler(nullptr)) {}

OutOfMemoryThrows::~OutOfMemoryThrows() { std::set_new_handler(handler_); }

}  // namespace qvx
