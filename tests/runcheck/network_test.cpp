// What the check asks of the network. This machine alone is known for sure: as localhost.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

/// Of localFile, up to what is wrong with the shares.
constexpr const char* kNames =
    "  machine               tasks  weighting  each process  name\n"
    "  localhost                 2        0.6           0.3  found\n"
    "  no-such-host.invalid      1        0.4           0.4  unknown\n"
    "\n"
    "note: the name no-such-host.invalid is not known here [host-unknown]\n"
    "    help: check the name\n"
    "note: the name NODE1 is not known here [host-unknown]\n"
    "    help: check the name\n";
constexpr const char* kNotSeen =
    "note: what remote machines see cannot be told from here [not-seen]\n"
    "    help: try each machine once by hand\n"
    "\n";

class RunCheckNetwork : public RunCheckTest {
 protected:
  std::string Asked(const std::string& file, const std::string& solver = kFlow) const {
    site.WriteCmx(file);
    const std::string text = Ask({"--timeout", "20", "--", "L$1", kTokens, solver});
    return text.substr(text.find("  machine"));
  }

  static std::string Unreachable(
      const std::string& what, const std::string& consequence,
      const std::string& help = "the share is set up on the storage node") {
    return kNames + ("error: the " + what + " cannot be reached from here: " + consequence) +
           " [share-unreachable]\n    help: " + help + "\n" + kNotSeen +
           "1 error: this run would not be the one that is meant.\n";
  }

  const std::string localFile =
      Replaced(Replaced(kDmpCmx, "1=NODE1", "1=localhost"), "2=NODE2", "2=no-such-host.invalid");
};

TEST_F(RunCheckNetwork, NamesAreFoundOrUnknownAndSharesAreThere) {
  EXPECT_EQ(Asked(localFile), std::string(kNames) + kNotSeen + kInOrder);
}

TEST_F(RunCheckNetwork, ASharedSolverWithoutItsExtensionIsThere) {
  EXPECT_EQ(Asked(localFile, "Qvx3DFlow"), std::string(kNames) + kNotSeen + kInOrder);
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
  EXPECT_EQ(Asked(localFile), Unreachable("shared installation \\\\NODE1\\Nowhere",
                                          "the machines would find no solver"));
}

TEST_F(RunCheckNetwork, ASharedRunFolderThatIsNotThere) {
  EXPECT_EQ(Asked(Replaced(localFile, "<name>\\Work", "<name>\\Nowhere")),
            Unreachable("shared run folder <share>\\Nowhere\\sample\\Analysis\\Run01",
                        "the run would lose its log"));
}

TEST_F(RunCheckNetwork, ASharedSolverThatIsNotThere) {
  site.Remove("Home\\Bin\\Qvx3DFlow.exe");
  EXPECT_EQ(Asked(localFile), Unreachable("shared solver <share>\\Home\\Bin\\Qvx3DFlow.exe",
                                          "the machines would not start it",
                                          "the solver lies in Bin of the shared installation"));
}

TEST_F(RunCheckNetwork, AKnownHostsAddressStandsInJson) {
  site.WriteCmx(localFile);
  const std::string text = Ask({"--timeout", "20", "--json", "--", "L$1", kTokens, kFlow});
  const std::string machines = text.substr(
      text.find("  \"machines\""), text.find("  \"reasons\"") - text.find("  \"machines\""));
  const bool isOfFour = machines.find("\"::1\"") == std::string::npos;
  EXPECT_EQ(Replaced(machines, isOfFour ? "\"127.0.0.1\"" : "\"::1\"", "<loopback>"),
            "  \"machines\": [\n"
            "    {\n"
            "      \"host\": \"localhost\",\n"
            "      \"tasks\": 2,\n"
            "      \"weighting\": 0.6,\n"
            "      \"address\": <loopback>\n"
            "    },\n"
            "    {\n"
            "      \"host\": \"no-such-host.invalid\",\n"
            "      \"tasks\": 1,\n"
            "      \"weighting\": 0.4,\n"
            "      \"address\": null\n"
            "    }\n"
            "  ],\n");
}

}  // namespace
}  // namespace qvx::test
