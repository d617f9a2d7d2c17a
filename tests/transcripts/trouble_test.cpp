// Runs in which the system refuses something, and runs that a fault ends.
#include <gtest/gtest.h>

#include "tests/transcripts/run.h"
#include "tests/transcripts/scenarios.h"

namespace qvx::test {
namespace {

TEST(Transcript, OfASolverThatCannotBeStarted) {
  Scenario scenario = SerialRun();
  scenario.children = {{.startError = ERROR_FILE_NOT_FOUND}};
  scenario.oldLogs = {{kRunFolder + "\\console_redirect_serial_Flow_2024-01-01_00-00-00.txt"}};
  ExpectTranscript("solver-not-started", scenario);
}

/// Ends the reading like the file's end; what stands behind it is missing.
TEST(Transcript, OfACmxFileThatCannotBeReadToItsEnd) {
  Scenario scenario = SerialRun();
  scenario.failingRead = 5;
  ExpectTranscript("cmx-file-not-read-to-its-end", scenario);
}

TEST(Transcript, OfALogThatCannotBeCreated) {
  Scenario scenario = DmpRun();
  scenario.failures = {{{"CreateFileA", 1}, ERROR_PATH_NOT_FOUND}};
  ExpectTranscript("log-not-created", scenario);
}

TEST(Transcript, OfPipesThatCannotBeCreated) {
  Scenario scenario = SerialRun();
  scenario.failures = {{{"CreatePipe", 1}, ERROR_NO_SYSTEM_RESOURCES},
                       {{"CreatePipe", 2}, ERROR_NO_SYSTEM_RESOURCES}};
  ExpectTranscript("pipes-not-created", scenario);
}

TEST(Transcript, OfAnOutputPipeThatCannotBeCreated) {
  Scenario scenario = SmpRun();
  scenario.failures = {{{"CreatePipe", 1}, ERROR_NO_SYSTEM_RESOURCES}};
  ExpectTranscript("output-pipe-not-created", scenario);
}

TEST(Transcript, OfPipeEndsThatStayInheritableAndDoNotClose) {
  Scenario scenario = SerialRun();
  scenario.failures = {{{"SetHandleInformation", 1}, ERROR_INVALID_PARAMETER},
                       {{"SetHandleInformation", 2}, ERROR_INVALID_PARAMETER},
                       {{"CloseHandle", 1}, ERROR_INVALID_HANDLE},
                       {{"CloseHandle", 2}, ERROR_INVALID_HANDLE},
                       {{"CloseHandle", 3}, ERROR_INVALID_HANDLE}};
  ExpectTranscript("pipe-ends-not-changed-nor-closed", scenario);
}

/// Nothing that the launcher asks about its child, its console or its old logs is answered.
TEST(Transcript, OfCallsThatFailUnseen) {
  Scenario scenario = SerialRun();
  scenario.oldLogs = {{kRunFolder + "\\console_redirect_serial_Flow_1.txt"},
                      {kRunFolder + "\\console_redirect_serial_Flow_2.txt"}};
  scenario.failures = {{{"DeleteFileA", 1}, ERROR_ACCESS_DENIED},
                       {{"FindNextFileA", 2}, ERROR_ACCESS_DENIED},
                       {{"WriteFile", 1}, ERROR_DISK_FULL},
                       {{"WriteFile", 2}, ERROR_INVALID_HANDLE},
                       {{"WaitForSingleObject", 1}, ERROR_INVALID_HANDLE},
                       {{"GetExitCodeProcess", 3}, ERROR_INVALID_HANDLE},
                       {{"CloseHandle", 5}, ERROR_INVALID_HANDLE},
                       {{"CloseHandle", 6}, ERROR_INVALID_HANDLE},
                       {{"CloseHandle", 7}, ERROR_INVALID_HANDLE}};
  ExpectTranscript("calls-that-fail-unseen", scenario);
}

/// The rest of them. The console has taken fewer characters than bytes, and gets none again.
TEST(Transcript, OfOtherCallsThatFailUnseen) {
  Scenario scenario = SmpRun();
  scenario.applicationData = L"C:\\";
  scenario.libraries.mpiConfiguration = L" -a\t\r\n-b ";
  scenario.isAtConsole = true;
  scenario.shortWrites = {{{"WriteFile", 2}, 3}};
  scenario.children = {{.output = {"solved\r\n", "never read"}, .exitCode = 3}};
  scenario.failures = {{{"RegCloseKey", 1}, ERROR_INVALID_HANDLE},
                       {{"SetEnvironmentVariableA", 1}, ERROR_NOT_ENOUGH_MEMORY},
                       {{"FindFirstFileA", 1}, ERROR_ACCESS_DENIED},
                       {{"GetExitCodeProcess", 1}, ERROR_ACCESS_DENIED},
                       {{"FlushFileBuffers", 1}, ERROR_INVALID_HANDLE},
                       {{"ReadFile", 2}, ERROR_NO_SYSTEM_RESOURCES},
                       {{"CloseHandle", 5}, ERROR_INVALID_HANDLE}};
  scenario.events = {{{"WaitForSingleObject", 1}, {CTRL_C_EVENT}}};
  ExpectTranscript("other-calls-that-fail-unseen", scenario);
}

TEST(Transcript, OfAConsoleThatIsNotThere) {
  Scenario scenario = SerialRun();
  scenario.hour = 0;
  scenario.oldLogs = {{kRunFolder + "\\console_redirect_serial_Flow_1.txt"}};
  scenario.failures = {{{"GetStdHandle", 1}, ERROR_INVALID_HANDLE},
                       {{"FindClose", 1}, ERROR_INVALID_HANDLE}};
  ExpectTranscript("no-console", scenario);
}

/// Nor an invalid handle: a process may be without standard handles altogether.
TEST(Transcript, OfNoStandardOutput) {
  Scenario scenario = SmpRun();
  scenario.failures = {{{"GetStdHandle", 1}, ERROR_SUCCESS}};
  ExpectTranscript("no-standard-output", scenario);
}

TEST(Transcript, OfARefusedConsoleControlHandler) {
  Scenario scenario = SerialRun();
  scenario.failures = {{{"SetConsoleCtrlHandler", 1}, ERROR_INVALID_PARAMETER}};
  scenario.events = {{{"GetPrivateProfileStringA", 1}, {CTRL_BREAK_EVENT}}};
  ExpectTranscript("console-control-handler-refused", scenario);
}

TEST(Transcript, OfAFaultBeforeTheStartOfTheChild) {
  Scenario scenario = SerialRun();
  const std::string arguments(4096, 'a');
  scenario.libraries.argumentString = arguments.c_str();
  ExpectTranscriptOfFault("fault-before-the-child", scenario);
}

/// The longest command line that the system takes is longer than what the log does.
TEST(Transcript, OfAFaultBehindTheStartOfTheChild) {
  Scenario scenario = SmpRun();
  const std::wstring configuration(32700, L'c');
  scenario.libraries.mpiConfiguration = configuration.c_str();
  ExpectTranscriptOfFault("fault-after-the-start-of-the-child", scenario);
}

TEST(Transcript, OfMemoryThatEndsBehindTheStartOfTheChild) {
  Scenario scenario = SerialRun();
  scenario.exhaustedFrom = "CreateFileA";
  ExpectTranscriptOfFault("out-of-memory-after-the-start-of-the-child", scenario);
}

}  // namespace
}  // namespace qvx::test
