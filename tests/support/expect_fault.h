// Expects that a statement ends the process with the fault status and exactly one text on standard
// error.
#pragma once

#include <gtest/gtest.h>

#include "support/fault.h"

namespace qvx::test {

#if defined(_WIN32)
constexpr int kSeenFaultStatus = kFaultStatus;
#else
constexpr int kSeenFaultStatus = kFaultStatus & 0xFF;  // all that the system keeps of it
#endif

}  // namespace qvx::test

/// `text`: a regular expression, without the last line end.
#define EXPECT_FAULT(statement, text) \
  EXPECT_EXIT(statement, testing::ExitedWithCode(qvx::test::kSeenFaultStatus), "^" text "\n$")
