// What is around a run otherwise: a file that another program holds, letters beyond A to Z.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckSurroundings = RunCheckTest;

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
  CloseHandle(held);
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckSurroundings, LettersOfTheCodePageBecomeUtf8InJson) {
  if (GetACP() != 1252) GTEST_SKIP() << "another code page: " << GetACP();
  const std::filesystem::path run = site.RunFolder();
  std::ofstream(run / L"Teil\u00E401.cmx", std::ios::binary)
      << Replaced(kSerialCmx, "IDTaskMode=0", "IDTaskMode=0 ; f\xFCr");
  const std::string json =
      Answer({"--json", "--", "L$1", "<site>\\Home*<site>\\Work\\Sample*Teil\xE4*3*01", kFlow});
  EXPECT_EQ(json.substr(json.find("  \"diagnostics\"")),
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
  std::ofstream(run / L"Teil\u00E401.cmx", std::ios::binary) << kSerialCmx;
  EXPECT_EQ(FindingsFor("<site>\\Home*<site>\\Work\\Sample*Teil\xE4*3*01"), kInOrder);
}

}  // namespace
}  // namespace qvx::test
