#include "tests/faults/call_sites.h"

#include "tests/support/texts.h"
#include "tests/windows/launch_fixture.h"

namespace qvx::test {
namespace {

const std::string kLogName = "[console_redirect_serial_Flow_<time>.txt]";
const std::string kSmpLogName = "[console_redirect_smp_Flow_<time>.txt]";
const std::string kOldLogs =
    "[console_redirect_serial_Flow_old1.txt]old[console_redirect_serial_Flow_old2.txt]old";

const std::string kSolver = "<site>\\Home\\Bin\\Qvx3DFlow.exe";
const std::string kImpiexec = "<site>\\MPI\\impiexec.exe";
const std::string kSmpTail = " -env 0 0 -localonly -n 4  \"" + kSolver + "\" -a b";
const std::string kAdvice =
    "Intel(R) MPI Library(4.0) Process Manager(smpd) is not started!|"
    "Run the following command-line as Administrator to start smpd:|"
    "\"C:\\Program Files\\Intel MPI 4.0\\x64\\smpd-intel-4.0.3.009-x64.exe\" -install|";

/// The console of a serial launch; `shown`: everything between its banner and the return value.
std::string Serial(const std::string& shown, int value = 3) {
  return "Launch serial computing\r\n" + shown + "\r\n" + ReturnValue(kSolver, value);
}

const std::string kCommandLine = "Commandline=[" + kSolver + " -a b]\r\n";

std::string SerialLog(const std::string& logged = "x\r\n", int value = 3) {
  return kLogName + kCommandLine + logged + ReturnValue(kSolver, value);
}

const std::string kSerial = Serial("x\r\n");
const std::string kSerialLog = SerialLog();

const std::string kSmp = "Launch parallel computing\r\nx\r\n\r\n" + ReturnValue(kImpiexec, 3);
const std::string kSmpLog =
    kSmpLogName + "Commandline=[" + kImpiexec + kSmpTail + "]\r\nx\r\n" + ReturnValue(kImpiexec, 3);
const std::string kNoImpiexec = "Launch parallel computing\r\nCreateProcess [\\impiexec.exe" +
                                kSmpTail + "] failed. system error(2)\r\n";

const std::string kSign = "Unknown option: -d\r\n";
const std::string kUnendedSmp = "Launch parallel computing\r\n" + kSign + "\r\n" +
                                Replaced(kAdvice, "|", "\r\n") + "\r\n" + ReturnValue(kImpiexec, 3);
const std::string kUnendedSmpLog = kSmpLogName + "Commandline=[" + kImpiexec + kSmpTail + "]\r\n" +
                                   kSign + "\n" + Replaced(kAdvice, "|", "\n") +
                                   ReturnValue(kImpiexec, 3);

const std::string kCtrlC = "Ctrl-C is captured.\r\n";
const std::string kEntryLog =
    kLogName + "Commandline=[" + kSolver +
    " -home \"<site>\\Home\" -project \"<site>\\Project\" -name \"Sample\""
    " -run \"01\" -molding 1 -option 0 -parallel 0 -processes 1"
    "]\r\nx\r\n" +
    ReturnValue(kSolver, 3);

constexpr DWORD kNoError = ERROR_SUCCESS;
constexpr DWORD kDenied = ERROR_ACCESS_DENIED;
constexpr DWORD kInvalid = ERROR_INVALID_HANDLE;

constexpr PipeEnds kNone = {};
/// A serial launch leaves the read end of the child's output to the system.
constexpr PipeEnds kReadEnd = {.inheritable = 0, .own = 1};
/// A launch without child leaves all four.
constexpr PipeEnds kAll = {.inheritable = 2, .own = 2};

}  // namespace

// Rows of few lines each read better than one field a line.
// clang-format off
const std::vector<Failure> kFailures = {
    {{"execution/child_process.cpp", "CreatePipe", 1}, Scene::SilentSerial, 1,
     ERROR_NO_SYSTEM_RESOURCES, 3,
     "Failed to createpipe (hChildStdOUT)\r\nFailed to SetHandleInformation (hChildStdOUTRd)\r\n"
     "Launch serial computing\r\nFailed to CLoseHandle (hChildStdOUT_Wr)\r\n\r\n" +
     ReturnValue(kSolver, 3), SerialLog(""), kNone},
    {{"execution/child_process.cpp", "SetHandleInformation", 1}, Scene::Serial, 1, kInvalid, 3,
     "Failed to SetHandleInformation (hChildStdOUTRd)\r\n" + kSerial, kSerialLog,
     {.inheritable = 1, .own = 0}},
    {{"execution/child_process.cpp", "CreatePipe", 2}, Scene::Serial, 2,
     ERROR_NO_SYSTEM_RESOURCES, 3,
     "Failed to CreatePipe (hChildStdIN)\r\nFailed to SetHandleInformation (hChildStdINWr)\r\n" +
     Serial("x\r\nFailed to CLoseHandle (hChildStdIN_Wr)\r\n"
     "Failed to CLoseHandle (hChildStdIN_Rd)\r\n"), kSerialLog, kReadEnd},
    {{"execution/child_process.cpp", "SetHandleInformation", 2}, Scene::Serial, 2, kInvalid, 3,
     "Failed to SetHandleInformation (hChildStdINWr)\r\n" + kSerial, kSerialLog, kReadEnd},
    {{"execution/child_process.cpp", "CreateProcessA", 1}, Scene::Serial, 1,
     ERROR_NOT_ENOUGH_MEMORY, -1,
     "Launch serial computing\r\nCreateProcess [" + kSolver + " -a b] failed. system error(8)\r\n",
     "", kAll},
    {{"execution/child_process.cpp", "CreateFileA", 1}, Scene::Serial, 1, ERROR_DISK_FULL, 3,
     Serial(
     "x\r\nCreateFile(<site>\\Project\\Analysis\\Run01\\console_redirect_serial_Flow_<time>.txt)"
     "::INVALID_HANDLE_VALUE LastError=112\r\n"), "", kReadEnd},
    {{"execution/child_process.cpp", "CloseHandle", 1}, Scene::Serial, 1, kInvalid, 3,
     Serial("x\r\nFailed to CLoseHandle (hChildStdOUT_Wr)\r\n"), kSerialLog, kReadEnd},
    {{"execution/child_process.cpp", "CloseHandle", 2}, Scene::Serial, 2, kInvalid, 3,
     Serial("x\r\nFailed to CLoseHandle (hChildStdIN_Wr)\r\n"), kSerialLog, kReadEnd},
    {{"execution/child_process.cpp", "CloseHandle", 3}, Scene::Serial, 3, kInvalid, 3,
     Serial("x\r\nFailed to CLoseHandle (hChildStdIN_Rd)\r\n"), kSerialLog, kReadEnd},
    {{"execution/child_process.cpp", "CloseHandle", 4}, Scene::Serial, 4, kInvalid, 3,
     kSerial, kSerialLog, kReadEnd},
    // The child has ended when its output breaks off, as a rule; its exit code is asked for anyway.
    {{"execution/child_process.cpp", "WaitForSingleObject", 1}, Scene::Serial, 1, kInvalid, 3,
     kSerial, kSerialLog, kReadEnd},
    // No exit code is no success.
    {{"execution/child_process.cpp", "GetExitCodeProcess", 1}, Scene::Serial, 3, kDenied, -1,
     Serial("x\r\n", -1), SerialLog("x\r\n", -1), kReadEnd},
    {{"execution/child_process.cpp", "CloseHandle", 5}, Scene::Serial, 5, kInvalid, 3,
     kSerial, kSerialLog, kReadEnd},
    {{"execution/child_process.cpp", "CloseHandle", 6}, Scene::Serial, 6, kInvalid, 3,
     kSerial, kSerialLog, kReadEnd},
    {{"execution/child_process.cpp", "CloseHandle", 7}, Scene::Serial, 7, kInvalid, 3,
     kSerial, kSerialLog, kReadEnd},
    {{"execution/old_logs.cpp", "FindFirstFileA", 1}, Scene::Serial, 1, kDenied, 3,
     kSerial, kSerialLog + kOldLogs, kReadEnd},
    {{"execution/console_log.cpp", "DeleteFileA", 1}, Scene::Serial, 1, ERROR_SHARING_VIOLATION, 3,
     kSerial, kSerialLog + "[console_redirect_serial_Flow_old1.txt]old", kReadEnd},
    {{"execution/old_logs.cpp", "FindNextFileA", 1}, Scene::Serial, 1, kDenied, 3,
     kSerial, kSerialLog + "[console_redirect_serial_Flow_old2.txt]old", kReadEnd},
    {{"execution/old_logs.cpp", "FindClose", 1}, Scene::Serial, 1, kInvalid, 3,
     kSerial, kSerialLog, kReadEnd},
    {{"execution/write_whole.cpp", "WriteFile", 1}, Scene::Serial, 1, ERROR_DISK_FULL, 3,
     kSerial, kLogName + "x\r\n" + ReturnValue(kSolver, 3), kReadEnd},
    {{"execution/write_whole.cpp", "WriteFile", 1}, Scene::Serial, 2, ERROR_NO_DATA, 3,
     Serial(""), kSerialLog, kReadEnd},
    {{"execution/write_whole.cpp", "WriteFile", 1}, Scene::Serial, 3, ERROR_DISK_FULL, 3,
     kSerial, SerialLog(""), kReadEnd},
    {{"execution/console_pump.cpp", "GetStdHandle", 1}, Scene::Serial, 1, kInvalid, 3,
     Serial(""), kSerialLog, kReadEnd},
    {{"execution/console_pump.cpp", "GetExitCodeProcess", 1}, Scene::Serial, 1, kDenied, 3,
     kSerial, kSerialLog, kReadEnd},
    {{"execution/console_pump.cpp", "ReadFile", 1}, Scene::SilentSerial, 1, ERROR_BROKEN_PIPE, 3,
     Serial(""), SerialLog(""), kReadEnd},
    {{"execution/console_pump.cpp", "ReadFile", 1}, Scene::Serial, 2, ERROR_NO_SYSTEM_RESOURCES, 3,
     kSerial, kSerialLog, kReadEnd},
    {{"execution/console_pump.cpp", "FlushFileBuffers", 1}, Scene::Serial, 1, kInvalid, 3,
     kSerial, kSerialLog, kReadEnd},
    {{"execution/mpi_configuration.cpp", "RegOpenKeyA", 1}, Scene::Smp, 1, kNoError, -1,
     kNoImpiexec, "", kAll},
    {{"execution/mpi_configuration.cpp", "RegQueryValueExA", 1}, Scene::Smp, 1, kNoError, -1,
     kNoImpiexec, "", kAll},
    {{"execution/mpi_configuration.cpp", "RegCloseKey", 1}, Scene::Smp, 1, kNoError, 3,
     kSmp, kSmpLog, kNone},
    {{"execution/mpi_configuration.cpp", "GetPrivateProfileStringA", 1}, Scene::ProjectIni, 1,
     kDenied, 0,
     "", "", kNone},
    {{"execution/mpi_options.cpp", "SHGetFolderPathW", 1}, Scene::Smp, 1, kNoError, 3,
     kSmp, kSmpLog, kNone},
    {{"execution/mpi_launch.cpp", "SHCreateDirectory", 1}, Scene::Smp, 1, kDenied, 3,
     kSmp, kSmpLog, kNone},
    {{"execution/mpi_launch.cpp", "SetEnvironmentVariableA", 1}, Scene::Smp, 1,
     ERROR_NOT_ENOUGH_MEMORY, 3,
     kSmp, kSmpLog, kNone},
    // The process launcher ends by itself then; its own exit code is reported.
    {{"execution/smp_launch.cpp", "TerminateProcess", 1}, Scene::NoProcessManager, 1, kDenied, 3,
     kUnendedSmp, kUnendedSmpLog, kNone},
    {{"launcher/console_control_handler.cpp", "SetConsoleCtrlHandler", 1}, Scene::Entry, 1,
     ERROR_NOT_ENOUGH_MEMORY, 3,
     "ERROR: Could not set control handler\r\n" + kSerial + kCountdown, kEntryLog, kReadEnd},
    {{"launcher/console_control_handler.cpp", "OpenProcess", 1}, Scene::ConsoleEvent, 1, kDenied, 1,
     kCtrlC, "the child runs", kNone},
    {{"launcher/console_control_handler.cpp", "TerminateProcess", 1}, Scene::ConsoleEvent, 1,
     kDenied, 1,
     kCtrlC, "the child runs", kNone},
    {{"launcher/console_control_handler.cpp", "CloseHandle", 1}, Scene::ConsoleEvent, 1,
     kInvalid, 1,
     kCtrlC, "the child ended", kNone},
    {{"launcher/debug_trace_switch.cpp", "SHGetFolderPathA", 1}, Scene::TraceSwitch, 1, kNoError, 0,
     "", "the trace is off", kNone},
};
// clang-format on

const std::vector<PlaceWithoutRow> kPlacesWithoutRow = {
    {{"execution/child_process.cpp", "GetLastError", 1}, "the code is in CreateFileA's message"},
    {{"execution/child_process.cpp", "GetLastError", 2}, "the code is in CreateProcessA's message"},
    {{"execution/child_process.cpp", "TerminateProcess", 1},
     "OutOfMemory.EndsTheLauncherEvenIfTheChildCannotBeEnded"},
    {{"execution/console_log.cpp", "GetLocalTime", 1}, "returns nothing"},
    {{"execution/old_logs.cpp", "GetLastError", 1},
     "OldLogs.* in console_log_test.cpp expects its value"},
    {{"execution/write_whole.cpp", "WriteFile", 2}, "Writes.*"},
    {{"execution/write_whole.cpp", "GetFileType", 1}, "Writes.*"},
    {{"launcher/entry_sequence.cpp", "Sleep", 1}, "returns nothing"},
    {{"support/lead_byte_windows.cpp", "IsDBCSLeadByte", 1}, "cannot fail"},
};

}  // namespace qvx::test
