// A QVXMPITool.dll that fails.
#include <stdexcept>

#include "platform/qvx_mpi_tool.h"

CQVXMPITool::CQVXMPITool() { throw std::runtime_error("a closed library's"); }
CQVXMPITool::~CQVXMPITool() = default;
int CQVXMPITool::ConvertAcc2RegistryForIntelMPI(const wchar_t* /*folder*/, bool /*flag*/) {
  return 0;
}
const wchar_t* CQVXMPITool::GetIntelMPIConfigurationStringForMpiexec(const wchar_t* /*folder*/) {
  return L"";
}
