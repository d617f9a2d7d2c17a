// The check's whole answers: reports, JSON, its own calls.
#include <string>

#include "tests/runcheck/findings.h"

namespace qvx::test {
namespace {

using RunCheckReport = RunCheckTest;

TEST_F(RunCheckReport, Dump) {
  site.Write("Work\\Sample\\Analysis\\Run01\\console_redirect_serial_Flow_2024-03-05_09-07-02.txt",
             "");
  const auto dump = [&](const char* name, const std::string& text) {
    std::printf("@@%s %d\n%s@@end\n", name, status, text.c_str());
  };
  dump("Serial", Answer({"--", "L$1", kRun, kFlow}));
  dump("SecondForm", Answer({"--project", "<site>\\Work\\Sample", "--run", "01", "--solver", kFlow,
                             "--home", "<site>\\Home", "--option", "-3"}));
  dump("NoRun", Answer({"--project", "<site>\\Work\\Sample", "--solver", kFlow}));
  dump("NoHome", Answer({"--project", "<site>\\Work\\Sample", "--run", "01", "--solver", kFlow}));
  site.Write("Work\\Sample\\Analysis\\Run01\\Other01.cmx", "");
  dump("TwoNames", Answer({"--project", "<site>\\Work\\Sample", "--run", "01", "--solver", kFlow,
                           "--home", "<site>\\Home"}));
  dump("Unknown", Answer({"--jsn", "--", "L$1", kRun, kFlow}));
  dump("JsonWrong", Answer({"--json", "--timeout"}));
  dump("JsonFew", Answer({"--json", "--", "L$1"}));
  dump("Version", Answer({"--version"}));
  dump("Status", Answer({"--explain-status", "-7000"}));
  dump("StatusLibrary", Answer({"--explain-status", "0xC0000135"}));
  dump("StatusOwn", Answer({"--explain-status", "3"}));
  dump("Help", RunQvxRunCheck({"/?"}).output);
  dump("None", RunQvxRunCheck({}).output);
  site.WriteCmx(kDmpFile);
  dump("Distributed", Answer({"--", "L$1", kRun, kFlow}));
  site.WriteCmx(Replaced(kDmpFile, "ValueMachineWeighting", "ValueMachinWeighting"));
  dump("Json", Answer({"--json", "--", "L$1", kRun, kFlow}));
  site.InstallSolver("Qvx3DCool.exe");
  site.WriteCmx(std::string(kSerialFile) +
                "<SOLID_COOL>\r\nFlag3DSolidCoolingChannel=1\r\n</SOLID_COOL>\r\n");
  dump("Cooling", Answer({"--", "L$1", kRun, "Qvx3DCool.exe"}));
}

}  // namespace
}  // namespace qvx::test
