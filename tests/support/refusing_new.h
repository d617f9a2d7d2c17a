// Which allocations fail. A program that links refusing_new.cpp defines this.
#pragma once

#include <cstddef>

namespace qvx::test {

/// Asked once for every operator new of the program; `size` in bytes.
bool RefusesAllocation(std::size_t size);

}  // namespace qvx::test
