// The argument record of the run's solver family: picking it, and giving it weights.
#pragma once

#include <span>

#include "launcher/launcher_context.h"

namespace qvx {

/// `processCount` weights of 0, or none for a count below 1, when the record keeps what it has. The
/// record owns them: the launcher never releases any, also none that the record had before. A count
/// that cannot be allocated is a fault.
std::span<double> GiveWeights(QVXRunSettings& record);

/// Calls `visit` with the record of the context's solver class; not at all for a number that names
/// no family.
template <typename Visitor>
void VisitArgumentRecord(LauncherContext& context, Visitor&& visit) {
  switch (context.solverClass) {
    case SolverClass::Flow:
    case SolverClass::Pack:
      return visit(context.flowArgument);
    case SolverClass::Cool:
      return visit(context.coolArgument);
    case SolverClass::Warp:
    case SolverClass::Stress:
      return visit(context.warpArgument);
    case SolverClass::ShellFlow:
    case SolverClass::ShellPack:
      return visit(context.shellFlowArgument);
    case SolverClass::ShellCool:
      return visit(context.shellCoolArgument);
    case SolverClass::ShellWarp:
      return visit(context.shellWarpArgument);
    case SolverClass::IC:
    case SolverClass::WS:
    case SolverClass::PS:
      return visit(context.icArgument);
    case SolverClass::Optics:
      return visit(context.opticsArgument);
  }
}

}  // namespace qvx
