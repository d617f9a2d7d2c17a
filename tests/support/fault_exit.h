// Expects a statement to end the process by a fault, with one line and nothing else on standard
// error.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/fault.h"

namespace qvx::test {

#if defined(_WIN32)
constexpr int kFaultExitCode = kFaultStatus;
#else
/// Other systems keep the low byte of an exit status.
constexpr int kFaultExitCode = kFaultStatus & 0xFF;
#endif

}  // namespace qvx::test

/// `line`: without "ERROR: " in front and the line end.
#define EXPECT_FAULT(statement, line)                                        \
  EXPECT_EXIT(statement, testing::ExitedWithCode(qvx::test::kFaultExitCode), \
              testing::Eq("ERROR: " + std::string(line) + "\n"))
