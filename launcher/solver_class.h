// The solver families, with the texts that name them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace qvx {

enum class SolverClass : std::uint32_t {
  Flow,
  Pack,
  Cool,
  Warp,
  Stress,
  ShellFlow,
  ShellPack,
  ShellCool,
  ShellWarp,
  IC,
  WS,
  PS,
  Optics,
};

struct SolverClassTexts {
  const char* name;   ///< in trace lines
  const char* label;  ///< in the names of console logs; at most 15 characters
};

/// Indexed by solver class.
constexpr SolverClassTexts kSolverClassTexts[] = {
    {"FLOW", "Flow"},
    {"PACK", "Pack"},
    {"COOL", "Cool"},
    {"WARP", "Warp"},
    {"STRESS", "Stress"},
    {"SHELLFLOW", "ShellFlow"},
    {"SHELLPACK", "ShellPack"},
    {"SHELLCOOL", "ShellCool"},
    {"SHELLWARP", "ShellWarp"},
    {"IC", "IC"},
    {"WS", "WS"},
    {"PS", "PS"},
    {"OPTICS", "Optics"},
};

/// Empty texts for a number that names no family.
constexpr SolverClassTexts TextsOf(SolverClass solverClass) {
  const auto index = static_cast<std::size_t>(solverClass);
  return index < std::size(kSolverClassTexts) ? kSolverClassTexts[index] : SolverClassTexts{"", ""};
}

/// The shell solvers, IC, WS, PS and OPTICS: the parallel sections of the CMX file are not even
/// read for them.
constexpr bool AlwaysRunsSerially(SolverClass solverClass) {
  return solverClass >= SolverClass::ShellFlow && solverClass <= SolverClass::Optics;
}

}  // namespace qvx
