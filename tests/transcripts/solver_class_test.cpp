// Solver classes that always run serially, and numbers that name no class.
#include <gtest/gtest.h>

#include "tests/transcripts/run.h"
#include "tests/transcripts/scenarios.h"

namespace qvx::test {
namespace {

/// Classes of this kind do not look at what the file says about parallel runs.
Scenario AlwaysSerial(const std::string& solver) { return DmpRun(solver); }

/// The shell front ends put the tokens into the first argument.
Scenario ShellRun(const std::string& solver) {
  Scenario scenario = AlwaysSerial(solver);
  const std::string site(kSite);
  scenario.arguments = {"L.exe$5*" + site + "\\Home*" + site + "\\Work\\Part*Part*9*3*a*b*c*d",
                        "not looked at*x*y", solver};
  return scenario;
}

TEST(Transcript, OfAShellFlowRun) {
  ExpectTranscript("shell-flow", Traced(ShellRun("QvxFlow.exe")));
}

/// The second argument may be empty.
TEST(Transcript, OfAShellPackRun) {
  Scenario scenario = ShellRun("QvxPack.exe");
  scenario.arguments[1] = "";
  ExpectTranscript("shell-pack", scenario);
}

/// No argument asks for help.
TEST(Transcript, OfAShellCoolingRun) {
  Scenario scenario = ShellRun("QvxCool.exe");
  scenario.arguments[1] = "/?";
  ExpectTranscript("shell-cooling", scenario);
}

/// More arguments than three are no error.
TEST(Transcript, OfAShellWarpageRun) {
  Scenario scenario = ShellRun("QvxWarp.exe");
  scenario.arguments.push_back("more");
  ExpectTranscript("shell-warpage", scenario);
}

TEST(Transcript, OfAPackRun) { ExpectTranscript("pack", SerialRun("Qvx3DPack.exe")); }
TEST(Transcript, OfAnIcRun) { ExpectTranscript("ic", AlwaysSerial("Ic.exe")); }
TEST(Transcript, OfAWsRun) { ExpectTranscript("ws", AlwaysSerial("Qvx3DIc.exe")); }
TEST(Transcript, OfAPsRun) { ExpectTranscript("ps", AlwaysSerial("Qvx3DIcPs.exe")); }
TEST(Transcript, OfAnOpticsRun) { ExpectTranscript("optics", AlwaysSerial("QvxOptics.exe")); }

/// Nothing is formatted for it; its file is sought at an empty path, and no mode reads as
/// distributed.
TEST(Transcript, OfAClassBeyondTheTable) {
  Scenario scenario = SerialRun();
  scenario.solverClasses = {{{"GetPrivateProfileStringA", 1}, 13}};
  ExpectTranscript("class-beyond-the-table", Traced(scenario));
}

/// Its log has no class in its name, and the clean-up takes the logs of every class.
TEST(Transcript, OfASerialRunOfAClassBeyondTheTable) {
  Scenario scenario = SerialRun();
  scenario.solverClasses = {{{"fclose", 2}, 13}};
  scenario.oldLogs = {{kRunFolder + "\\console_redirect_serial_Flow_2024-01-01_00-00-00.txt"},
                      {kRunFolder + "\\console_redirect_serial_IC_2024-01-01_00-00-00.txt"}};
  ExpectTranscript("class-beyond-the-table-serial", scenario);
}

}  // namespace
}  // namespace qvx::test
