// Replaces the program's allocator by one that refuses every request beyond 1 GiB. Whether a real
// one grants many times the machine's memory depends on the system; the sanitizers' ends the
// program.
#include <cstddef>
#include <cstdlib>
#include <new>

void* operator new(std::size_t size) {
  constexpr std::size_t kLimit = std::size_t{1} << 30;
  for (;;) {
    void* memory = size > kLimit ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
