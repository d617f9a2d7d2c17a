#include "tests/faults/failing_allocation.h"

#include <cstdlib>
#include <new>

namespace {

thread_local bool isArmed = false;
int count = 0;
int failing = 0;

bool Fails() { return isArmed && ++count == failing; }

}  // namespace

void* operator new(std::size_t size) {
  for (bool fails = Fails();; fails = false) {
    void* memory = fails ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace qvx::test {

FailingAllocation::FailingAllocation(int allocation) {
  count = 0;
  failing = allocation;
  isArmed = true;
}

FailingAllocation::~FailingAllocation() { isArmed = false; }

int FailingAllocation::Count() const { return count; }

}  // namespace qvx::test
