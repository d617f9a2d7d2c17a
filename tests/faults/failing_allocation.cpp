#include "tests/faults/failing_allocation.h"

#include "tests/support/refusing_new.h"

namespace qvx::test {
namespace {

thread_local bool isArmed = false;
int count = 0;
int failing = 0;

}  // namespace

bool RefusesAllocation(std::size_t /*size*/) { return isArmed && ++count == failing; }

FailingAllocation::FailingAllocation(int allocation) {
  count = 0;
  failing = allocation;
  isArmed = true;
}

FailingAllocation::~FailingAllocation() { isArmed = false; }

}  // namespace qvx::test
