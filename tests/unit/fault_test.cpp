// How the launcher gives up: the line on standard error, the exit status, the child that is ended
// first.
#include "support/fault.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <new>
#include <stdexcept>

#include "tests/support/expect_fault.h"

namespace qvx {
namespace {

/// More than the tests' allocator grants.
constexpr std::size_t kTooMany = 2'000'000'000;

void AllocateTooMuch() { ::operator delete(::operator new(kTooMany)); }

void ReportEnd(void* child) { std::fprintf(stderr, "ended %s\n", static_cast<char*>(child)); }

char solver[] = "solver";

TEST(FaultDeathTest, ATextThatIsTooLongIsNamedWithItsWidthAndLength) {
  EXPECT_FAULT(FaultTextTooLong("run number", 32, 40),
               "ERROR: run number is too long: width 32, length 40");
}

TEST(FaultDeathTest, ACountThatCannotBeAllocatedIsNamed) {
  EXPECT_FAULT(FaultCannotAllocate("ValueNoMachine", 70000),
               "ERROR: ValueNoMachine cannot be allocated: count 70000");
}

TEST(Fault, HasTheStatusMinusTwo) { EXPECT_EQ(kFaultStatus, -2); }

TEST(FaultDeathTest, EndsTheChildBehindTheLine) {
  const auto fault = [] {
    const EndChildOnFault guard(ReportEnd, solver);
    FaultTextTooLong("log", 8, 9);
  };
  EXPECT_FAULT(fault(), "ERROR: log is too long: width 8, length 9\nended solver");
}

TEST(FaultDeathTest, LeavesAChildAloneWhoseGuardIsGone) {
  const auto fault = [] {
    { const EndChildOnFault guard(ReportEnd, solver); }
    FaultTextTooLong("log", 8, 9);
  };
  EXPECT_FAULT(fault(), "ERROR: log is too long: width 8, length 9");
}

TEST(FaultDeathTest, EndsTheOuterChildOnceTheInnerGuardIsGone) {
  const auto fault = [] {
    char outer[] = "outer";
    const EndChildOnFault outerGuard(ReportEnd, outer);
    { const EndChildOnFault innerGuard(ReportEnd, solver); }
    FaultTextTooLong("log", 8, 9);
  };
  EXPECT_FAULT(fault(), "ERROR: log is too long: width 8, length 9\nended outer");
}

TEST(FaultDeathTest, AFailedAllocationIsAFaultOnceInstalled) {
  const auto allocate = [] {
    InstallOutOfMemoryFault();
    AllocateTooMuch();
  };
  EXPECT_FAULT(allocate(), "ERROR: out of memory");
}

TEST(FaultDeathTest, AFailedAllocationIsAFaultAgainBehindAScopeInWhichItThrows) {
  const auto allocate = [] {
    InstallOutOfMemoryFault();
    {
      const OutOfMemoryThrows throws;
      EXPECT_THROW(AllocateTooMuch(), std::bad_alloc);
    }
    AllocateTooMuch();
  };
  EXPECT_FAULT(allocate(), "ERROR: out of memory");
}

TEST(FaultDeathTest, ACountedAllocationThatFailsNamesItsField) {
  const auto allocate = [] {
    InstallOutOfMemoryFault();
    AllocateCounted("process weights", kTooMany,
                    [](std::size_t n) { return std::vector<int>(n, 7); });
  };
  EXPECT_FAULT(allocate(), "ERROR: process weights cannot be allocated: count 2000000000");
}

TEST(Fault, ACountedAllocationIsHandedOn) {
  EXPECT_EQ(AllocateCounted("numbers", 3, [](std::size_t n) { return std::vector<int>(n, 7); }),
            (std::vector<int>{7, 7, 7}));
}

TEST(Fault, ACountedAllocationLetsOtherExceptionsPass) {
  const auto allocate = [](std::size_t) -> int { throw std::length_error("not for memory"); };
  EXPECT_THROW(AllocateCounted("numbers", 3, allocate), std::length_error);
}

TEST(FaultDeathTest, AnUnexpectedExceptionIsAFault) {
  EXPECT_FAULT(FaultUnexpectedException(), "ERROR: unexpected exception");
}

}  // namespace
}  // namespace qvx
