// Letters of two bytes, whose second half looks like a backslash, a bar or a blank: for a locale
// with such a code page.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "runcheck/call_facts.h"
#include "runcheck/share_rules.h"
#include "support/trailing_backslash.h"
#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(DoubleByte, TheSecondHalfOfALetterIsNeitherBackslashNorInvisible) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  EXPECT_FALSE(LooksLikePath("\x95\\"));
  EXPECT_TRUE(LooksLikePath("\x95\\\\x"));
  EXPECT_FALSE(EndsInSlash("C:\\\x95\\"));
  EXPECT_TRUE(EndsInSlash("C:\\\x95\\\\"));
  EXPECT_EQ(TrimmedOfInvisible("\x8E\xA0 "), "\x8E\xA0");
}

TEST(DoubleByte, TheSecondHalfOfALetterEndsNoName) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  EXPECT_EQ(LastPart("C:\\P\x95\\x"), "P\x95\\x");
  EXPECT_EQ(WithExtension("C:\\a.b\x95\\x"), "C:\\a.b\x95\\x");
  EXPECT_EQ(WithExtension("C:\\a.b\\x\x95\\"), "C:\\a.b\\x\x95\\.exe");
}

TEST(DoubleByte, TheSecondHalfOfALetterIsInOrderInAHostName) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  EXPECT_EQ(FoundInShort(Distributed("1 = NODE1", "1 = N\x95\\")), "");
  EXPECT_EQ(FoundInShort(Distributed("1 = NODE1", "1 = \\\\N\x95\\")),
            "error machine-host 10:5: \\\\N\x95\\ is no host name: the MPI process launcher would "
            "ask for another machine\n"
            "  the name is written N\x95\\ (N\x95\\)\n");
}

TEST(DoubleByte, TheSecondHalfOfALetterIsInOrderInAShareAndItsNode) {
  if (!IsLeadByte('\x95')) GTEST_SKIP() << "another code page";
  const CmxFacts facts({"Sample03.cmx", Distributed()}, SolverClass::Flow);
  Prediction prediction;
  prediction.context = std::make_unique<LauncherContext>();
  prediction.isPrepared = true;
  RemoteMachineSettings& settings = prediction.context->remoteMachineSettings;
  std::strcpy(settings.ValueStorageNode, "N\x95\\");
  std::strcpy(settings.ValueShareFolderName, "P\x83|");
  Diagnostics found;
  CheckShares(facts, prediction, found);
  EXPECT_TRUE(found.empty()) << found.front().summary;
  std::strcpy(settings.ValueShareFolderName, "\\P\x95\\");
  CheckShares(facts, prediction, found);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().help, "the share is written P\x95\\");
}

}  // namespace
}  // namespace qvx::runcheck
