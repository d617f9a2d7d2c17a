// The home folder and the project directory: a mistake that the check finds, message by message,
// and near misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

class RunCheckFolders : public RunCheckTest {
 protected:
  /// kTokens with its project directory written otherwise.
  std::string RunIn(const std::string& project) const {
    return Replaced(site.Specific(kTokens), "\\Work\\Sample", project);
  }
};

TEST_F(RunCheckFolders, ARelativeHomeFolder) {
  EXPECT_EQ(FindingsFor("Home*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder Home is relative: the launcher would look below the folder "
            "that it is started in [home-folder]\n"
            "    help: the home folder is the one that holds Bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckFolders, AMisspeltHomeFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Hoem*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\Hoem does not exist: the launcher would find no solver "
            "and stop with -1 [home-folder]\n"
            "    help: there is a folder <site>\\Home\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckFolders, AHomeFolderThatIsNotSimilar) {
  site.Write("NODE1\\x", "");
  EXPECT_EQ(FindingsFor("<site>\\Nope*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\Nope does not exist: the launcher would find no solver "
            "and stop with -1 [home-folder]\n"
            "    help: the home folder is the one that holds Bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckFolders, AVariableForTheHomeFolder) {
  EXPECT_EQ(FindingsFor("%HOME%*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder %HOME% is relative: the launcher would look below the folder "
            "that it is started in [home-folder]\n"
            "    help: a variable between % is not replaced here\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckFolders, AHomeFolderThatIsAFile) {
  site.Write("File", "");
  EXPECT_EQ(FindingsFor("<site>\\File*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\File is a file: the launcher would find no solver and "
            "stop with -1 [home-folder]\n"
            "    help: the home folder is the one that holds Bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckFolders, AHomeFolderThatIsItsBin) {
  EXPECT_EQ(FindingsFor("<site>\\Home\\Bin*<site>\\Work\\Sample*Sample*0*01"),
            "error: the home folder <site>\\Home\\Bin holds no folder Bin: the launcher would find "
            "no solver and stop with -1 [home-folder]\n"
            "    help: it is written <site>\\Home\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckFolders, AHomeFolderWithABackslashBehindIt) {
  EXPECT_EQ(FindingsFor("<site>\\Home\\*<site>\\Work\\Sample*Sample*0*01"), kInOrder);
}

TEST_F(RunCheckFolders, AMissingProjectDirectory) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Other*Sample*0*01"),
            "error: the project directory <site>\\Work\\Other does not exist: without its CMX file "
            "the run would be distributed and lose its log [project-folder]\n"
            "    help: the project directory is the one that holds Analysis\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckFolders, AMisspeltProjectDirectoryWithSlashes) {
  EXPECT_EQ(FindingsFor("<site>\\Home*C:/NODE1/<name>\\Work/Sampel*Sample*0*01"),
            "error: the project directory C:/NODE1/<name>\\Work/Sampel does not exist: without its "
            "CMX file the run would be distributed and lose its log [project-folder]\n"
            "    help: there is a folder C:/NODE1/<name>\\Work/Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckFolders, AProjectDirectoryWithSlashes) {
  site.WriteCmx(Replaced(kDmpCmx, "\\WORK", "\\WORK\\SAMPLE"));
  EXPECT_EQ(FindingsFor(RunIn("\\Work/Sample")),
            "Sample01.cmx:8:28: error: <site>\\WORK\\SAMPLE is not in the project directory "
            "<site>\\Work/Sample, "
            "which holds slashes: the run would go to another folder [working-folder]\n"
            "    8 | ValueParallelWorkingFolder=<site>\\WORK\\SAMPLE\n"
            "      |                            ^~ help: the project directory is written "
            "<site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckFolders, AProjectDirectoryWithSlashesOfALocalRunIsInOrder) {
  EXPECT_EQ(FindingsFor(RunIn("\\Work/Sample")), kInOrder);
}

TEST_F(RunCheckFolders, AProjectDirectoryThatIsAFileOfIt) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx*Sample*0*01"),
      "error: the project directory <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx is a file: "
      "without its CMX file the run would be distributed and lose its log [project-folder]\n"
      "    help: it is written <site>\\Work\\Sample\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckFolders, AProjectDirectoryThatIsItsAnalysis) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis*Sample*0*01"),
            "error: the project directory <site>\\Work\\Sample\\Analysis holds no folder Analysis: "
            "without its CMX file the run would be distributed and lose its log [project-folder]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckFolders, AProjectDirectoryThatIsItsRunFolder) {
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample\\Analysis\\Run01*Sample*0*01"),
            "error: the project directory <site>\\Work\\Sample\\Analysis\\Run01 holds no folder "
            "Analysis: without its CMX file the run would be distributed and lose its log "
            "[project-folder]\n"
            "    help: it is written <site>\\Work\\Sample\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckFolders, AFolderTooHigh) {
  site.Write("Work\\notes\\x", "");
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work*Sample*0*01"),
      std::string("error: the project directory <site>\\Work holds no folder Analysis: without its "
                  "CMX file the run would be distributed and lose its log [project-folder]\n"
                  "    help: <site>\\Work\\Sample holds one\n") +
          kNotMeant);
}

TEST_F(RunCheckFolders, AMisspeltFolderInTheProjectDirectory) {
  site.Write("Work\\Other\\Analyses\\x", "");
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work\\Other*Sample*0*01"),
      std::string("error: the project directory <site>\\Work\\Other holds no folder Analysis: "
                  "without its CMX file the run would be distributed and lose its log "
                  "[project-folder]\n"
                  "    help: there is a folder <site>\\Work\\Other\\Analyses\n") +
          kNotMeant);
}

TEST_F(RunCheckFolders, AFolderTooHighAboveSeveral) {
  site.Write("Work\\Other\\Analysis\\x", "");
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\Work*Sample*0*01"),
      std::string("error: the project directory <site>\\Work holds no folder Analysis: without its "
                  "CMX file the run would be distributed and lose its log [project-folder]\n"
                  "    help: the project directory is the one that holds Analysis\n") +
          kNotMeant);
}

TEST_F(RunCheckFolders, LettersThatTheCodePageDoesNotHold) {
  EXPECT_EQ(
      FindingsFor("<site>\\Home*<site>\\W??k\\Sample*Sample*0*01"),
      std::string("error: the project directory <site>\\W??k\\Sample does not exist: without its "
                  "CMX file the run would be distributed and lose its log [project-folder]\n"
                  "    help: a ? stands for a letter that the ANSI code page does not hold\n") +
          kNotMeant);
}

}  // namespace
}  // namespace qvx::test
