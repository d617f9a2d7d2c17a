// The launcher's own lines on standard output, as text. When they leave the stream's buffer is
// tested natively.
#include "support/console.h"

#include <gtest/gtest.h>

#include "tests/support/printed_by.h"

namespace qvx {
namespace {

TEST(Console, PrintWritesTheFormattedTextAndNothingElse) {
  EXPECT_EQ(test::PrintedBy([] { Print("\r%d   %s", 4, "left"); }), "\r4   left");
}

TEST(Console, PrintUnflushedWritesTheFormattedTextAndNothingElse) {
  EXPECT_EQ(test::PrintedBy([] { PrintUnflushed("code=%d\n", -1); }), "code=-1\n");
}

}  // namespace
}  // namespace qvx
