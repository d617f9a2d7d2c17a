// The command line: the molding type, the solver and its class, the tokens that fill each family's
// record, and the whole trace.
#include "launcher/command_line.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/printed_by.h"

namespace qvx {
namespace {

void InterpretInto(LauncherContext& context, std::vector<std::string> arguments) {
  std::vector<char*> vector;
  for (std::string& argument : arguments) vector.push_back(argument.data());
  EXPECT_EQ(InterpretCommandLine(context, static_cast<int>(vector.size()), vector.data()), 0);
}

/// A context that interpreted a command line, and what that printed.
struct Interpreted {
  std::unique_ptr<LauncherContext> context = std::make_unique<LauncherContext>();
  std::string printed;
};

Interpreted Interpret(std::vector<std::string> arguments, bool trace = false) {
  Interpreted result;
  result.context->debugTraceFlag = trace ? 1 : 0;
  result.printed = test::PrintedBy([&] { InterpretInto(*result.context, std::move(arguments)); });
  return result;
}

std::string ClassLineOf(const std::string& solver) {
  const std::string printed = Interpret({"L$1", "h*p*n*0*1", solver}, true).printed;
  const std::size_t start = printed.find("SolverClass=");
  return start == std::string::npos ? "" : printed.substr(start, printed.find('\n', start) - start);
}

TEST(ClassifySolver, FollowsTheRulesInTheirOrder) {
  EXPECT_EQ(ClassLineOf("Qvx3DFlow.exe"), "SolverClass=FLOW");
  EXPECT_EQ(ClassLineOf("QvxFlow.exe"), "SolverClass=SHELLFLOW");
  EXPECT_EQ(ClassLineOf("Qvx3DPack.exe"), "SolverClass=PACK");
  EXPECT_EQ(ClassLineOf("QvxPack.exe"), "SolverClass=SHELLPACK");
  EXPECT_EQ(ClassLineOf("Qvx3DCoolSolver.exe"), "SolverClass=COOL");
  EXPECT_EQ(ClassLineOf("QvxCool.exe"), "SolverClass=SHELLCOOL");
  EXPECT_EQ(ClassLineOf("Qvx3DWarp.exe"), "SolverClass=WARP");
  EXPECT_EQ(ClassLineOf("QvxWarp.exe"), "SolverClass=SHELLWARP");
  EXPECT_EQ(ClassLineOf("QvxStress.exe"), "SolverClass=STRESS");
  EXPECT_EQ(ClassLineOf("qvx3dicps.exe"), "SolverClass=PS");
  EXPECT_EQ(ClassLineOf("qvx3dic.exe"), "SolverClass=WS");
  EXPECT_EQ(ClassLineOf("QvxOptics.exe"), "SolverClass=OPTICS");
  EXPECT_EQ(ClassLineOf("Ic.exe"), "SolverClass=IC");
  EXPECT_EQ(ClassLineOf("QuorvexFakeSolver.exe"), "SolverClass=FLOW");
}

TEST(ClassifySolver, LooksForTheWholeTextOfARuleAndNoMore) {
  EXPECT_EQ(ClassLineOf("Icps.exe"), "SolverClass=IC");
  EXPECT_EQ(ClassLineOf("My3DIcPs.exe"), "SolverClass=IC");
  EXPECT_EQ(ClassLineOf("Optics"), "SolverClass=OPTICS");
  EXPECT_EQ(ClassLineOf("fake"), "SolverClass=FLOW");
}

TEST(ClassifySolver, LetsTheEarlierRuleDecide) {
  EXPECT_EQ(ClassLineOf("Qvx3DFlowCool.exe"), "SolverClass=FLOW");
  EXPECT_EQ(ClassLineOf("PackFlow.exe"), "SolverClass=SHELLFLOW");
  EXPECT_EQ(ClassLineOf("CoolPack.exe"), "SolverClass=SHELLPACK");
  EXPECT_EQ(ClassLineOf("WarpCool.exe"), "SolverClass=SHELLCOOL");
  EXPECT_EQ(ClassLineOf("StressWarp.exe"), "SolverClass=SHELLWARP");
  EXPECT_EQ(ClassLineOf("qvx3dicStress.exe"), "SolverClass=STRESS");
  EXPECT_EQ(ClassLineOf("qvx3dicpsStress.exe"), "SolverClass=STRESS");
  EXPECT_EQ(ClassLineOf("QVX3DICOptics.exe"), "SolverClass=WS");
  EXPECT_EQ(ClassLineOf("StressOptics.exe"), "SolverClass=STRESS");
  EXPECT_EQ(ClassLineOf("icfake.exe"), "SolverClass=IC");
}

TEST(ClassifySolver, LooksFor3dAnywhereInTheName) {
  EXPECT_EQ(ClassLineOf("FLOWx3D.exe"), "SolverClass=FLOW");
  EXPECT_EQ(ClassLineOf("warp.3d"), "SolverClass=WARP");
  EXPECT_EQ(ClassLineOf("3d.warp"), "SolverClass=WARP");
}

TEST(ClassifySolver, KnowsTheOtherFamiliesIn3dToo) {
  EXPECT_EQ(ClassLineOf("Qvx3DStress.exe"), "SolverClass=STRESS");
  EXPECT_EQ(ClassLineOf("Qvx3DOptics.exe"), "SolverClass=OPTICS");
  EXPECT_EQ(ClassLineOf("Fake3D.exe"), "SolverClass=FLOW");
}

TEST(ClassifySolver, LooksAtTheFolderInFrontOfANameToo) {
  EXPECT_EQ(ClassLineOf("Cool\\Qvx3D.exe"), "SolverClass=COOL");
  EXPECT_EQ(ClassLineOf("3D\\QvxCool.exe"), "SolverClass=COOL");
}

TEST(ClassifySolver, RunsAnUnknownNameAsFlowWithoutALine) {
  EXPECT_EQ(ClassLineOf("Solver.exe"), "");
  EXPECT_EQ(Interpret({"L", "h", "Solver.exe"}).context->solverClass, SolverClass::Flow);
}

TEST(InterpretCommandLine, TracesEveryStep) {
  EXPECT_EQ(Interpret({"C:\\X\\QVXSolverLauncher.exe$3", "D:\\Home\\*D:\\Proj*Part*x*5",
                       "Qvx3DFlow.exe", "more"},
                      true)
                .printed,
            "argv[0]=[C:\\X\\QVXSolverLauncher.exe$3]\n"
            "argv[1]=[D:\\Home\\*D:\\Proj*Part*x*5]\n"
            "argv[2]=[Qvx3DFlow.exe]\n"
            "argv[3]=[more]\n"
            "\n"
            "$ symbol is at position(26) of argv[0]\n"
            "szMoldingType from argv[0] = 3\n"
            "MoldingType from argv[0]   = 3\n"
            "SolverClass=FLOW\n"
            "Parse argv[1]=[D:\\Home\\*D:\\Proj*Part*x*5]\n"
            "D:\\Home\\\n"
            "D:\\Proj\n"
            "Part\n"
            "x\n"
            "5\n");
}

TEST(InterpretCommandLine, IsSilentWithoutTrace) {
  EXPECT_EQ(Interpret({"L$3", "h*p*n*0*5", "Qvx3DFlow.exe"}).printed, "");
}

TEST(MoldingType, IsTheNumberBehindTheMarker) {
  const auto moldingType = [](const char* first) {
    return Interpret({first, "h", "Qvx3DFlow.exe"}).context->flowArgument.moldingType;
  };
  EXPECT_EQ(moldingType("L.exe$3"), 3);
  EXPECT_EQ(moldingType("launcher$12345678"), 1234567);
  EXPECT_EQ(moldingType("a$ -2$9"), -2);
  EXPECT_EQ(moldingType("C:\\$5\\L.exe$3"), 5);
  EXPECT_EQ(moldingType("L.exe*h$4*p"), 4);
  EXPECT_EQ(moldingType("$6"), 6);
  EXPECT_EQ(moldingType("a$x"), 0);
  EXPECT_EQ(moldingType("a$"), 0);
}

TEST(MoldingType, IsMinusOneWithoutAMarker) {
  const Interpreted result = Interpret({"", "h", "Qvx3DFlow.exe"}, true);
  EXPECT_EQ(result.context->flowArgument.moldingType, -1);
  EXPECT_EQ(result.printed,
            "argv[0]=[]\nargv[1]=[h]\nargv[2]=[Qvx3DFlow.exe]\n\n"
            "$ symbol is at position(-1) of argv[0]\n"
            "szMoldingType from argv[0] = \n"
            "MoldingType from argv[0]   = -1\n"
            "SolverClass=FLOW\nParse argv[1]=[h]\nh\n");
}

TEST(SolverExecutable, IsTheThirdArgumentInItsOwnLetterCaseWithItsBlanks) {
  EXPECT_STREQ(Interpret({"L", "h", " Qvx3DFLOW.exe ", "x"}).context->solverExecutableName,
               " Qvx3DFLOW.exe ");
}

TEST(SolverExecutable, IsTheThirdArgumentAsItStands) {
  for (const char* solver : {"", "\"Qvx3D Flow.exe\"", "Qvx3DFlow"}) {
    EXPECT_STREQ(Interpret({"L", "h", solver}).context->solverExecutableName, solver);
  }
}

TEST(SolverExecutable, IsTheTokenListWhenThereAreTwoArguments) {
  const Interpreted result = Interpret({"L", "D:\\3d*flow*n*0*7"});
  EXPECT_STREQ(result.context->solverExecutableName, "D:\\3d*flow*n*0*7");
  EXPECT_EQ(result.context->solverClass, SolverClass::Flow);
  EXPECT_STREQ(result.context->flowArgument.runNumber, "7");
}

// The entry sequence lets no call of fewer arguments through; the stand-in is kept all the same.
TEST(SolverExecutable, IsTheStandInWhenThereIsNone) {
  const Interpreted result = Interpret({"L$1"}, true);
  EXPECT_EQ(result.printed,
            "argv[0]=[L$1]\n"
            "\n"
            "$ symbol is at position(1) of argv[0]\n"
            "szMoldingType from argv[0] = 1\n"
            "MoldingType from argv[0]   = 1\n"
            "SolverExe is not specified! Use QuorvexFakeSolver.exe as the solver.\n"
            "SolverClass=FLOW\n");
  EXPECT_STREQ(result.context->solverExecutableName, "QuorvexFakeSolver.exe");
  EXPECT_EQ(result.context->solverClass, SolverClass::Flow);
  EXPECT_STREQ(result.context->homeFolder, "");
}

TEST(SolverExecutable, IsTheStandInEvenWithoutAProgramName) {
  const Interpreted result = Interpret({}, true);
  EXPECT_EQ(result.printed,
            "\n"
            "$ symbol is at position(-1) of argv[0]\n"
            "szMoldingType from argv[0] = \n"
            "MoldingType from argv[0]   = -1\n"
            "SolverExe is not specified! Use QuorvexFakeSolver.exe as the solver.\n"
            "SolverClass=FLOW\n");
}

TEST(Tokens, GiveTheHomeFolderInEveryClass) {
  for (const char* solver : {"3dflow", "3dpack", "3dcool", "3dwarp", "stress", "flow", "pack",
                             "cool", "warp", "ic", "qvx3dic", "qvx3dicps", "optics"}) {
    const bool isShell = std::string("flow pack cool warp").find(solver) != std::string::npos;
    const Interpreted result = isShell ? Interpret({"L$1*D:\\H\\*p", "no*p", solver})
                                       : Interpret({"L$1*no*p", "D:\\H\\*p", solver});
    EXPECT_STREQ(result.context->homeFolder, "D:\\H") << solver;
  }
}

TEST(Tokens, FillTheFlowRecordWhichTakesNoOption) {
  const Interpreted result = Interpret({"L$3", "D:\\Home\\*D:\\Proj*Part*8*5*6", "Qvx3DPack.exe"});
  const CQVXFlowFlowEPackArgument& record = result.context->flowArgument;
  EXPECT_STREQ(record.homeFolder, "D:\\Home");
  EXPECT_STREQ(record.projectDirectory, "D:\\Proj");
  EXPECT_STREQ(record.projectName, "Part");
  EXPECT_STREQ(record.runNumber, "5");
  EXPECT_EQ(record.moldingType, 3);
  EXPECT_EQ(record.optionValue, 0);
  EXPECT_STREQ(result.context->homeFolder, "D:\\Home");
}

TEST(Tokens, FillTheCoolingRecord) {
  const Interpreted result = Interpret({"L$2", "h*p*n*3*07", "Qvx3DCool.exe"});
  const CQVXCoolArgument& record = result.context->coolArgument;
  EXPECT_STREQ(record.homeFolder, "h");
  EXPECT_STREQ(record.projectDirectory, "p");
  EXPECT_STREQ(record.projectName, "n");
  EXPECT_STREQ(record.runNumber, "07");
  EXPECT_EQ(record.moldingType, 2);
  EXPECT_EQ(record.optionValue, 3);
}

TEST(Tokens, GiveStressItsOptionTwice) {
  const Interpreted warp = Interpret({"L$2", "h*p*n*4*1", "Qvx3DWarp.exe"});
  EXPECT_EQ(warp.context->warpArgument.optionValue, 4);
  EXPECT_EQ(warp.context->warpArgument.secondOptionValue, 0);
  EXPECT_EQ(warp.context->warpArgument.moldingType, 2);
  const Interpreted stress = Interpret({"L$2", "h*p*n*4*1", "Stress.exe"});
  EXPECT_EQ(stress.context->warpArgument.optionValue, 4);
  EXPECT_EQ(stress.context->warpArgument.secondOptionValue, 4);
}

TEST(Tokens, ThatAreMissingGiveStressTheOptionOfReset) {
  auto context = std::make_unique<LauncherContext>();
  context->warpArgument.optionValue = context->warpArgument.secondOptionValue = 9;
  InterpretInto(*context, {"L$1", "", "Stress.exe"});
  EXPECT_EQ(context->warpArgument.optionValue, 0);
  EXPECT_EQ(context->warpArgument.secondOptionValue, 0);
}

TEST(Tokens, GiveAnOptionBelowZero) {
  EXPECT_EQ(Interpret({"L", "h*p*n*-2*1", "Qvx3DCool.exe"}).context->coolArgument.optionValue, -2);
}

TEST(Tokens, ThatAreNoNumbersGiveAnOptionOfZero) {
  EXPECT_EQ(Interpret({"L", "h*p*n*x*1", "Qvx3DCool.exe"}).context->coolArgument.optionValue, 0);
  EXPECT_EQ(Interpret({"L", "h*p*n* 7x*1", "Qvx3DWarp.exe"}).context->warpArgument.optionValue, 7);
}

TEST(Tokens, OfAShellRunNeedNotCome) {
  for (const char* first : {"", "L$1", "*"}) {
    const Interpreted result = Interpret({first, "h*p", "QvxFlow.exe"});
    EXPECT_STREQ(result.context->shellFlowArgument.homeFolder, "");
    EXPECT_STREQ(result.context->homeFolder, "");
  }
}

TEST(Tokens, OfTheShellFamiliesStandInTheFirstArgument) {
  const Interpreted result =
      Interpret({"L.exe$2*D:\\Home*D:\\Proj*Part*1*3*a*b*c*d", "traced*only", "QvxFlow.exe"}, true);
  const CQVXShellFlowPackArgument& record = result.context->shellFlowArgument;
  EXPECT_STREQ(record.homeFolder, "D:\\Home");
  EXPECT_STREQ(record.projectDirectory, "D:\\Proj");
  EXPECT_STREQ(record.projectName, "Part");
  EXPECT_EQ(record.optionValue, 1);
  EXPECT_STREQ(record.runNumber, "03");
  EXPECT_STREQ(record.extraTexts[0], "a");
  EXPECT_STREQ(record.extraTexts[1], "b");
  EXPECT_STREQ(record.extraTexts[2], "c");
  EXPECT_STREQ(result.context->homeFolder, "D:\\Home");
  EXPECT_EQ(result.printed,
            "argv[0]=[L.exe$2*D:\\Home*D:\\Proj*Part*1*3*a*b*c*d]\n"
            "argv[1]=[traced*only]\n"
            "argv[2]=[QvxFlow.exe]\n"
            "\n"
            "$ symbol is at position(5) of argv[0]\n"
            "szMoldingType from argv[0] = 2*D:\\Ho\n"
            "MoldingType from argv[0]   = 2\n"
            "SolverClass=SHELLFLOW\n"
            "Parse argv[1]=[traced*only]\n"
            "D:\\Home\nD:\\Proj\nPart\n1\n3\na\nb\nc\nd\n");
}

TEST(Tokens, BehindTheThreeExtraTextsOfAShellRunChangeNothing) {
  for (const char* solver : {"QvxFlow.exe", "QvxPack.exe", "QvxCool.exe", "QvxWarp.exe"}) {
    const auto context = std::make_unique<LauncherContext>();
    const auto bytes = [&] {
      return std::string(reinterpret_cast<const char*>(context.get()), sizeof(LauncherContext));
    };
    InterpretInto(*context, {"L$1*h*p*n*1*3*a*b*c", "-", solver});
    const std::string before = bytes();
    InterpretInto(*context, {"L$1*h*p*n*1*3*a*b*c*d*e", "-", solver});
    EXPECT_TRUE(bytes() == before) << solver;
  }
}

TEST(Tokens, GiveAShellRunAtLeastTwoDigits) {
  const auto runNumber = [](const std::string& token) {
    return std::string(Interpret({"L$1*h*p*n*0*" + token, "-", "QvxCool.exe"})
                           .context->shellCoolArgument.runNumber);
  };
  EXPECT_EQ(runNumber("7"), "07");
  EXPECT_EQ(runNumber("123"), "123");
  EXPECT_EQ(runNumber("007"), "07");
  EXPECT_EQ(runNumber("x"), "00");
  EXPECT_EQ(runNumber("-3"), "-3");
}

TEST(Tokens, FillTheOtherShellRecords) {
  const Interpreted result = Interpret({"*L$1*h*p*n*5*6* x ", "-", "QvxWarp.exe"});
  EXPECT_EQ(result.context->shellWarpArgument.optionValue, 5);
  EXPECT_STREQ(result.context->shellWarpArgument.extraTexts[0], " x ");
  EXPECT_STREQ(result.context->shellWarpArgument.extraTexts[1], "");
}

TEST(Tokens, FillTheRecordsWithoutOptions) {
  const Interpreted ic = Interpret({"L$1", "h*p*n*5*6", "qvx3dicps.exe"});
  EXPECT_STREQ(ic.context->icArgument.runNumber, "6");
  EXPECT_STREQ(ic.context->icArgument.projectName, "n");
  const Interpreted optics = Interpret({"L$1", "h*p*n*5*6", "QvxOptics.exe"});
  EXPECT_STREQ(optics.context->opticsArgument.runNumber, "6");
  EXPECT_STREQ(optics.context->homeFolder, "h");
}

TEST(Tokens, ArePartedByStarsAlone) {
  const Interpreted result =
      Interpret({"L$1", " C:\\My Home;x|y\t* p * n * 3 * 7 ", "Qvx3DFlow.exe"});
  EXPECT_STREQ(result.context->homeFolder, " C:\\My Home;x|y\t");
  EXPECT_STREQ(result.context->flowArgument.projectDirectory, " p ");
  EXPECT_STREQ(result.context->flowArgument.projectName, " n ");
  EXPECT_STREQ(result.context->flowArgument.runNumber, " 7 ");
}

TEST(Tokens, AreTakenLetterForLetter) {
  const Interpreted result = Interpret({"L$1", "\"C:/Q\"*\"D:/P/\"*NULL*0*Run", "Qvx3DFlow.exe"});
  EXPECT_STREQ(result.context->homeFolder, "\"C:/Q\"");
  EXPECT_STREQ(result.context->flowArgument.projectDirectory, "\"D:/P/\"");
  EXPECT_STREQ(result.context->flowArgument.projectName, "NULL");
  EXPECT_STREQ(result.context->flowArgument.runNumber, "Run");
}

TEST(Tokens, AreNeverEmpty) {
  const Interpreted result = Interpret({"L$1", "*a**b", "Qvx3DFlow.exe"});
  EXPECT_STREQ(result.context->flowArgument.homeFolder, "a");
  EXPECT_STREQ(result.context->flowArgument.projectDirectory, "b");
  EXPECT_STREQ(result.context->flowArgument.projectName, "");
}

TEST(Tokens, ThatAreMissingLeaveWhatResetGave) {
  auto context = std::make_unique<LauncherContext>();
  CopyText(context->flowArgument.projectName, "", "old");
  context->flowArgument.processCount = 9;
  InterpretInto(*context, {"L$1", "h", "Qvx3DFlow.exe"});
  EXPECT_STREQ(context->flowArgument.projectName, "");
  EXPECT_EQ(context->flowArgument.processCount, 0);
}

TEST(HomeFolder, LosesOneTrailingBackslashOnly) {
  EXPECT_STREQ(Interpret({"L", "D:\\Q\\\\*p", "Qvx3DFlow.exe"}).context->homeFolder, "D:\\Q\\");
  EXPECT_STREQ(Interpret({"L", "\\*p", "Qvx3DFlow.exe"}).context->homeFolder, "");
}

TEST(ProjectDirectory, KeepsATrailingBackslash) {
  EXPECT_STREQ(
      Interpret({"L", "h*D:\\P\\*n", "Qvx3DFlow.exe"}).context->flowArgument.projectDirectory,
      "D:\\P\\");
}

TEST(HomeFolder, FitsWithoutItsBackslash) {
  const std::string longest(259, 'h');
  EXPECT_EQ(Interpret({"L", longest + "\\", "Qvx3DFlow.exe"}).context->homeFolder, longest);
}

TEST(CommandLine, RefusesTextsLongerThanTheirFields) {
  LauncherContext context;
  const auto interpret = [&](const std::string& tokens, const std::string& solver) {
    InterpretInto(context, {"L$1", tokens, solver});
  };
  const std::string solver = "Qvx3DFlow.exe";
  const auto text = [](std::size_t length) { return std::string(length, 'x'); };
  interpret("h*" + text(1023) + "*" + text(255) + "*0*" + text(31), solver);
  EXPECT_FAULT(interpret("h", text(64)),
               "ERROR: solver executable name is too long: width 64, length 64");
  EXPECT_FAULT(interpret(text(1024), solver),
               "ERROR: home folder is too long: width 1024, length 1024");
  EXPECT_FAULT(interpret(text(260), solver),
               "ERROR: home folder is too long: width 260, length 260");
  EXPECT_FAULT(interpret("h*" + text(1024), solver),
               "ERROR: project directory is too long: width 1024, length 1024");
  EXPECT_FAULT(interpret("h*p*" + text(256), solver),
               "ERROR: project name is too long: width 256, length 256");
  EXPECT_FAULT(interpret("h*p*n*0*" + text(32), solver),
               "ERROR: run number is too long: width 32, length 32");
  EXPECT_FAULT(InterpretInto(context, {"L*h*p*n*0*1*" + text(1024), "-", "QvxFlow.exe"}),
               "ERROR: extra text is too long: width 1024, length 1024");
}

}  // namespace
}  // namespace qvx
