// The MPI installation, and numbers of tasks: a mistake that the check finds, message by message,
// and near misses.
#include <windows.h>

#include <filesystem>
#include <string>
#include <thread>

#include "tests/runcheck/findings.h"
#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

using RunCheckMpi = RunCheckTest;

/// The number of processors is the machine's.
std::string Processors(const std::string& text) {
  return Replaced(text, std::to_string(std::thread::hardware_concurrency()) + " processors",
                  "<n> processors");
}

constexpr const char* kMpiKey = "SOFTWARE\\NelvornSystem";
constexpr const char* kMpiValue = "IntelMPI_InstallPath";

/// The value, where the launcher does not look for it.
class MisplacedMpiPath {
 public:
  MisplacedMpiPath(HKEY root, REGSAM view) {
    RegCreateKeyExA(root, kMpiKey, 0, nullptr, 0, KEY_WRITE | view, nullptr, &key_, nullptr);
    RegSetValueExA(key_, kMpiValue, 0, REG_SZ, reinterpret_cast<const BYTE*>("C:"), 3);
  }
  ~MisplacedMpiPath() {
    RegDeleteValueA(key_, kMpiValue);
    RegCloseKey(key_);
  }
  MisplacedMpiPath(const MisplacedMpiPath&) = delete;
  MisplacedMpiPath& operator=(const MisplacedMpiPath&) = delete;

 private:
  HKEY key_ = nullptr;
};

/// impiexec.exe, with no folder above it.
class ImpiexecOnTheDrive {
 public:
  ImpiexecOnTheDrive() { std::filesystem::copy_file(ProgramPath("samples\\impiexec.exe"), kPath); }
  ~ImpiexecOnTheDrive() { std::filesystem::remove(kPath); }
  ImpiexecOnTheDrive(const ImpiexecOnTheDrive&) = delete;
  ImpiexecOnTheDrive& operator=(const ImpiexecOnTheDrive&) = delete;

  static constexpr const char* kPath = "C:\\impiexec.exe";
};

TEST_F(RunCheckMpi, NoKeyForTheMpiInstallation) {
  // As many tasks as every machine has processors for.
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=1\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  mpiPath.Remove();
  EXPECT_EQ(
      Findings(),
      "Sample01.cmx:3:13: note: ValueNoTask is 1 and ValueLocalNoTask is 2 [tasks-differ]\n"
      "    3 | ValueNoTask=1\n"
      "      |             ^ help: ValueNoTask holds the number of tasks too\n"
      "error: the registry holds no value IntelMPI_InstallPath in "
      "HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem: the launcher would stop with -1 [mpi-path]\n"
      "    help: IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a text, "
      "the folder of impiexec.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

class RunCheckRegistry : public RunCheckTest {
 protected:
  RunCheckRegistry() { site.WriteCmx(kDmpCmx); }

  static std::string Wrong(const std::string& summary, const std::string& help = kIsAText) {
    return "error: " + summary + ": the launcher would stop with -1 [mpi-path]\n    help: " + help +
           "\n\n1 error: this run would not start.\n";
  }

  static constexpr const char* kIsAText =
      "IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a text, the folder "
      "of "
      "impiexec.exe";
  static constexpr const char* kNoValue =
      "the registry holds no value IntelMPI_InstallPath in "
      "HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem";
};

TEST_F(RunCheckRegistry, AValueThatIsANumber) {
  const DWORD number = 1;
  RegSetKeyValueA(HKEY_LOCAL_MACHINE, kMpiKey, kMpiValue, REG_DWORD, &number, sizeof number);
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is no plain text (REG_SZ)"));
}

TEST_F(RunCheckRegistry, AValueWithAVariable) {
  constexpr std::string_view kPath("%ProgramFiles%\\Mpi\0", 19);
  RegSetKeyValueA(HKEY_LOCAL_MACHINE, kMpiKey, kMpiValue, REG_EXPAND_SZ, kPath.data(),
                  static_cast<DWORD>(kPath.size()));
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is no plain text (REG_SZ)"));
}

TEST_F(RunCheckRegistry, NoKey) {
  mpiPath.RemoveKey();
  EXPECT_EQ(Findings(),
            Wrong("the registry holds no key HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem"));
}

TEST_F(RunCheckRegistry, AnEmptyValue) {
  mpiPath.Set("");
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is empty"));
}

TEST_F(RunCheckRegistry, ARelativeFolder) {
  mpiPath.Set("Mpi");
  EXPECT_EQ(Findings(), Wrong("IntelMPI_InstallPath is relative, Mpi"));
}

TEST_F(RunCheckRegistry, AValueOf32BitPrograms) {
  mpiPath.Remove();
  const MisplacedMpiPath misplaced(HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY);
  EXPECT_EQ(Findings(),
            Wrong(kNoValue, "the value stands in the registry of 32-bit programs (WOW6432Node)"));
}

TEST_F(RunCheckRegistry, AValueOfTheUser) {
  mpiPath.Remove();
  const MisplacedMpiPath misplaced(HKEY_CURRENT_USER, 0);
  EXPECT_EQ(
      Findings(),
      Wrong(kNoValue, "the value stands in HKEY_CURRENT_USER and belongs into HKEY_LOCAL_MACHINE"));
}

TEST_F(RunCheckMpi, QuotationMarksInTheRegistry) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set("\"" + site.Path("Mpi") + "\"");
  EXPECT_EQ(Findings(),
            "error: IntelMPI_InstallPath holds quotation marks, \"<site>\\Mpi\": the launcher "
            "would stop with -1 [mpi-path]\n"
            "    help: the value is written <site>\\Mpi\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, AFileForAFolderInTheRegistry) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Mpi\\impiexec.exe"));
  EXPECT_EQ(Findings(),
            "error: IntelMPI_InstallPath is a file, <site>\\Mpi\\impiexec.exe: the launcher would "
            "stop with -1 [mpi-path]\n"
            "    help: the value is the folder <site>\\Mpi\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, ADriveForTheMpiFolderIsInOrder) {
  site.WriteCmx(kDmpCmx);
  const ImpiexecOnTheDrive impiexec;
  for (const char* path : {"C:\\", "C:"}) {
    mpiPath.Set(path);
    EXPECT_EQ(Findings(), kInOrder) << path;
  }
}

TEST_F(RunCheckMpi, AFileOnADriveForAFolderInTheRegistry) {
  site.WriteCmx(kDmpCmx);
  const ImpiexecOnTheDrive impiexec;
  mpiPath.Set(ImpiexecOnTheDrive::kPath);
  EXPECT_EQ(Findings(),
            std::string("error: IntelMPI_InstallPath is a file, C:\\impiexec.exe: the launcher "
                        "would stop with -1 [mpi-path]\n"
                        "    help: the value is the folder C:\\\n") +
                kNoStart);
}

TEST_F(RunCheckMpi, AFolderWithoutImpiexecInTheRegistry) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Home"));
  EXPECT_EQ(Findings(),
            "error: <site>\\Home\\impiexec.exe does not exist: the launcher would stop with -1 "
            "[mpi-launcher]\n"
            "    help: IntelMPI_InstallPath names the folder that holds impiexec.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, ASubfolderHoldsImpiexec) {
  site.WriteCmx(kDmpCmx);
  site.Write("Mpi2\\bin\\impiexec.exe", "");
  mpiPath.Set(site.Path("Mpi2"));
  EXPECT_EQ(Findings(),
            "error: <site>\\Mpi2\\impiexec.exe does not exist: the launcher would stop with -1 "
            "[mpi-launcher]\n"
            "    help: impiexec.exe lies in <site>\\Mpi2\\bin\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, TheFolderAboveHoldsImpiexec) {
  site.WriteCmx(kDmpCmx);
  for (const char* folder : {"Mpi\\bin", "Mpi\\bin\\"}) {
    mpiPath.Set(site.Path(folder));
    EXPECT_EQ(
        Findings(),
        std::string("error: <site>\\Mpi\\bin\\impiexec.exe does not exist: the launcher would "
                    "stop with -1 [mpi-launcher]\n"
                    "    help: impiexec.exe lies in <site>\\Mpi\n") +
            kNoStart);
  }
}

TEST_F(RunCheckMpi, ADriveAboveHoldsImpiexec) {
  site.WriteCmx(kDmpCmx);
  const ImpiexecOnTheDrive impiexec;
  mpiPath.Set("C:\\windows");
  EXPECT_EQ(Findings(),
            std::string("error: C:\\windows\\impiexec.exe does not exist: the launcher would stop "
                        "with -1 [mpi-launcher]\n"
                        "    help: impiexec.exe lies in C:\\\n") +
                kNoStart);
}

TEST_F(RunCheckMpi, MpiexecForImpiexec) {
  site.WriteCmx(kDmpCmx);
  site.Write("Mpi2\\mpiexec.exe", "");
  mpiPath.Set(site.Path("Mpi2"));
  EXPECT_EQ(
      Findings(),
      std::string("error: <site>\\Mpi2\\impiexec.exe does not exist: the launcher would stop "
                  "with -1 [mpi-launcher]\n"
                  "    help: <site>\\Mpi2\\mpiexec.exe lies there, and impiexec.exe is looked "
                  "for\n") +
          kNoStart);
}

TEST_F(RunCheckMpi, ABackslashBehindTheMpiFolderIsInOrder) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Mpi") + "\\");
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckMpi, ABlankBehindTheMpiFolder) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set(site.Path("Mpi") + " ");
  EXPECT_EQ(
      Findings(),
      "error: a blank stands beside IntelMPI_InstallPath, <site>\\Mpi : the launcher would stop "
      "with -1 [mpi-path]\n"
      "    help: the value is written <site>\\Mpi\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, AnMpiFolderThatIsTooLong) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set("C:\\" + std::string(257, 'm'));
  EXPECT_EQ(
      Findings(),
      "error: IntelMPI_InstallPath is too long: 246 bytes fit, it has 260: the launcher would stop "
      "with -1 [mpi-path]\n"
      "    help: IntelMPI_InstallPath in HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem is a "
      "text, the folder of impiexec.exe\n"
      "\n"
      "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, AnMpiFolderThatJustFits) {
  site.WriteCmx(kDmpCmx);
  mpiPath.Set("C:\\" + std::string(243, 'm'));
  EXPECT_EQ(Replaced(Findings(), std::string(243, 'm'), "<m>"),
            "error: C:\\<m>\\impiexec.exe does not exist: the launcher would stop with -1 "
            "[mpi-launcher]\n"
            "    help: IntelMPI_InstallPath names the folder that holds impiexec.exe\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, ASerialRunNeedsNoMpi) {
  mpiPath.Remove();
  EXPECT_EQ(Findings(), kInOrder);
}

TEST_F(RunCheckMpi, TooManyTasksForTheProcessors) {
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=5000\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  EXPECT_EQ(Processors(Findings()),
            "note: 5000 tasks share <n> processors [processors]\n"
            "    help: a task for each processor is the most\n"
            "\n"
            "Nothing stands in the way of this run.\n");
}

TEST_F(RunCheckMpi, ACountBeyondTheMemory) {
  site.WriteCmx(
      "<TASKMANAGER>\r\nIDTaskMode=0\r\nValueNoTask=2000000000\r\nValueLocalNoTask=2\r\n</"
      "TASKMANAGER>\r\n");
  EXPECT_EQ(Findings(),
            "Sample01.cmx:3:13: error: process weights cannot be allocated: count 2000000000: the "
            "launcher would end with -2 [cannot-allocate]\n"
            "    3 | ValueNoTask=2000000000\n"
            "      |             ^~ help: the count is a small number\n"
            "\n"
            "1 error: this run would not start.\n");
}

TEST_F(RunCheckMpi, TasksBeyondTheMemory) {
  EXPECT_EQ(FoundWith("NODE2\t1", "NODE2\t1000000000"),
            "Sample01.cmx:11:3: error: process weights cannot be allocated: count 1000000002: the "
            "launcher would end with -2 [cannot-allocate]\n"
            "   11 | 2=NODE2\t1000000000\n"
            "      |   ^~ help: the count is a small number\n"
            "\n"
            "1 error: this run would not start.\n");
}

}  // namespace
}  // namespace qvx::test
