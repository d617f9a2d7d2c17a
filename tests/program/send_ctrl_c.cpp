// send_ctrl_c PID: sends a real Ctrl-C to the console of that process.
#include <windows.h>

#include <cstdlib>

namespace {

int Failed(DWORD step) { return static_cast<int>(step + GetLastError()); }

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 1;
  FreeConsole();
  if (AttachConsole(std::strtoul(arguments[1], nullptr, 10)) == 0) return Failed(1000);
  SetConsoleCtrlHandler(nullptr, TRUE);
  return GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) != 0 ? 0 : Failed(2000);
}
