// How the launcher gives up: one line on standard error, apart from the solver's output, then the
// end of the process with kFaultStatus, without countdown. Reserved for what no run can survive: a
// text that its field cannot hold, a count or a buffer that cannot be allocated, an exception of a
// closed library. A child that runs is ended first, so that no solver is orphaned. Main thread
// only.
#pragma once

#include <cstddef>
#include <new>

namespace qvx {

constexpr int kFaultStatus = -2;

/// `width`: the field's width in characters, terminating zero included. `length`: the characters
/// that came, without it.
[[noreturn]] void FaultTextTooLong(const char* field, std::size_t width, std::size_t length);

/// `count`: the elements that could not be allocated.
[[noreturn]] void FaultCannotAllocate(const char* field, std::size_t count);

[[noreturn]] void FaultOutOfMemory();

/// For what only a closed library can have thrown.
[[noreturn]] void FaultUnexpectedException();

/// Makes every failed allocation of the launcher's own a fault, so that none becomes an exception
/// that leaves an operation half done.
void InstallOutOfMemoryFault();

/// While one lives, a fault calls `end(child)` before it ends the process; the innermost one's.
class EndChildOnFault {
 public:
  EndChildOnFault(void (*end)(void* child), void* child);
  ~EndChildOnFault();
  EndChildOnFault(const EndChildOnFault&) = delete;
  EndChildOnFault& operator=(const EndChildOnFault&) = delete;

 private:
  void (*outerEnd_)(void* child);
  void* outerChild_;
};

/// Lets failed allocations throw while it lives: for a count that a file gave, whose fault names
/// the field.
class OutOfMemoryThrows {
 public:
  OutOfMemoryThrows();
  ~OutOfMemoryThrows();
  OutOfMemoryThrows(const OutOfMemoryThrows&) = delete;
  OutOfMemoryThrows& operator=(const OutOfMemoryThrows&) = delete;

 private:
  void (*handler_)();
};

/// What `allocate(count)` returns, or a fault that names `field`.
template <typename Allocate>
auto AllocateCounted(const char* field, std::size_t count, Allocate allocate) {
  const OutOfMemoryThrows throws;
  try {
    return allocate(count);
  } catch (const std::bad_alloc&) {
    FaultCannotAllocate(field, count);
  }
}

}  // namespace qvx
