// The arguments of a launcher's call: a mistake that the check finds, message by message, and near
// misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckCall = RunCheckTest;

TEST_F(RunCheckCall, OneArgumentIsTooFew) {
  EXPECT_EQ(Findings({"L$1"}),
            "error: the call has 1 argument, fewer than two: the launcher would stop with -1 and "
            "start nothing [call-arguments]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckCall, TwoArgumentsNameNoSolver) {
  EXPECT_EQ(Findings({"L$1", kTokens}),
            std::string() +
                "error: the call names no solver: the launcher would take the token list as the "
                "solver's name [call-solver]\n"
                "    help: the solver's file name is the third argument\n"
                "error: solver executable name is too long: width 64, length " +
                std::to_string(site.Specific(kTokens).size()) +
                ": the launcher would end with -2 [text-too-long]\n"
                "    help: it is shortened to less than the width\n"
                "\n"
                "2 errors: this run would not start.\n");
}

TEST_F(RunCheckCall, ThreeArgumentsAreInOrder) {
  EXPECT_EQ(Findings({"L$1", kTokens, kFlow}), kInOrder);
}

TEST_F(RunCheckCall, AFourthArgumentIsIgnored) {
  EXPECT_EQ(Findings({"L$1", kTokens, kFlow, "more"}),
            "warning: the call has 4 arguments [call-extra-arguments]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, ABlankWithoutQuotationMarksCutsTheTokens) {
  EXPECT_EQ(Findings({"L$1", "C:\\Program", "Files\\Q*C:\\P*Sample*0*01", kFlow}),
            "error: a blank cuts the token list behind C:\\Program: the launcher would take the "
            "pieces as tokens and solver [call-unquoted-blank]\n"
            "    help: the token list stands in quotation marks\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckCall, AMissingTokenIsNamed) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*01"),
      "error: the token list holds 4 of 5 tokens: the option is missing: the launcher would "
      "leave the fields empty and look in other folders [call-tokens]\n"
      "    help: the tokens are home folder, project directory, project name, option, run number\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, ATokenTooMany) {
  EXPECT_EQ(FindingsFor(std::string(kTokens) + "*more"),
            "warning: the token list holds 6 tokens, more than 5: the launcher would ignore the "
            "rest [call-tokens]\n"
            "    help: a * in a name cuts it in two tokens\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, AShellSolverMayHaveExtraTexts) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({std::string("L$1*") + kTokens + "*a*b*c", "-", "QvxFlow.exe"}), kInOrder);
}

TEST_F(RunCheckCall, AnEmptyTokenIsNone) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample**01"),
            "error: the token list holds an empty token: the launcher would skip it and take every "
            "later token for the one before [call-empty-token]\n"
            "    help: a token that is not needed is written 0\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, AnEmptyTokenThatMovesNoOther) {
  for (const std::string& tokens :
       {"*" + std::string(kTokens), kTokens + std::string("**"),
        std::string("<site>\\Home**<site>\\Work\\Sample*Sample*3*01")}) {
    EXPECT_EQ(FindingsFor(tokens),
              "warning: the token list holds an empty token: the launcher would skip it "
              "[call-empty-token]\n"
              "    help: one * stands between two tokens\n"
              "\n"
              "1 warning: this run would start.\n");
  }
}

TEST_F(RunCheckCall, AStarBehindTheLastTokenIsInOrder) {
  EXPECT_EQ(FindingsFor(kTokens + std::string("*")), kInOrder);
}

TEST_F(RunCheckCall, SolverAndTokensSwapped) {
  EXPECT_EQ(Findings({"L$1", kFlow, "C:\\Q*C:\\P*Sample*0*01"}),
            "error: the solver stands before the token list: the launcher would take the one for "
            "the other [call-token-order]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, AShellCallNeedsNoThirdArgument) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*1", "QvxFlow.exe"}),
            kInOrder);
}

TEST_F(RunCheckCall, ABlankBesideTheRunNumberIsSaidOnce) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0* 01"),
            "error: a blank stands beside the run number 01: the launcher would take it as "
            "part of the name [call-blank]\n"
            "    help: it is written 01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, AProjectNameTooLongIsSaidOnce) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*" + std::string(256, 'n') + "*0*01"),
            "error: project name is too long: width 256, length 256: the launcher would end with "
            "-2 [text-too-long]\n"
            "    help: it is shortened to less than the width\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckCall, SemicolonsSeparateNothing) {
  EXPECT_EQ(FindingsFor("<site>\\Home;<site>\\Work\\Sample;Sample;0;01"),
            "error: the tokens are separated by ; and not by *: the launcher would take the whole "
            "list as the home folder [call-separator]\n"
            "    help: the list is written <site>\\Home*<site>\\Work\\Sample*Sample*0*01\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckCall, BarsSeparateNothing) {
  EXPECT_EQ(FindingsFor("<site>\\Home|<site>\\Work\\Sample|Sample|0|01"),
            "error: the tokens are separated by | and not by *: the launcher would take the whole "
            "list as the home folder [call-separator]\n"
            "    help: the list is written <site>\\Home*<site>\\Work\\Sample*Sample*0*01\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckCall, ANameWithASemicolonIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\a;b;c;d01.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*a;b;c;d*0*01"), kInOrder);
}

TEST_F(RunCheckCall, HomeAndProjectSwapped) {
  EXPECT_EQ(
      FindingsFor("<site>\\Work\\Sample*<site>\\Home*Sample*0*01"),
      "error: the home folder <site>\\Work\\Sample is a project and the project directory "
      "<site>\\Home an installation: the launcher would go to other folders [call-token-order]\n"
      "    help: the order is home folder, project directory, project name, option, run number\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, ThePathsComeLast) {
  EXPECT_EQ(
      FindingsFor("Sample*0*01*<site>\\Home*<site>\\Work\\Sample"),
      "error: the option is <site>\\Home, a path: the launcher would go to other folders "
      "[call-token-order]\n"
      "    help: the order is home folder, project directory, project name, option, run number\n"
      "error: run number is too long: width 32, length " +
          std::to_string(site.Specific("<site>\\Work\\Sample").size()) +
          ": the launcher would end with -2 "
          "[text-too-long]\n"
          "    help: it is shortened to less than the width\n"
          "\n"
          "2 errors: this run would not start.\n");
}

TEST_F(RunCheckCall, OptionAndRunNumberSwapped) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*01*three"),
      "error: the option is 01 and the run number is three: the launcher would go to other folders "
      "[call-token-order]\n"
      "    help: the order is home folder, project directory, project name, option, run number\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, AShellSolverInThe3dForm) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(FindingsFor(kTokens, "QvxFlow.exe"),
            "error: QvxFlow.exe is a shell solver (SHELLFLOW) and its tokens stand in the second "
            "argument: the launcher would look for the tokens in the other argument [call-form]\n"
            "    help: shell solvers read their tokens behind a * in the first argument, all "
            "others in the second\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, A3dSolverInTheShellForm) {
  EXPECT_EQ(Findings({std::string("L$1*") + kTokens, "-", kFlow}),
            "error: Qvx3DFlow.exe is no shell solver (FLOW) and its tokens stand in the first "
            "argument: the launcher would look for the tokens in the other argument [call-form]\n"
            "    help: shell solvers read their tokens behind a * in the first argument, all "
            "others in the second\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, AShellSolverInItsForm) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({std::string("L$1*") + kTokens, "-", "QvxFlow.exe"}), kInOrder);
}

TEST_F(RunCheckCall, ABlankBehindTheHomeFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Home *<site>\\Work\\Sample*Sample*0*01"),
            "error: a blank stands beside the home folder <site>\\Home: the launcher would take "
            "it as part of the name [call-blank]\n"
            "    help: it is written <site>\\Home\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, ABlankWithinTheProjectNameIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\My part01.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*My part*0*01"), kInOrder);
}

TEST_F(RunCheckCall, AQuotationMarkInTheTokens) {
  EXPECT_EQ(FindingsFor("<site>\\Home\"*<site>\\Work\\Sample*Sample*0*01"),
            "error: <site>\\Home\"*<site>\\Work\\Sample*Sample*0*01 holds a quotation mark: the "
            "launcher would go to a folder that cannot exist [call-quotation-mark]\n"
            "    help: a backslash before a closing quotation mark is left out\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, NoMarkerForTheMoldingType) {
  EXPECT_EQ(
      Findings({"L", kTokens, kFlow}),
      "warning: no $ stands in L: the launcher would take -1 as the molding type [molding-type]\n"
      "    help: the first argument ends in $ and the molding type\n"
      "\n"
      "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, TwoMarkersForTheMoldingType) {
  EXPECT_EQ(Findings({"L$1$2", kTokens, kFlow}),
            "warning: L$1$2 holds more than one $: the launcher would read the molding type behind "
            "the first one [molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, AMoldingTypeThatIsAWord) {
  EXPECT_EQ(Findings({"L$one", kTokens, kFlow}),
            "warning: one stands behind $, no number: the launcher would take 0 as the molding "
            "type [molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, AMoldingTypeOfEightDigits) {
  EXPECT_EQ(Findings({"L$12345678", kTokens, kFlow}),
            "warning: the molding type 12345678 has more than 7 digits: the launcher would take "
            "1234567 [molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, ASolverWithoutMoldingTypeNeedsNoMarker) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(Findings({"L", kTokens, "QvxOptics.exe"}), kInOrder);
}

TEST_F(RunCheckCall, AnOptionThatIsAWord) {
  site.InstallSolver("Qvx3DCool.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*x*01", "Qvx3DCool.exe"),
            "warning: the option is x, no number: the launcher would read it as 0 [option-value]\n"
            "    help: the fourth token is an integer\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, FlowTakesNoOption) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*x*01"), kInOrder);
}

TEST_F(RunCheckCall, ASolverWithAPath) {
  EXPECT_EQ(FindingsFor(kTokens, "<site>\\Home\\Bin\\Qvx3DFlow.exe"),
            "error: the solver <site>\\Home\\Bin\\Qvx3DFlow.exe holds a path: the launcher would "
            "look for it below Bin of the home folder [solver-path]\n"
            "    help: the solver is written Qvx3DFlow.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckCall, ASolverThatNoRuleFits) {
  site.InstallSolver("Solver.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Solver.exe"),
            "warning: no rule fits the solver's name Solver.exe, which runs as FLOW [solver-name]\n"
            "    help: a solver's name tells its family\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, IcInsideAWord) {
  site.InstallSolver("Basic.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Basic.exe"),
            "warning: Basic.exe runs as IC because its name contains ic [solver-rule]\n"
            "    help: the first rule that fits the name decides\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, IcAsAWord) {
  site.InstallSolver("QvxIC.exe");
  EXPECT_EQ(FindingsFor(kTokens, "QvxIC.exe"), kInOrder);
}

TEST_F(RunCheckCall, Qvx3dicRunsAsWs) {
  site.InstallSolver("Qvx3DIC.exe");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DIC.exe"),
            "note: Qvx3DIC.exe runs as WS because its name contains qvx3dic [solver-rule]\n"
            "    help: PS has names with qvx3dicps, IC names without qvx3d\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckCall, TwoFamiliesInOneName) {
  site.InstallSolver("Qvx3DFlowCool.exe");
  EXPECT_EQ(
      FindingsFor(kTokens, "Qvx3DFlowCool.exe"),
      "warning: Qvx3DFlowCool.exe runs as FLOW although its name contains cool [solver-rule]\n"
      "    help: the first rule that fits the name decides\n"
      "\n"
      "1 warning: this run would start.\n");
}

TEST_F(RunCheckCall, TheFoldersNameForTheRunNumber) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0*Run01"),
            "error: the run number is Run01, no number: the launcher would look in the folder "
            "RunRun01 [run-number]\n"
            "    help: the run number is written 01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, AShellRunNumberThatIsAWord) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*one", "-", "QvxFlow.exe"}),
            "error: the run number is one, no number: the launcher would take the folder Run00 "
            "[run-number]\n"
            "    help: the run number stands as in the run folder's name\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckCall, AShellRunNumberNeedsNoZero) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*1", "-", "QvxFlow.exe"}),
            kInOrder);
}

TEST_F(RunCheckCall, ASolverNameTooLong) {
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow" + std::string(51, 'x') + ".exe"),
            "error: solver executable name is too long: width 64, length 64: the launcher would "
            "end with -2 [text-too-long]\n"
            "    help: it is shortened to less than the width\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckCall, ASolverNameThatJustFits) {
  site.InstallSolver("Qvx3DFlow" + std::string(50, 'x') + ".exe");
  EXPECT_EQ(FindingsFor(kTokens, "Qvx3DFlow" + std::string(50, 'x') + ".exe"), kInOrder);
}

}  // namespace
}  // namespace qvx::test
