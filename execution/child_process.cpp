#include "execution/child_process.h"

#include "execution/console_log.h"
#include "execution/console_pump.h"
#include "launcher/debug_trace.h"
#include "launcher/process_wide_values.h"
#include "support/console.h"
#include "support/fault.h"

namespace qvx {
namespace {

/// Named as the messages name them. The child inherits the two with an underscore.
struct ChildPipes {
  HANDLE hChildStdOUTRd = nullptr;
  HANDLE hChildStdOUT_Wr = nullptr;
  HANDLE hChildStdIN_Rd = nullptr;
  HANDLE hChildStdINWr = nullptr;
};

/// A failure is reported and the launch goes on with the handles that there are. The messages'
/// spelling ("createpipe", "CLoseHandle", two names for one handle) is deliberate and kept, here
/// and in CloseChildEnds.
ChildPipes CreateChildPipes() {
  ChildPipes pipes;
  SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
  if (CreatePipe(&pipes.hChildStdOUTRd, &pipes.hChildStdOUT_Wr, &inheritable, 0) == 0) {
    Print("Failed to createpipe (hChildStdOUT)\n");
  }
  if (SetHandleInformation(pipes.hChildStdOUTRd, HANDLE_FLAG_INHERIT, 0) == 0) {
    Print("Failed to SetHandleInformation (hChildStdOUTRd)\n");
  }
  if (CreatePipe(&pipes.hChildStdIN_Rd, &pipes.hChildStdINWr, &inheritable, 0) == 0) {
    Print("Failed to CreatePipe (hChildStdIN)\n");
  }
  if (SetHandleInformation(pipes.hChildStdINWr, HANDLE_FLAG_INHERIT, 0) == 0) {
    Print("Failed to SetHandleInformation (hChildStdINWr)\n");
  }
  return pipes;
}

STARTUPINFOA RedirectedStartup(const ChildPipes& pipes) {
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = pipes.hChildStdIN_Rd;
  startup.hStdOutput = pipes.hChildStdOUT_Wr;
  startup.hStdError = pipes.hChildStdOUT_Wr;
  return startup;
}

/// A failure is reported and the run goes on without a log.
HANDLE CreateLog(const std::string& path) {
  const HANDLE log = CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (log == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    PrintUnflushed("CreateFile(%s)::INVALID_HANDLE_VALUE LastError=%d\n", path.c_str(),
                   static_cast<int>(error));
  }
  return log;
}

/// The child holds its own copies. As long as the launcher held these, the child would never see
/// the end of its input, nor the pump the end of the child's output.
void CloseChildEnds(const ChildPipes& pipes) {
  if (CloseHandle(pipes.hChildStdOUT_Wr) == 0) {
    PrintUnflushed("Failed to CLoseHandle (hChildStdOUT_Wr)\n");
  }
  if (CloseHandle(pipes.hChildStdINWr) == 0) {
    PrintUnflushed("Failed to CLoseHandle (hChildStdIN_Wr)\n");
  }
  if (CloseHandle(pipes.hChildStdIN_Rd) == 0) {
    PrintUnflushed("Failed to CLoseHandle (hChildStdIN_Rd)\n");
  }
}

void EndChild(void* process) { TerminateProcess(process, static_cast<UINT>(kFaultStatus)); }

/// Opens the log of a child that has just been started, hands the console over until the child
/// ends, and waits for it. A fault in between ends the child. Returns the log.
HANDLE FollowChild(LauncherContext& context, const LaunchKind& kind, HANDLE process,
                   const ChildPipes& pipes, const std::string& logPath, std::string& commandLine) {
  const EndChildOnFault endChildOnFault(EndChild, process);
  const RunningChild child = {process, CreateLog(logPath)};
  CloseChildEnds(pipes);
  if (child.log != INVALID_HANDLE_VALUE) {
    if (kind.writeLogHeading != nullptr) kind.writeLogHeading(context, child.log);
    WriteLog(context, child.log, "Commandline=[%s]\r\n", commandLine.c_str());
  }
  // Nobody needs it in the hours that follow. (An assignment would keep the buffer.)
  std::string().swap(commandLine);
  PumpConsole(context, kind, child, pipes.hChildStdOUTRd);
  CloseHandle(kind.closesReadEnd ? pipes.hChildStdOUTRd : pipes.hChildStdOUT_Wr);
  WaitForSingleObject(process, INFINITE);
  return child.log;
}

}  // namespace

int Launch(LauncherContext& context, const LaunchKind& kind) {
  const std::string timestamp = LogTimestamp();
  if (kind.moveRunPath != nullptr) kind.moveRunPath(context);
  const ConsoleLogNames logNames = NameConsoleLog(context, kind.modePrefix, timestamp);
  CleanUpOldLogs(context, logNames.cleanUpPattern);

  const ChildPipes pipes = CreateChildPipes();
  STARTUPINFOA startup = RedirectedStartup(pipes);
  LaunchCommand command = kind.prepareCommand(context);
  Print("%s", kind.banner);
  Trace(context, "\n\nCommandline=[%s]\n\n", command.commandLine.c_str());

  PROCESS_INFORMATION process = {};
  if (CreateProcessA(nullptr, command.commandLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                     nullptr, nullptr, &startup, &process) == 0) {
    const DWORD error = GetLastError();
    // The pipes stay open here, deliberately. A cooling run's second child inherits two of them;
    // they lead nowhere.
    Print("CreateProcess [%s] failed. system error(%d)\n", command.commandLine.c_str(),
          static_cast<int>(error));
    return -1;
  }
  childProcessIdentifier = process.dwProcessId;
  const HANDLE log =
      FollowChild(context, kind, process.hProcess, pipes, logNames.path, command.commandLine);

  auto exitCode = static_cast<DWORD>(-1);
  GetExitCodeProcess(process.hProcess, &exitCode);
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);

  const int result = static_cast<int>(exitCode);
  PrintUnflushed("\n>>> Return value of %s = %d\n", command.reportedPath.c_str(), result);
  if (log != INVALID_HANDLE_VALUE) {
    WriteLog(context, log, ">>> Return value of %s = %d\r\n", command.reportedPath.c_str(), result);
    CloseHandle(log);
  }
  return result;
}

}  // namespace qvx
