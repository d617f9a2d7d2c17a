// The check starts without the closed libraries and says which is missing.
#include <filesystem>
#include <string>

#include "tests/runcheck/findings.h"
#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

const std::string kMissingMpiTool =
    "\n"
    "error: QVXMPITool.dll, or a library that it needs, is missing: the launcher would not start "
    "[library-missing]\n"
    "    help: it lies beside the launcher\n"
    "\n"
    "1 error: this run would not start.\n";

class RunCheckLibraries : public RunCheckTest {
 protected:
  RunCheckLibraries() {
    std::filesystem::create_directories(site.Path("Program"));
    Install("QVXRunCheck.exe");
    Install("QVXSolverArgumentTool.dll");
    Install("QVXMPITool.dll");
    Install("QVXUnicodeTool.dll");
    // Else the system would find the ones of the build there.
    path.Set("C:\\windows\\system32;C:\\windows");
  }

  void Install(const std::string& name) const {
    std::filesystem::copy_file(ProgramPath("bin\\" + name), site.Path("Program\\" + name));
  }

  std::string Diagnostics() const {
    return Ask({"--", "L$1", kTokens, kFlow}, site.Path("Program\\QVXRunCheck.exe"));
  }

  EnvironmentVariable path{"PATH"};
};

TEST_F(RunCheckLibraries, AllOfThemAreInOrder) {
  EXPECT_TRUE(Diagnostics().ends_with(kInOrder)) << Diagnostics();
}

TEST_F(RunCheckLibraries, AMissingOneIsNamed) {
  site.Remove("Program\\QVXMPITool.dll");
  EXPECT_EQ(Diagnostics(), "Run 01 of <site>\\Work\\Sample: FLOW\n" + kMissingMpiTool);
}

TEST_F(RunCheckLibraries, AMissingOneLeavesAShellSolversRunFolderAlone) {
  site.Remove("Program\\QVXMPITool.dll");
  EXPECT_EQ(Ask({"--", "L$1*<site>\\Home\\*<site>\\Work\\Sample*Sample*0*1", "-", "QvxFlow.exe"},
                site.Path("Program\\QVXRunCheck.exe")),
            "Run 01 of <site>\\Work\\Sample: SHELLFLOW\n" + kMissingMpiTool);
}

TEST_F(RunCheckLibraries, OneThatIsNoLibraryIsNamed) {
  site.Write("Program\\QVXUnicodeTool.dll", "text");
  EXPECT_EQ(
      Diagnostics(),
      "Run 01 of <site>\\Work\\Sample: FLOW\n"
      "\n"
      "error: QVXUnicodeTool.dll is no library for this machine: the launcher would not start "
      "[library-missing]\n"
      "    help: it lies beside the launcher\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckLibraries, OneWithoutAFunctionIsNamed) {
  site.Remove("Program\\QVXMPITool.dll");
  std::filesystem::copy_file(site.Path("Program\\QVXUnicodeTool.dll"),
                             site.Path("Program\\QVXMPITool.dll"));
  std::string text = Diagnostics();
  // Each compiler writes it in its own way.
  const std::size_t name = text.find("no function ") + 12;
  text.replace(name, text.find(':', name) - name, "<function>");
  EXPECT_EQ(text,
            "Run 01 of <site>\\Work\\Sample: FLOW\n"
            "\n"
            "error: QVXMPITool.dll has no function <function>: the launcher would not start "
            "[library-missing]\n"
            "    help: it is the library of this version of the launcher\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckLibraries, OneThatFailsIsNotTheEnd) {
  site.Remove("Program\\QVXMPITool.dll");
  std::filesystem::copy_file(ProgramPath("tests\\throwing_mpi_tool.dll"),
                             site.Path("Program\\QVXMPITool.dll"));
  site.WriteCmx(Replaced(kSerialCmx, "IDTaskMode=0", "IDTaskMode=0 "));
  EXPECT_EQ(
      Diagnostics(),
      "Run 01 of <site>\\Work\\Sample: FLOW\n"
      "\n"
      "Sample01.cmx:2:13: error: 1 blank stands behind the value of IDTaskMode: the value is not "
      "0 and the run would be distributed [cmx-trailing-blank]\n"
      "    2 | IDTaskMode=0 \n"
      "      |             ^ help: the value is written 0\n"
      "error: a library of the suite throws an exception: the launcher would end with -2 "
      "[library-failed]\n"
      "    help: the installation is repaired\n"
      "\n"
      "2 errors: this run would not start.\n");
}

}  // namespace
}  // namespace qvx::test
