#include "tests/faults/failing_call.h"

#include <shlobj.h>

#include <cstdint>
#include <map>
#include <optional>
#include <type_traits>

#include "tests/support/import_patch.h"

namespace qvx::test {
namespace {

struct Armed {
  DWORD thread;
  int callsToGo;
  DWORD error;
  const void* caller;
};

Armed armed;
std::optional<ImportPatch> patch;

/// Functions that close something, or wait, do it and say that they failed: no test leaks, and none
/// depends on how fast a child ends.
enum class Effect { None, Happens };

/// `kResult`: what the function returns when it fails.
template <void** kSlot, typename Function, std::intptr_t kResult, Effect kEffect>
struct Replacement;

template <void** kSlot, typename Result, typename... Arguments, std::intptr_t kResult,
          Effect kEffect>
struct Replacement<kSlot, Result(Arguments...), kResult, kEffect> {
  static inline void* original = *kSlot;

  static Result Call(Arguments... arguments) {
    const auto call = reinterpret_cast<Result (*)(Arguments...)>(original);
    if (GetCurrentThreadId() != armed.thread || --armed.callsToGo != 0) return call(arguments...);
    armed.caller = __builtin_return_address(0);
    if (kEffect == Effect::Happens) call(arguments...);
    SetLastError(armed.error);
    if constexpr (std::is_pointer_v<Result>) {
      return reinterpret_cast<Result>(kResult);
    } else {
      return static_cast<Result>(kResult);
    }
  }
};

struct Import {
  void** slot;
  void* replacement;
};

}  // namespace
}  // namespace qvx::test

#define QVX_IMPORTS(X)                                                     \
  X(CloseHandle, FALSE, Happens)                                           \
  X(CreateFileA, -1, None)                                                 \
  X(CreatePipe, FALSE, None)                                               \
  X(CreateProcessA, FALSE, None)                                           \
  X(DeleteFileA, FALSE, None)                                              \
  X(FindClose, FALSE, Happens)                                             \
  X(FindFirstFileA, -1, None)                                              \
  X(FindNextFileA, FALSE, None)                                            \
  X(FlushFileBuffers, FALSE, None)                                         \
  X(GetExitCodeProcess, FALSE, None)                                       \
  X(GetPrivateProfileStringA, 0, None)                                     \
  X(GetStdHandle, -1, None)                                                \
  X(OpenProcess, 0, None)                                                  \
  X(ReadFile, FALSE, None)                                                 \
  X(RegCloseKey, ERROR_INVALID_HANDLE, Happens)                            \
  X(RegOpenKeyA, ERROR_FILE_NOT_FOUND, None)                               \
  X(RegQueryValueExA, ERROR_MORE_DATA, None)                               \
  X(SetConsoleCtrlHandler, FALSE, None)                                    \
  X(SetEnvironmentVariableA, FALSE, None)                                  \
  X(SetHandleInformation, FALSE, None)                                     \
  X(SHCreateDirectory, ERROR_ACCESS_DENIED, None)                          \
  X(SHGetFolderPathA, E_FAIL, None)                                        \
  X(SHGetFolderPathW, E_FAIL, None)                                        \
  X(TerminateProcess, FALSE, None)                                         \
  X(WaitForSingleObject, static_cast<std::intptr_t>(WAIT_FAILED), Happens) \
  X(WriteFile, FALSE, None)

extern "C" {
#define QVX_DECLARE(name, result, effect) extern void* __imp_##name;
QVX_IMPORTS(QVX_DECLARE)
#undef QVX_DECLARE
}

namespace qvx::test {
namespace {

const std::map<std::string, Import> kImports = {
#define QVX_ENTRY(name, result, effect) \
  {#name,                               \
   {&__imp_##name,                      \
    reinterpret_cast<void*>(            \
        Replacement<&__imp_##name, decltype(name), result, Effect::effect>::Call)}},
    QVX_IMPORTS(QVX_ENTRY)
#undef QVX_ENTRY
};

}  // namespace

FailingCall::FailingCall(const std::string& function, int call, DWORD error) {
  armed = {.thread = GetCurrentThreadId(), .callsToGo = call, .error = error, .caller = nullptr};
  const Import& import = kImports.at(function);
  patch.emplace(import.slot, import.replacement);
}

FailingCall::~FailingCall() { patch.reset(); }

const void* FailingCall::Caller() const { return armed.caller; }

}  // namespace qvx::test
