#include "tests/runcheck/check_process.h"

#include <windows.h>

#include <stdexcept>
#include <thread>

#include "replacements/quoted_argument.h"
#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

struct Pipe {
  HANDLE read = nullptr;
  HANDLE write = nullptr;

  Pipe() {
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, nullptr, TRUE};
    CreatePipe(&read, &write, &attributes, 0);
    SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);
  }

  std::string ReadToEnd() const {
    std::string text;
    char chunk[4096];
    DWORD size = 0;
    while (ReadFile(read, chunk, sizeof chunk, &size, nullptr) != 0) text.append(chunk, size);
    CloseHandle(read);
    return text;
  }
};

}  // namespace

CheckResult RunQvxRunCheck(const std::vector<std::string>& arguments, const std::string& program) {
  const std::string path = program.empty() ? ProgramPath("bin\\QVXRunCheck.exe") : program;
  std::string commandLine = '"' + path + '"';
  for (const std::string& argument : arguments) {
    commandLine += ' ' + replacements::QuotedArgument(argument);
  }
  const Pipe output;
  const Pipe error;
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = output.write;
  startup.hStdError = error.write;
  PROCESS_INFORMATION process = {};
  if (CreateProcessA(path.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    throw std::runtime_error("the check cannot be started");
  }
  CloseHandle(output.write);
  CloseHandle(error.write);
  CheckResult result;
  std::thread errorReader([&] { result.error = error.ReadToEnd(); });
  result.output = output.ReadToEnd();
  errorReader.join();
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hProcess);
  CloseHandle(process.hThread);
  result.status = static_cast<int>(status);
  return result;
}

}  // namespace qvx::test
