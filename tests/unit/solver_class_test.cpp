// The solver families: their numbers, their texts letter by letter, and which always run serially.
#include "launcher/solver_class.h"

#include <gtest/gtest.h>

#include <string>

namespace qvx {
namespace {

struct Family {
  SolverClass solverClass;
  std::uint32_t number;
  const char* name;
  const char* label;
  bool alwaysSerial;
};

constexpr Family kFamilies[] = {
    {SolverClass::Flow, 0, "FLOW", "Flow", false},
    {SolverClass::Pack, 1, "PACK", "Pack", false},
    {SolverClass::Cool, 2, "COOL", "Cool", false},
    {SolverClass::Warp, 3, "WARP", "Warp", false},
    {SolverClass::Stress, 4, "STRESS", "Stress", false},
    {SolverClass::ShellFlow, 5, "SHELLFLOW", "ShellFlow", true},
    {SolverClass::ShellPack, 6, "SHELLPACK", "ShellPack", true},
    {SolverClass::ShellCool, 7, "SHELLCOOL", "ShellCool", true},
    {SolverClass::ShellWarp, 8, "SHELLWARP", "ShellWarp", true},
    {SolverClass::IC, 9, "IC", "IC", true},
    {SolverClass::WS, 10, "WS", "WS", true},
    {SolverClass::PS, 11, "PS", "PS", true},
    {SolverClass::Optics, 12, "OPTICS", "Optics", true},
    {static_cast<SolverClass>(13), 13, "", "", false},
};

TEST(SolverClass, EachFamilyHasItsNumberTextsAndMode) {
  for (const Family& family : kFamilies) {
    SCOPED_TRACE(family.number);
    EXPECT_EQ(static_cast<std::uint32_t>(family.solverClass), family.number);
    EXPECT_STREQ(TextsOf(family.solverClass).name, family.name);
    EXPECT_STREQ(TextsOf(family.solverClass).label, family.label);
    EXPECT_EQ(AlwaysRunsSerially(family.solverClass), family.alwaysSerial);
  }
}

}  // namespace
}  // namespace qvx
