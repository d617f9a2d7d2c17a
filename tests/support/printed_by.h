// What a piece of code prints on standard output, with "\n" line ends on every system.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace qvx::test {

template <typename Action>
std::string PrintedBy(Action&& action) {
  testing::internal::CaptureStdout();
  action();
  return testing::internal::GetCapturedStdout();
}

}  // namespace qvx::test
