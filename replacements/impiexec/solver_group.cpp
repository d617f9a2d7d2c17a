// Each solver writes both its output streams into one pipe of its own, which keeps their order. It
// inherits that pipe and the empty input, and nothing else.
#include "replacements/impiexec/solver_group.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <thread>
#include <utility>

#include "replacements/impiexec/standard_output.h"

namespace impiexec {
namespace {

/// Names the handles a process inherits. Refers to them, so they must outlive it.
class InheritedHandles {
 public:
  explicit InheritedHandles(std::array<HANDLE, 2>& handles) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    storage_.resize(size);
    InitializeProcThreadAttributeList(List(), 1, 0, &size);
    UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles.data(),
                              sizeof(handles), nullptr, nullptr);
  }
  ~InheritedHandles() { DeleteProcThreadAttributeList(List()); }
  InheritedHandles(const InheritedHandles&) = delete;
  InheritedHandles& operator=(const InheritedHandles&) = delete;

  LPPROC_THREAD_ATTRIBUTE_LIST List() {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(storage_.data());
  }

 private:
  std::vector<std::byte> storage_;
};

Handle OpenNoInput() {
  SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE file = CreateFileA("NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                            OPEN_EXISTING, 0, nullptr);
  return Handle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

void Relay(HANDLE output) {
  std::array<char, 16384> chunk;
  DWORD length = 0;
  while (ReadFile(output, chunk.data(), chunk.size(), &length, nullptr)) {
    WriteOutput({chunk.data(), length});
  }
}

}  // namespace

SolverGroup::SolverGroup() : job_(CreateJobObjectA(nullptr, nullptr)), noInput_(OpenNoInput()) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job_.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
}

DWORD SolverGroup::Create(const std::string& application, std::string commandLine) {
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  if (!CreatePipe(&readEnd, &writeEnd, nullptr, 0)) return GetLastError();
  Handle output(readEnd);
  // Closed on return: the relay sees the end only when the solver holds the last write end.
  const Handle solverEnd(writeEnd);
  SetHandleInformation(writeEnd, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);

  std::array<HANDLE, 2> handles{noInput_.get(), writeEnd};
  InheritedHandles inherited(handles);
  STARTUPINFOEXA startup{};
  startup.StartupInfo.cb = sizeof(startup);
  startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  startup.StartupInfo.hStdInput = noInput_.get();
  startup.StartupInfo.hStdOutput = writeEnd;
  startup.StartupInfo.hStdError = writeEnd;
  startup.lpAttributeList = inherited.List();

  PROCESS_INFORMATION started{};
  if (!CreateProcessA(application.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                      CREATE_SUSPENDED | EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr,
                      &startup.StartupInfo, &started)) {
    return GetLastError();
  }
  Solver solver{Handle(started.hProcess), Handle(started.hThread), std::move(output)};
  if (!AssignProcessToJobObject(job_.get(), started.hProcess)) {
    const DWORD error = GetLastError();
    TerminateProcess(started.hProcess, error);
    return error;
  }
  solvers_.push_back(std::move(solver));
  return 0;
}

int SolverGroup::Run() {
  std::vector<std::jthread> relays;
  for (const Solver& solver : solvers_) {
    relays.emplace_back(Relay, solver.output.get());
    ResumeThread(solver.mainThread.get());
  }
  DWORD result = 0;
  for (const Solver& solver : solvers_) {
    WaitForSingleObject(solver.process.get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(solver.process.get(), &exitCode);
    if (result == 0) result = exitCode;
  }
  // A process that a solver left behind would hold its pipe open, and the relay would never end.
  TerminateJobObject(job_.get(), 0);
  return static_cast<int>(result);
}

}  // namespace impiexec
