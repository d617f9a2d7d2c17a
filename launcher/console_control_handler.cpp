#include "launcher/console_control_handler.h"

#include <windows.h>

#include "launcher/process_wide_values.h"
#include "support/console.h"

namespace qvx {
namespace {

const char* MessageOf(std::uint32_t eventCode) {
  switch (eventCode) {
    case CTRL_C_EVENT:
      return "Ctrl-C is captured.\n";
    case CTRL_BREAK_EVENT:
      return "Ctrl-Break is captured.\n";
    case CTRL_CLOSE_EVENT:
      return "Ctrl-Close is captured.\n";
    case CTRL_LOGOFF_EVENT:
      return "Ctrl-Logoff is captured.\n";
    case CTRL_SHUTDOWN_EVENT:
      return "Ctrl-Shutdown is captured.\n";
    default:
      return nullptr;
  }
}

BOOL WINAPI OnConsoleControl(DWORD eventCode) { return HandleConsoleControl(eventCode); }

}  // namespace

bool RegisterConsoleControlHandler() { return SetConsoleCtrlHandler(OnConsoleControl, TRUE) != 0; }

int HandleConsoleControl(std::uint32_t eventCode) {
  const char* message = MessageOf(eventCode);
  if (message == nullptr) return FALSE;
  Print("%s", message);
  cancelFlag = 1;
  const std::uint32_t child = childProcessIdentifier;
  if (child == 0) return TRUE;
  // Failures are passed over: the child may have ended by itself already.
  const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, child);
  if (process != nullptr) {
    TerminateProcess(process, static_cast<UINT>(kCancelledChildStatus));
    CloseHandle(process);
  }
  childProcessIdentifier = 0;
  return TRUE;
}

}  // namespace qvx
