// The check's own call: what is wrong with it, sentence by sentence.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runcheck/call.h"

namespace qvx::runcheck {
namespace {

using Texts = std::vector<std::string>;

std::string Wrong(const Texts& arguments) { return ParseCall(arguments).wrong; }

/// The same of a whole run in words with `more` behind it.
std::string WrongWith(const Texts& more) {
  Texts arguments = {"--project", "C:\\P", "--run", "01", "--solver", "Qvx3DFlow.exe"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return Wrong(arguments);
}

TEST(ParseCall, ARunInWordsIsInOrder) {
  EXPECT_EQ(WrongWith({}), "");
  EXPECT_EQ(WrongWith({"--home", "C:\\Q", "--name", "Sample", "--molding-type", "3", "--option",
                       "-3", "--timeout=7", "--no-network"}),
            "");
}

TEST(ParseCall, NoWordOfARunStandsTogetherWithTheSeparator) {
  for (const char* word :
       {"--project", "--run", "--solver", "--home", "--name", "--molding-type", "--option"}) {
    EXPECT_EQ(Wrong({word, "1", "--", "L$1", "a*b*c*0*01", "Qvx3DFlow.exe"}),
              std::string(word) + " does not stand together with --");
  }
  EXPECT_EQ(Wrong({"--name", "", "--", "L$1"}), "--name does not stand together with --");
  EXPECT_EQ(Wrong({"--timeout", "7", "--json", "--no-network", "--", "L$1"}), "");
}

TEST(ParseCall, AnExitStatusToExplainStandsAlone) {
  for (const char* word :
       {"--project", "--run", "--solver", "--home", "--name", "--molding-type", "--option"}) {
    EXPECT_EQ(Wrong({"--explain-status", "3", word, "1"}), "--explain-status stands alone");
  }
  EXPECT_EQ(Wrong({"--explain-status", "3", "--", "L$1"}), "--explain-status stands alone");
  EXPECT_EQ(Wrong({"--explain-status", "-1", "--json"}), "");
}

TEST(ParseCall, AShareInAnOptionHidesNoOtherFault) {
  EXPECT_EQ(
      Wrong({"--project", "\\\\NODE1\\c$\\P\\Sample", "--run", "01", "--solvr", "Qvx3DFlow.exe"}),
      "--solvr is no option; it is written --solver");
  EXPECT_EQ(Wrong({"--project", "C:\\*", "--run"}), "--run is not followed by its value");
}

TEST(ParseCall, TheLaunchersArgumentsStandBehindTheSeparator) {
  for (const char* first : {"L$1", "L*a"}) {
    EXPECT_EQ(Wrong({first, "a*b*c*0*01", "Qvx3DFlow.exe"}),
              std::string(first) +
                  " stands without -- before it: what the launcher is started with stands behind "
                  "--");
  }
}

TEST(ParseCall, ANumberIsWhole) {
  for (const char* text : {"abc", "1.5", "3x", "99999999999"}) {
    for (const std::string option : {"--option", "--molding-type"}) {
      EXPECT_EQ(WrongWith({option, text}), option + " takes a whole number, not " + text);
    }
  }
}

TEST(ParseCall, ATimeoutHasItsLimits) {
  EXPECT_EQ(WrongWith({"--timeout", "0"}), "--timeout: 0 is no number from 0.1 to 600");
}

TEST(ParseCall, AnOptionStandsOnce) {
  EXPECT_EQ(WrongWith({"--run", "02"}), "--run stands twice");
  EXPECT_EQ(WrongWith({"--run=02"}), "--run stands twice");
  EXPECT_EQ(Wrong({"--explain-status", "1", "--explain-status", "2"}),
            "--explain-status stands twice");
}

TEST(ParseCall, AnOptionIsFollowedByItsValue) {
  EXPECT_EQ(Wrong({"--project", "C:\\P", "--run", "01", "--solver"}),
            "--solver is not followed by its value");
  EXPECT_EQ(Wrong({"--solver", "--name", "Sample"}), "--solver is not followed by its value");
  EXPECT_EQ(Wrong({"--run", "--", "L$1"}), "--run is not followed by its value");
  for (const Texts& texts : {Texts{"--explain-status", ""}, Texts{"--explain-status="}}) {
    EXPECT_EQ(Wrong(texts), "--explain-status is not followed by its value");
  }
  EXPECT_EQ(Wrong({"--timeout"}), "--timeout is not followed by its value");
  EXPECT_EQ(WrongWith({"--name="}), "--name is not followed by its value");
  EXPECT_EQ(WrongWith({"--name=--odd"}), "");
  EXPECT_EQ(WrongWith({"--name=a="}), "");
}

}  // namespace
}  // namespace qvx::runcheck
