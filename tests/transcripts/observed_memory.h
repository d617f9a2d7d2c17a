// Sees the launcher release memory: the whole program's operator delete looks at every block that
// somebody asked it to watch. Also stands in for a machine without memory.
#pragma once

#include <cstddef>
#include <string>

namespace qvx::test {

/// The launcher's releasing `block` becomes a line with `name`; releasing anything else does not.
void WatchBlock(const void* block, const std::string& name);

/// The watched blocks that were not released, and forgets them.
std::string UnreleasedBlocks();

/// For the allocator alone. `how`: ", as an array" or nothing.
void ReportRelease(const void* block, const char* how);
bool RefusesAllocation();

/// From here on every allocation of the launcher's own fails, or works again.
void ExhaustMemory(bool exhausted);

/// Between the two calls, what is allocated and released is the launcher's.
void BeginLaunchersMemory();
void EndLaunchersMemory();

/// While one lives, allocations are the test's: they work and are not observed.
class OwnMemory {
 public:
  OwnMemory();
  ~OwnMemory();
  OwnMemory(const OwnMemory&) = delete;
  OwnMemory& operator=(const OwnMemory&) = delete;
};

}  // namespace qvx::test
