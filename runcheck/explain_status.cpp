#include "runcheck/explain_status.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "execution/smp_launch.h"
#include "launcher/console_control_handler.h"
#include "support/fault.h"

namespace qvx::runcheck {
namespace {

struct StatusMeaning {
  std::int64_t status;
  const char* text;
};

// The launcher's own. Two are ends that it gives to its child.
constexpr StatusMeaning kOwn[] = {
    {0,
     "the run went well, or it was cancelled before the solver was started; in a distributed run "
     "it does not prove that a solver ran"},
    {-1,
     "the launcher could not start the solver or impiexec.exe, was called with fewer than two "
     "arguments, or acc.ini cannot be used; a solver may have returned it too, and the "
     "launcher's messages tell these apart"},
    {kFaultStatus,
     "the launcher gave up: a text too long for its field, a count too large, no "
     "memory, or a library that failed; the line on standard error says which, and a "
     "solver may have returned it too"},
    {kNoProcessManagerStatus,
     "impiexec.exe found no MPI process manager (smpd) and was ended; the launcher's message shows "
     "the command that installs it on this machine"},
    {kCancelledChildStatus, "the run was cancelled while the solver ran"},
    {259, "the solver returned 259, which the system also uses for a process that still runs"},
};

/// What a solver that was ended by the system leaves.
constexpr StatusMeaning kSystem[] = {
    {0xC0000005, "the solver read or wrote memory that is not its own (access violation)"},
    {0xC0000017, "the solver found no memory"},
    {0xC000001D, "the solver met an instruction that this processor does not know"},
    {0xC000007B, "a library of the solver is for another machine"},
    {0xC0000094, "the solver divided by zero"},
    {0xC00000FD, "the solver's stack overflowed"},
    {0xC0000135, "a library that the launcher or the solver needs is missing"},
    {0xC0000139, "a library that the solver needs is of another version"},
    {0xC000013A, "the solver was ended by Ctrl-C or a closing window"},
    {0xC0000142, "a library of the solver did not start"},
    {0xC0000374, "the solver's heap was damaged"},
    {0xC0000409, "the solver's stack was damaged, or it aborted"},
};

std::string Hexadecimal(int status) {
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(status));
  return text.data();
}

}  // namespace

std::optional<int> ParseStatus(const std::string& text) {
  char* end = nullptr;
  // Decimal or hexadecimal; a leading zero is no octal number.
  const bool isHexadecimal = text.find_first_of("xX") != std::string::npos;
  const long long number = std::strtoll(text.c_str(), &end, isHexadecimal ? 16 : 10);
  if (text.empty() || *end != '\0' || end == text.c_str()) return std::nullopt;
  if (number < INT32_MIN || number > static_cast<long long>(UINT32_MAX)) return std::nullopt;
  return static_cast<int>(static_cast<std::uint32_t>(number));
}

std::string ExplainStatus(int status, std::string (*systemText)(int status)) {
  const std::string number =
      std::to_string(status) +
      (status < -9999 || status > 9999 ? " (" + Hexadecimal(status) + ")" : "");
  for (const StatusMeaning& meaning : kOwn) {
    if (meaning.status == status) return number + ": " + meaning.text;
  }
  for (const StatusMeaning& meaning : kSystem) {
    if (static_cast<int>(static_cast<std::uint32_t>(meaning.status)) != status) continue;
    const std::string system = systemText(status);
    return number + ": " + meaning.text + (system.empty() ? "" : "; the system says: " + system);
  }
  // The least NTSTATUS that informs: below it the system has only error codes' texts, which say
  // nothing about a solver's status.
  constexpr int kFirstSystemStatus = 0x40000000;
  if (status > 0 && status < kFirstSystemStatus) {
    return number + ": the solver's own, or that of impiexec.exe; the solver's manual explains it";
  }
  const std::string system = systemText(status);
  if (system.empty()) return number + ": the solver's own; the system has no text for it";
  return number + ": the solver's own, or the system's: " + system;
}

}  // namespace qvx::runcheck
