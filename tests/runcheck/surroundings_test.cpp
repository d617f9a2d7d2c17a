// What is around a run otherwise: a file that another program holds, letters beyond A to Z, hosts
// that are all known, and what is asked instead of a check.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

class RunCheckSurroundings : public RunCheckTest {
 protected:
  /// One object of the list of diagnostics in JSON, with its blanks.
  std::string JsonDiagnostics(const std::string& json) const {
    return json.substr(json.find("  \"diagnostics\""));
  }
};

TEST_F(RunCheckSurroundings, ACmxFileThatAnotherProgramHolds) {
  const std::string path = site.Path("Work\\Sample\\Analysis\\Run01\\Sample01.cmx");
  const HANDLE held =
      CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Findings(),
            "error: the CMX file <site>\\Work\\Sample\\Analysis\\Run01\\Sample01.cmx cannot be "
            "read: the run would be distributed [cmx-file]\n"
            "    help: its rights, or a program that holds it, keep it from being read\n"
            "\n"
            "1 error: this run would not be the one that is meant.\n");
  EXPECT_EQ(status, 1);
  CloseHandle(held);
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckSurroundings, LettersOfTheCodePageBecomeUtf8InJson) {
  if (GetACP() != 1252) GTEST_SKIP() << "another code page: " << GetACP();
  const std::filesystem::path run = site.RunFolder();
  std::ofstream(run / L"Teil\u00E401.cmx", std::ios::binary)
      << Replaced(kSerialFile, "IDTaskMode=0", "IDTaskMode=0 ; f\xFCr");
  const std::string json =
      Answer({"--json", "--", "L$1", "<site>\\Home*<site>\\Work\\Sample*Teil\xE4*3*01", kFlow});
  EXPECT_EQ(JsonDiagnostics(json),
            "  \"diagnostics\": [\n"
            "    {\n"
            "      \"severity\": \"error\",\n"
            "      \"code\": \"cmx-comment\",\n"
            "      \"summary\": \"a comment stands behind the value of IDTaskMode\",\n"
            "      \"detail\": \"the value is not 0 and the run would be distributed; the value is "
            "written 0\",\n"
            "      \"range\": {\n"
            "        \"filename\": \"Teil\303\24401.cmx\",\n"
            "        \"start\": {\n"
            "          \"line\": 2,\n"
            "          \"column\": 14\n"
            "        },\n"
            "        \"end\": {\n"
            "          \"line\": 2,\n"
            "          \"column\": 19\n"
            "        }\n"
            "      },\n"
            "      \"snippet\": \"IDTaskMode=0 ; f\303\274r\",\n"
            "      \"suggestion\": \"0\"\n"
            "    }\n"
            "  ]\n"
            "}\n");
  EXPECT_NE(json.find("-name \\\"Teil\xC3\xA4\\\" -run"), std::string::npos) << json;
  EXPECT_EQ(status, 1);
}

TEST_F(RunCheckSurroundings, LettersOfTheCodePageInANameAreInOrder) {
  if (GetACP() != 1252) GTEST_SKIP() << "another code page: " << GetACP();
  const std::filesystem::path run = site.RunFolder();
  std::ofstream(run / L"Teil\u00E401.cmx", std::ios::binary) << kSerialFile;
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Teil\xE4*3*01"), kInOrder);
}

TEST_F(RunCheckSurroundings, AHostThatIsKnownNeedsNoWord) {
  const std::string file = Replaced(
      Replaced(Replaced(kDmpFile, "=NODE1\r\n", "=localhost\r\n"), "1=NODE1", "1=localhost"),
      "2=NODE2\t1\r\n", "");
  site.WriteCmx(Replaced(Replaced(Replaced(file, "1=0.6\r\n", "1=1\r\n"), "2=0.4\r\n", ""),
                         "Machine=2", "Machine=1"));
  const CheckResult result =
      RunQvxRunCheck({"--timeout", "20", "--", "L$1", site.Specific(kRun), kFlow});
  const std::string text = site.Generic(result.output);
  EXPECT_EQ(text.substr(text.find("  machine")),
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
            "    help: each machine is tried once by hand\n"
            "\n"
            "2 errors: this run would not be the one that is meant.\n");
}

TEST_F(RunCheckSurroundings, JsonOfTheVersion) {
  EXPECT_EQ(JsonDiagnostics(Answer({"--json", "--version"})),
            "  \"diagnostics\": [\n"
            "    {\n"
            "      \"severity\": \"note\",\n"
            "      \"code\": \"information\",\n"
            "      \"summary\": \"QVXRunCheck 13.0.0\",\n"
            "      \"detail\": \"nothing was checked; this needs nothing to be done\",\n"
            "      \"range\": null,\n"
            "      \"snippet\": null,\n"
            "      \"suggestion\": null\n"
            "    }\n"
            "  ]\n"
            "}\n");
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace qvx::test
