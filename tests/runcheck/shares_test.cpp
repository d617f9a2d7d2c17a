// Storage node, share and working folder of a distributed run: a mistake that the check finds,
// message by message, and near misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckShares = RunCheckTest;

TEST_F(RunCheckShares, ADistributedRunIsInOrder) {
  site.WriteCmx(kDmpCmx);
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckShares, AStorageNodeThatEachMachineTakesForItself) {
  std::string file = kDmpCmx;
  file.replace(file.find("ValueLocalHost=NODE1"), 20, "ValueLocalHost=localhost");
  site.WriteCmx(file);
  EXPECT_EQ(Findings(),
            "Sample01.cmx:6:16: error: ValueLocalHost is localhost, which each machine takes for "
            "itself: the other machines would look for the shares at themselves [storage-node]\n"
            "    6 | ValueLocalHost=localhost\n"
            "      |                ^~ help: it is this machine's name in the network\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, NoStorageNode) {
  EXPECT_EQ(FoundWith("ValueLocalHost=NODE1\r\n", ""),
            "Sample01.cmx:4:1: error: neither ValueStorageNode nor ValueLocalHost is set: the run "
            "would go to folders that cannot be reached [storage-node]\n"
            "    4 | <REMOTE_MACHINES>\n"
            "      | ^~ help: ValueStorageNode, or ValueLocalHost, is a host name alone\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AStorageNodeWithBackslashes) {
  EXPECT_EQ(FoundWith("=NODE1\r\n", "=\\\\NODE1\r\n"),
            "Sample01.cmx:6:16: error: ValueLocalHost is \\\\NODE1, no host name: the run would go "
            "to folders that cannot be reached [storage-node]\n"
            "    6 | ValueLocalHost=\\\\NODE1\n"
            "      |                ^~ help: the host is written NODE1\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AHostsKeyInAnotherLetterCaseIsSaidOnce) {
  EXPECT_EQ(FoundWith("ValueLocalHost", "valuelocalhost"),
            "Sample01.cmx:6:1: error: valuelocalhost is not written ValueLocalHost: the launcher "
            "would ignore the line [cmx-key-case]\n"
            "    6 | valuelocalhost=NODE1\n"
            "      | ^~ help: a key of this section is written ValueLocalHost\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AStorageNodeWithCharactersThatNoneHas) {
  const auto found = [&](const std::string& node, const std::string& help) {
    return "Sample01.cmx:6:16: error: ValueLocalHost is " + node +
           ", no host name: the run would go to folders that cannot be reached [storage-node]\n"
           "    6 | ValueLocalHost=" +
           node + "\n      |                ^~ help: " + help + "\n" + kNotMeant;
  };
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE1;"), found("NODE1;", "the host is written NODE1"));
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE1, NODE2"),
            found("NODE1, NODE2", "the host is written NODE1"));
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=C:"),
            found("C:", "ValueStorageNode, or ValueLocalHost, is a host name alone"));
  EXPECT_EQ(Replaced(FoundWith("Host=NODE1", "Host=."), "^ help", "^~ help"),
            found(".", "ValueStorageNode, or ValueLocalHost, is a host name alone"));
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE-1_a.example"), kInOrder);
}

TEST_F(RunCheckShares, AStorageNodeWithEveryCharacterThatAHostMayHave) {
  EXPECT_EQ(FoundWith("Host=NODE1", "Host=NODE-1_a.example"), kInOrder);
}

TEST_F(RunCheckShares, NoShare) {
  EXPECT_EQ(FoundWith("ValueShareFolderName=<name>\\Work\r\n", ""),
            "Sample01.cmx:4:1: error: ValueShareFolderName is empty: the run would go to another "
            "folder [share-name]\n"
            "    4 | <REMOTE_MACHINES>\n"
            "      | ^~ help: it is the share's name, without backslashes around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AShareThatIsAPath) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=C:\\Work"),
            "Sample01.cmx:7:22: error: ValueShareFolderName is a path, C:\\Work: the run would go "
            "to another folder [share-name]\n"
            "    7 | ValueShareFolderName=C:\\Work\n"
            "      |                      ^~ help: it is the share's name, without backslashes "
            "around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AShareWithABackslash) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=\\Work"),
            "Sample01.cmx:7:22: error: a backslash stands beside the share's name in \\Work: the "
            "run would go to another folder [share-name]\n"
            "    7 | ValueShareFolderName=\\Work\n"
            "      |                      ^~ help: the share is written Work\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AShareWithASlash) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=/Work"),
            "Sample01.cmx:7:22: error: a slash stands beside the share's name in /Work: the run "
            "would go to another folder [share-name]\n"
            "    7 | ValueShareFolderName=/Work\n"
            "      |                      ^~ help: the share is written Work\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AShareWithItsHost) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=\\\\NODE1\\Work"),
            "Sample01.cmx:7:22: error: ValueShareFolderName is a path, \\\\NODE1\\Work: the run "
            "would go to another folder [share-name]\n"
            "    7 | ValueShareFolderName=\\\\NODE1\\Work\n"
            "      |                      ^~ help: the share is written Work\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AMisspeltShareIsSaidOnce) {
  EXPECT_EQ(FoundWith("ValueShareFolderName", "ValueShareFolder"),
            "Sample01.cmx:7:1: error: ValueShareFolder is no key of REMOTE_MACHINES: the launcher "
            "would ignore the line [cmx-unknown-key]\n"
            "    7 | ValueShareFolder=<name>\\Work\n"
            "      | ^~ help: a key of this section is written ValueShareFolderName\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AShareWithCharactersThatNoneHas) {
  const auto found = [&](const std::string& what, const std::string& share,
                         const std::string& help) {
    return "Sample01.cmx:7:22: error: " + what +
           ": the run would go to another folder [share-name]\n    7 | ValueShareFolderName=" +
           share + "\n      |                      ^~ help: " + help + "\n" + kNotMeant;
  };
  EXPECT_EQ(FoundWith("<name>\\Work", "Work;"),
            found("ValueShareFolderName is Work;, no share's name", "Work;",
                  "the share is written Work"));
  EXPECT_EQ(FoundWith("<name>\\Work", "C:"),
            found("ValueShareFolderName is C:, no share's name",
                  "C:", "it is the share's name, without backslashes around it"));
  EXPECT_EQ(FoundWith("<name>\\Work", "node1\\Work"),
            found("ValueShareFolderName begins with the storage node, node1\\Work", "node1\\Work",
                  "the share is written Work"));
  EXPECT_EQ(FoundWith("<name>\\Work", "C$\\My work\\2024"), kInOrder);
}

TEST_F(RunCheckShares, AHiddenShareWithABlankInItsName) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=My work-1.0$"), kInOrder);
}

TEST_F(RunCheckShares, AShareThatIsAMachineAlone) {
  EXPECT_EQ(FoundWith("=<name>\\Work", "=\\\\NODE1"),
            "Sample01.cmx:7:22: error: ValueShareFolderName is a path, \\\\NODE1: the run would go "
            "to another folder [share-name]\n"
            "    7 | ValueShareFolderName=\\\\NODE1\n"
            "      |                      ^~ help: it is the share's name, without backslashes "
            "around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, NoWorkingFolder) {
  EXPECT_EQ(
      FoundWith("ValueParallelWorkingFolder=<site>\\WORK\r\n", ""),
      "Sample01.cmx:4:1: error: ValueParallelWorkingFolder is empty: the run would go to another "
      "folder [working-folder]\n"
      "    4 | <REMOTE_MACHINES>\n"
      "      | ^~ help: it is the shared folder above the project, without a backslash at its end\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderWithABackslashAtItsEnd) {
  EXPECT_EQ(
      FoundWith("<site>\\WORK", "<site>\\WORK\\"),
      "Sample01.cmx:8:28: error: ValueParallelWorkingFolder ends in a backslash and makes the "
      "project ample: the run would go to another folder [working-folder]\n"
      "    8 | ValueParallelWorkingFolder=<site>\\WORK\\\n"
      "      |                            ^~ help: the working folder is written <site>\\WORK\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderElsewhere) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "D:\\Work"),
            "Sample01.cmx:8:28: error: D:\\Work is not in the project directory "
            "<site>\\Work\\Sample: the run would go to another folder [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=D:\\Work\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderWithSlashes) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "C:/NODE1"),
            "Sample01.cmx:8:28: error: C:/NODE1 is not in the project directory "
            "<site>\\Work\\Sample: the run would go to another folder [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=C:/NODE1\n"
            "      |                            ^~ help: the working folder is written C:\\NODE1\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatEndsWithinAName) {
  EXPECT_EQ(
      FoundWith("<site>\\WORK", "<site>\\Wo"),
      std::string(
          "Sample01.cmx:8:28: error: <site>\\Wo ends within a name of the project directory and "
          "makes the project k\\sample: the run would go to another folder [working-folder]\n"
          "    8 | ValueParallelWorkingFolder=<site>\\Wo\n"
          "      |                            ^~ help: the working folder is written "
          "<site>\\Work\n") +
          kNotMeant);
}

TEST_F(RunCheckShares, AWorkingFolderThatIsNoBeginning) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "Work"),
            "Sample01.cmx:8:28: warning: Work is not where the project directory begins: the "
            "launcher would cut the project directory at the first place [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=Work\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatIsNoBeginningWithItsBackslash) {
  EXPECT_EQ(FoundWith("<site>\\WORK", "\\Work"),
            "Sample01.cmx:8:28: warning: \\Work is not where the project directory begins: the "
            "launcher would cut the project directory at the first place [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=\\Work\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckShares, ADriveIsNotTakenForAnother) {
  EXPECT_EQ(
      FoundWith("<site>\\WORK", "P:\\"),
      std::string("Sample01.cmx:8:28: error: P:\\ is not in the project directory "
                  "<site>\\Work\\Sample: the run would go to another folder [working-folder]\n"
                  "    8 | ValueParallelWorkingFolder=P:\\\n"
                  "      |                            ^~ help: it is the shared folder above the "
                  "project, without a backslash at its end\n") +
          kNotMeant);
}

TEST_F(RunCheckShares, AWorkingFolderThatBeginsWithinAName) {
  EXPECT_EQ(
      FoundWith("<site>\\WORK", "ork"),
      "Sample01.cmx:8:28: error: ork is not where the project directory begins: the run would "
      "go to another folder [working-folder]\n"
      "    8 | ValueParallelWorkingFolder=ork\n"
      "      |                            ^~ help: it is the shared folder above the "
      "project, without a backslash at its end\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatStandsThereTwice) {
  site.Write("Work\\NODE1\\Sample\\Analysis\\Run01\\Sample01.cmx",
             site.Specific(Replaced(kDmpCmx, "<site>\\WORK", "\\\\NODE1")));
  EXPECT_EQ(FindingsFor("<site>\\Home*<share>\\Work\\\\NODE1\\Sample*Sample*3*01"),
            "Sample01.cmx:8:28: warning: \\\\NODE1 stands in the project directory twice, and the "
            "first place counts: the launcher would cut the project directory at the first place "
            "[working-folder]\n"
            "    8 | ValueParallelWorkingFolder=\\\\NODE1\n"
            "      |                            ^~ help: it is the shared folder above the "
            "project, without a backslash at its end\n"
            "\n"
            "1 warning: this run would start.\n");
}

TEST_F(RunCheckShares, AShortenedWorkingFolderIsSaidOnce) {
  EXPECT_EQ(FoundWith("ValueParallelWorkingFolder", "ValueWorkingFolder"),
            "Sample01.cmx:8:1: error: ValueWorkingFolder is no key of REMOTE_MACHINES: the "
            "launcher would ignore the line [cmx-unknown-key]\n"
            "    8 | ValueWorkingFolder=<site>\\WORK\n"
            "      | ^~ help: a key of this section is written ValueParallelWorkingFolder\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckShares, AWorkingFolderThatIsNearlyTheRightOne) {
  const auto found = [&](const std::string& folder, const std::string& what,
                         const std::string& help) {
    return "Sample01.cmx:8:28: error: " + folder +
           " is not in the project directory <site>\\Work\\Sample" + what +
           ": the run would go to another folder [working-folder]\n"
           "    8 | ValueParallelWorkingFolder=" +
           folder + "\n      |                            ^~ help: " + help + "\n" + kNotMeant;
  };
  const std::string right = "the working folder is written <site>\\Work";
  const std::string doubled = Replaced("<site>\\WORK", "\\WORK", "\\\\WORK");
  EXPECT_EQ(FoundWith("<site>\\WORK", doubled), found(doubled, "", right));
  EXPECT_EQ(FoundWith("<site>\\WORK", "<site>\\WROK"), found("<site>\\WROK", "", right));
  EXPECT_EQ(FoundWith("<site>\\WORK", "<site>\\WORK;"), found("<site>\\WORK;", "", right));
  EXPECT_EQ(FoundWith("<site>\\WORK", "%WORK%"),
            found("%WORK%", "", "a variable between % is not replaced here"));
  EXPECT_EQ(FoundWith("<site>\\WORK",
                      "C:\\Pr\xC3\xBC"
                      "f"),
            found("C:\\Pr\xC3\xBC"
                  "f",
                  ", and its letters beyond A to Z are UTF-8, not the ANSI code page",
                  "it is the shared folder above the project, without a backslash at its end"));
  EXPECT_EQ(FoundWith("<site>\\WORK",
                      "C:\\Pr\xFC"
                      "f"),
            found("C:\\Pr\xFC"
                  "f",
                  "; the case of letters beyond A to Z counts",
                  "it is the shared folder above the project, without a backslash at its end"));
}

TEST_F(RunCheckShares, MachinesBeyondTheMemory) {
  EXPECT_EQ(FoundWith("ValueNoMachine=2", "ValueNoMachine=2000000000"),
            "Sample01.cmx:5:16: error: ValueNoMachine cannot be allocated: count 2000000000: the "
            "launcher would end with -2 [cannot-allocate]\n"
            "    5 | ValueNoMachine=2000000000\n"
            "      |                ^~ help: the count is a small number\n"
            "\n"
            "1 error: this run would not start.\n");
}

}  // namespace
}  // namespace qvx::test
