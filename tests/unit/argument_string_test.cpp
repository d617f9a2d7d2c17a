// Which record becomes the solver argument string. The expected texts are the options of the
// argument library's replacement.
#include "execution/argument_string.h"

#include <gtest/gtest.h>

#include <string>

#include "support/bounded_text.h"
#include "tests/support/printed_by.h"

namespace qvx {
namespace {

/// A context whose records differ in their project names.
struct ArgumentString : testing::Test {
  ArgumentString() {
    CopyText(context.flowArgument.projectName, "", "flow");
    CopyText(context.coolArgument.projectName, "", "cool");
    CopyText(context.warpArgument.projectName, "", "warp");
    CopyText(context.shellFlowArgument.projectName, "", "shellflow");
    CopyText(context.shellCoolArgument.projectName, "", "shellcool");
    CopyText(context.shellWarpArgument.projectName, "", "shellwarp");
    CopyText(context.icArgument.projectName, "", "ic");
    CopyText(context.opticsArgument.projectName, "", "optics");
  }

  /// Returns what is printed.
  std::string Build(SolverClass solverClass) {
    context.solverClass = solverClass;
    return test::PrintedBy([&] { EXPECT_EQ(BuildSolverArgumentString(context), 0); });
  }

  LauncherContext context;
};

TEST_F(ArgumentString, IsMadeOfTheRecordOfTheSolverClass) {
  const std::string run = " -molding 0 -option 0 -parallel 0 -processes 0";
  const std::string shot = " -prevshot 0 -prevproject \" \" -prevrun \" \" -prevname \" \"";
  const std::string shell = " -option 0 -extra \" \" -extra \" \" -extra \" \"";
  const struct {
    SolverClass solverClass;
    const char* projectName;
    std::string options;
  } cases[] = {
      {SolverClass::Flow, "flow", run},
      {SolverClass::Pack, "flow", run},
      {SolverClass::Cool, "cool", run + shot},
      {SolverClass::Warp, "warp", run + shot + " -option2 0"},
      {SolverClass::Stress, "warp", run + shot + " -option2 0"},
      {SolverClass::ShellFlow, "shellflow", shell},
      {SolverClass::ShellPack, "shellflow", shell},
      {SolverClass::ShellCool, "shellcool", shell},
      {SolverClass::ShellWarp, "shellwarp", shell},
      {SolverClass::IC, "ic", ""},
      {SolverClass::WS, "ic", ""},
      {SolverClass::PS, "ic", ""},
      {SolverClass::Optics, "optics", ""},
  };
  for (const auto& [solverClass, projectName, options] : cases) {
    EXPECT_EQ(Build(solverClass), "");
    EXPECT_EQ(context.solverArgumentString, std::string("-home \" \" -project \" \" -name \"") +
                                                projectName + "\" -run \" \"" + options);
  }
}

TEST_F(ArgumentString, IsTraced) {
  context.debugTraceFlag = 1;
  EXPECT_EQ(Build(SolverClass::PS),
            "Solver arguments = [-home \" \" -project \" \" -name \"ic\" -run \" \"]\n");
}

TEST_F(ArgumentString, IsTracedButNotMadeOutsideTheClasses) {
  context.debugTraceFlag = 1;
  EXPECT_EQ(Build(SolverClass{13}), "Solver arguments = []\n");
}

TEST_F(ArgumentString, KeepsWhatItHeldOutsideTheClasses) {
  CopyText(context.solverArgumentString, "", "-before");
  EXPECT_EQ(Build(SolverClass{13}), "");
  EXPECT_STREQ(context.solverArgumentString, "-before");
}

}  // namespace
}  // namespace qvx
