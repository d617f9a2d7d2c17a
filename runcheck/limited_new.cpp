// A count in a file can ask for gigabytes. The launcher tries them; the check calls them too large
// instead of filling the machine's memory.
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t kLargestBlock = std::size_t{64} << 20U;

}  // namespace

void* operator new(std::size_t size) {
  void* block = size <= kLargestBlock ? std::malloc(size == 0 ? 1 : size) : nullptr;
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
