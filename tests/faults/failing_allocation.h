// Lets one allocation fail: the n-th that the arming thread makes through operator new.
#pragma once

namespace qvx::test {

class FailingAllocation {
 public:
  /// Counts from 1.
  explicit FailingAllocation(int allocation);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
};

}  // namespace qvx::test
