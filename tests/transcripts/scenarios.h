// The parts that scenarios are made of.
#pragma once

#include <string>

#include "tests/transcripts/scenario.h"
#include "tests/transcripts/transcript.h"

namespace qvx::test {

const std::string kCmxPath = std::string(kSite) + "\\Work\\Part\\Analysis\\Run03\\Part03.cmx";
const std::string kRunFolder = std::string(kSite) + "\\Work\\Part\\Analysis\\Run03";
const std::string kTraceSwitch =
    std::string(kSite) + "\\Common\\NelvornSystem\\qvxsolverlauncherdebug.txt";

/// Lines as the front end writes them.
inline std::string CmxLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

inline std::string TaskManager(const std::string& mode, const std::string& tasks,
                               const std::string& localTasks) {
  return CmxLines({"<TASKMANAGER>", "Version=1.0", "IDTaskMode=" + mode, "flagAccelerationType=2",
                   "ValueNoTask=" + tasks, "ValueLocalNoTask=" + localTasks,
                   "ValueConsoleRedirection=0", "</TASKMANAGER>"});
}

/// Two machines, three tasks; the project lies below the working folder.
inline std::string RemoteMachines() {
  return CmxLines({"<REMOTE_MACHINES>", "Version=1.1", "ValueNoMachine=2", "ValueRemoteNoTask=3",
                   "ValueMap=4", "ValueShareFolderName=Projects",
                   "ValueParallelWorkingFolder=" + std::string(kSite) + "\\WORK",
                   "ValueLocalHost=LOCAL", "ValueStorageNode=NODE1",
                   "ValueMachineSetting=", "1=NODE1\t2\trest", "2=NODE2\t1",
                   "ValueMachineWeighting=", "1=0.6 heavy", "2=0.4", "</REMOTE_MACHINES>"});
}

/// A run of `solver` on the project that all scenarios share, which meets no trouble: the solver
/// prints a line and ends with 3.
inline Scenario RunOf(const std::string& solver, const std::string& cmx) {
  Scenario scenario;
  const std::string site(kSite);
  scenario.arguments = {site + "\\Home\\Bin\\QVXSolverLauncher.exe$2",
                        site + "\\Home\\*" + site + "\\Work\\Part*Part*3*03", solver};
  scenario.files[kCmxPath] = cmx;
  scenario.children = {{.output = {"solved\r\n"}, .exitCode = 3}};
  return scenario;
}

inline Scenario SerialRun(const std::string& solver = "Qvx3DFlow.exe") {
  return RunOf(solver, TaskManager("0", "4", "1"));
}

inline Scenario SmpRun(const std::string& solver = "Qvx3DFlow.exe") {
  return RunOf(solver, TaskManager("0", "4", "4"));
}

inline Scenario DmpRun(const std::string& solver = "Qvx3DFlow.exe") {
  return RunOf(solver, TaskManager("1", "4", "4") + RemoteMachines());
}

inline Scenario Traced(Scenario scenario) {
  scenario.files[kTraceSwitch] = "";
  return scenario;
}

}  // namespace qvx::test
