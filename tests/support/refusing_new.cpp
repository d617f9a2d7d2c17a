// Replaces the program's allocator by one that refuses what the program's own RefusesAllocation
// says, in the way that operator new refuses: through the new-handler.
#include "tests/support/refusing_new.h"

#include <cstdlib>
#include <new>

void* operator new(std::size_t size) {
  bool refuses = qvx::test::RefusesAllocation(size);
  for (;;) {
    void* memory = refuses ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
    refuses = false;
  }
}

// These would do so by themselves, were they not the address sanitizer's.
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* memory) noexcept { operator delete(memory); }
void operator delete[](void* memory, std::size_t) noexcept { operator delete(memory); }

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
