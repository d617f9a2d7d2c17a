// When the launcher's lines leave the stream's buffer. Native only: Wine's C runtime writes every
// line at once, and a death test's process prints lines of its own on Windows.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/console.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"

namespace qvx {
namespace {

TEST(ConsoleFlushDeathTest, PrintedLinesAreOutAtOnce) {
  const auto print = [] {
    Print("line\n");
    std::_Exit(0);
  };
  const auto run = [&] { EXPECT_EXIT(print(), testing::ExitedWithCode(0), testing::Eq("")); };
  EXPECT_EQ(test::PrintedBy(run), "line\n");
}

TEST(ConsoleFlushDeathTest, UnflushedLinesStayInTheBuffer) {
  const auto print = [] {
    PrintUnflushed("line\n");
    std::_Exit(0);
  };
  const auto run = [&] { EXPECT_EXIT(print(), testing::ExitedWithCode(0), testing::Eq("")); };
  EXPECT_EQ(test::PrintedBy(run), "");
}

TEST(ConsoleFlushDeathTest, AFaultWritesUnflushedLines) {
  const auto print = [] {
    PrintUnflushed("line\n");
    FaultTextTooLong("name", 32, 40);
  };
  const auto run = [&] { EXPECT_FAULT(print(), "ERROR: name is too long: width 32, length 40"); };
  EXPECT_EQ(test::PrintedBy(run), "line\n");
}

}  // namespace
}  // namespace qvx
