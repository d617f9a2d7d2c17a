// The MPI installation path from the registry, the parallel folder name from the project-wide ini
// file, and the conversion of the MPI accounts.
#include "execution/mpi_configuration.h"

#include <gtest/gtest.h>

#include <string>

#include "execution/mpi_accounts.h"
#include "launcher/argument_record.h"
#include "support/bounded_text.h"
#include "tests/support/expect_fault.h"
#include "tests/support/machine_state.h"
#include "tests/support/temporary_folder.h"
#include "tests/windows/console_of.h"

namespace qvx {
namespace {

class MpiInstallationPath : public testing::Test {
 protected:
  /// Starts from another path.
  std::string Read() {
    CopyText(context.mpiInstallationPath, "MPI installation path", "C:\\Earlier");
    const char* const path = ReadMpiInstallationPath(context);
    EXPECT_EQ(path, static_cast<const char*>(context.mpiInstallationPath));
    return path;
  }

  const test::MpiInstallPathValue value;
  LauncherContext context;
};

TEST_F(MpiInstallationPath, IsTheRegistryValueLessOneTrailingBackslash) {
  const struct {
    const char* value;
    const char* path;
  } cases[] = {
      {"C:\\MPI\\bin", "C:\\MPI\\bin"},
      {"C:\\MPI\\bin\\", "C:\\MPI\\bin"},
      {"C:\\MPI\\bin\\\\", "C:\\MPI\\bin\\"},
      {"\\", ""},
      {"", ""},
  };
  for (const auto& [text, path] : cases) {
    value.Set(text);
    EXPECT_EQ(Read(), path);
  }
}

TEST_F(MpiInstallationPath, IsEmptyWithoutAMessageWhenTheValueOrItsKeyIsMissing) {
  value.Remove();
  EXPECT_EQ(test::ConsoleOf([this] { EXPECT_EQ(Read(), ""); }).All(), "");
  value.RemoveKey();
  EXPECT_EQ(test::ConsoleOf([this] { EXPECT_EQ(Read(), ""); }).All(), "");
}

TEST_F(MpiInstallationPath, TakesAValueOfUpTo260Bytes) {
  const std::string longest(259, 'm');
  value.Set(longest);
  EXPECT_EQ(Read(), longest);
  value.Set(longest + "m");
  EXPECT_EQ(Read(), "");
}

TEST_F(MpiInstallationPath, NeedsNoTerminatingZeroInTheRegistry) {
  value.SetUnterminated("C:\\MPI");
  EXPECT_EQ(Read(), "C:\\MPI");
  const std::string longest(259, 'm');
  value.SetUnterminated(longest);
  EXPECT_EQ(Read(), longest);
  value.SetUnterminated(longest + "m");
  EXPECT_FAULT(ReadMpiInstallationPath(context),
               "ERROR: MPI installation path is too long: width 260, length 260");
}

class ParallelFolderName : public testing::Test {
 protected:
  ParallelFolderName() { CopyText(context.homeFolder, "home folder", folder.Path()); }

  /// Starts from another name.
  std::string Read() {
    CopyText(context.parallelFolderName, "parallel folder name", "Earlier");
    EXPECT_EQ(test::ConsoleOf([this] { EXPECT_EQ(ReadParallelFolderName(context), 0); }).All(), "");
    return context.parallelFolderName;
  }

  std::string ReadFrom(const std::string& ini) {
    // A file of its own for every content: the system may keep the last one in memory.
    const std::string home = std::to_string(++count_);
    folder.Write(home + "\\Bin\\QVXProject.ini", ini);
    CopyText(context.homeFolder, "home folder", folder.Path(home));
    return Read();
  }

  const test::TemporaryFolder folder;
  LauncherContext context;

 private:
  int count_ = 0;
};

TEST_F(ParallelFolderName, IsTheProjectIniFilesValue) {
  EXPECT_EQ(ReadFrom("[Other]\r\nQVX_PARALLEL_FOLDER_NAME=Wrong\r\n"
                     "[Configuration]\r\nOther=1\r\nQVX_PARALLEL_FOLDER_NAME=Quorvex Share\r\n"),
            "Quorvex Share");
}

TEST_F(ParallelFolderName, IsEmptyWithoutFileSectionOrKey) {
  EXPECT_EQ(Read(), "");
  EXPECT_EQ(ReadFrom("[Other]\r\nQVX_PARALLEL_FOLDER_NAME=Wrong\r\n"), "");
  EXPECT_EQ(ReadFrom("[Configuration]\r\nOther=1\r\n"), "");
  EXPECT_EQ(ReadFrom(""), "");
}

TEST_F(ParallelFolderName, IsCutTo259Characters) {
  EXPECT_EQ(ReadFrom("[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=" + std::string(300, 'q')),
            std::string(259, 'q'));
}

TEST_F(ParallelFolderName, RefusesAFilePathOf260Characters) {
  const std::string longest(259 - std::string("\\Bin\\QVXProject.ini").size(), 'h');
  CopyText(context.homeFolder, "home folder", longest);
  EXPECT_EQ(Read(), "");
  CopyText(context.homeFolder, "home folder", longest + "h");
  EXPECT_FAULT(ReadParallelFolderName(context),
               "ERROR: project ini file is too long: width 260, length 260");
}

class MpiAccounts : public testing::Test {
 protected:
  /// Converts with the home folder in the record of the solver class. Returns what is printed and
  /// flushed.
  std::string Convert(SolverClass solverClass, const std::string& home, int result) {
    context.solverClass = solverClass;
    VisitArgumentRecord(context, [&](QVXRunTexts& record) {
      CopyText(record.homeFolder, "home folder of a record", home);
    });
    return test::ConsoleOf([&] { EXPECT_EQ(ConvertMpiAccounts(context), result); }).written;
  }

  const test::TemporaryFolder folder;
  const std::string home = folder.Path();
  const std::string complaint = "Error: Please check if acc.ini is properly configured!\r\n";
  LauncherContext context;
};

TEST_F(MpiAccounts, AreReadFromTheHomeFolderOfTheRunsRecord) {
  folder.Write("acc.ini", "user=x\n");
  for (std::uint32_t solverClass = 0; solverClass <= 4; ++solverClass) {
    context.flowArgument.Reset();
    context.coolArgument.Reset();
    context.warpArgument.Reset();
    EXPECT_EQ(Convert(SolverClass{solverClass}, home, 0), "");
    EXPECT_EQ(context.configurationAbortFlag, 0) << solverClass;
  }
}

TEST_F(MpiAccounts, AbortTheRunWhenTheFileIsMissingOrEmpty) {
  EXPECT_EQ(Convert(SolverClass::Flow, home, -6), complaint);
  EXPECT_EQ(context.configurationAbortFlag, 1);
  context.configurationAbortFlag = 0;
  folder.Write("acc.ini", "");
  EXPECT_EQ(Convert(SolverClass::Warp, home, -6), complaint);
  EXPECT_EQ(context.configurationAbortFlag, 1);
}

TEST_F(MpiAccounts, AreTracedWithTheirFolderBeforeTheComplaint) {
  context.debugTraceFlag = 1;
  const std::string trace = "ConvertAcc2RegistryForIntelMPI(" + home + ")\r\n";
  EXPECT_EQ(Convert(SolverClass::Cool, home, -6), trace + complaint);
  folder.Write("acc.ini", "user=x\n");
  EXPECT_EQ(Convert(SolverClass::Cool, home, 0), trace);
}

TEST_F(MpiAccounts, AreAskedForAnEmptyFolderForOtherClasses) {
  folder.Write("acc.ini", "user=x\n");
  folder.Write("elsewhere\\empty", "");
  context.debugTraceFlag = 1;
  for (const SolverClass solverClass :
       {SolverClass::ShellFlow, SolverClass::ShellCool, SolverClass::Optics, SolverClass{13}}) {
    const test::CurrentFolder currentFolder(folder.Path("elsewhere"));
    EXPECT_EQ(Convert(solverClass, home, -6), "ConvertAcc2RegistryForIntelMPI()\r\n" + complaint);
  }
}

TEST_F(MpiAccounts, RefuseAHomeFolderOf260Characters) {
  const std::string longest(259, 'h');
  EXPECT_EQ(Convert(SolverClass::Flow, longest, -6), complaint);
  EXPECT_FAULT(Convert(SolverClass::Flow, longest + "h", -6),
               "ERROR: home folder is too long: width 260, length 260");
}

}  // namespace
}  // namespace qvx
