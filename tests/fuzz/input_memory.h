// The memory that an input takes from operator new while a fuzzer runs. The sanitizer's own
// allocator cost more than all the rest of an input; this finds the same: what reads or writes
// beside a block or in one that was given back fails, and so does giving back twice, in the wrong
// form, or not at all.
#pragma once

#include <cstddef>

namespace qvx::fuzz {

/// While it lives, no block of more than `most` bytes is had: a file may ask for any count, and the
/// fuzzer would only measure the machine's memory.
class BlockLimit {
 public:
  explicit BlockLimit(std::size_t most);
  ~BlockLimit();
  BlockLimit(const BlockLimit&) = delete;
  BlockLimit& operator=(const BlockLimit&) = delete;
};

/// Blocks taken while it lives have to be given back while it lives; a block that is not ends the
/// fuzzer. Nothing is used twice within one.
class InputMemory {
 public:
  InputMemory();
  ~InputMemory();
  InputMemory(const InputMemory&) = delete;
  InputMemory& operator=(const InputMemory&) = delete;
};

}  // namespace qvx::fuzz
