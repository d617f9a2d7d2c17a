// Refuses every request beyond 1 GiB. Whether a real allocator grants many times the machine's
// memory depends on the system; the sanitizers' ends the program.
#include "tests/support/refusing_new.h"

namespace qvx::test {

bool RefusesAllocation(std::size_t size) { return size > std::size_t{1} << 30; }

}  // namespace qvx::test
