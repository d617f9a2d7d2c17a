// A diagnostic keeps to its row of the table.
#include "runcheck/diagnostic.h"

#include <gtest/gtest.h>

namespace qvx::runcheck {
namespace {

TEST(Diagnostic, HasItsRowsMildestSeverityUntilAnotherIsSaid) {
  EXPECT_EQ(Diagnostic("cmx-unknown-key", "").severity, kNote);
  EXPECT_EQ(Diagnostic("cmx-unknown-key", "").As(kWarning).severity, kWarning);
  EXPECT_EQ(Diagnostic("cmx-unknown-key", "").Grave(false).severity, kNote);
  EXPECT_EQ(Diagnostic("cmx-unknown-key", "").Grave().severity, kError);
}

#ifndef NDEBUG
TEST(DiagnosticDeathTest, TakesNoSeverityBeyondItsRow) {
  EXPECT_DEATH(Diagnostic("call-extra-arguments", "").As(kError), "row->gravest");
  EXPECT_DEATH(Diagnostic("call-empty-token", "").As(kNote), "row->mildest");
}
#endif

}  // namespace
}  // namespace qvx::runcheck
