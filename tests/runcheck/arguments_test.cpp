// The arguments of a launcher's call and what stands in the first: a mistake that the check finds,
// message by message, and near misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckArguments = RunCheckTest;

TEST_F(RunCheckArguments, OneArgumentIsTooFew) {
  EXPECT_EQ(Findings({"L$1"}),
            "error: the call has 1 argument, fewer than two: the launcher would stop with -1 and "
            "start nothing [call-arguments]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, TwoArgumentsNameNoSolver) {
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

TEST_F(RunCheckArguments, ThreeArgumentsAreInOrder) {
  EXPECT_EQ(Findings({"L$1", kTokens, kFlow}), kInOrder);
}

TEST_F(RunCheckArguments, AFourthArgumentIsIgnored) {
  EXPECT_EQ(Findings({"L$1", kTokens, kFlow, "more"}),
            "warning: the call has 4 arguments [call-extra-arguments]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, ExtraArgumentsThatAreNoTokens) {
  EXPECT_EQ(Findings({"L$1", kTokens, kFlow, "0", "01", "more"}),
            "warning: the call has 6 arguments [call-extra-arguments]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, NoFirstArgument) {
  EXPECT_EQ(Findings({kTokens, kFlow}),
            "error: the first argument is missing: the launcher would take the token list for it "
            "and the solver's name for the tokens [call-first-argument]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, TheLaunchersNameBeforeTheFirstArgument) {
  const std::string twice =
      std::string(
          "error: the first argument stands twice: QVXSolverLauncher.exe is one argument "
          "too many: the launcher would take the second of them for the token list "
          "[call-first-argument]\n"
          "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n") +
      kNoStart;
  EXPECT_EQ(
      Findings({"QVXSolverLauncher.exe", "QVXSolverLauncher.exe$1", "C:\\Q*C:\\P*S*0*01", kFlow}),
      twice);
  EXPECT_EQ(
      Findings({"QVXSolverLauncher.exe", std::string("C:\\Q\\Bin\\qvxsolverlauncher$1*") + kTokens,
                "-", "QvxFlow.exe"}),
      twice);
}

TEST_F(RunCheckArguments, TheLaunchersNameAsAnIgnoredTokenListIsInOrder) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({std::string("L$1*") + kTokens, "QVXSolverLauncher.exe", "QvxFlow.exe"}),
            kInOrder);
}

TEST_F(RunCheckArguments, FirstArgumentAndSolverSwapped) {
  site.InstallSolver("QVXSolverLauncher.exe");
  for (const std::string launcher : {"QVXSolverLauncher.exe$1", "QVXSolverLauncher.exe"}) {
    EXPECT_EQ(Findings({kFlow, kTokens, launcher}),
              "error: the first argument and the solver are swapped: the launcher would take "
              "itself for the solver [call-token-order]\n"
              "    help: the call is written " +
                  launcher + " " + kTokens + " Qvx3DFlow.exe\n" + kNotMeant);
  }
}

TEST_F(RunCheckArguments, TheLauncherForTheSolver) {
  site.InstallSolver("QVXSolverLauncher.exe");
  for (const std::string solver : {"QVXSolverLauncher.exe", "qvxsolverlauncher"}) {
    EXPECT_EQ(FindingsFor(kTokens, solver),
              "error: the solver is " + solver +
                  ", the launcher: the launcher would take itself for the solver [solver-name]\n"
                  "    help: the solver's file name is the third argument\n" +
                  kNotMeant);
  }
}

TEST_F(RunCheckArguments, ABlankWithoutQuotationMarksCutsTheTokens) {
  EXPECT_EQ(Findings({"L$1", "C:\\Program", "Files\\Q*C:\\P*Sample*0*01", kFlow}),
            "error: a blank cuts the token list behind C:\\Program: the launcher would take the "
            "pieces as tokens and solver [call-unquoted-blank]\n"
            "    help: the token list stands in quotation marks\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, SolverAndTokensSwapped) {
  EXPECT_EQ(Findings({"L$1", kFlow, "C:\\Q*C:\\P*Sample*0*01"}),
            "error: the solver stands before the token list: the launcher would take the one for "
            "the other [call-token-order]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckArguments, AShellCallNeedsNoThirdArgument) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({"L$1*<site>\\Home*<site>\\Work\\Sample*Sample*0*1", "QvxFlow.exe"}),
            kInOrder);
}

TEST_F(RunCheckArguments, TokensInFiveArguments) {
  EXPECT_EQ(Findings({"L$1", "C:\\Quorvex", "C:\\My projects\\Sample", "Sample", "0", "01", kFlow}),
            "error: the 5 tokens stand in 5 arguments, not in one: the launcher would take the "
            "first of them as the whole list [call-separator]\n"
            "    help: they stand in one argument, separated by *: L$1 \"C:\\Quorvex*C:\\My "
            "projects\\Sample*Sample*0*01\" Qvx3DFlow.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, AShellSolversTokensInFiveArguments) {
  EXPECT_EQ(
      Findings({"L$1", "C:\\Quorvex", "C:\\Projects\\Sample", "Sample", "0", "01", "QvxFlow.exe"}),
      "error: the 5 tokens stand in 5 arguments, not in one: the launcher would take the first of "
      "them as the whole list [call-separator]\n"
      "    help: they stand in one argument, separated by *: "
      "L$1*C:\\Quorvex*C:\\Projects\\Sample*Sample*0*01 - QvxFlow.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, SemicolonsSeparateNothing) {
  EXPECT_EQ(FindingsFor("<site>\\Home;<site>\\Work\\Sample;Sample;0;01"),
            "error: the tokens are separated by ; and not by *: the launcher would take the whole "
            "list as the home folder [call-separator]\n"
            "    help: the list is written <site>\\Home*<site>\\Work\\Sample*Sample*0*01\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, BarsSeparateNothing) {
  EXPECT_EQ(FindingsFor("<site>\\Home|<site>\\Work\\Sample|Sample|0|01"),
            "error: the tokens are separated by | and not by *: the launcher would take the whole "
            "list as the home folder [call-separator]\n"
            "    help: the list is written <site>\\Home*<site>\\Work\\Sample*Sample*0*01\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, ANameWithASemicolonIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\a;b;c;d01.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*a;b;c;d*0*01"), kInOrder);
}

TEST_F(RunCheckArguments, SlashesBetweenTheTokens) {
  EXPECT_EQ(FindingsFor("C:\\Q/C:\\P\\S/S/0/01"),
            "error: the tokens are separated by / and not by *: the launcher would take the whole "
            "list as the home folder [call-separator]\n"
            "    help: the list is written C:\\Q*C:\\P\\S*S*0*01\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckArguments, AShellSolverInThe3dForm) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(FindingsFor(kTokens, "QvxFlow.exe"),
            "error: QvxFlow.exe is a shell solver (SHELLFLOW) and its tokens stand in the second "
            "argument: the launcher would look for the tokens in the other argument [call-form]\n"
            "    help: shell solvers read their tokens behind a * in the first argument, all "
            "others in the second\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckArguments, A3dSolverInTheShellForm) {
  EXPECT_EQ(Findings({std::string("L$1*") + kTokens, "-", kFlow}),
            "error: Qvx3DFlow.exe is no shell solver (FLOW) and its tokens stand in the first "
            "argument: the launcher would look for the tokens in the other argument [call-form]\n"
            "    help: shell solvers read their tokens behind a * in the first argument, all "
            "others in the second\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckArguments, AShellSolverInItsForm) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({std::string("L$1*") + kTokens, "-", "QvxFlow.exe"}), kInOrder);
}

TEST_F(RunCheckArguments, AQuotationMarkInTheTokens) {
  EXPECT_EQ(FindingsFor("<site>\\Home\"*<site>\\Work\\Sample*Sample*0*01"),
            "error: <site>\\Home\"*<site>\\Work\\Sample*Sample*0*01 holds a quotation mark: the "
            "launcher would go to a folder that cannot exist [call-quotation-mark]\n"
            "    help: a backslash before a closing quotation mark is left out\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckArguments, AQuotationMarkInTheFirstArgument) {
  EXPECT_EQ(Findings({"\"L\"$1", kTokens, kFlow}),
            "warning: \"L\"$1 holds a quotation mark: the launcher would hand it on as it stands "
            "[call-quotation-mark]\n"
            "    help: it is written without them, L$1\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, QuotationMarksAroundTheTokensAreSaidOnce) {
  EXPECT_EQ(FindingsFor("\"" + std::string(kTokens) + "\""),
            "error: \"<site>\\Home*<site>\\Work\\Sample*Sample*3*01\" holds a quotation mark: the "
            "launcher would go to a folder that cannot exist [call-quotation-mark]\n"
            "    help: it is written without them, <site>\\Home*<site>\\Work\\Sample*Sample*3*01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckArguments, QuotationMarksAroundAToken) {
  for (const std::string tokens : {"\"<site>\\Home\"*<site>\\Work\\Sample*Sample*3*01",
                                   "<site>\\Home*\"<site>\\Work\\Sample\"*Sample*3*01",
                                   "<site>\\Home*<site>\\Work\\Sample*Sample*3*\"01\""}) {
    EXPECT_EQ(FindingsFor(tokens), "error: " + tokens +
                                       " holds a quotation mark: the launcher would go to a folder "
                                       "that cannot exist [call-quotation-mark]\n"
                                       "    help: it is written without them, " +
                                       kTokens + "\n" + kNotMeant);
  }
}

TEST_F(RunCheckArguments, BackslashesBeforeTheQuotationMarksOfBothFolders) {
  EXPECT_EQ(FindingsFor("<site>\\Home\"*<site>\\Work\\Sample\"*Sample*3*01"),
            std::string(
                "error: <site>\\Home\"*<site>\\Work\\Sample\"*Sample*3*01 holds a quotation mark: "
                "the launcher would go to a folder that cannot exist [call-quotation-mark]\n"
                "    help: a backslash before a closing quotation mark is left out\n") +
                kNotMeant);
}

TEST_F(RunCheckArguments, ABackslashBeforeTheQuotationMarkOfTheProject) {
  EXPECT_EQ(Answer({"--project", "C:\\P\" --run 01 --solver Qvx3DFlow.exe"}),
            "error: --run is missing; a backslash before a quotation mark takes what follows with "
            "it: nothing was checked [wrong-call]\n"
            "    help: QVXRunCheck.exe --help shows both forms of call\n");
}

TEST_F(RunCheckArguments, AnApostropheIsNoQuotationMark) {
  site.Write("Work\\Sample\\Analysis\\Run01\\Bob's 'part'01.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Bob's 'part'*0*01"), kInOrder);
}

TEST_F(RunCheckArguments, NoMarkerForTheMoldingType) {
  EXPECT_EQ(
      Findings({"L", kTokens, kFlow}),
      "warning: no $ stands in L: the launcher would take -1 as the molding type [molding-type]\n"
      "    help: the first argument ends in $ and the molding type\n"
      "\n"
      "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, TwoMarkersForTheMoldingType) {
  EXPECT_EQ(Findings({"L$1$2", kTokens, kFlow}),
            "warning: L$1$2 holds more than one $: the launcher would read the molding type behind "
            "the first one [molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, AMoldingTypeThatIsAWord) {
  EXPECT_EQ(Findings({"L$one", kTokens, kFlow}),
            "warning: one stands behind $, no number: the launcher would take 0 as the molding "
            "type [molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, AMoldingTypeOfEightDigits) {
  EXPECT_EQ(Findings({"L$12345678", kTokens, kFlow}),
            "warning: the molding type 12345678 has more than 7 digits: the launcher would take "
            "1234567 [molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, ASolverWithoutMoldingTypeNeedsNoMarker) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(Findings({"L", kTokens, "QvxOptics.exe"}), kInOrder);
}

TEST_F(RunCheckArguments, BlanksAroundTheMoldingTypeAreInOrder) {
  EXPECT_EQ(Findings({"L$ 1 ", kTokens, kFlow}), kInOrder);
}

TEST_F(RunCheckArguments, ABlankBeforeAMoldingTypeThatIsNone) {
  EXPECT_EQ(Findings({"L$ x", kTokens, kFlow}),
            "warning: x stands behind $, no number: the launcher would take 0 as the molding type "
            "[molding-type]\n"
            "    help: the first argument ends in $ and the molding type\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckArguments, WhatIsNotExpectedIsNamedWithItsCure) {
  const auto wrong = [&](const std::vector<std::string>& arguments) {
    const std::string answer = Answer(arguments);
    return answer.substr(0, answer.find(": nothing was checked"));
  };
  EXPECT_EQ(wrong({"-project", "C:\\P", "-run", "01"}),
            "error: -project is no option; it is written --project");
  EXPECT_EQ(wrong({"/run", "01"}), "error: /run is no option; it is written --run");
  EXPECT_EQ(wrong({"--Solver", kFlow}), "error: --Solver is no option; it is written --solver");
  EXPECT_EQ(wrong({"--moulding-type=3"}),
            "error: --moulding-type=3 is no option; it is written --molding-type");
  EXPECT_EQ(wrong({"--solvr", kFlow}), "error: --solvr is no option; it is written --solver");
  EXPECT_EQ(wrong({"--folder", "01"}), "error: --folder is no option");
  EXPECT_EQ(wrong({"--project", "C:\\My", "Projects\\Sample"}),
            "error: Projects\\Sample belongs to no option; a text with blanks stands in quotation "
            "marks");
}

TEST_F(RunCheckArguments, AnOptionThatWasMeantIsSuggested) {
  const auto suggestion = [&](const std::string& option) {
    const std::string answer = Answer({"--json", option, "01"});
    return answer.substr(answer.find("\"suggestion\":"));
  };
  EXPECT_EQ(suggestion("--Project"), "\"suggestion\": \"--project\"\n    }\n  ]\n}\n");
  EXPECT_EQ(suggestion("--folder"), "\"suggestion\": null\n    }\n  ]\n}\n");
}

TEST_F(RunCheckArguments, ATimeoutOutsideItsLimits) {
  for (const char* seconds : {"0", "5s", "0,5", "700", "nan"}) {
    EXPECT_EQ(Answer({"--timeout", seconds, "--version"}),
              std::string("error: --timeout: ") + seconds +
                  " is no number from 0.1 to 600: nothing was checked [wrong-call]\n"
                  "    help: QVXRunCheck.exe --help shows both forms of call\n");
    EXPECT_EQ(status, 2);
  }
  for (const char* seconds : {"0.1", "600"}) {
    EXPECT_EQ(Answer({"--timeout", seconds, "--version"}).substr(0, 11), "QVXRunCheck") << seconds;
    EXPECT_EQ(status, 0);
  }
}

}  // namespace
}  // namespace qvx::test
