// Everything that the check has to say about one call, in both of its forms.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "runcheck/diagnostic.h"
#include "runcheck/diagnostic_text.h"
#include "runcheck/prediction.h"

namespace qvx::runcheck {

struct MachineReport {
  std::string host;
  std::int32_t tasks;
  double weighting;
  std::optional<std::string> address;
  std::string name;  ///< "found", "unknown", "silent", "not asked"
};

/// Why a fact is as it is.
struct Reason {
  std::string fact;
  std::string because;
  std::optional<Range> range;
};

struct Report {
  std::string runNumber;
  std::string projectDirectory;
  std::string runFolder;  ///< on this machine
  std::string call;       ///< the command line that the check made of its options; may be empty
  SolverClass family = SolverClass::Flow;
  std::vector<Pass> passes;
  std::vector<MachineReport> machines;
  std::vector<Reason> reasons;
  Diagnostics diagnostics;
};

/// "serial", "shared-memory" or "distributed"; an unknown mode is serial.
const char* NameOf(ComputeMode mode);

/// As a terminal shows it, in the ANSI code page.
std::string TextReport(const Report& report, const TextStyle& style);

/// One object, UTF-8, with a line feed at its end. `toUtf8`: converts from the ANSI code page.
std::string JsonReport(const Report& report, std::string (*toUtf8)(const std::string&));

/// 0, or 1 when an error is among the diagnostics.
int ExitStatusOf(const Report& report);

}  // namespace qvx::runcheck
