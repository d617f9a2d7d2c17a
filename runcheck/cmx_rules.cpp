#include "runcheck/cmx_rules.h"

#include <algorithm>

namespace qvx::runcheck {

Diagnostics CheckCmxFile(const CmxFacts& facts) {
  Diagnostics found;
  CheckWidths(facts, found);
  // A solver that always runs serially has nothing read from the file.
  if (facts.Readings().empty()) return found;
  CheckBytes(facts, found);
  if (!HasLines(facts.File().bytes)) return found;
  // What seems to be missing stands behind it.
  if (std::ranges::any_of(found, [](const Diagnostic& diagnostic) {
        return diagnostic.code == "cmx-control-z" && diagnostic.severity == kError;
      })) {
    return found;
  }
  CheckTags(facts, found);
  CheckKeys(facts, found);
  CheckMissingKeys(facts, found);
  CheckValues(facts, found);
  CheckMachineBlocks(facts, found);
  SortByPlace(found);
  return found;
}

}  // namespace qvx::runcheck
