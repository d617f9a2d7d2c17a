// The CMX files of runs in order, for tests that change one thing in them, and what the rules over
// a file's lines say about them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "runcheck/cmx_rules.h"
#include "runcheck/diagnostic_text.h"
#include "tests/support/texts.h"

namespace qvx::runcheck {

/// A run on this machine.
inline std::string Local() {
  return "<TASKMANAGER>\n"
         "IDTaskMode = 0\n"
         "ValueNoTask = 1\n"
         "ValueLocalNoTask = 1\n"
         "</TASKMANAGER>\n";
}

constexpr const char* kMachineBlock =
    "ValueMachineSetting = host, tasks\n"
    "1 = NODE1\t2\n"
    "2 = NODE2\t1\n";
constexpr const char* kWeightingBlock =
    "ValueMachineWeighting = weight\n"
    "1 = 0.6\n"
    "2 = 0.4\n";

/// A run distributed over two machines.
inline std::string Distributed() {
  return std::string(
             "<TASKMANAGER>\n"
             "IDTaskMode = 1\n"
             "</TASKMANAGER>\n"
             "<REMOTE_MACHINES>\n"
             "ValueNoMachine = 2\n"
             "ValueShareFolderName = Projects\n"
             "ValueParallelWorkingFolder = C:\\Projects\n"
             "ValueLocalHost = NODE1\n") +
         kMachineBlock + kWeightingBlock + "</REMOTE_MACHINES>\n";
}

/// `text` with `from`, which it has to hold, replaced by `to`.
inline std::string Changed(const std::string& text, std::string_view from, std::string_view to) {
  EXPECT_NE(text.find(from), std::string::npos) << from;
  return test::Replaced(text, from, to);
}
inline std::string Local(std::string_view from, std::string_view to) {
  return Changed(Local(), from, to);
}
inline std::string Distributed(std::string_view from, std::string_view to) {
  return Changed(Distributed(), from, to);
}

/// A run on this machine with these numbers of tasks.
inline std::string LocalTasks(const std::string& tasks, const std::string& localTasks) {
  return Local("ValueNoTask = 1\nValueLocalNoTask = 1",
               "ValueNoTask = " + tasks + "\nValueLocalNoTask = " + localTasks);
}

/// What the rules say about a file, as a person reads it.
inline std::string Found(const std::string& file, SolverClass solverClass = SolverClass::Flow) {
  std::string text;
  const CmxFacts facts({"Sample03.cmx", file}, solverClass);
  for (const Diagnostic& diagnostic : CheckCmxFile(facts)) text += DiagnosticText(diagnostic, {});
  return text;
}

/// The same in two lines for each finding: severity, code and place, what is wrong and what
/// follows; what to do.
inline std::string FoundInShort(const std::string& file,
                                SolverClass solverClass = SolverClass::Flow) {
  std::string text;
  const CmxFacts facts({"Sample03.cmx", file}, solverClass);
  for (const Diagnostic& diagnostic : CheckCmxFile(facts)) {
    text += std::string(NameOf(diagnostic.severity)) + " " + std::string(diagnostic.code);
    if (diagnostic.range) {
      const Position& start = diagnostic.range->start;
      text += " " + std::to_string(start.line) + ":" + std::to_string(start.column);
    }
    text += ": " + diagnostic.summary + ": " + diagnostic.consequence + "\n  " + diagnostic.help;
    if (diagnostic.suggestion) text += " (" + *diagnostic.suggestion + ")";
    text += "\n";
  }
  return text;
}

}  // namespace qvx::runcheck
