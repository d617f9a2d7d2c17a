#include "runcheck/cmx_rules.h"

#include <gtest/gtest.h>

#include <string>

#include "runcheck/diagnostic_text.h"

namespace qvx::runcheck {
namespace {

std::string Found(const std::string& file, SolverClass solverClass = SolverClass::Flow) {
  std::string text;
  const CmxFacts facts({"a.cmx", file}, solverClass);
  for (const Diagnostic& diagnostic : CheckCmxFile(facts)) text += DiagnosticText(diagnostic, {});
  return text;
}

TEST(CmxRules, Dump) {
  std::puts(Found("<TASKMANAGER>\r\nIDTaskMode = 0 \r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n")
                .c_str());
  std::puts(
      Found("<taskmanager>\r\nIDTaskMode = 0\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n").c_str());
  std::puts(
      Found(
          "\xEF\xBB\xBF<TASKMANAGER>\r\nIDTaskMode = 0\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n")
          .c_str());
  std::puts(Found("<TASKMANAGER>\r\nIDTaskMode: "
                  "0\r\nidTaskMode=1\r\nValueLocalNoTask=1\r\n</TASKMANAGER>\r\n")
                .c_str());
  std::puts(
      Found("<TASKMANAGER>\nIDTaskMode = 1\n</TASKMANAGER>\n<REMOTE_MACHINES>\nValueNoMachine = "
            "2\nValueMachineSetting\n1=NODE1\t2\n2=NODE2\t1\nValueMachinWeighting = weight\n1 = "
            "0.6\n2=0.4\n</REMOTE_MACHINES>\n")
          .c_str());
}

}  // namespace
}  // namespace qvx::runcheck
