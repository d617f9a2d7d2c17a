// The program's allocator, which tells what is released and refuses what it has to. Apart from all
// other code, so that the compiler does not look through it.
#include <cstdlib>
#include <new>

#include "tests/transcripts/observed_memory.h"

void* operator new(std::size_t size) {
  for (;;) {
    void* memory = qvx::test::RefusesAllocation() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}
void* operator new[](std::size_t size) { return operator new(size); }

void operator delete(void* memory) noexcept {
  qvx::test::ReportRelease(memory, "");
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete[](void* memory) noexcept {
  qvx::test::ReportRelease(memory, ", as an array");
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept { operator delete[](memory); }
