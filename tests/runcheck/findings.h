// A site with a run in order, for tests that make one mistake in it and read what the check finds.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/program/site.h"
#include "tests/runcheck/check_process.h"
#include "tests/support/machine_state.h"

namespace qvx::test {

constexpr const char* kFlow = "Qvx3DFlow.exe";
constexpr const char* kInOrder = "Nothing stands in the way of this run.\n";
constexpr const char* kNotMeant = "\n1 error: this run would not be the one that is meant.\n";
constexpr const char* kNoStart = "\n1 error: this run would not start.\n";

class RunCheckTest : public testing::Test {
 protected:
  RunCheckTest();

  /// What the check writes, nothing of it on standard error. Texts may hold <site>, <share> and
  /// <name>, see Site. `program`: see RunQvxRunCheck.
  std::string Ask(std::vector<std::string> arguments, const std::string& program = {}) const;

  /// The same without the network.
  std::string Answer(std::vector<std::string> arguments) const;

  /// Its diagnostics and verdict, which the exit status has to fit, for a call of the launcher.
  /// Markers are all "^~" or "^".
  std::string Findings(const std::vector<std::string>& launcherArguments) const;
  std::string FindingsFor(const std::string& tokens, const std::string& solver = kFlow) const {
    return Findings({"L$1", tokens, solver});
  }
  std::string Findings() const { return FindingsFor(kTokens); }

  /// The same about a distributed run, `from` of its CMX file replaced by `to`.
  std::string FoundWith(const std::string& from, const std::string& to) const;

  mutable int status = -1;  ///< of the last answer
  Site site;
  MpiInstallPathValue mpiPath;
};

}  // namespace qvx::test
