// Each solver writes both its output streams into one pipe of its own, which keeps their order. It
// inherits that pipe and its input, and nothing else.
#include "replacements/impiexec/solver_group.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <thread>
#include <utility>

#include "replacements/impiexec/standard_output.h"

namespace impiexec {
namespace {

constexpr DWORD kEndedByAnother = 123;

/// What a process is created with. Refers to job and handles, so they must outlive it.
class CreationAttributes {
 public:
  CreationAttributes(HANDLE& job, std::array<HANDLE, 2>& inherited) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 2, 0, &size);
    storage_.resize(size);
    InitializeProcThreadAttributeList(List(), 2, 0, &size);
    // From its first moment in the job: nobody can kill impiexec in between and leave it behind.
    Add(PROC_THREAD_ATTRIBUTE_JOB_LIST, &job, sizeof(job));
    Add(PROC_THREAD_ATTRIBUTE_HANDLE_LIST, inherited.data(), sizeof(inherited));
  }
  ~CreationAttributes() { DeleteProcThreadAttributeList(List()); }
  CreationAttributes(const CreationAttributes&) = delete;
  CreationAttributes& operator=(const CreationAttributes&) = delete;

  LPPROC_THREAD_ATTRIBUTE_LIST List() {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(storage_.data());
  }

 private:
  void Add(DWORD_PTR attribute, void* value, SIZE_T size) {
    UpdateProcThreadAttribute(List(), 0, attribute, value, size, nullptr, nullptr);
  }

  std::vector<std::byte> storage_;
};

Handle OpenNoInput() {
  SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE file = CreateFileA("NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                            OPEN_EXISTING, 0, nullptr);
  return Handle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

Handle OpenOwnInput() {
  HANDLE input = nullptr;
  const HANDLE self = GetCurrentProcess();
  const bool hasInput = DuplicateHandle(self, GetStdHandle(STD_INPUT_HANDLE), self, &input, 0, TRUE,
                                        DUPLICATE_SAME_ACCESS) != 0;
  return hasInput ? Handle(input) : OpenNoInput();
}

void Relay(HANDLE output, const std::string& label) {
  std::array<char, 16384> chunk;
  DWORD length = 0;
  bool isLineStart = true;
  while (ReadFile(output, chunk.data(), chunk.size(), &length, nullptr) != 0) {
    const std::string_view bytes(chunk.data(), length);
    if (label.empty()) {
      WriteOutput(bytes);
      continue;
    }
    std::string labelled;
    for (const char byte : bytes) {
      if (isLineStart) labelled += label;
      labelled += byte;
      isLineStart = byte == '\n';
    }
    WriteOutput(labelled);
  }
}

/// The system ended the process for an exception: the code is an error of NTSTATUS.
bool IsCrash(DWORD exitCode) { return exitCode >> 28 == 0xC; }

}  // namespace

SolverGroup::SolverGroup() : job_(CreateJobObjectA(nullptr, nullptr)), ownInput_(OpenOwnInput()) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job_.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));

  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  CreatePipe(&readEnd, &writeEnd, nullptr, 0);
  SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  silentInput_.reset(readEnd);
  silentInputsWriteEnd_.reset(writeEnd);
}

DWORD SolverGroup::Create(const Rank& rank) {
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  if (CreatePipe(&readEnd, &writeEnd, nullptr, 0) == 0) return GetLastError();
  Handle output(readEnd);
  // Closed on return: the relay sees the end only when the solver holds the last write end.
  const Handle solverEnd(writeEnd);
  SetHandleInformation(writeEnd, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);

  HANDLE job = job_.get();
  std::array<HANDLE, 2> inherited{solvers_.empty() ? ownInput_.get() : silentInput_.get(),
                                  writeEnd};
  CreationAttributes attributes(job, inherited);
  STARTUPINFOEXA startup{};
  startup.StartupInfo.cb = sizeof(startup);
  startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  startup.StartupInfo.hStdInput = inherited[0];
  startup.StartupInfo.hStdOutput = writeEnd;
  startup.StartupInfo.hStdError = writeEnd;
  startup.lpAttributeList = attributes.List();

  std::string commandLine = rank.commandLine;
  std::wstring environment = rank.environment;
  PROCESS_INFORMATION started{};
  if (CreateProcessA(rank.application.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                     CREATE_SUSPENDED | EXTENDED_STARTUPINFO_PRESENT | CREATE_UNICODE_ENVIRONMENT,
                     environment.data(), rank.folder.empty() ? nullptr : rank.folder.c_str(),
                     &startup.StartupInfo, &started) == 0) {
    return GetLastError();
  }
  solvers_.push_back({rank.node, rank.outputLabel, Handle(started.hProcess),
                      Handle(started.hThread), std::move(output), std::nullopt});
  return 0;
}

int SolverGroup::Run() {
  std::vector<std::jthread> relays;
  {
    std::vector<std::jthread> waits;
    for (Solver& solver : solvers_) {
      relays.emplace_back([&solver] { Relay(solver.output.get(), solver.outputLabel); });
      waits.emplace_back([this, &solver] { AwaitEnd(solver); });
      ResumeThread(solver.mainThread.get());
    }
  }
  // A process that a solver left behind would hold its pipe open, and the relay would never end.
  TerminateJobObject(job_.get(), 0);
  return static_cast<int>(lastExitCode_);
}

void SolverGroup::AwaitEnd(Solver& solver) {
  WaitForSingleObject(solver.process.get(), INFINITE);
  const std::lock_guard lock(mutex_);
  GetExitCodeProcess(solver.process.get(), &lastExitCode_);
  solver.exitCode = lastExitCode_;
  if (!IsCrash(lastExitCode_)) return;
  isAborted_ = true;
  for (const Solver& other : solvers_) {
    if (!other.exitCode) TerminateProcess(other.process.get(), kEndedByAnother);
  }
}

std::string SolverGroup::ExitCodes() const {
  std::string lines = "rank: node: exit code\r\n";
  for (std::size_t rank = 0; rank < solvers_.size(); ++rank) {
    lines += std::to_string(rank) + ": " + solvers_[rank].node + ": " +
             std::to_string(static_cast<int>(solvers_[rank].exitCode.value_or(0))) + "\r\n";
  }
  return lines;
}

}  // namespace impiexec
