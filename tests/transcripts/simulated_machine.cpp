#include "tests/transcripts/simulated_machine.h"

#include <memory>
#include <utility>

#include "tests/transcripts/observed_memory.h"
#include "tests/transcripts/transcript.h"

namespace qvx::test {
namespace {

// Far from every small number and every handle of the real system's.
constexpr std::uintptr_t kFirstHandle = 0x51000000;
constexpr std::uintptr_t kHandleStep = 4;

std::unique_ptr<SimulatedMachine> machine;

std::string EventName(DWORD code) {
  switch (code) {
    case CTRL_C_EVENT:
      return "CTRL_C_EVENT";
    case CTRL_BREAK_EVENT:
      return "CTRL_BREAK_EVENT";
    case CTRL_CLOSE_EVENT:
      return "CTRL_CLOSE_EVENT";
    case CTRL_LOGOFF_EVENT:
      return "CTRL_LOGOFF_EVENT";
    case CTRL_SHUTDOWN_EVENT:
      return "CTRL_SHUTDOWN_EVENT";
    default:
      return "event " + std::to_string(code);
  }
}

}  // namespace

bool SimulatedMachine::BeginCall(const std::string& function) {
  const CallNumber call = {function, ++calls_[function]};
  if (const auto events = scenario.events.find(call); events != scenario.events.end()) {
    for (const DWORD code : events->second) LetConsoleEventIn(function, code);
  }
  if (const auto number = scenario.solverClasses.find(call);
      number != scenario.solverClasses.end()) {
    context->solverClass = static_cast<SolverClass>(number->second);
    Record("-- the solver class becomes " + std::to_string(number->second));
  }
  const auto failure = scenario.failures.find(call);
  if (failure == scenario.failures.end()) {
    // GetLastError alone leaves the code as it is.
    if (function != "GetLastError") lastError = kErrorOfAnotherCall;
    return false;
  }
  lastError = failure->second;
  return true;
}

void SimulatedMachine::EndCall(const std::string& function) {
  if (function == scenario.exhaustedFrom) ExhaustMemory(true);
}

void SimulatedMachine::LetConsoleEventIn(const std::string& function, DWORD code) {
  const std::string name = EventName(code);
  if (consoleHandler == nullptr) {
    Record("-- " + name + " arrives during " + function + "; nobody handles it");
    return;
  }
  Record("-- " + name + " arrives during " + function);
  const int result = consoleHandler(code);
  const Observation observation("return of the handler");
  Record("-- the handler returns " + Truth(result));
}

HANDLE SimulatedMachine::Open(OpenHandle handle) {
  handles_.push_back(std::move(handle));
  return reinterpret_cast<HANDLE>(kFirstHandle + handles_.size() * kHandleStep);
}

OpenHandle* SimulatedMachine::Find(HANDLE handle) {
  const auto offset = reinterpret_cast<std::uintptr_t>(handle) - kFirstHandle;
  const std::uintptr_t index = offset / kHandleStep - 1;
  return offset % kHandleStep == 0 && index < handles_.size() ? &handles_[index] : nullptr;
}

std::string SimulatedMachine::RoleOf(HANDLE handle) {
  if (handle == nullptr) return "none";
  if (handle == INVALID_HANDLE_VALUE) return "INVALID_HANDLE_VALUE";
  const OpenHandle* found = Find(handle);
  if (found == nullptr) return "a handle that nobody opened";
  return found->role + (found->open ? "" : " (closed)");
}

std::string SimulatedMachine::Roles(bool inheritableOnly) const {
  std::string roles;
  for (const OpenHandle& handle : handles_) {
    if (!handle.open || (inheritableOnly && !handle.inheritable)) continue;
    roles += (roles.empty() ? "" : "; ") + handle.role;
  }
  return roles.empty() ? "nothing" : roles;
}

std::string SimulatedMachine::OpenRoles() const { return Roles(false); }
std::string SimulatedMachine::InheritableRoles() const { return Roles(true); }

void SimulatedMachine::EndChild(int child, DWORD exitCode) {
  RunningState& state = children.at(static_cast<std::size_t>(child));
  if (state.ended) return;
  state.ended = true;
  state.exitCode = exitCode;
}

SimulatedMachine& Machine() { return *machine; }

BOOL Answered(const std::string& line, bool succeeds, const std::string& more) {
  Record(line + (succeeds ? "TRUE" + more : "FALSE, " + ErrorName(Machine().lastError)));
  return succeeds ? TRUE : FALSE;
}

void StartMachine(const Scenario& scenario) {
  machine = std::make_unique<SimulatedMachine>(scenario);
  machine->logs = scenario.oldLogs;
}

}  // namespace qvx::test
