// The grammar of the replacement MPI process launcher.
#include <gtest/gtest.h>

#include "replacements/impiexec/command_line.h"

namespace impiexec {

// Found by the comparisons below.
bool operator==(const Variable& left, const Variable& right) {
  return left.name == right.name && left.value == right.value;
}

bool operator==(const Host& left, const Host& right) {
  return left.name == right.name && left.processCount == right.processCount;
}

namespace {

using Hosts = std::vector<Host>;
using Options = std::vector<std::string>;
using Variables = std::vector<Variable>;

CommandLine Parsed(const std::string& arguments) {
  CommandLine line = ParseCommandLine("impiexec " + arguments);
  EXPECT_EQ(line.error, "") << arguments;
  return line;
}

/// The only group of a command line.
Group ParsedGroup(const std::string& arguments) {
  const CommandLine line = Parsed(arguments);
  EXPECT_EQ(line.groups.size(), 1U) << arguments;
  return line.groups.empty() ? Group{} : line.groups.front();
}

std::string ErrorOf(const std::string& arguments) {
  return ParseCommandLine("impiexec " + arguments).error;
}

TEST(ImpiexecCommandLine, ReadsTheLaunchersDistributedLine) {
  const CommandLine line = ParseCommandLine(
      "C:\\MPI\\impiexec.exe -env 0 0 -hosts 2 nodeA 4 nodeB 2   "
      "\"\\\\srv\\q x\\Bin\\s.exe\"  -home \"a  b\" -n 3 ");
  EXPECT_EQ(line.error, "");
  EXPECT_FALSE(line.isEmpty);
  EXPECT_FALSE(line.labelsOutput);
  EXPECT_FALSE(line.showsExitCodes);
  EXPECT_EQ(line.unknownOptions, Options{});
  EXPECT_EQ(line.globalVariables, Variables{});
  ASSERT_EQ(line.groups.size(), 1U);
  const Group& group = line.groups[0];
  EXPECT_TRUE(group.isDistributed);
  EXPECT_EQ(group.variables, (Variables{{"0", "0"}}));
  EXPECT_EQ(group.hosts, (Hosts{{"nodeA", 4}, {"nodeB", 2}}));
  EXPECT_EQ(group.folder, "");
  EXPECT_EQ(group.program, "\\\\srv\\q x\\Bin\\s.exe");
  EXPECT_EQ(group.solverCommandLine, "\"\\\\srv\\q x\\Bin\\s.exe\" -home \"a  b\" -n 3");
}

TEST(ImpiexecCommandLine, SkipsItsOwnQuotedNameWithoutBackslashEscapes) {
  const CommandLine line = ParseCommandLine("\"C:\\a b\\impiexec\\\" p");
  EXPECT_EQ(line.error, "");
  ASSERT_EQ(line.groups.size(), 1U);
  EXPECT_EQ(line.groups[0].program, "p");
}

TEST(ImpiexecCommandLine, IsEmptyWithItsOwnNameAlone) {
  EXPECT_TRUE(ParseCommandLine("impiexec").isEmpty);
  EXPECT_TRUE(ParseCommandLine("\"a b\" ").isEmpty);
}

TEST(ImpiexecCommandLine, RunsOneProcessHereWithoutACount) {
  EXPECT_EQ(ParsedGroup("p").hosts, (Hosts{{"", 1}}));
  EXPECT_EQ(ParsedGroup("-localonly p 4").hosts, (Hosts{{"", 1}}));
}

TEST(ImpiexecCommandLine, TakesALocalCountInEveryForm) {
  for (const char* count :
       {"-localonly 4", "-n 4", "-np 4", "-localonly -n 4", "-n 4 -localonly"}) {
    const Group group = ParsedGroup(std::string(count) + " p");
    EXPECT_EQ(group.hosts, (Hosts{{"", 4}})) << count;
    EXPECT_FALSE(group.isDistributed) << count;
  }
}

TEST(ImpiexecCommandLine, GivesAHostWithoutACountOneProcess) {
  EXPECT_EQ(ParsedGroup("-hosts 2 a b 3 p").hosts, (Hosts{{"a", 1}, {"b", 3}}));
}

TEST(ImpiexecCommandLine, ReadsCountsUpToWhereTheyAreNoNumbers) {
  EXPECT_EQ(ParsedGroup("-n 2x p").hosts, (Hosts{{"", 2}}));
  EXPECT_EQ(ParsedGroup("-n +2 p").hosts, (Hosts{{"", 2}}));
  EXPECT_EQ(ParsedGroup("-hosts \" 1\" a +3 p").hosts, (Hosts{{"a", 3}}));
  EXPECT_EQ(ParsedGroup("-hosts 2x a 3y b p").hosts, (Hosts{{"a", 3}, {"b", 1}}));
}

TEST(ImpiexecCommandLine, TakesVariablesAsTheyAreQuoted) {
  const CommandLine line = Parsed("-env\tA \"b c\\\\\" -genv C d -env -n -n p");
  ASSERT_EQ(line.groups.size(), 1U);
  EXPECT_EQ(line.groups[0].variables, (Variables{{"A", "b c\\"}, {"-n", "-n"}}));
  EXPECT_EQ(line.globalVariables, (Variables{{"C", "d"}}));
}

TEST(ImpiexecCommandLine, TakesAFolderALabelAndExitCodes) {
  const CommandLine line = Parsed("-l -exitcodes -wdir \"C:\\a b\" p -l");
  EXPECT_TRUE(line.labelsOutput);
  EXPECT_TRUE(line.showsExitCodes);
  ASSERT_EQ(line.groups.size(), 1U);
  EXPECT_EQ(line.groups[0].folder, "C:\\a b");
  EXPECT_EQ(line.groups[0].solverCommandLine, "p -l");
}

TEST(ImpiexecCommandLine, CollectsOptionsThatItDoesNotKnow) {
  const CommandLine line = Parsed("-mapall -n 2 -x p -y");
  EXPECT_EQ(line.unknownOptions, (Options{"-mapall", "-x"}));
  ASSERT_EQ(line.groups.size(), 1U);
  EXPECT_EQ(line.groups[0].hosts, (Hosts{{"", 2}}));
  EXPECT_EQ(line.groups[0].solverCommandLine, "p -y");
}

TEST(ImpiexecCommandLine, BeginsAnotherGroupBehindALoneColon) {
  const CommandLine line = Parsed("-env A 1 -n 2 -wdir d p : -hosts 1 b q a: \":\" r");
  ASSERT_EQ(line.groups.size(), 3U);
  EXPECT_EQ(line.groups[0].variables, (Variables{{"A", "1"}}));
  EXPECT_EQ(line.groups[0].hosts, (Hosts{{"", 2}}));
  EXPECT_EQ(line.groups[0].solverCommandLine, "p");
  EXPECT_EQ(line.groups[1].variables, Variables{});
  EXPECT_EQ(line.groups[1].folder, "");
  EXPECT_TRUE(line.groups[1].isDistributed);
  EXPECT_EQ(line.groups[1].hosts, (Hosts{{"b", 1}}));
  EXPECT_EQ(line.groups[1].solverCommandLine, "q a:");
  EXPECT_FALSE(line.groups[2].isDistributed);
  EXPECT_EQ(line.groups[2].program, "r");
}

TEST(ImpiexecCommandLine, ReadsTokensLikeTheCRuntime) {
  EXPECT_EQ(ParsedGroup("\"a \\\"b\\\\\\\" c\"").program, "a \"b\\\" c");
  EXPECT_EQ(ParsedGroup("C:\\d\\\\p\\").program, "C:\\d\\\\p\\");
  EXPECT_EQ(ParsedGroup("\"unfinished p").program, "unfinished p");
}

TEST(ImpiexecCommandLine, QuotesArgumentsAnewAsFarAsTheyHoldBlanks) {
  EXPECT_EQ(
      ParsedGroup("\"p\" \"x\" \"y z\" \"s\tt\" a\\\"b \"C:\\d\\\\\" \"*\"").solverCommandLine,
      "p x \"y z\" \"s\tt\" a\\\"b C:\\d\\ *");
}

TEST(ImpiexecCommandLine, SpoilsArgumentsThatAreEmptyOrEndWithABackslash) {
  EXPECT_EQ(ParsedGroup("p -a \"\" -b").solverCommandLine, "p -a  -b");
  EXPECT_EQ(ParsedGroup("p \"x y\\\\\" z").solverCommandLine, "p \"x y\\\" z");
}

TEST(ImpiexecCommandLine, WantsAProgram) {
  for (const char* arguments : {"-n 4", "-env A B", "p :", ":", "p : : q", "p : -n 2"}) {
    EXPECT_EQ(ErrorOf(arguments), "No program is given.") << arguments;
  }
}

TEST(ImpiexecCommandLine, WantsAValueBehindAnOption) {
  EXPECT_EQ(ErrorOf("-env A"), "-env must be followed by a name and a value.");
  EXPECT_EQ(ErrorOf("-genv"), "-genv must be followed by a name and a value.");
  EXPECT_EQ(ErrorOf("-wdir"), "-wdir must be followed by a folder.");
  EXPECT_EQ(ErrorOf("-n"), "-n must be followed by a number.");
}

TEST(ImpiexecCommandLine, WantsAPositiveCount) {
  for (const char* count : {"0", "-1", "x4", "NULL"}) {
    EXPECT_EQ(ErrorOf(std::string("-n ") + count + " p"),
              "You must specify a number greater than 0 after -n.")
        << count;
  }
  for (const char* count : {"0", "-1", "0x2"}) {
    EXPECT_EQ(ErrorOf(std::string("-hosts ") + count + " p"),
              "You must specify a number greater than 0 after -hosts.")
        << count;
  }
  EXPECT_EQ(ErrorOf("-localonly 0 p"),
            "You must specify a number greater than 0 after -localonly.");
  EXPECT_EQ(ErrorOf("-hosts 1 a 0 p"), "You must specify a number greater than 0 after -hosts.");
}

TEST(ImpiexecCommandLine, WantsTheNumberOfHosts) {
  for (const char* count : {"two", "p", "-", "\"\"", ""}) {
    EXPECT_EQ(ErrorOf(std::string("-hosts ") + count),
              "You must specify the number of hosts after the -hosts option.")
        << count;
  }
}

TEST(ImpiexecCommandLine, WantsAsManyHostsAsItWasTold) {
  EXPECT_EQ(ErrorOf("-hosts 2 a 4"), "You must specify 2 host names after the -hosts option.");
  EXPECT_EQ(ErrorOf("-hosts 2 a 4 -env A B p"),
            "You must specify 2 host names after the -hosts option.");
}

TEST(ImpiexecCommandLine, TakesOneCountOnly) {
  for (const char* arguments :
       {"-n 4 -n 4 p", "-n 4 -localonly 4 p", "-hosts 1 a -n 4 p", "-n 4 -hosts 1 a p"}) {
    EXPECT_EQ(ErrorOf(arguments),
              "Only one option is allowed to determine the number of processes.")
        << arguments;
  }
}

}  // namespace
}  // namespace impiexec
