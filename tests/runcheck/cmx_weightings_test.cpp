// The lines of the weighting block in a distributed run's CMX file.
#include <gtest/gtest.h>

#include <string>

#include "tests/runcheck/cmx_found.h"

namespace qvx::runcheck {
namespace {

TEST(CmxWeightings, FewerWeightingsThanCounted) {
  EXPECT_EQ(Found(Distributed("2 = 0.4\n", "")),
            "Sample03.cmx:14:1: warning: </REMOTE_MACHINES> is taken as weighting 2 of 2 "
            "[weighting-count]\n"
            "   14 | </REMOTE_MACHINES>\n"
            "      | ^~~~~~~~~~~~~~~~~~ help: ValueNoMachine is the number of lines in each of the "
            "two blocks, which follow one another without a gap\n");
}

TEST(CmxWeightings, MoreWeightingsThanCounted) {
  EXPECT_EQ(
      Found(Distributed("</REMOTE_MACHINES>", "3 = 0.1\n</REMOTE_MACHINES>")),
      "Sample03.cmx:15:1: warning: ValueNoMachine is 2 and the weighting block has 3 lines: "
      "the launcher would drop 1 line of it [weighting-count]\n"
      "   15 | 3 = 0.1\n"
      "      | ^~~~~~~ help: ValueNoMachine is the number of lines in each of the two blocks\n");
}

TEST(CmxWeightings, AWeightingTooManyHasNoSum) {
  EXPECT_EQ(
      Found(Changed(Distributed("ValueNoMachine = 2", "ValueNoMachine = 1"), "2 = NODE2\t1\n", "")),
      "Sample03.cmx:13:1: warning: ValueNoMachine is 1 and the weighting block has 2 lines: the "
      "launcher would drop 1 line of it [weighting-count]\n"
      "   13 | 2 = 0.4\n"
      "      | ^~~~~~~ help: ValueNoMachine is the number of lines in each of the two blocks\n");
}

TEST(CmxWeightings, AMissingWeightingBlock) {
  EXPECT_EQ(Found(Changed(Distributed(kWeightingBlock, ""), "ValueMachineSetting = host, tasks",
                          "ValueMachineSetting")),
            "Sample03.cmx:5:18: warning: there is no line ValueMachineWeighting: all weights would "
            "be 0 [weighting-count]\n"
            "    5 | ValueNoMachine = 2\n"
            "      |                  ^ help: the line ValueMachineWeighting opens the block\n");
}

TEST(CmxWeightings, AMissingWeightingBlockBesideAMachineBlockWithAnEqualsSign) {
  EXPECT_EQ(Found(Distributed(kWeightingBlock, "")),
            "Sample03.cmx:5:18: warning: there is no line ValueMachineWeighting: all weights would "
            "be 0 [weighting-count]\n"
            "    5 | ValueNoMachine = 2\n"
            "      |                  ^ help: the line ValueMachineWeighting opens the block\n");
}

TEST(CmxWeightings, WeightingsWithoutAnEqualsSign) {
  for (const char* lines :
       {"0.6\n0.4\n", "NODE1\t0.6\nNODE2\t0.4\n", "1 0.6\n2 0.4\n", "0.6 \n\t0.4\n"}) {
    EXPECT_EQ(FoundInShort(Distributed("1 = 0.6\n2 = 0.4\n", lines)),
              "warning weighting-value 13:1: no = stands before the weighting: the launcher would "
              "read it as 0\n"
              "  the line is written 1 = 0.6 (1 = 0.6)\n"
              "warning weighting-value 14:1: no = stands before the weighting: the launcher would "
              "read it as 0\n"
              "  the line is written 2 = 0.4 (2 = 0.4)\n")
        << lines;
  }
}

TEST(CmxWeightings, ANumberAfterTheWeightingsIsInOrder) {
  EXPECT_EQ(FoundInShort(Distributed("2 = 0.4\n", "2 = 0.4\n3\n0.1\n")), "");
}

TEST(CmxWeightings, ADecimalComma) {
  EXPECT_EQ(Found(Distributed("1 = 0.6", "1 = 0,6")),
            "Sample03.cmx:13:5: warning: 0,6 is no weighting: the launcher would read it as 0 "
            "[weighting-value]\n"
            "   13 | 1 = 0,6\n"
            "      |     ^~~ help: the decimal point is written 0.6\n");
}

TEST(CmxWeightings, AnEmptyWeighting) {
  EXPECT_EQ(Found(Distributed("1 = 0.6", "1 = ")),
            "Sample03.cmx:13:5: warning: the weighting is empty: the launcher would read it as 0 "
            "[weighting-value]\n"
            "   13 | 1 = \n"
            "      |     ^ help: a weighting is a number such as 0.6\n");
}

TEST(CmxWeightings, AWeightingThatIsAWord) {
  EXPECT_EQ(Found(Distributed("1 = 0.6", "1 = much")),
            "Sample03.cmx:13:5: warning: much is no weighting: the launcher would read it as 0 "
            "[weighting-value]\n"
            "   13 | 1 = much\n"
            "      |     ^~~~ help: a weighting is a number such as 0.6\n");
}

TEST(CmxWeightings, AWeightingOfZero) {
  EXPECT_EQ(Found(Distributed("1 = 0.6\n2 = 0.4", "1 = 0\n2 = 1")),
            "Sample03.cmx:13:5: warning: the weighting is 0: the solver would get the weight 0 for "
            "each process of this machine [weighting-value]\n"
            "   13 | 1 = 0\n"
            "      |     ^ help: a weighting is a number such as 0.6\n");
}

TEST(CmxWeightings, EachWeightingThatIsNoneIsSaid) {
  EXPECT_EQ(Found(Distributed("1 = 0.6\n2 = 0.4", "1 = much\n2 = 0")),
            "Sample03.cmx:13:5: warning: much is no weighting: the launcher would read it as 0 "
            "[weighting-value]\n"
            "   13 | 1 = much\n"
            "      |     ^~~~ help: a weighting is a number such as 0.6\n"
            "Sample03.cmx:14:5: warning: the weighting is 0: the solver would get the weight 0 for "
            "each process of this machine [weighting-value]\n"
            "   14 | 2 = 0\n"
            "      |     ^ help: a weighting is a number such as 0.6\n");
}

TEST(CmxWeightings, ASmallWeightingIsInOrder) {
  EXPECT_EQ(Found(Distributed("1 = 0.6\n2 = 0.4", "1 = 0.001\n2 = 0.999")), "");
}

TEST(CmxWeightings, WeightingsThatDoNotAddUp) {
  EXPECT_EQ(Found(Distributed("1 = 0.6", "1 = 0.7")),
            "Sample03.cmx:14:5: warning: the weightings add up to 1.1 [weighting-sum]\n"
            "   14 | 2 = 0.4\n"
            "      |     ^~~ help: weightings are shares of 1\n");
}

TEST(CmxWeightings, WeightingsRoundedToTwoDecimals) {
  EXPECT_EQ(Found(Changed(Changed(Distributed("ValueNoMachine = 2", "ValueNoMachine = 3"),
                                  "2 = NODE2\t1", "2 = NODE2\t1\n3 = NODE3\t1"),
                          "1 = 0.6\n2 = 0.4", "1 = 0.33\n2 = 0.33\n3 = 0.33")),
            "");
}

TEST(CmxWeightings, ARemarkBehindAWeightingIsInOrder) {
  EXPECT_EQ(Found(Distributed("1 = 0.6", "1 = 0.6 ; fast")), "");
}

TEST(CmxWeightings, AWeightingIsSaidToBeReadAsItIsRead) {
  EXPECT_EQ(
      FoundInShort(Distributed("0.6", "0.6;")),
      "warning weighting-value 13:5: 0.6; is no weighting: the launcher would read it as 0.6\n"
      "  the weighting is written 0.6 (0.6)\n");
  EXPECT_EQ(FoundInShort(Distributed("0.6", "60%")),
            "warning weighting-value 13:5: 60% is no weighting: the launcher would read it as 60\n"
            "  a weighting is a number such as 0.6\n");
  EXPECT_EQ(FoundInShort(Distributed("0.6", "0,6")),
            "warning weighting-value 13:5: 0,6 is no weighting: the launcher would read it as 0\n"
            "  the decimal point is written 0.6 (0.6)\n");
}

TEST(CmxWeightings, AWeightingWithTwoPoints) {
  EXPECT_EQ(FoundInShort(Distributed("0.6", "0.6.0")),
            "warning weighting-value 13:5: 0.6.0 is no weighting: the launcher would read it as "
            "0.6\n"
            "  a weighting is a number such as 0.6\n");
}

TEST(CmxWeightings, WeightingsInEveryFormOfANumber) {
  for (const char* weighting : {".6", "6e-1", "+0.6", "0.600", "6.E-1", "0.6 ; big"}) {
    EXPECT_EQ(FoundInShort(Distributed("0.6", weighting)), "") << weighting;
  }
}

TEST(CmxWeightings, WeightingsWithoutTheLineBeforeThemAreNoMachines) {
  EXPECT_EQ(
      FoundInShort(Distributed("ValueMachineWeighting = weight\n", "")),
      "warning weighting-count 5:18: there is no line ValueMachineWeighting: all weights would "
      "be 0\n"
      "  the line ValueMachineWeighting opens the block\n");
}

}  // namespace
}  // namespace qvx::runcheck
