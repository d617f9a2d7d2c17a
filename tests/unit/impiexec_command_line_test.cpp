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

CommandLine Parsed(const std::string& arguments) {
  CommandLine line = ParseCommandLine("impiexec " + arguments);
  EXPECT_EQ(line.error, "") << arguments;
  return line;
}

std::string ErrorOf(const std::string& arguments) {
  return ParseCommandLine("impiexec " + arguments).error;
}

TEST(ImpiexecCommandLine, ReadsTheLaunchersDistributedLine) {
  const CommandLine line = ParseCommandLine(
      "C:\\MPI\\impiexec.exe -env 0 0 -hosts 2 nodeA 4 nodeB 2   "
      "\"\\\\srv\\q x\\Bin\\s.exe\"  -home \"a  b\" -n 3 ");
  EXPECT_EQ(line.error, "");
  EXPECT_EQ(line.variables, (std::vector<Variable>{{"0", "0"}}));
  EXPECT_EQ(line.hosts, (Hosts{{"nodeA", 4}, {"nodeB", 2}}));
  EXPECT_EQ(line.unknownOptions, Options{});
  EXPECT_EQ(line.program, "\\\\srv\\q x\\Bin\\s.exe");
  EXPECT_EQ(line.solverCommandLine, "\"\\\\srv\\q x\\Bin\\s.exe\"  -home \"a  b\" -n 3 ");
}

TEST(ImpiexecCommandLine, SkipsItsOwnQuotedNameWithoutBackslashEscapes) {
  const CommandLine line = ParseCommandLine("\"C:\\a b\\impiexec\\\" p");
  EXPECT_EQ(line.error, "");
  EXPECT_EQ(line.program, "p");
}

TEST(ImpiexecCommandLine, RunsOneProcessHereWithoutACount) {
  EXPECT_EQ(Parsed("p").hosts, (Hosts{{"", 1}}));
  EXPECT_EQ(Parsed("-localonly p 4").hosts, (Hosts{{"", 1}}));
}

TEST(ImpiexecCommandLine, TakesALocalCountInEveryForm) {
  for (const char* count :
       {"-localonly 4", "-n 4", "-np 4", "-localonly -n 4", "-n 4 -localonly"}) {
    EXPECT_EQ(Parsed(std::string(count) + " p").hosts, (Hosts{{"", 4}})) << count;
  }
}

TEST(ImpiexecCommandLine, GivesAHostWithoutACountOneProcess) {
  EXPECT_EQ(Parsed("-hosts 2 a b 3 p").hosts, (Hosts{{"a", 1}, {"b", 3}}));
}

TEST(ImpiexecCommandLine, TakesVariablesAsTheyAreQuoted) {
  EXPECT_EQ(Parsed("-env\tA \"b c\\\\\" -env -n -n p").variables,
            (std::vector<Variable>{{"A", "b c\\"}, {"-n", "-n"}}));
}

TEST(ImpiexecCommandLine, CollectsOptionsThatItDoesNotKnow) {
  const CommandLine line = Parsed("-mapall -n 2 -x p -y");
  EXPECT_EQ(line.unknownOptions, (Options{"-mapall", "-x"}));
  EXPECT_EQ(line.hosts, (Hosts{{"", 2}}));
  EXPECT_EQ(line.solverCommandLine, "p -y");
}

TEST(ImpiexecCommandLine, ReadsTokensLikeTheCRuntime) {
  EXPECT_EQ(Parsed("\"a \\\"b\\\\\\\" c\"").program, "a \"b\\\" c");
  EXPECT_EQ(Parsed("C:\\d\\\\p\\").program, "C:\\d\\\\p\\");
  EXPECT_EQ(Parsed("\"unfinished p").program, "unfinished p");
}

TEST(ImpiexecCommandLine, WantsAProgram) {
  for (const char* arguments : {"", "-n 4", "-env A B"}) {
    EXPECT_EQ(ErrorOf(arguments), "no program given") << arguments;
  }
  EXPECT_EQ(ParseCommandLine("").error, "no program given");
}

TEST(ImpiexecCommandLine, WantsAValueBehindAVariable) {
  EXPECT_EQ(ErrorOf("-env A"), "-env must be followed by a name and a value");
}

TEST(ImpiexecCommandLine, WantsAPositiveCount) {
  for (const char* count : {"0", "-1", "4x", "99999999999", "p"}) {
    EXPECT_EQ(ErrorOf(std::string("-n ") + count),
              "must specify a number greater than 0 after the -n option")
        << count;
    EXPECT_EQ(ErrorOf(std::string("-hosts ") + count),
              "must specify a number greater than 0 after the -hosts option")
        << count;
  }
  EXPECT_EQ(ErrorOf("-localonly 0 p"),
            "must specify a number greater than 0 after the -localonly option");
  EXPECT_EQ(ErrorOf("-hosts 1 a 0 p"),
            "must specify a number greater than 0 after the -hosts option");
}

TEST(ImpiexecCommandLine, WantsAsManyHostsAsItWasTold) {
  EXPECT_EQ(ErrorOf("-hosts 2 a 4"), "must specify 2 host names after the -hosts option");
  EXPECT_EQ(ErrorOf("-hosts 2 a 4 -env A B p"),
            "must specify 2 host names after the -hosts option");
}

TEST(ImpiexecCommandLine, TakesOneCountOnly) {
  for (const char* arguments :
       {"-n 4 -n 4 p", "-n 4 -localonly 4 p", "-hosts 1 a -n 4 p", "-n 4 -hosts 1 a p"}) {
    EXPECT_EQ(ErrorOf(arguments),
              "only one option is allowed to determine the number of processes.")
        << arguments;
  }
}

}  // namespace
}  // namespace impiexec
