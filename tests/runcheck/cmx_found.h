// What the rules over the CMX file's lines say, for tests.
#pragma once

#include <string>

#include "runcheck/cmx_rules.h"
#include "runcheck/diagnostic_text.h"

namespace qvx::runcheck {

/// What they say about a file, as a person reads it.
inline std::string Found(const std::string& file, SolverClass solverClass = SolverClass::Flow) {
  std::string text;
  const CmxFacts facts({"Sample03.cmx", file}, solverClass);
  for (const Diagnostic& diagnostic : CheckCmxFile(facts)) text += DiagnosticText(diagnostic, {});
  return text;
}

}  // namespace qvx::runcheck
