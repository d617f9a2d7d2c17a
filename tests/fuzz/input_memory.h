// The memory that an input takes from operator new while a fuzzer runs. The sanitizer's own
// allocator cost more than all the rest of an input; this finds the same: what reads or writes
// beside a block or in one that was given back fails, and so does giving back twice, in the wrong
// form, or not at all.
#pragma once

namespace qvx::fuzz {

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
