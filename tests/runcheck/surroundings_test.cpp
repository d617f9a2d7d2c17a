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
  EXPECT_EQ(Findings(), "@@");
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
  EXPECT_EQ(JsonDiagnostics(json), "@@");
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
  EXPECT_EQ(text.substr(text.find("  machine")), "@@");
}

TEST_F(RunCheckSurroundings, JsonOfTheVersion) {
  EXPECT_EQ(JsonDiagnostics(Answer({"--json", "--version"})), "@@");
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace qvx::test
