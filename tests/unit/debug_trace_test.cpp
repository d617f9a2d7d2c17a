// The switch behind every diagnostic line.
#include "launcher/debug_trace.h"

#include <gtest/gtest.h>

#include "tests/support/printed_by.h"

namespace qvx {
namespace {

TEST(DebugTrace, PrintsWhenTheFlagIsSet) {
  LauncherContext context;
  context.debugTraceFlag = 1;
  EXPECT_EQ(test::PrintedBy([&] { Trace(context, "argv[%d]=[%s]\n", 1, "a*b"); }),
            "argv[1]=[a*b]\n");
}

TEST(DebugTrace, PrintsNothingWhenTheFlagIsClear) {
  const LauncherContext context;
  EXPECT_EQ(test::PrintedBy([&] { Trace(context, "argv[%d]=[%s]\n", 1, "a*b"); }), "");
}

}  // namespace
}  // namespace qvx
