// The arguments of a launcher's call: a mistake that the check finds, message by message, and near
// misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckCall = RunCheckTest;

TEST_F(RunCheckCall, OneArgumentIsTooFew) {
  const std::string text = Findings({"L$1"});
  std::printf("@@OneArgumentIsTooFew %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, TwoArgumentsNameNoSolver) {
  const std::string text = Findings({"L$1", kRun});
  std::printf("@@TwoArgumentsNameNoSolver %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ThreeArgumentsAreInOrder) {
  const std::string text = Findings({"L$1", kRun, kFlow});
  std::printf("@@ThreeArgumentsAreInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AFourthArgumentIsIgnored) {
  const std::string text = Findings({"L$1", kRun, kFlow, "more"});
  std::printf("@@AFourthArgumentIsIgnored %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ABlankWithoutQuotationMarksCutsTheTokens) {
  const std::string text = Findings({"L$1", "C:\\Program", "Files\\Q*C:\\P*Sample*0*01", kFlow});
  std::printf("@@ABlankWithoutQuotationMarksCutsTheTokens %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AMissingTokenLeavesTheRunNumberEmpty) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*01");
  std::printf("@@AMissingTokenLeavesTheRunNumberEmpty %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ATokenTooMany) {
  const std::string text = FindingsFor(std::string(kRun) + "*more");
  std::printf("@@ATokenTooMany %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AShellSolverMayHaveExtraTexts) {
  site.InstallSolver("QvxFlow.exe");
  const std::string text = Findings({std::string("L$1*") + kRun + "*a*b*c", "-", "QvxFlow.exe"});
  std::printf("@@AShellSolverMayHaveExtraTexts %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AnEmptyTokenIsNone) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample**01");
  std::printf("@@AnEmptyTokenIsNone %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, SemicolonsSeparateNothing) {
  const std::string text = FindingsFor("<site>\\Home;<site>\\Work\\Sample;Sample;0;01");
  std::printf("@@SemicolonsSeparateNothing %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, BarsSeparateNothing) {
  const std::string text = FindingsFor("<site>\\Home|<site>\\Work\\Sample|Sample|0|01");
  std::printf("@@BarsSeparateNothing %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ANameWithASemicolonIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\a;b;c;d01.cmx", kSerialFile);
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*a;b;c;d*0*01");
  std::printf("@@ANameWithASemicolonIsInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, HomeAndProjectSwapped) {
  const std::string text = FindingsFor("<site>\\Work\\Sample*<site>\\Home*Sample*0*01");
  std::printf("@@HomeAndProjectSwapped %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ThePathsComeLast) {
  const std::string text = FindingsFor("Sample*0*01*<site>\\Home*<site>\\Work\\Sample");
  std::printf("@@ThePathsComeLast %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, OptionAndRunNumberSwapped) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*01*three");
  std::printf("@@OptionAndRunNumberSwapped %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AShellSolverInThe3dForm) {
  site.InstallSolver("QvxFlow.exe");
  const std::string text = FindingsFor(kRun, "QvxFlow.exe");
  std::printf("@@AShellSolverInThe3dForm %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, A3dSolverInTheShellForm) {
  const std::string text = Findings({std::string("L$1*") + kRun, "-", kFlow});
  std::printf("@@A3dSolverInTheShellForm %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AShellSolverInItsForm) {
  site.InstallSolver("QvxFlow.exe");
  const std::string text = Findings({std::string("L$1*") + kRun, "-", "QvxFlow.exe"});
  std::printf("@@AShellSolverInItsForm %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ABlankBehindTheHomeFolder) {
  const std::string text = FindingsFor("<site>\\Home *<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@ABlankBehindTheHomeFolder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ABlankWithinTheProjectNameIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\My part01.cmx", kSerialFile);
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*My part*0*01");
  std::printf("@@ABlankWithinTheProjectNameIsInOrder %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AQuotationMarkInTheTokens) {
  const std::string text = FindingsFor("<site>\\Home\"*<site>\\Work\\Sample*Sample*0*01");
  std::printf("@@AQuotationMarkInTheTokens %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, NoMarkerForTheMoldingType) {
  const std::string text = Findings({"L", kRun, kFlow});
  std::printf("@@NoMarkerForTheMoldingType %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, TwoMarkersForTheMoldingType) {
  const std::string text = Findings({"L$1$2", kRun, kFlow});
  std::printf("@@TwoMarkersForTheMoldingType %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AMoldingTypeThatIsAWord) {
  const std::string text = Findings({"L$one", kRun, kFlow});
  std::printf("@@AMoldingTypeThatIsAWord %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AMoldingTypeOfEightDigits) {
  const std::string text = Findings({"L$12345678", kRun, kFlow});
  std::printf("@@AMoldingTypeOfEightDigits %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ASolverWithoutMoldingTypeNeedsNoMarker) {
  site.InstallSolver("QvxOptics.exe");
  const std::string text = Findings({"L", kRun, "QvxOptics.exe"});
  std::printf("@@ASolverWithoutMoldingTypeNeedsNoMarker %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AnOptionThatIsAWord) {
  site.InstallSolver("Qvx3DCool.exe");
  const std::string text =
      FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*x*01", "Qvx3DCool.exe");
  std::printf("@@AnOptionThatIsAWord %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, FlowTakesNoOption) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*x*01");
  std::printf("@@FlowTakesNoOption %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ASolverWithAPath) {
  const std::string text = FindingsFor(kRun, "<site>\\Home\\Bin\\Qvx3DFlow.exe");
  std::printf("@@ASolverWithAPath %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ASolverThatNoRuleFits) {
  site.InstallSolver("Solver.exe");
  const std::string text = FindingsFor(kRun, "Solver.exe");
  std::printf("@@ASolverThatNoRuleFits %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, IcInsideAWord) {
  site.InstallSolver("Basic.exe");
  const std::string text = FindingsFor(kRun, "Basic.exe");
  std::printf("@@IcInsideAWord %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, IcAsAWord) {
  site.InstallSolver("QvxIC.exe");
  const std::string text = FindingsFor(kRun, "QvxIC.exe");
  std::printf("@@IcAsAWord %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, Qvx3dicRunsAsWs) {
  site.InstallSolver("Qvx3DIC.exe");
  const std::string text = FindingsFor(kRun, "Qvx3DIC.exe");
  std::printf("@@Qvx3dicRunsAsWs %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, TwoFamiliesInOneName) {
  site.InstallSolver("Qvx3DFlowCool.exe");
  const std::string text = FindingsFor(kRun, "Qvx3DFlowCool.exe");
  std::printf("@@TwoFamiliesInOneName %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, TheFoldersNameForTheRunNumber) {
  const std::string text = FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*Run01");
  std::printf("@@TheFoldersNameForTheRunNumber %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AShellRunNumberThatIsAWord) {
  site.InstallSolver("QvxFlow.exe");
  const std::string text =
      Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*one", "-", "QvxFlow.exe"});
  std::printf("@@AShellRunNumberThatIsAWord %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, AShellRunNumberNeedsNoZero) {
  site.InstallSolver("QvxFlow.exe");
  const std::string text =
      Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*1", "-", "QvxFlow.exe"});
  std::printf("@@AShellRunNumberNeedsNoZero %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ASolverNameTooLong) {
  const std::string text = FindingsFor(kRun, "Qvx3DFlow" + std::string(51, 'x') + ".exe");
  std::printf("@@ASolverNameTooLong %d\n%s@@end\n", status, text.c_str());
}

TEST_F(RunCheckCall, ASolverNameThatJustFits) {
  site.InstallSolver("Qvx3DFlow" + std::string(50, 'x') + ".exe");
  const std::string text = FindingsFor(kRun, "Qvx3DFlow" + std::string(50, 'x') + ".exe");
  std::printf("@@ASolverNameThatJustFits %d\n%s@@end\n", status, text.c_str());
}

}  // namespace
}  // namespace qvx::test
