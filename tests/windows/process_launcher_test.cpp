// The replacement impiexec.exe by itself, its output read to the end. The scripted solver shows
// what each process got.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>

#include "tests/support/machine_state.h"
#include "tests/support/program_path.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/texts.h"

namespace qvx {
namespace {

constexpr DWORD kPollMilliseconds = 10;

struct Ended {
  std::string output;
  int status = 0;
};

bool operator==(const Ended& left, const Ended& right) {
  return left.output == right.output && left.status == right.status;
}

void PrintTo(const Ended& ended, std::ostream* stream) {
  *stream << ended.output << "status " << ended.status;
}

class ProcessLauncher : public testing::Test {
 protected:
  ProcessLauncher() {
    std::filesystem::copy_file(test::ProgramPath("samples\\impiexec.exe"),
                               folder.Path("impiexec.exe"));
    std::filesystem::copy_file(test::ProgramPath("samples\\QuorvexFakeSolver.exe"),
                               folder.Path("solver.exe"));
  }

  /// Runs impiexec.exe with `arguments`, in which `%s` stands for the solver, and `input` at its
  /// standard input. `meanwhile` gets its process and the end of its output to read from.
  Ended Run(const std::string& arguments, const std::string& input = "",
            const std::function<void(HANDLE, HANDLE)>& meanwhile = {}) const {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    HANDLE outputRead = nullptr, outputWrite = nullptr, inputRead = nullptr, inputWrite = nullptr;
    CreatePipe(&outputRead, &outputWrite, &inheritable, 0);
    CreatePipe(&inputRead, &inputWrite, &inheritable, 0);
    SetHandleInformation(outputRead, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(inputWrite, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = inputRead;
    startup.hStdOutput = outputWrite;
    startup.hStdError = outputWrite;
    std::string commandLine =
        test::Replaced("impiexec " + arguments, "%s", '"' + folder.Path("solver.exe") + '"');
    PROCESS_INFORMATION process = {};
    EXPECT_TRUE(CreateProcessA(folder.Path("impiexec.exe").c_str(), commandLine.data(), nullptr,
                               nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                               &process));
    CloseHandle(outputWrite);
    CloseHandle(inputRead);
    DWORD size = 0;
    WriteFile(inputWrite, input.data(), static_cast<DWORD>(input.size()), &size, nullptr);
    CloseHandle(inputWrite);
    if (meanwhile) meanwhile(process.hProcess, outputRead);
    Ended ended;
    char chunk[4096];
    while (ReadFile(outputRead, chunk, sizeof chunk, &size, nullptr)) {
      ended.output.append(chunk, size);
    }
    CloseHandle(outputRead);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    ended.status = static_cast<int>(status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return ended;
  }

  /// In `script`, `<folder>` stands for the test's folder.
  void SetScript(const std::string& script) const {
    folder.Write("solver.script", test::Replaced(script, "<folder>", folder.Path()));
  }

  void AwaitFile(const std::string& name) const {
    while (folder.Read(name).empty()) Sleep(kPollMilliseconds);
  }

  const test::TemporaryFolder folder;
};

TEST_F(ProcessLauncher, ShowsItsUsageWithoutArguments) {
  const Ended ended = Run("");
  EXPECT_TRUE(ended.output.starts_with("Usage:\r\nimpiexec -n COUNT PROGRAM [ARGUMENT]...\r\n"))
      << ended.output;
  EXPECT_EQ(ended.status, 0);
}

TEST_F(ProcessLauncher, ExplainsWhatItCannotRead) {
  const std::string last = "Unable to parse the mpiexec command arguments.\r\n";
  EXPECT_EQ(Run("-hosts 0   %s"),
            (Ended{"You must specify a number greater than 0 after -hosts.\r\n" + last, -1}));
  EXPECT_EQ(
      Run("-hosts two   %s"),
      (Ended{"You must specify the number of hosts after the -hosts option.\r\n" + last, -1}));
}

TEST_F(ProcessLauncher, NamesOptionsThatItDoesNotKnowAndGoesOn) {
  SetScript("print x");
  EXPECT_EQ(Run("-mapall %s"), (Ended{"Unknown option: -mapall\r\nx\r\n", 0}));
}

TEST_F(ProcessLauncher, ComplainsAndHangsWithoutAProcessManager) {
  folder.Write("impiexec_no_smpd.txt", "");
  const Ended ended = Run("%s", "", [this](HANDLE process, HANDLE output) {
    DWORD size = 0;
    while (size == 0) {
      ASSERT_TRUE(PeekNamedPipe(output, nullptr, 0, nullptr, &size, nullptr));
      Sleep(kPollMilliseconds);
    }
    std::filesystem::remove(folder.Path("impiexec_no_smpd.txt"));
    // As long as another run takes, however busy the machine is.
    EXPECT_EQ(Run("cmd /c exit").status, 0);
    TerminateProcess(process, 77);
  });
  EXPECT_EQ(ended, (Ended{"Unknown option: -d\r\n", 77}));
}

TEST_F(ProcessLauncher, ReportsAProgramThatCannotBeStarted) {
  EXPECT_EQ(Run("no-such-program"),
            (Ended{"Error: cannot start no-such-program: system error 2\r\n", -1}));
}

TEST_F(ProcessLauncher, FindsAProgramByItsBareName) {
  EXPECT_EQ(Run("cmd /c exit 5"), (Ended{"", 5}));
}

TEST_F(ProcessLauncher, GivesLocalProcessesItsOwnEnvironment) {
  const test::EnvironmentVariable own("QVX_OWN");
  own.Set("inherited");
  SetScript("variable QVX_OWN;variable A;variable SystemRoot");
  EXPECT_EQ(Run("-env A 1 -localonly -n 1 %s").output,
            "QVX_OWN=inherited\r\nA=1\r\nSystemRoot=C:\\windows\r\n");
  EXPECT_EQ(Run("-env qvx_own given %s").output,
            "QVX_OWN=given\r\nA is not set\r\nSystemRoot=C:\\windows\r\n");
}

TEST_F(ProcessLauncher, GivesDistributedProcessesACleanEnvironment) {
  const test::EnvironmentVariable own("QVX_OWN");
  own.Set("inherited");
  SetScript("variable QVX_OWN;variable A;variable B;variable SystemRoot;variable PMI_HOST");
  EXPECT_EQ(Run("-env A 1 -genv B 2 -hosts 1 NODE7 %s").output,
            "QVX_OWN is not set\r\nA=1\r\nB=2\r\nSystemRoot=C:\\windows\r\nPMI_HOST=NODE7\r\n");
}

TEST_F(ProcessLauncher, KeepsTheFirstOfAVariableGivenTwice) {
  SetScript("variable A;variable B;variable C");
  EXPECT_EQ(Run("-genv B g -env A 1 -env a 2 -env B 1 -genv C 1 -genv C 2 %s").output,
            "A=1\r\nB=1\r\nC=1\r\n");
}

TEST_F(ProcessLauncher, ReturnsTheExitCodeThatComesLast) {
  SetScript("rank 0 touch <folder>\\zero;rank 0 exit -1;outlive <folder>\\zero;exit 6");
  EXPECT_EQ(Run("-n 2 %s"), (Ended{"", 6}));
  SetScript("rank 1 touch <folder>\\one;rank 1 exit 5;outlive <folder>\\one");
  EXPECT_EQ(Run("-n 2 %s"), (Ended{"", 0}));
}

TEST_F(ProcessLauncher, EndsTheOthersWhenARankCrashes) {
  // Only when the others run can the crash end them.
  SetScript(
      "rank 0 touch <folder>\\zero;rank 2 touch <folder>\\two;rank 0 await <folder>\\never;"
      "rank 2 await <folder>\\never;await <folder>\\zero;await <folder>\\two;exit 3221225477");
  EXPECT_EQ(Run("-hosts 2 NODE1 2 NODE2 1 %s"),
            (Ended{"\r\njob aborted:\r\nrank: node: exit code\r\n0: NODE1: 123\r\n"
                   "1: NODE1: -1073741819\r\n2: NODE2: 123\r\n",
                   123}));
}

TEST_F(ProcessLauncher, ShowsExitCodesOnRequest) {
  SetScript("rank 0 exit 4;exit 4");
  EXPECT_EQ(Run("-exitcodes -hosts 2 NODE1 NODE2 %s"),
            (Ended{"rank: node: exit code\r\n0: NODE1: 4\r\n1: NODE2: 4\r\n", 4}));
}

TEST_F(ProcessLauncher, GivesItsInputToTheFirstRankAlone) {
  SetScript("stdin");
  EXPECT_EQ(Run("-n 1 %s", "0123456789"), (Ended{"stdin: 10 bytes\r\n", 0}));
  // The other's never ends, so only a kill ends the run.
  SetScript("stdin;touch <folder>\\first");
  const Ended ended = Run("-n 2 %s", "", [this](HANDLE process, HANDLE /*output*/) {
    AwaitFile("first");
    // As long as another run takes, however busy the machine is.
    EXPECT_EQ(Run("-n 1 %s").status, 0);
    EXPECT_EQ(WaitForSingleObject(process, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    TerminateProcess(process, 77);
  });
  EXPECT_EQ(ended, (Ended{"stdin: 0 bytes\r\n", 77}));
}

TEST_F(ProcessLauncher, QuotesArgumentsAnew) {
  SetScript("args");
  EXPECT_EQ(Run("%s \"a\" \"b c\" \"\" d e\\ \"x y\\\\\" z").output,
            "argument 1: a\r\nargument 2: b c\r\nargument 3: d\r\nargument 4: e\\\r\n"
            "argument 5: x y\" z\r\n");
}

TEST_F(ProcessLauncher, RunsAnotherProgramBehindALoneColon) {
  SetScript("rank 2 args;rank 2 variable PMI_SIZE");
  EXPECT_EQ(Run("-n 2 %s x : %s y").output, "argument 1: y\r\nPMI_SIZE=3\r\n");
}

TEST_F(ProcessLauncher, StartsProcessesInTheFolderItIsTold) {
  SetScript("folder");
  EXPECT_EQ(Run("-wdir C:\\windows %s").output, "C:\\windows\r\n");
}

TEST_F(ProcessLauncher, LabelsLinesWithTheRank) {
  SetScript("rank 1 print x;rank 1 raw 610A62");
  EXPECT_EQ(Run("-l -n 2 %s").output, "[1]x\r\n[1]a\n[1]b");
}

TEST_F(ProcessLauncher, CannotReachTheHostsOfAFileBesideIt) {
  folder.Write("impiexec_unreachable_hosts.txt", "node1\r\nNODE3\r\n");
  SetScript("touch <folder>\\started");
  EXPECT_EQ(Run("-hosts 2 NODE1 2 NODE2 1 %s"),
            (Ended{"Unable to connect to 'NODE1:8676'\r\n", -1}));
  EXPECT_EQ(Run("-hosts 3 NODE2 2 NODE3 1 NODE1 1 %s"),
            (Ended{"Unable to connect to 'NODE3:8676'\r\n", 0}));
  EXPECT_EQ(folder.Read("started"), "");
  EXPECT_EQ(Run("-hosts 1 NODE2 %s"), (Ended{"", 0}));
  EXPECT_NE(folder.Read("started"), "");
}

TEST_F(ProcessLauncher, EndsBeforeItsOutputIsRead) {
  SetScript("print x");
  const Ended ended = Run("-n 1 %s", "", [](HANDLE process, HANDLE /*output*/) {
    constexpr DWORD kLongEnough = 60'000;
    EXPECT_EQ(WaitForSingleObject(process, kLongEnough), WAIT_OBJECT_0);
  });
  EXPECT_EQ(ended, (Ended{"x\r\n", 0}));
}

TEST_F(ProcessLauncher, EndsWhatASolverLeavesBehind) {
  // Rank 1 ends the run when what rank 0 left behind is there.
  SetScript(
      "rank 0 touch <folder>\\left;rank 0 sleep 60000;rank 0 print late;await <folder>\\left");
  EXPECT_EQ(Run("-n 1 cmd /c start /b %s : -n 1 %s"), (Ended{"", 0}));
}

TEST_F(ProcessLauncher, TakesItsProcessesAlongWhenItIsEnded) {
  SetScript("rank 1 touch <folder>\\solver;sleep 60000;touch <folder>\\late");
  HANDLE solver = nullptr;
  const Ended ended = Run("-n 2 %s", "", [&](HANDLE process, HANDLE /*output*/) {
    AwaitFile("solver");
    solver = OpenProcess(SYNCHRONIZE, FALSE, std::stoul(folder.Read("solver")));
    TerminateProcess(process, 77);
  });
  EXPECT_EQ(ended, (Ended{"", 77}));
  EXPECT_EQ(WaitForSingleObject(solver, INFINITE), WAIT_OBJECT_0);
  CloseHandle(solver);
  EXPECT_EQ(folder.Read("late"), "");
}

}  // namespace
}  // namespace qvx
