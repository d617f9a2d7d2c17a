// What the check asks of the network. This machine alone is known for sure: as localhost.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

class RunCheckNetwork : public RunCheckTest {
 protected:
  std::string Asked(const std::string& file) const {
    site.WriteCmx(file);
    const std::string text = Ask({"--timeout", "20", "--", "L$1", kTokens, kFlow});
    return text.substr(text.find("  machine"));
  }

  const std::string localFile =
      Replaced(Replaced(kDmpCmx, "1=NODE1", "1=localhost"), "2=NODE2", "2=no-such-host.invalid");
};

TEST_F(RunCheckNetwork, NamesAreFoundOrUnknownAndSharesAreThere) {
  EXPECT_EQ(Asked(localFile),
            "  machine               tasks  weighting  each process  name\n"
            "  localhost                 2        0.6           0.3  found\n"
            "  no-such-host.invalid      1        0.4           0.4  unknown\n"
            "\n"
            "note: the name no-such-host.invalid is not known here [host-unknown]\n"
            "    help: check the name\n"
            "note: the name NODE1 is not known here [host-unknown]\n"
            "    help: check the name\n"
            "note: what remote machines see cannot be told from here [not-seen]\n"
            "    help: try each machine once by hand\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckNetwork, AHostThatIsKnownNeedsNoWord) {
  const std::string file = Replaced(
      Replaced(Replaced(kDmpCmx, "=NODE1\r\n", "=localhost\r\n"), "1=NODE1", "1=localhost"),
      "2=NODE2\t1\r\n", "");
  EXPECT_EQ(Asked(Replaced(Replaced(Replaced(file, "1=0.6\r\n", "1=1\r\n"), "2=0.4\r\n", ""),
                           "Machine=2", "Machine=1")),
            "  machine    tasks  weighting  each process  name\n"
            "  localhost      2          1           0.5  found\n"
            "\n"
            "error: the shared installation \\\\localhost\\<name>\\Home cannot be reached from "
            "here: the machines would find no solver [share-unreachable]\n"
            "    help: the share is set up on the storage node\n"
            "error: the shared run folder \\\\localhost\\<name>\\Work\\sample\\Analysis\\Run01 "
            "cannot be reached from here: the run would lose its log [share-unreachable]\n"
            "    help: the share is set up on the storage node\n"
            "note: what remote machines see cannot be told from here [not-seen]\n"
            "    help: try each machine once by hand\n"
            "\n"
            "2 errors: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckNetwork, ASharedInstallationThatIsNotThere) {
  site.Write("Home\\Bin\\QVXProject.ini",
             "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=Nowhere\r\n");
  EXPECT_NE(Asked(localFile).find(
                "error: the shared installation \\\\NODE1\\Nowhere cannot be reached from "
                "here: the machines would find no solver [share-unreachable]\n"),
            std::string::npos);
}

TEST_F(RunCheckNetwork, ASharedRunFolderThatIsNotThere) {
  EXPECT_NE(Asked(Replaced(localFile, "<name>\\Work", "<name>\\Nowhere"))
                .find("error: the shared run folder "
                      "<share>\\Nowhere\\sample\\Analysis\\Run01 cannot be "
                      "reached from here: the run would lose its log [share-unreachable]\n"),
            std::string::npos);
}

}  // namespace
}  // namespace qvx::test
