#include "launcher/class_rule.h"

namespace qvx {
namespace {

/// The first rule that matches decides. "qvx3dic" before "ic" is deliberate: it makes every such
/// name that is not a PS name WS.
constexpr ClassRule kClassRules[] = {
    {"flow", SolverClass::Flow, SolverClass::ShellFlow},
    {"pack", SolverClass::Pack, SolverClass::ShellPack},
    {"cool", SolverClass::Cool, SolverClass::ShellCool},
    {"warp", SolverClass::Warp, SolverClass::ShellWarp},
    {"stress", SolverClass::Stress, SolverClass::Stress},
    {"qvx3dicps", SolverClass::PS, SolverClass::PS},
    {"qvx3dic", SolverClass::WS, SolverClass::WS},
    {"optics", SolverClass::Optics, SolverClass::Optics},
    {"ic", SolverClass::IC, SolverClass::IC},
    {"fake", SolverClass::Flow, SolverClass::Flow},
};

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

}  // namespace

const ClassRule* FindClassRule(std::string_view lowerCaseName) {
  for (const ClassRule& rule : kClassRules) {
    if (Contains(lowerCaseName, rule.text)) return &rule;
  }
  return nullptr;
}

SolverClass ClassOf(const ClassRule& rule, std::string_view lowerCaseName) {
  return Contains(lowerCaseName, "3d") ? rule.whenIn3d : rule.otherwise;
}

}  // namespace qvx
