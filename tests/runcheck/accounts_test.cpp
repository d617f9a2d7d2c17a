// The account file and QVXProject.ini, which a distributed run needs: a mistake that the check
// finds, message by message, and near misses.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckAccounts = RunCheckTest;

TEST_F(RunCheckAccounts, AMissingAccountFile) {
  site.WriteCmx(kDmpCmx);
  site.Remove("Home\\acc.ini");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\acc.ini is missing: the launcher would stop with -1 [account-file]\n"
      "    help: it holds the MPI accounts and lies in the home folder\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckAccounts, AnEmptyAccountFile) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\acc.ini", "");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\acc.ini is empty: the launcher would stop with -1 [account-file]\n"
      "    help: it holds the MPI accounts and lies in the home folder\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckAccounts, AnAccountFileWithAHiddenExtension) {
  site.WriteCmx(kDmpCmx);
  site.Remove("Home\\acc.ini");
  site.Write("Home\\acc.ini.txt", "account\r\n");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\acc.ini is missing: the launcher would stop with -1 [account-file]\n"
      "    help: there is a file <site>\\Home\\acc.ini.txt\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckAccounts, ALocalRunNeedsNoAccounts) {
  site.Remove("Home\\acc.ini");
  site.Remove("Home\\Bin\\QVXProject.ini");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckAccounts, AMissingProjectIni) {
  site.WriteCmx(kDmpCmx);
  site.Remove("Home\\Bin\\QVXProject.ini");
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\Bin\\QVXProject.ini is missing: the run would go to a share "
            "without a name [project-ini]\n"
            "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckAccounts, AProjectIniOutsideBin) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\QVXProject.ini", site.Read("Home\\Bin\\QVXProject.ini"));
  site.Remove("Home\\Bin\\QVXProject.ini");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\Bin\\QVXProject.ini is missing: the run would go to a share without "
      "a name [project-ini]\n"
      "    help: there is a file <site>\\Home\\QVXProject.ini\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckAccounts, AProjectIniWithoutItsKey) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "[Configuration]\r\n");
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\Bin\\QVXProject.ini holds no QVX_PARALLEL_FOLDER_NAME in its "
            "section Configuration: the run would go to a share without a name [project-ini]\n"
            "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckAccounts, AProjectIniWithAnotherSection) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "[Config]\r\nQVX_PARALLEL_FOLDER_NAME=x\r\n");
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\Bin\\QVXProject.ini holds QVX_PARALLEL_FOLDER_NAME without a "
            "value or outside its section Configuration: the run would go to a share without a "
            "name [project-ini]\n"
            "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckAccounts, AProjectIniWithAByteOrderMark) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "\xEF\xBB\xBF[Configuration]\r\n");
  EXPECT_EQ(
      Findings(),
      "error: <site>\\Home\\Bin\\QVXProject.ini begins with a byte-order mark, which hides its "
      "first section: the run would go to a share without a name [project-ini]\n"
      "    help: it holds QVX_PARALLEL_FOLDER_NAME in the section Configuration\n"
      "\n"
      "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckAccounts, AProjectIniThatNamesAPath) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini",
             "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=C:\\Home\r\n");
  EXPECT_EQ(Findings(),
            "error: QVX_PARALLEL_FOLDER_NAME is C:\\Home, no share's name: the run would look "
            "for the installation in \\\\NODE1\\C:\\Home [project-ini]\n"
            "    help: it is the share's name, without backslashes around it\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckAccounts, AProjectIniWithAShareAndItsHost) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini",
             "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=\\\\NODE1\\Quorvex\r\n");
  EXPECT_EQ(Findings(),
            std::string("error: QVX_PARALLEL_FOLDER_NAME is \\\\NODE1\\Quorvex, no share's name: "
                        "the run would look for the installation in \\\\NODE1\\\\\\NODE1\\Quorvex "
                        "[project-ini]\n"
                        "    help: the value is written Quorvex\n") +
                kNotMeant);
}

TEST_F(RunCheckAccounts, AMisspeltKeyOfTheProjectIni) {
  site.WriteCmx(kDmpCmx);
  site.Write("Home\\Bin\\QVXProject.ini", "[Configuration]\r\nQVX_PARALEL_FOLDER_NAME = Q\r\n");
  EXPECT_EQ(
      Findings(),
      std::string("error: <site>\\Home\\Bin\\QVXProject.ini holds no QVX_PARALLEL_FOLDER_NAME "
                  "in its section Configuration: the run would go to a share without a name "
                  "[project-ini]\n"
                  "    help: QVX_PARALEL_FOLDER_NAME is written QVX_PARALLEL_FOLDER_NAME\n") +
          kNotMeant);
}

}  // namespace
}  // namespace qvx::test
