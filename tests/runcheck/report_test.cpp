// The check's whole answers: reports, JSON, its own calls.
#include <string>

#include "tests/runcheck/findings.h"
#include "version.h"

namespace qvx::test {
namespace {

class RunCheckReport : public RunCheckTest {
 protected:
  void LeaveALog() const {
    site.Write(
        "Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_2024-03-05_09-07-02.txt", "");
  }
};

/// The report of a serial run behind LeaveALog.
const std::string kSerialReport =
    "Run 01 of <site>\\Work\\Sample: FLOW, serial\n"
    "\n"
    "  family        FLOW             \"flow\" and \"3d\" in Qvx3DFlow.exe\n"
    "  mode          serial           Sample01.cmx:3  ValueLocalNoTask = 1\n"
    "  solver        <site>\\Home\\Bin\\Qvx3DFlow.exe\n"
    "  command line  <site>\\Home\\Bin\\Qvx3DFlow.exe -home \"<site>\\Home\" -project "
    "\"<site>\\Work\\Sample\" -name \"Sample\" -run \"01\" -molding 1 -option 0 -parallel "
    "0 -processes 1\n"
    "  log           "
    "<site>\\Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_<time>.txt\n"
    "  deletes       1 earlier log in <site>\\Work\\Sample\\Analysis\\Run01\n"
    "\n"
    "Nothing stands in the way of this run.\n";

/// The whole answer with one diagnostic, which begins as the texts `diagnostic` say.
std::string JsonWithoutPasses(const std::string& verdict, int errors,
                              const std::string& diagnostic) {
  return "{\n"
         "  \"format_version\": \"1.0\",\n"
         "  \"verdict\": \"" +
         verdict +
         "\",\n"
         "  \"error_count\": " +
         std::to_string(errors) +
         ",\n"
         "  \"warning_count\": 0,\n"
         "  \"passes\": [],\n"
         "  \"machines\": [],\n"
         "  \"reasons\": [],\n"
         "  \"diagnostics\": [\n"
         "    {\n" +
         diagnostic +
         "      \"range\": null,\n"
         "      \"snippet\": null,\n"
         "      \"suggestion\": null\n"
         "    }\n"
         "  ]\n"
         "}\n";
}

TEST_F(RunCheckReport, ASerialRunAndTheLogThatItDeletes) {
  LeaveALog();
  EXPECT_EQ(Answer({"--", "L$1", kTokens, kFlow}), kSerialReport);
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, ADistributedRunAndItsMachines) {
  site.WriteCmx(kDmpCmx);
  EXPECT_EQ(Answer({"--", "L$1", kTokens, kFlow}),
            "Run 01 of <site>\\Work\\Sample: FLOW, distributed over 2 machines, 3 processes\n"
            "\n"
            "  family        FLOW             \"flow\" and \"3d\" in Qvx3DFlow.exe\n"
            "  mode          distributed      Sample01.cmx:2  IDTaskMode = 1\n"
            "  solver        <share>\\Home\\Bin\\Qvx3DFlow.exe\n"
            "  command line  <site>\\Mpi\\impiexec.exe -env 0 0 -hosts 2 NODE1 2 NODE2 1   "
            "\"<share>\\Home\\Bin\\Qvx3DFlow.exe\" -home \"<share>\\Home\" -project "
            "\"<share>\\Work\\sample\" -name \"Sample\" -run \"01\" -molding 1 -option 0 -parallel "
            "2 -processes 3 -weights 0.3,0.3,0.4\n"
            "  log           "
            "<share>\\Work\\sample\\Analysis\\Run01\\console_redirect_dmp_Flow_<time>.txt\n"
            "\n"
            "  machine  tasks  weighting  each process  name\n"
            "  NODE1        2        0.6           0.3  not asked\n"
            "  NODE2        1        0.4           0.4  not asked\n"
            "\n"
            "Nothing stands in the way of this run.\n");
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, ACoolingRunOfTwoPasses) {
  LeaveALog();
  site.InstallSolver("Qvx3DCool.exe");
  site.WriteCmx(std::string(kSerialCmx) +
                "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel=1\r\n</SOLID_COOL>\r\n");
  EXPECT_EQ(Answer({"--", "L$1", kTokens, "Qvx3DCool.exe"}),
            "Run 01 of <site>\\Work\\Sample: COOL after a FLOW pass, serial\n"
            "\n"
            "  family        FLOW             Sample01.cmx:6  Flag3DSolidCoolingChannel = 1\n"
            "  mode          serial           Sample01.cmx:3  ValueLocalNoTask = 1\n"
            "  solver        <site>\\Home\\Bin\\Qvx3DFlow.exe\n"
            "  command line  <site>\\Home\\Bin\\Qvx3DFlow.exe -home \"<site>\\Home\" -project "
            "\"<site>\\Work\\Sample\" -name \"Sample\" -run \"01\" -molding 1 -option 2 -parallel "
            "0 -processes 1\n"
            "  log           "
            "<site>\\Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_<time>.txt\n"
            "  deletes       1 earlier log in <site>\\Work\\Sample\\Analysis\\Run01\n"
            "\n"
            "  family        COOL             \"cool\" and \"3d\" in Qvx3DCool.exe\n"
            "  mode          serial           Sample01.cmx:3  ValueLocalNoTask = 1\n"
            "  solver        <site>\\Home\\Bin\\Qvx3DCool.exe\n"
            "  command line  <site>\\Home\\Bin\\Qvx3DCool.exe -home \"<site>\\Home\" -project "
            "\"<site>\\Work\\Sample\" -name \"Sample\" -run \"01\" -molding 1 -option 3 -parallel "
            "0 -processes 1 -prevshot 0 -prevproject \" \" -prevrun \"00\" -prevname \" \"\n"
            "  log           "
            "<site>\\Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Cool_<time>.txt\n"
            "\n"
            "Nothing stands in the way of this run.\n");
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, OptionsMakeTheCallAndShowIt) {
  LeaveALog();
  EXPECT_EQ(
      Answer({"--project", "<site>\\Work\\Sample", "--run", "01", "--solver", kFlow, "--home",
              "<site>\\Home", "--option", "-3"}),
      "QVXSolverLauncher.exe$1 <site>\\Home*<site>\\Work\\Sample*Sample*-3*01 Qvx3DFlow.exe\n\n" +
          kSerialReport);
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, JsonIsOneObject) {
  site.WriteCmx(Replaced(kDmpCmx, "ValueMachineWeighting", "ValueMachinWeighting"));
  EXPECT_EQ(
      Answer({"--json", "--", "L$1", kTokens, kFlow}),
      "{\n"
      "  \"format_version\": \"1.0\",\n"
      "  \"verdict\": \"warnings\",\n"
      "  \"error_count\": 0,\n"
      "  \"warning_count\": 1,\n"
      "  \"passes\": [\n"
      "    {\n"
      "      \"family\": \"FLOW\",\n"
      "      \"mode\": \"distributed\",\n"
      "      \"solver\": \"\\\\\\\\NODE1\\\\<name>\\\\Home\\\\Bin\\\\Qvx3DFlow.exe\",\n"
      "      \"command_line\": \"C:\\\\NODE1\\\\<name>\\\\Mpi\\\\impiexec.exe -env 0 0 -hosts 2 "
      "NODE1 2 NODE2 1   \\\"\\\\\\\\NODE1\\\\<name>\\\\Home\\\\Bin\\\\Qvx3DFlow.exe\\\" -home "
      "\\\"\\\\\\\\NODE1\\\\<name>\\\\Home\\\" -project "
      "\\\"\\\\\\\\NODE1\\\\<name>\\\\Work\\\\sample\\\" -name \\\"Sample\\\" -run \\\"01\\\" "
      "-molding 1 -option 0 -parallel 2 -processes 3 -weights 0,0,0\",\n"
      "      \"reported_path\": \"C:\\\\NODE1\\\\<name>\\\\Mpi\\\\impiexec.exe\",\n"
      "      \"log\": "
      "\"\\\\\\\\NODE1\\\\<name>\\\\Work\\\\sample\\\\Analysis\\\\Run01\\\\console_redirect_dmp_"
      "Flow_<time>.txt\",\n"
      "      \"deletes\": [],\n"
      "      \"process_count\": 3,\n"
      "      \"weights\": [\n"
      "        0.0,\n"
      "        0.0,\n"
      "        0.0\n"
      "      ],\n"
      "      \"environment\": {\n"
      "        \"I_MPI_SMPD_VERSION_CHECK\": \"0\"\n"
      "      }\n"
      "    }\n"
      "  ],\n"
      "  \"machines\": [\n"
      "    {\n"
      "      \"host\": \"NODE1\",\n"
      "      \"tasks\": 2,\n"
      "      \"weighting\": 0.0,\n"
      "      \"address\": null\n"
      "    },\n"
      "    {\n"
      "      \"host\": \"NODE2\",\n"
      "      \"tasks\": 1,\n"
      "      \"weighting\": 0.0,\n"
      "      \"address\": null\n"
      "    }\n"
      "  ],\n"
      "  \"reasons\": [\n"
      "    {\n"
      "      \"fact\": \"family\",\n"
      "      \"because\": \"\\\"flow\\\" and \\\"3d\\\" in Qvx3DFlow.exe\",\n"
      "      \"range\": null\n"
      "    },\n"
      "    {\n"
      "      \"fact\": \"mode\",\n"
      "      \"because\": \"IDTaskMode = 1\",\n"
      "      \"range\": {\n"
      "        \"filename\": \"Sample01.cmx\",\n"
      "        \"start\": {\n"
      "          \"line\": 2,\n"
      "          \"column\": 1\n"
      "        },\n"
      "        \"end\": {\n"
      "          \"line\": 2,\n"
      "          \"column\": 13\n"
      "        }\n"
      "      }\n"
      "    }\n"
      "  ],\n"
      "  \"diagnostics\": [\n"
      "    {\n"
      "      \"severity\": \"warning\",\n"
      "      \"code\": \"cmx-unknown-key\",\n"
      "      \"summary\": \"ValueMachinWeighting is no key of REMOTE_MACHINES\",\n"
      "      \"detail\": \"the launcher would ignore the line; "
      "a key of this section is written ValueMachineWeighting\",\n"
      "      \"range\": {\n"
      "        \"filename\": \"Sample01.cmx\",\n"
      "        \"start\": {\n"
      "          \"line\": 12,\n"
      "          \"column\": 1\n"
      "        },\n"
      "        \"end\": {\n"
      "          \"line\": 12,\n"
      "          \"column\": 21\n"
      "        }\n"
      "      },\n"
      "      \"snippet\": \"ValueMachinWeighting\",\n"
      "      \"suggestion\": \"ValueMachineWeighting\"\n"
      "    }\n"
      "  ]\n"
      "}\n");
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, JsonOfACallWithoutArguments) {
  EXPECT_EQ(Answer({"--json", "--", "L$1"}),
            JsonWithoutPasses(
                "errors", 1,
                "      \"severity\": \"error\",\n"
                "      \"code\": \"call-arguments\",\n"
                "      \"summary\": \"the call has 1 argument, fewer than two\",\n"
                "      \"detail\": \"the launcher would stop with -1 and start nothing; a call is "
                "FIRST_ARGUMENT TOKENS SOLVER\",\n"));
  EXPECT_EQ(status, 1);
}

TEST_F(RunCheckReport, JsonOfAWrongCall) {
  EXPECT_EQ(
      Answer({"--json", "--timeout"}),
      JsonWithoutPasses(
          "errors", 1,
          "      \"severity\": \"error\",\n"
          "      \"code\": \"wrong-call\",\n"
          "      \"summary\": \"--timeout is not followed by its value\",\n"
          "      \"detail\": \"nothing was checked; QVXRunCheck.exe --help shows both forms of "
          "call\",\n"));
  EXPECT_EQ(status, 2);
}

TEST_F(RunCheckReport, JsonOfTheVersion) {
  EXPECT_EQ(Answer({"--json", "--version"}),
            JsonWithoutPasses(
                "ready", 0,
                "      \"severity\": \"note\",\n"
                "      \"code\": \"information\",\n"
                "      \"summary\": \"QVXRunCheck " QVX_VERSION "\",\n"
                "      \"detail\": \"nothing was checked; this needs nothing to be done\",\n"));
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, AMissingOptionIsAWrongCall) {
  EXPECT_EQ(Answer({"--project", "<site>\\Work\\Sample", "--solver", kFlow}),
            "error: --run is missing: nothing was checked [wrong-call]\n"
            "    help: QVXRunCheck.exe --help shows both forms of call\n");
  EXPECT_EQ(status, 2);
}

TEST_F(RunCheckReport, AnUnknownOptionIsAWrongCall) {
  EXPECT_EQ(Answer({"--jsn", "--", "L$1", kTokens, kFlow}),
            "error: --jsn is no option; it is written --json: nothing was checked [wrong-call]\n"
            "    help: QVXRunCheck.exe --help shows both forms of call\n");
  EXPECT_EQ(status, 2);
}

TEST_F(RunCheckReport, TwoCmxFilesNeedAName) {
  site.Write("Work\\Sample\\Analysis\\Run01\\Other01.cmx", "");
  EXPECT_EQ(Answer({"--project", "<site>\\Work\\Sample", "--run", "01", "--solver", kFlow, "--home",
                    "<site>\\Home"}),
            "error: --name is missing, and the run folder holds the CMX files of Other and Sample: "
            "nothing was checked [wrong-call]\n"
            "    help: QVXRunCheck.exe --help shows both forms of call\n");
  EXPECT_EQ(status, 2);
}

TEST_F(RunCheckReport, TheVersion) {
  EXPECT_EQ(Answer({"--version"}), "QVXRunCheck " QVX_VERSION "\n");
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, TheLaunchersOwnStatus) {
  EXPECT_EQ(Answer({"--explain-status", "-7000"}),
            "-7000: impiexec.exe found no MPI process manager (smpd) and was ended; the "
            "launcher's message shows the command that installs it on this machine\n");
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, TheSystemsStatus) {
  EXPECT_EQ(
      Answer({"--explain-status", "0xC0000135"}),
      "-1073741515 (0xC0000135): a library that the launcher or the solver needs is missing; the "
      "system says: Module not found.\n");
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, TheSolversStatus) {
  EXPECT_EQ(Answer({"--explain-status", "3"}),
            "3: the solver's own, or that of impiexec.exe; the solver's manual explains it\n");
  EXPECT_EQ(status, 0);
}

TEST_F(RunCheckReport, TheHelpAndNoArgument) {
  const CheckResult help = RunQvxRunCheck({"/?"});
  EXPECT_EQ(
      help.output,
      "QVXRunCheck says before a run what QVXSolverLauncher would do, why, and what is wrong.\n"
      "It starts nothing, writes nothing and changes nothing.\n"
      "\n"
      "  QVXRunCheck.exe [options] -- FIRST_ARGUMENT [TOKENS [SOLVER ...]]\n"
      "  QVXRunCheck.exe [options] --project DIR --run NUMBER --solver NAME [--home DIR]\n"
      "                  [--name NAME] [--molding-type N] [--option N]\n"
      "  QVXRunCheck.exe --explain-status N\n"
      "\n"
      "Behind -- stands exactly what the launcher would be started with.\n"
      "\n"
      "Options:\n"
      "  -h,--help                   show this help, like /?\n"
      "  --version                   show the version\n"
      "  --json                      print one JSON object\n"
      "  --no-network                ask no host and no share\n"
      "  --timeout SECONDS           seconds that the network has to answer, 0.1 to 600 (5)\n"
      "  --explain-status N          say what a launcher's exit status means\n"
      "  --project DIR               project directory\n"
      "  --run NUMBER                run number, as in the name of its folder\n"
      "  --solver NAME               the solver's file name\n"
      "  --home DIR                  installation (the folder above this program's Bin)\n"
      "  --name NAME                 project name (from the run folder's only CMX file)\n"
      "  --molding-type N            molding type (1)\n"
      "  --option N                  option value (0)\n"
      "\n"
      "\n"
      "Exit status: 0 nothing stops the run, warnings included; 1 the run would not start, would\n"
      "start something else than meant, or would lose its log; 2 this call is wrong.\n");
  EXPECT_EQ(help.status, 0);
  const CheckResult none = RunQvxRunCheck({});
  EXPECT_EQ(none.output, help.output);
  EXPECT_EQ(none.status, 2);
}

TEST_F(RunCheckReport, TheLaunchersArgumentsStandBehindTheSeparator) {
  EXPECT_EQ(Answer({"L$1", kTokens, kFlow}),
            "error: L$1 stands without -- before it: what the launcher is started with stands "
            "behind --: nothing was checked [wrong-call]\n"
            "    help: QVXRunCheck.exe --help shows both forms of call\n");
  EXPECT_EQ(status, 2);
}

TEST_F(RunCheckReport, LeavesWildcardsOnItsCommandLineAlone) {
  EXPECT_EQ(Answer({"<site>\\Home\\B?n"}),
            "error: <site>\\Home\\B?n belongs to no option; a text with blanks stands in quotation "
            "marks: nothing was checked [wrong-call]\n"
            "    help: QVXRunCheck.exe --help shows both forms of call\n");
  EXPECT_EQ(Findings({"L$1", kTokens, kFlow, "<site>\\Home\\*"}),
            "warning: the call has 4 arguments [call-extra-arguments]\n"
            "    help: a call is FIRST_ARGUMENT TOKENS SOLVER\n"
            "\n"
            "1 warning: this run would start.\n");
}

}  // namespace
}  // namespace qvx::test
