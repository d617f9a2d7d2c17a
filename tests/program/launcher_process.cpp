#include "tests/program/launcher_process.h"

#include <psapi.h>
#include <tlhelp32.h>

#include <chrono>
#include <stdexcept>

#include "replacements/quoted_argument.h"
#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

/// Far beyond what a busy machine needs.
constexpr std::chrono::minutes kHang(10);

struct Pipe {
  HANDLE read = nullptr;
  HANDLE write = nullptr;
};

/// Only the write end can be inherited. Starting processes side by side, one at a time creates and
/// inherits: a write end in a stranger's hands would keep the reader from seeing the end.
Pipe CreateInheritablePipe() {
  SECURITY_ATTRIBUTES attributes = {sizeof attributes, nullptr, TRUE};
  Pipe pipe;
  CreatePipe(&pipe.read, &pipe.write, &attributes, 0);
  SetHandleInformation(pipe.read, HANDLE_FLAG_INHERIT, 0);
  return pipe;
}

std::mutex creation;

std::string EnvironmentBlock(const std::map<std::string, std::string>& added) {
  std::string block;
  char* own = GetEnvironmentStringsA();
  for (const char* variable = own; *variable != '\0';) {
    const std::string text = variable;
    block.append(text).push_back('\0');
    variable += text.size() + 1;
  }
  FreeEnvironmentStringsA(own);
  for (const auto& [name, value] : added) block.append(name + "=" + value).push_back('\0');
  block.push_back('\0');
  return block;
}

/// Runs a program to its end; its exit code, or -1 when it cannot be started. Inherits nothing, and
/// so waits for no other start: a Ctrl-C has to come in time.
int StatusOf(const std::string& program, std::string commandLine) {
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                     nullptr, &startup, &process) == 0) {
    return -1;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
  return static_cast<int>(status);
}

}  // namespace

LauncherProcess::LauncherProcess(const LauncherStart& start) {
  std::string commandLine = '"' + start.firstArgument + '"';
  for (const std::string& argument : start.arguments) {
    commandLine += ' ' + replacements::QuotedArgument(argument);
  }
  std::string environment = EnvironmentBlock(start.environment);

  const std::lock_guard lock(creation);
  const Pipe output = CreateInheritablePipe();
  const Pipe error = CreateInheritablePipe();
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = output.write;
  startup.hStdError = error.write;
  const BOOL created = CreateProcessA(
      ProgramPath(start.program).c_str(), commandLine.data(), nullptr, nullptr, TRUE,
      start.hasOwnConsole ? CREATE_NEW_CONSOLE : 0, environment.data(),
      start.currentFolder.empty() ? nullptr : start.currentFolder.c_str(), &startup, &process_);
  CloseHandle(output.write);
  CloseHandle(error.write);
  outputReader_ = std::thread([this, pipe = output.read] { Read(pipe, output_); });
  errorReader_ = std::thread([this, pipe = error.read] { Read(pipe, error_); });
  if (created == 0) throw std::runtime_error(start.program + " cannot be started");
}

LauncherProcess::~LauncherProcess() {
  TerminateProcess(process_.hProcess, 1);
  Wait();
  CloseHandle(process_.hProcess);
  CloseHandle(process_.hThread);
}

void LauncherProcess::Read(HANDLE pipe, std::string& text) {
  char chunk[4096];
  DWORD size = 0;
  while (ReadFile(pipe, chunk, sizeof chunk, &size, nullptr) != 0) {
    const std::lock_guard lock(mutex_);
    text.append(chunk, size);
    grown_.notify_all();
  }
  CloseHandle(pipe);
  const std::lock_guard lock(mutex_);
  if (&text == &output_) outputEnded_ = true;
  grown_.notify_all();
}

bool LauncherProcess::WaitForOutput(const std::string& text) {
  std::unique_lock lock(mutex_);
  const auto found = [&] { return output_.find(text) != std::string::npos; };
  grown_.wait_for(lock, kHang, [&] { return found() || outputEnded_; });
  return found();
}

bool LauncherProcess::SendCtrlC() const {
  const std::string commandLine = "send_ctrl_c " + std::to_string(process_.dwProcessId);
  return StatusOf(ProgramPath("tests\\send_ctrl_c.exe"), commandLine) == 0;
}

std::size_t LauncherProcess::Threads() const {
  const HANDLE threads = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  std::size_t count = 0;
  THREADENTRY32 entry = {};
  entry.dwSize = sizeof entry;
  for (BOOL more = Thread32First(threads, &entry); more != 0;
       more = Thread32Next(threads, &entry)) {
    if (entry.th32OwnerProcessID == process_.dwProcessId) ++count;
  }
  CloseHandle(threads);
  return count;
}

std::size_t LauncherProcess::PeakWorkingSet() const {
  PROCESS_MEMORY_COUNTERS counters = {};
  GetProcessMemoryInfo(process_.hProcess, &counters, sizeof counters);
  return counters.PeakWorkingSetSize;
}

int LauncherProcess::Wait() {
  constexpr std::chrono::milliseconds hang = kHang;
  if (WaitForSingleObject(process_.hProcess, static_cast<DWORD>(hang.count())) == WAIT_TIMEOUT) {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, INFINITE);
  }
  if (outputReader_.joinable()) outputReader_.join();
  if (errorReader_.joinable()) errorReader_.join();
  DWORD status = 0;
  GetExitCodeProcess(process_.hProcess, &status);
  return static_cast<int>(status);
}

}  // namespace qvx::test
