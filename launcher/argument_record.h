// The argument record of the run's solver family: picking it, and giving it weights.
#pragma once

#include <concepts>
#include <cstdint>
#include <span>

#include "launcher/launcher_context.h"

namespace qvx {

/// The records of the families that can run in parallel.
template <typename Record>
concept HasRunSettings = std::derived_from<Record, QVXRunSettings>;

/// Gives the record a new array of `count` weights of 0; of none for a count below 1. The record
/// owns it: the launcher never releases any, also none that the record had before. A count that
/// cannot be allocated is a fault.
std::span<double> AllocateWeights(QVXRunSettings& record, std::int32_t count);

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
