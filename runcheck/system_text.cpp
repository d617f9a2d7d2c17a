#include <windows.h>

#include <string>

#include "runcheck/explain_status.h"

namespace qvx::runcheck {
namespace {

std::string Message(DWORD source, HMODULE module, DWORD code) {
  char text[1024] = {};
  const DWORD length =
      FormatMessageA(source | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, module,
                     code, 0, text, static_cast<DWORD>(sizeof text), nullptr);
  std::string message(text, length);
  message.erase(message.find_last_not_of(" \r\n") + 1);
  return message;
}

}  // namespace

std::string SystemTextOf(int status) {
  const auto code = static_cast<DWORD>(status);
  const HMODULE ntdll = GetModuleHandleA("ntdll.dll");
  std::string message = Message(FORMAT_MESSAGE_FROM_HMODULE, ntdll, code);
  if (!message.empty()) return message;
  using ToError = ULONG(WINAPI*)(LONG);
  const auto toError = reinterpret_cast<ToError>(
      reinterpret_cast<void*>(GetProcAddress(ntdll, "RtlNtStatusToDosError")));
  if (toError == nullptr) return {};
  const ULONG error = toError(status);
  return error == ERROR_MR_MID_NOT_FOUND ? "" : Message(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, error);
}

}  // namespace qvx::runcheck
