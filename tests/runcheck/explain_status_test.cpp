// What an exit status means, with a system that has a text for everything.
#include "runcheck/explain_status.h"

#include <gtest/gtest.h>

#include <string>

namespace qvx::runcheck {
namespace {

std::string Explained(const std::string& status) {
  const auto systemText = [](int) -> std::string { return "its own text."; };
  const std::optional<int> number = ParseStatus(status);
  return number ? ExplainStatus(*number, systemText) : "no status";
}

TEST(ExplainStatus, TheLaunchersOwn) {
  EXPECT_EQ(Explained("0"),
            "0: the run went well, or it was cancelled before the solver was started; in a "
            "distributed run it does not prove that a solver ran");
  EXPECT_EQ(Explained("-1"),
            "-1: the launcher could not start the solver or impiexec.exe, was called with fewer "
            "than two arguments, or acc.ini cannot be used; a solver may have returned it too, and "
            "the launcher's messages tell these apart");
  EXPECT_EQ(Explained("4294967295"), Explained("-1"));
  EXPECT_EQ(Explained("-2"),
            "-2: the launcher gave up: a text too long for its field, a count too large, no "
            "memory, or a library that failed; the line on standard error says which, and a solver "
            "may have returned it too");
  EXPECT_EQ(Explained("-7000"),
            "-7000: impiexec.exe found no MPI process manager (smpd) and was ended; the launcher's "
            "message shows the command that installs it on this machine");
  EXPECT_EQ(Explained("-9876"), "-9876: the run was cancelled while the solver ran");
  EXPECT_EQ(Explained("259"),
            "259: the solver returned 259, which the system also uses for a process that still "
            "runs");
}

TEST(ExplainStatus, TheSystemsEndOfASolver) {
  const std::pair<const char*, const char*> rows[] = {
      {"0xC0000005",
       "-1073741819 (0xC0000005): the solver read or wrote memory that is not its own (access "
       "violation)"},
      {"0xC0000017", "-1073741801 (0xC0000017): the solver found no memory"},
      {"0xC000001D",
       "-1073741795 (0xC000001D): the solver met an instruction that this processor does not know"},
      {"0xC000007B", "-1073741701 (0xC000007B): a library of the solver is for another machine"},
      {"0xC0000094", "-1073741676 (0xC0000094): the solver divided by zero"},
      {"0xC00000FD", "-1073741571 (0xC00000FD): the solver's stack overflowed"},
      {"0xC0000135",
       "-1073741515 (0xC0000135): a library that the launcher or the solver needs is missing"},
      {"0xC0000139",
       "-1073741511 (0xC0000139): a library that the solver needs is of another version"},
      {"0xC000013A",
       "-1073741510 (0xC000013A): the solver was ended by Ctrl-C or a closing window"},
      {"0xC0000142", "-1073741502 (0xC0000142): a library of the solver did not start"},
      {"0xC0000374", "-1073740940 (0xC0000374): the solver's heap was damaged"},
      {"0xC0000409", "-1073740791 (0xC0000409): the solver's stack was damaged, or it aborted"},
  };
  for (const auto& [status, meaning] : rows) {
    EXPECT_EQ(Explained(status), std::string(meaning) + "; the system says: its own text.");
  }
}

TEST(ExplainStatus, ASmallNumberAboveZeroIsTheSolversOwn) {
  for (const char* status : {"1", "255", "256", "300", "9999"}) {
    EXPECT_EQ(Explained(status),
              std::string(status) +
                  ": the solver's own, or that of impiexec.exe; the solver's manual explains it");
  }
  EXPECT_EQ(Explained("0x3FFFFFFF"),
            "1073741823 (0x3FFFFFFF): the solver's own, or that of impiexec.exe; the solver's "
            "manual explains it");
}

TEST(ExplainStatus, AnyOtherMayBeTheSystems) {
  EXPECT_EQ(Explained("0x40000000"),
            "1073741824 (0x40000000): the solver's own, or the system's: its own text.");
  EXPECT_EQ(Explained("-3"), "-3: the solver's own, or the system's: its own text.");
  EXPECT_EQ(ExplainStatus(-3, [](int) -> std::string { return ""; }),
            "-3: the solver's own; the system has no text for it");
}

TEST(ExplainStatus, WhatIsNoNumberOf32Bits) {
  for (const char* text : {"", "one", "1x", "4294967296", "-2147483649"}) {
    EXPECT_EQ(Explained(text), "no status") << text;
  }
}

}  // namespace
}  // namespace qvx::runcheck
