// The token list of a call: a mistake that the check finds, message by message, and near misses.
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckTokens = RunCheckTest;

constexpr const char* kOrder =
    "    help: the order is home folder, project directory, project name, option, run number\n";

TEST_F(RunCheckTokens, AMissingTokenIsNamed) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*01"),
      "error: the token list holds 4 of 5 tokens: the option is missing: the launcher would "
      "leave the fields empty and look in other folders [call-tokens]\n"
      "    help: the tokens are home folder, project directory, project name, option, run number\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckTokens, TheMissingTokenIsNamedAsFarAsItCanBeTold) {
  std::string summaries;
  for (const char* tokens : {"C:\\P\\S*S*0*01", "C:\\Q*C:\\P\\S*0*01", "C:\\Q*C:\\P\\S*S*0",
                             "C:\\Q*C:\\P\\S*S*x", "S*S*0*01", "C:\\Q*C:\\P\\S*S"}) {
    const std::string text = FindingsFor(tokens);
    summaries += text.substr(0, text.find(": the launcher")) + "\n";
  }
  EXPECT_EQ(summaries,
            "error: the token list holds 4 of 5 tokens: the home folder or the project directory "
            "is missing\n"
            "error: the token list holds 4 of 5 tokens: the project name is missing\n"
            "error: the token list holds 4 of 5 tokens: the option or the run number is missing\n"
            "error: the token list holds 4 of 5 tokens: the run number is missing\n"
            "error: the token list holds 4 of 5 tokens: one of the 5 is missing\n"
            "error: the token list holds 3 of 5 tokens\n");
}

TEST_F(RunCheckTokens, ATokenTooMany) {
  EXPECT_EQ(FindingsFor(std::string(kTokens) + "*more"),
            "warning: the token list holds 6 tokens, more than 5: the launcher would ignore the "
            "rest [call-tokens]\n"
            "    help: a * in a name cuts it in two tokens\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckTokens, AShellSolverMayHaveExtraTexts) {
  site.InstallSolver("QvxFlow.exe");
  EXPECT_EQ(Findings({std::string("L$1*") + kTokens + "*a*b*c", "-", "QvxFlow.exe"}), kInOrder);
}

TEST_F(RunCheckTokens, AnEmptyTokenIsNone) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample**01"),
            "error: the token list holds an empty token: the launcher would skip it and take every "
            "later token for the one before [call-empty-token]\n"
            "    help: a token that is not needed is written 0\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckTokens, AnEmptyTokenThatMovesNoOther) {
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

TEST_F(RunCheckTokens, AStarBehindTheLastTokenIsInOrder) {
  EXPECT_EQ(FindingsFor(kTokens + std::string("*")), kInOrder);
}

TEST_F(RunCheckTokens, HomeAndProjectSwapped) {
  EXPECT_EQ(
      FindingsFor("<site>\\Work\\Sample*<site>\\Home*Sample*0*01"),
      "error: the home folder <site>\\Work\\Sample is a project and the project directory "
      "<site>\\Home an installation: the launcher would go to other folders [call-token-order]\n"
      "    help: the order is home folder, project directory, project name, option, run number\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckTokens, ThePathsComeLast) {
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

TEST_F(RunCheckTokens, OptionAndRunNumberSwapped) {
  for (const char* option : {"3", "three"}) {
    EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*01*" + std::string(option)),
              std::string("error: the option is 01 and the run number is ") + option +
                  ": the launcher would go to other folders [call-token-order]\n" + kOrder +
                  kNotMeant);
  }
}

TEST_F(RunCheckTokens, NameAndRunNumberSwapped) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*01*3*Sample"),
            std::string("error: the project name is 01 and the run number is Sample: the launcher "
                        "would go to other folders [call-token-order]\n") +
                kOrder + kNotMeant);
}

TEST_F(RunCheckTokens, AProjectNamedByANumberIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\202401.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*2024*3*01"), kInOrder);
}

TEST_F(RunCheckTokens, ABlankBehindTheHomeFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Home *<site>\\Work\\Sample*Sample*0*01"),
            "error: a blank stands beside the home folder <site>\\Home: the launcher would take "
            "it as part of the name [call-blank]\n"
            "    help: it is written <site>\\Home\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckTokens, ABlankBesideTheRunNumberIsSaidOnce) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*0* 01"),
            "error: a blank stands beside the run number 01: the launcher would take it as "
            "part of the name [call-blank]\n"
            "    help: it is written 01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckTokens, ABlankWithinTheProjectNameIsInOrder) {
  site.Write("Work\\Sample\\Analysis\\Run01\\My part01.cmx", kSerialCmx);
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*My part*0*01"), kInOrder);
}

TEST_F(RunCheckTokens, ATabBehindAToken) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample\t*Sample*3*01"),
            "error: a tab stands beside the project directory <site>\\Work\\Sample: the launcher "
            "would take it as part of the name [call-blank]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckTokens, ABlankBehindANameThatNothingIsReadBy) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample *3*01", "QvxOptics.exe"),
            "warning: a blank stands beside the project name Sample [call-blank]\n"
            "    help: it is written Sample\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckTokens, AQuotationMarkInANameThatNothingIsReadBy) {
  site.InstallSolver("QvxOptics.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01", "QvxOptics.exe"),
            "warning: <site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01 holds a quotation mark: "
            "the launcher would hand it on as it stands [call-quotation-mark]\n"
            "    help: it is written without them, <site>\\Home*<site>\\Work\\Sample*My part*3*01\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckTokens, AQuotationMarkInTheNameOfACmxFile) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01"),
            "error: <site>\\Home*<site>\\Work\\Sample*My \"part\"*3*01 holds a quotation mark: the "
            "launcher would go to a folder that cannot exist [call-quotation-mark]\n"
            "    help: it is written without them, <site>\\Home*<site>\\Work\\Sample*My part*3*01\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckTokens, AProjectNameTooLongIsSaidOnce) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*" + std::string(256, 'n') + "*0*01"),
            "error: project name is too long: width 256, length 256: the launcher would end with "
            "-2 [text-too-long]\n"
            "    help: it is shortened to less than the width\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckTokens, AProjectWhoseLastByteIsOneOfAByteOrderMarkIsInOrder) {
  if (GetACP() != 1252) GTEST_SKIP() << "another code page: " << GetACP();
  const std::filesystem::path run =
      std::filesystem::path(site.Path("Work")) / L"Sampl\u00EF" / "Analysis" / "Run01";
  std::filesystem::create_directories(run);
  std::ofstream(run / L"Sampl\u00EF01.cmx", std::ios::binary) << kSerialCmx;
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sampl\xEF*Sampl\xEF*0*01"), kInOrder);
}

TEST_F(RunCheckTokens, AnOptionThatIsAWord) {
  site.InstallSolver("Qvx3DCool.exe");
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*x*01", "Qvx3DCool.exe"),
            "warning: the option is x, no number: the launcher would read it as 0 [option-value]\n"
            "    help: the fourth token is an integer\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckTokens, FlowTakesNoOption) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*x*01"), kInOrder);
}

TEST_F(RunCheckTokens, AnOptionThatIsAPathMovesNothing) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Sample*Sample*C:\\x*01"),
      "warning: the option is C:\\x, a path: the launcher would hand it on as it stands "
      "[call-token-order]\n"
      "    help: the order is home folder, project directory, project name, option, run number\n"
      "\n"
      "1 warning: this run would start.\n");
}

}  // namespace
}  // namespace qvx::test
