// QVXMPITool.dll of the transcripts.
#include <cwchar>
#include <string>

#include "platform/qvx_mpi_tool.h"
#include "tests/transcripts/libraries/attached_host.h"

using qvx::test::host;
using qvx::test::Operation;

namespace {

int conversions = 0;  // of the present run

}  // namespace

CQVXMPITool::CQVXMPITool() {
  conversions = 0;
  host->construct(this, "MPI tool");
}
CQVXMPITool::~CQVXMPITool() { host->destroy(this); }

int CQVXMPITool::ConvertAcc2RegistryForIntelMPI(const wchar_t* folder, bool flag) {
  Operation operation(this, "ConvertAcc2RegistryForIntelMPI");
  const int result = host->answers->accountResults[conversions++ % 2];
  operation.Add(std::string("(") + host->quoteWide(folder) + ", " + (flag ? "true" : "false") +
                ") = " + std::to_string(result));
  return result;
}

const wchar_t* CQVXMPITool::GetIntelMPIConfigurationStringForMpiexec(const wchar_t* folder) {
  Operation operation(this, "GetIntelMPIConfigurationStringForMpiexec");
  operation.Add(std::string("(") + host->quoteWide(folder) + ", " +
                std::to_string(std::wcslen(folder)) + " units) = ");
  if (host->answers->mpiConfiguration == nullptr) {
    operation.Add("none");
    return nullptr;
  }
  operation.Add(host->quoteWide(host->answers->mpiConfiguration));
  const std::size_t length = std::wcslen(host->answers->mpiConfiguration);
  auto* text = new wchar_t[length + 1];  // never released: what is lent may be read too late
  std::wmemcpy(text, host->answers->mpiConfiguration, length + 1);
  host->lend(text, length, sizeof *text);
  return text;
}
