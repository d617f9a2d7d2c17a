// Serial runs, and what every run has in common.
#include <gtest/gtest.h>

#include "tests/transcripts/run.h"
#include "tests/transcripts/scenarios.h"

namespace qvx::test {
namespace {

TEST(Transcript, OfFewerThanTwoArguments) {
  Scenario scenario = SerialRun();
  scenario.arguments.resize(1);
  ExpectTranscript("fewer-than-two-arguments", scenario);
}

TEST(Transcript, OfASerialRun) {
  Scenario scenario = SerialRun();
  scenario.oldLogs = {{kRunFolder + "\\console_redirect_serial_Flow_2024-01-01_00-00-00.txt"},
                      {kRunFolder + "\\console_redirect_serial_Flow_folder.txt",
                       FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_ARCHIVE},
                      {kRunFolder + "\\console_redirect_serial_Pack_2024-01-01_00-00-00.txt"},
                      {kRunFolder + "\\console_redirect_smp_Flow_2024-01-01_00-00-00.txt"},
                      {kRunFolder + "\\console_redirect_serial_Flow.txt",
                       FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                           FILE_ATTRIBUTE_REPARSE_POINT}};
  ExpectTranscript("serial", scenario);
}

TEST(Transcript, OfATracedSerialRun) { ExpectTranscript("serial-traced", Traced(SerialRun())); }

/// A chunk with zero bytes, one that fills the buffer, one that does so again, one of nothing, what
/// means something to shared-memory runs alone, and a code below 0.
TEST(Transcript, OfOutputInManyForms) {
  Scenario scenario = SerialRun();
  scenario.children = {
      {.output = {std::string("a\0b\0", 4), std::string(4096, 'x'), "%s\n" + std::string(4093, 'y'),
                  "\xE4\x80\xFF", "", "Unknown option: -d",
                  "\357\273\27750%\r\x1B[1m\b\a\f\t\x1A\n\n", "last"},
       .exitCode = static_cast<DWORD>(-5)}};
  ExpectTranscript("serial-output-in-many-forms", scenario);
}

TEST(Transcript, OfASolverThatEndsBeforeItsOutputIsRead) {
  Scenario scenario = SerialRun();
  scenario.children = {{.output = {"read", "never read"}, .exitCode = 0, .endsEarly = true}};
  ExpectTranscript("serial-last-output-unread", scenario);
  scenario.children[0].exitCode = STATUS_ACCESS_VIOLATION;
  ExpectTranscript("serial-last-output-of-a-failure-unread", scenario);
}

/// The home folder keeps the second of its two backslashes, the name gets no extension.
TEST(Transcript, OfAnExitCodeThatLooksAlive) {
  Scenario scenario = SerialRun("Qvx3DFlow");
  scenario.arguments[1].insert(scenario.arguments[1].find('*'), "\\");
  scenario.children = {{.output = {"solved\r\n"}, .exitCode = STILL_ACTIVE}};
  ExpectTranscript("serial-exit-code-259", scenario);
}

TEST(Transcript, OfWritesThatTakePieces) {
  Scenario scenario = SerialRun();
  scenario.arguments[1].replace(0, scenario.arguments[1].find('*'), "\\");
  scenario.children[0].exitCode = 0x10003;
  scenario.shortWrites = {{{"WriteFile", 1}, 10}, {{"WriteFile", 3}, 1}, {{"WriteFile", 5}, 0}};
  ExpectTranscript("serial-writes-in-pieces", scenario);
}

/// Every path is as long as its field takes, but for the logs', which have no limit. Nothing of
/// them is a format.
TEST(Transcript, OfTheLongestPaths) {
  Scenario scenario = SerialRun("QvxFlow%s2.exe");
  const std::string home = "C:\\%s %n" + std::string(259 - 27, 'h');     // less \Bin\QVXProject.ini
  const std::string project = "C:\\%s %n" + std::string(259 - 34, 'p');  // less \Analysis\Run03\...
  scenario.arguments[0] = "L$1*" + home + "*" + project + "*Part*9*3";
  scenario.libraries.argumentString = " -set\t%s %n \"a b\" \r\n";
  const std::string name = "\\console_redirect_serial_ShellFlow_" + std::string(200, 'o') + ".txt";
  scenario.oldLogs = {{project + "\\Analysis\\Run03" + name}};
  ExpectTranscript("longest-paths", Traced(scenario));
}

TEST(Transcript, OfANameThatFitsNoRule) {
  ExpectTranscript("name-that-fits-no-rule", Traced(SerialRun("Solver.exe")));
}

/// The token list is the name then, and its "Flow" decides.
TEST(Transcript, OfTwoArguments) {
  Scenario scenario = SerialRun();
  scenario.arguments = {std::string(kSite) + "\\L.exe$7*D:\\Home\\*D:\\Flow*P*3*7*a*b*c", "Flow*x"};
  ExpectTranscript("two-arguments", Traced(scenario));
}

/// What is missing keeps what `Reset` gave; there is no CMX file at such a place.
TEST(Transcript, OfFewTokensAndNoMarker) {
  Scenario scenario = SerialRun();
  scenario.arguments = {"L.exe", std::string(kSite) + "\\Home\\*", "Qvx3DWarp.exe"};
  ExpectTranscript("few-tokens", Traced(scenario));
}

/// STRESS gets the option of `Reset` twice, and the launcher the home folder of `Reset`.
TEST(Transcript, OfNoTokens) {
  Scenario scenario = SerialRun("QvxStress.exe");
  scenario.arguments[1] = "*";
  ExpectTranscript("no-tokens", scenario);
}

}  // namespace
}  // namespace qvx::test
