// Command lines at the limits of the system and of the log.
#include <gtest/gtest.h>

#include <string>

#include "runcheck/diagnostic_text.h"
#include "runcheck/share_rules.h"

namespace qvx::runcheck {
namespace {

std::string FoundFor(std::size_t length) {
  Prediction prediction;
  prediction.passes.emplace_back();
  prediction.passes.back().commandLine.assign(length, 'x');
  Diagnostics found;
  CheckCommandLines(prediction, found);
  return found.empty() ? "" : DiagnosticText(found.front(), {});
}

TEST(CommandLineLength, TheLogTakes32751Characters) { EXPECT_EQ(FoundFor(32751), ""); }

TEST(CommandLineLength, TheLogTakesNoMore) {
  EXPECT_EQ(
      FoundFor(32752),
      "error: the command line has 32752 characters: the launcher would start it, fail to log it "
      "and end with -2; 32751 are the most [command-line-length]\n"
      "    help: machines and paths are made fewer\n");
}

TEST(CommandLineLength, TheSystemTakes32766Characters) {
  EXPECT_EQ(
      FoundFor(32766),
      "error: the command line has 32766 characters: the launcher would start it, fail to log it "
      "and end with -2; 32751 are the most [command-line-length]\n"
      "    help: machines and paths are made fewer\n");
  EXPECT_EQ(
      FoundFor(32767),
      "error: the command line has 32767 characters: the system would not start it; 32766 are "
      "the most [command-line-length]\n"
      "    help: machines and paths are made fewer\n");
}

}  // namespace
}  // namespace qvx::runcheck
