// Pipes, processes and handles of the simulated machine.
#include <algorithm>
#include <cstring>

#include "tests/transcripts/flags.h"
#include "tests/transcripts/simulated_calls.h"
#include "tests/transcripts/simulated_machine.h"
#include "tests/transcripts/transcript.h"

namespace qvx::test::simulated {
namespace {

constexpr std::uint32_t kFirstProcess = 4711;

std::string Attributes(const SECURITY_ATTRIBUTES* attributes) {
  if (attributes == nullptr) return "none";
  std::string text = "{length ";
  text += attributes->nLength == sizeof *attributes ? "of the record"
                                                    : std::to_string(attributes->nLength);
  text += attributes->lpSecurityDescriptor == nullptr ? ", no descriptor" : ", a descriptor";
  return text + ", inherit " + Truth(attributes->bInheritHandle) + "}";
}

std::string Startup(const STARTUPINFOA& startup) {
  STARTUPINFOA shown = {};
  shown.cb = startup.cb;
  shown.dwFlags = startup.dwFlags;
  shown.hStdInput = startup.hStdInput;
  shown.hStdOutput = startup.hStdOutput;
  shown.hStdError = startup.hStdError;
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison,cert-exp42-c,cert-flp37-c): padding too
  const bool isCleared = std::memcmp(&shown, &startup, sizeof startup) == 0;
  return std::string("{size ") +
         (startup.cb == sizeof startup ? "of the record" : std::to_string(startup.cb)) +
         ", flags " +
         Flags(startup.dwFlags, {{STARTF_USESTDHANDLES, "STARTF_USESTDHANDLES"},
                                 {STARTF_USESHOWWINDOW, "STARTF_USESHOWWINDOW"}}) +
         (isCleared ? ", the rest cleared" : ", the rest NOT cleared") +
         "\n    standard input: " + Machine().RoleOf(startup.hStdInput) +
         "\n    standard output: " + Machine().RoleOf(startup.hStdOutput) +
         "\n    standard error: " + Machine().RoleOf(startup.hStdError) + "}";
}

std::string Environment(const void* environment) {
  if (environment != nullptr) return "one of its own";
  std::string text = "the launcher's";
  for (const auto& [name, value] : Machine().environment) {
    text += ", with " + name + "=" + Quoted(value);
  }
  return text;
}

std::string ExitCode(DWORD code) {
  if (code == STILL_ACTIVE) return "STILL_ACTIVE";
  return std::to_string(static_cast<int>(code)) +
         (static_cast<int>(code) < 0 ? " (" + Hexadecimal(code) + ")" : "");
}

RunningState* ChildOf(HANDLE process) {
  const OpenHandle* handle = Machine().Find(process);
  if (handle == nullptr || !handle->open || handle->child < 0) return nullptr;
  return &Machine().children[static_cast<std::size_t>(handle->child)];
}

const Child& ScriptOf(const RunningState& state) {
  const auto index = static_cast<std::size_t>(&state - Machine().children.data());
  static const Child silent;
  return index < Machine().scenario.children.size() ? Machine().scenario.children[index] : silent;
}

void End(RunningState& state) {
  if (state.ended) return;
  state.ended = true;
  state.exitCode = ScriptOf(state).exitCode;
}

}  // namespace

BOOL WINAPI CreatePipe(PHANDLE read, PHANDLE write, LPSECURITY_ATTRIBUTES attributes, DWORD size) {
  const Observation observation("CreatePipe");
  // A launch makes two: the child's output first, then its input.
  const int call = Machine().CallsOf("CreatePipe");
  const std::string name = (call % 2 != 0 ? "output pipe" : "input pipe") +
                           (call > 2 ? " " + std::to_string((call + 1) / 2) : std::string());
  const std::string line =
      "CreatePipe(" + Attributes(attributes) + ", size " + std::to_string(size) + ") = ";
  if (observation.Fails()) return Answered(line, false);
  const bool inheritable = attributes != nullptr && attributes->bInheritHandle != 0;
  *read = Machine().Open({.role = name + ", read end", .inheritable = inheritable});
  *write = Machine().Open({.role = name + ", write end", .inheritable = inheritable});
  return Answered(line, true, ", " + name);
}

BOOL WINAPI SetHandleInformation(HANDLE handle, DWORD mask, DWORD flags) {
  const Observation observation("SetHandleInformation");
  OpenHandle* found = Machine().Find(handle);
  const bool succeeds = !observation.Fails() && found != nullptr && found->open;
  if (succeeds && (mask & HANDLE_FLAG_INHERIT) != 0) {
    found->inheritable = (flags & HANDLE_FLAG_INHERIT) != 0;
  }
  if (!succeeds && !observation.Fails()) Machine().lastError = ERROR_INVALID_HANDLE;
  const std::initializer_list<NamedFlag> names = {
      {HANDLE_FLAG_INHERIT, "HANDLE_FLAG_INHERIT"},
      {HANDLE_FLAG_PROTECT_FROM_CLOSE, "HANDLE_FLAG_PROTECT_FROM_CLOSE"}};
  return Answered("SetHandleInformation(" + Machine().RoleOf(handle) + ", " + Flags(mask, names) +
                      ", " + Flags(flags, names) + ") = ",
                  succeeds);
}

BOOL WINAPI CloseHandle(HANDLE handle) {
  const Observation observation("CloseHandle");
  const std::string role = Machine().RoleOf(handle);
  OpenHandle* found = Machine().Find(handle);
  const bool open = found != nullptr && found->open;
  if (open) found->open = false;  // also when it says that it failed
  if (!open) Machine().lastError = ERROR_INVALID_HANDLE;
  return Answered("CloseHandle(" + role + ") = ", open && !observation.Fails());
}

BOOL WINAPI CreateProcessA(LPCSTR application, LPSTR commandLine,
                           LPSECURITY_ATTRIBUTES processAttributes,
                           LPSECURITY_ATTRIBUTES threadAttributes, BOOL inherit, DWORD flags,
                           LPVOID environment, LPCSTR folder, LPSTARTUPINFOA startup,
                           LPPROCESS_INFORMATION process) {
  const Observation observation("CreateProcessA");
  SimulatedMachine& machine = Machine();
  const auto index = machine.children.size();
  const std::string number = index == 0 ? "" : " " + std::to_string(index + 1);
  WatchBlock(commandLine, "command line" + number);
  Record("CreateProcessA(");
  Record("    application " + QuotedOr(application, "none"));
  Record("    command line " + QuotedOr(commandLine, "none"));
  Record("    attributes of the process " + Attributes(processAttributes) + ", of the thread " +
         Attributes(threadAttributes));
  Record("    inherit handles " + Truth(inherit) + ": " + machine.InheritableRoles());
  Record("    flags " + Flags(flags, {{CREATE_NO_WINDOW, "CREATE_NO_WINDOW"},
                                      {CREATE_SUSPENDED, "CREATE_SUSPENDED"},
                                      {CREATE_NEW_CONSOLE, "CREATE_NEW_CONSOLE"},
                                      {NORMAL_PRIORITY_CLASS, "NORMAL_PRIORITY_CLASS"}}));
  Record("    environment " + Environment(environment));
  Record("    folder " + QuotedOr(folder, "the launcher's"));
  Record("    start-up " + Startup(*startup));
  machine.children.push_back(
      {.processIdentifier = kFirstProcess + static_cast<std::uint32_t>(index)});
  RunningState& child = machine.children.back();
  const DWORD error = observation.Fails() ? machine.lastError : ScriptOf(child).startError;
  if (error != ERROR_SUCCESS) {
    machine.lastError = error;
    child.ended = true;
    return Answered(") = ", false);
  }
  process->hProcess = machine.Open({.role = "child" + number, .child = static_cast<int>(index)});
  process->hThread = machine.Open({.role = "thread of child" + number});
  process->dwProcessId = child.processIdentifier;
  process->dwThreadId = child.processIdentifier + 1;
  return Answered(
      ") = ", true,
      ", child" + number + ", process identifier " + std::to_string(child.processIdentifier));
}

BOOL WINAPI GetExitCodeProcess(HANDLE process, LPDWORD exitCode) {
  const Observation observation("GetExitCodeProcess");
  RunningState* child = ChildOf(process);
  const std::string line = "GetExitCodeProcess(" + Machine().RoleOf(process) + ") = ";
  if (child == nullptr || observation.Fails()) {
    if (child == nullptr) Machine().lastError = ERROR_INVALID_HANDLE;
    return Answered(line, false);
  }
  const Child& script = ScriptOf(*child);
  if (script.endsEarly && child->reads + 1 >= script.output.size()) End(*child);
  *exitCode = child->exitCode;
  return Answered(line, true, ", " + ExitCode(child->exitCode));
}

BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read,
                     LPOVERLAPPED overlapped) {
  const Observation observation("ReadFile");
  WatchBlock(buffer, "the pump's buffer");
  auto* bytes = static_cast<char*>(buffer);
  const bool cleared = std::all_of(bytes, bytes + size, [](char byte) { return byte == 0; });
  const std::string line = "ReadFile(" + Machine().RoleOf(file) + ", " + std::to_string(size) +
                           " bytes into a " + (cleared ? "cleared" : "used") + " buffer" +
                           (overlapped == nullptr ? "" : ", overlapped") + ") = ";
  *read = 0;
  RunningState* child = Machine().children.empty() ? nullptr : &Machine().children.back();
  const OpenHandle* handle = Machine().Find(file);
  if (observation.Fails() || child == nullptr || handle == nullptr || !handle->open) {
    if (!observation.Fails()) Machine().lastError = ERROR_INVALID_HANDLE;
    return Answered(line, false);
  }
  const std::vector<std::string>& output = ScriptOf(*child).output;
  if (child->ended || child->reads >= output.size()) {
    End(*child);
    Machine().lastError = ERROR_BROKEN_PIPE;
    return Answered(line, false);
  }
  const std::string& chunk = output[child->reads++];
  *read = static_cast<DWORD>(std::min<std::size_t>(chunk.size(), size));
  std::memcpy(buffer, chunk.data(), *read);
  return Answered(
      line, true,
      ", " + std::to_string(*read) + " bytes " + Quoted(std::string_view(chunk).substr(0, *read)));
}

DWORD WINAPI WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
  const Observation observation("WaitForSingleObject");
  const std::string line = "WaitForSingleObject(" + Machine().RoleOf(handle) + ", " +
                           Choice(milliseconds, {{INFINITE, "INFINITE"}}) + ") = ";
  RunningState* child = ChildOf(handle);
  if (child == nullptr || observation.Fails()) {
    if (!observation.Fails()) Machine().lastError = ERROR_INVALID_HANDLE;
    Record(line + "WAIT_FAILED, " + ErrorName(Machine().lastError));
    return WAIT_FAILED;
  }
  if (milliseconds != INFINITE && !child->ended) {
    Record(line + "WAIT_TIMEOUT");
    return WAIT_TIMEOUT;
  }
  End(*child);
  Record(line + "WAIT_OBJECT_0");
  return WAIT_OBJECT_0;
}

BOOL WINAPI TerminateProcess(HANDLE process, UINT exitCode) {
  const Observation observation("TerminateProcess");
  RunningState* child = ChildOf(process);
  const bool succeeds = child != nullptr && !child->ended && !observation.Fails();
  if (succeeds) {
    child->ended = true;
    child->exitCode = exitCode;
  } else if (!observation.Fails()) {
    Machine().lastError = child == nullptr ? ERROR_INVALID_HANDLE : ERROR_ACCESS_DENIED;
  }
  return Answered(
      "TerminateProcess(" + Machine().RoleOf(process) + ", " + ExitCode(exitCode) + ") = ",
      succeeds);
}

HANDLE WINAPI OpenProcess(DWORD access, BOOL inherit, DWORD identifier) {
  const Observation observation("OpenProcess");
  const std::string line =
      "OpenProcess(" + Flags(access, {{PROCESS_TERMINATE, "PROCESS_TERMINATE"}}) + ", inherit " +
      Truth(inherit) + ", process identifier " + std::to_string(identifier) + ") = ";
  SimulatedMachine& machine = Machine();
  for (std::size_t i = 0; i < machine.children.size() && !observation.Fails(); ++i) {
    if (machine.children[i].processIdentifier != identifier || machine.children[i].ended) continue;
    const std::string role = "child as the handler opened it";
    Record(line + role);
    return machine.Open({.role = role, .inheritable = inherit != 0, .child = static_cast<int>(i)});
  }
  if (!observation.Fails()) machine.lastError = ERROR_INVALID_PARAMETER;
  Record(line + "none, " + ErrorName(machine.lastError));
  return nullptr;
}

}  // namespace qvx::test::simulated
