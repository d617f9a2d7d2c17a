// Shared-memory and distributed runs.
#include <gtest/gtest.h>

#include "tests/transcripts/run.h"
#include "tests/transcripts/scenarios.h"

namespace qvx::test {
namespace {

const std::string kShareRunFolder = R"(\\NODE1\Projects\part\Analysis\Run03)";
const std::string kOtherTime = "2024-01-01_00-00-00.txt";

TEST(Transcript, OfASharedMemoryRun) {
  Scenario scenario = SmpRun();
  scenario.oldLogs = {{kRunFolder + "\\console_redirect_smp_Flow_" + kOtherTime},
                      {kRunFolder + "\\console_redirect_dmp_Flow_" + kOtherTime}};
  ExpectTranscript("shared-memory", scenario);
}

TEST(Transcript, OfATracedSharedMemoryRun) {
  ExpectTranscript("shared-memory-traced", Traced(SmpRun()));
}

/// Its sign is the end of a full chunk.
TEST(Transcript, OfASharedMemoryRunWithoutProcessManager) {
  Scenario scenario = SmpRun();
  const std::string sign = "Unknown option: -d";
  scenario.children = {
      {.output = {"a line\r\n", std::string(4096 - sign.size(), '.') + sign, "never read"}}};
  ExpectTranscript("shared-memory-without-process-manager", scenario);
}

/// Nor can the MPI process launcher be ended, nor is there a log. A code is printed with a sign.
/// The folders keep the second of their two backslashes, the name gets no extension.
TEST(Transcript, OfNoProcessManagerAndNoLog) {
  Scenario scenario = SmpRun("Qvx3DFlow");
  scenario.arguments[1].insert(scenario.arguments[1].find('*'), "\\");
  scenario.installPath = "C:\\MPI\\\\";
  scenario.children = {{.output = {"Unknown option: -d", "never read"}, .exitCode = 1}};
  scenario.failures = {{{"TerminateProcess", 1}, ERROR_ACCESS_DENIED},
                       {{"CreateFileA", 1}, static_cast<DWORD>(E_ACCESSDENIED)}};
  ExpectTranscript("shared-memory-without-process-manager-and-log", scenario);
}

/// Cut short, in another case, behind a zero byte, over two chunks: none is the sign.
TEST(Transcript, OfWhatOnlyLooksLikeNoProcessManager) {
  Scenario scenario = SmpRun();
  scenario.children = {
      {.output = {"Unknown option: -", "d Unknown option: -x\r\n", "unknown option: -d\r\n",
                  std::string("\0Unknown option: -d\r\n", 21)}}};
  ExpectTranscript("shared-memory-almost-without-process-manager", scenario);
}

/// 260 units hold 259 and a zero. The registry's text has no zero of its own, as it may be; the
/// path of impiexec.exe has 259 characters. The configuration folder is a new one.
TEST(Transcript, OfFoldersAtTheirLimits) {
  Scenario scenario = SmpRun();
  scenario.failures = {{{"SHCreateDirectory", 1}, ERROR_SUCCESS}};
  scenario.applicationData = L"C:\\" + std::wstring(244, L'\u00E9');
  scenario.installPath = "C:\\" + std::string(243, 'm') + "\\";
  scenario.libraries.mpiConfiguration = L"";
  scenario.parallelFolderName = std::string(300, 'q');
  ExpectTranscript("shared-memory-folders-at-their-limits", scenario);
}

/// Everything that tells the launcher where things lie fails.
TEST(Transcript, OfNoFolders) {
  Scenario scenario = SmpRun();
  scenario.failures = {{{"SHGetFolderPathA", 1}, ERROR_ACCESS_DENIED},
                       {{"SHGetFolderPathW", 1}, ERROR_ACCESS_DENIED},
                       {{"SHCreateDirectory", 1}, ERROR_ACCESS_DENIED},
                       {{"GetPrivateProfileStringA", 1}, ERROR_FILE_NOT_FOUND},
                       {{"RegQueryValueExA", 1}, ERROR_FILE_NOT_FOUND}};
  scenario.libraries.mpiConfiguration = nullptr;
  scenario.children = {{.startError = ERROR_FILE_NOT_FOUND}};
  ExpectTranscript("shared-memory-without-folders", scenario);
}

TEST(Transcript, OfADistributedRun) {
  Scenario scenario = DmpRun();
  scenario.oldLogs = {{kShareRunFolder + "\\console_redirect_dmp_Flow_" + kOtherTime},
                      {kShareRunFolder + "\\console_redirect_dmp_Flow_on_the_share_only.txt"},
                      {kRunFolder + "\\console_redirect_dmp_Flow_" + kOtherTime}};
  ExpectTranscript("distributed", scenario);
}

TEST(Transcript, OfATracedDistributedRun) {
  Scenario scenario = DmpRun();
  scenario.libraries.accountResults[0] = -1;
  ExpectTranscript("distributed-traced", Traced(scenario));
}

/// Counts are handed on and logged as they stand; no machine is left out, not even one without a
/// name nor one named twice. The choice of console redirection means nothing. The working folder
/// has a letter less than what is found of it, so that a separator stays. The process manager is
/// not looked for.
TEST(Transcript, OfADistributedRunWithOddSettings) {
  const std::string site(kSite);
  Scenario scenario = DmpRun();
  scenario.arguments[1] = site + "\\Home*" + site + "\\Laerm\\Part*Part*3*03";
  scenario.files = {
      {site + "\\Laerm\\Part\\Analysis\\Run03\\Part03.cmx",
       TaskManager("1", "4", "4") + CmxLines({"<TASKMANAGER>",
                                              "ValueConsoleRedirection=1",
                                              "</TASKMANAGER>",
                                              "<REMOTE_MACHINES>",
                                              "ValueNoMachine=06",
                                              "ValueStorageNode=NODE1",
                                              "ValueShareFolderName=Projects",
                                              "ValueParallelWorkingFolder=" + site + "\\L\xE4rm",
                                              "ValueMachineSetting=",
                                              "1=NODE%s\t04",
                                              "2=NODE2\t0\trest",
                                              "3=NODE3",
                                              "4=",
                                              "5=NODE2\t0",
                                              "6=NODE2\t0",
                                              "ValueMachineWeighting=",
                                              "1=+6e-1",
                                              "2=0.3",
                                              "3=0.1",
                                              "4=",
                                              "</REMOTE_MACHINES>"})}};
  scenario.children = {{.output = {"Unknown option: -d\r\n", "", "solved\r\n"}, .exitCode = 3}};
  ExpectTranscript("distributed-with-odd-settings", scenario);
}

/// No result is looked at where the accounts' folder is converted. Names keep their letter case.
TEST(Transcript, OfADistributedRunWhoseConversionsFail) {
  Scenario scenario = DmpRun("qvx3dflow.exe");
  scenario.arguments[1].insert(scenario.arguments[1].find('*'), "\\");
  scenario.libraries.conversionResult = -1;
  ExpectTranscript("distributed-conversions-failed", Traced(scenario));
}

/// All but the launch is done.
TEST(Transcript, OfADistributedRunThatIsCancelledBeforeTheStart) {
  Scenario scenario = DmpRun();
  scenario.events = {{{"GetPrivateProfileStringA", 1}, {CTRL_C_EVENT}}};
  ExpectTranscript("distributed-cancelled-before-the-start", scenario);
}

/// A code is printed with a sign.
TEST(Transcript, OfADistributedRunWithoutMpiInstallation) {
  Scenario scenario = DmpRun();
  scenario.failures = {{{"RegOpenKeyA", 1}, ERROR_FILE_NOT_FOUND}};
  scenario.children = {{.startError = static_cast<DWORD>(E_ACCESSDENIED)}};
  ExpectTranscript("distributed-without-mpi-installation", scenario);
}

TEST(Transcript, OfARunWithoutCmxFile) {
  Scenario scenario = SerialRun();
  scenario.files.clear();
  ExpectTranscript("no-cmx-file", scenario);
}

TEST(Transcript, OfRefusedAccounts) {
  Scenario scenario = Traced(DmpRun());
  scenario.libraries.accountResults[0] = -6;
  ExpectTranscript("accounts-refused", scenario);
}

/// The refusal counts for more than the cancel.
TEST(Transcript, OfRefusedAccountsAndACancel) {
  Scenario scenario = DmpRun();
  scenario.libraries.accountResults[0] = -6;
  scenario.events = {{{"GetPrivateProfileStringA", 1}, {CTRL_C_EVENT}}};
  ExpectTranscript("accounts-refused-and-cancelled", scenario);
}

}  // namespace
}  // namespace qvx::test
