// The rules by which a solver's name decides its family.
#pragma once

#include <string_view>

#include "launcher/solver_class.h"

namespace qvx {

/// A lower-cased name that contains `text` belongs to a family; `whenIn3d` when it also contains
/// "3d" anywhere, `otherwise` when not.
struct ClassRule {
  std::string_view text;
  SolverClass whenIn3d;
  SolverClass otherwise;
};

/// The rule that decides; null when none fits. `lowerCaseName`: the solver executable's.
const ClassRule* FindClassRule(std::string_view lowerCaseName);

SolverClass ClassOf(const ClassRule& rule, std::string_view lowerCaseName);

}  // namespace qvx
