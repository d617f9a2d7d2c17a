// A site with a run in order, for tests that make one mistake in it and read what the check finds.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/program/site.h"
#include "tests/runcheck/check_process.h"
#include "tests/support/machine_state.h"

namespace qvx::test {

constexpr const char* kSerialFile =
    "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n";
constexpr const char* kSmpFile =
    "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=1\r\nValueLocalNoTask=2\r\n</TASKMANAGER>\r\n";
constexpr const char* kDmpFile =
    "<TASKMANAGER>\r\nIDTaskMode=1\r\n</TASKMANAGER>\r\n"
    "<REMOTE_MACHINES>\r\nValueNoMachine=2\r\nValueLocalHost=NODE1\r\n"
    "ValueShareFolderName=<name>\\Work\r\nValueParallelWorkingFolder=<site>\\WORK\r\n"
    "ValueMachineSetting\r\n1=NODE1\t2\r\n2=NODE2\t1\r\n"
    "ValueMachineWeighting\r\n1=0.6\r\n2=0.4\r\n</REMOTE_MACHINES>\r\n";

constexpr const char* kRun = "<site>\\Home*<site>\\Work\\Sample*Sample*3*01";
constexpr const char* kFlow = "Qvx3DFlow.exe";
constexpr const char* kInOrder = "Nothing stands in the way of this run.\n";

class RunCheckTest : public testing::Test {
 protected:
  RunCheckTest();

  /// The check's whole answer. Texts may hold <site>, <share> and <name>, see Site. Without the
  /// network, and with no byte on standard error.
  std::string Answer(std::vector<std::string> arguments) const;

  /// Its diagnostics and verdict for a call of the launcher. Markers are all "^~" or "^".
  std::string Findings(const std::vector<std::string>& launcherArguments) const;
  std::string FindingsFor(const std::string& tokens, const std::string& solver = kFlow) const {
    return Findings({"L$1", tokens, solver});
  }
  std::string Findings() const { return FindingsFor(kRun); }

  mutable int status = -1;  ///< of the last run
  Site site;
  MpiInstallPathValue mpiPath;
};

}  // namespace qvx::test
