// Replacement for QVXMPITool.dll: looks for the account file and stops there. It writes no registry
// settings and asks for no options on the MPI process launcher's command line.
#include <filesystem>
#include <fstream>

#include "platform/qvx_mpi_tool.h"

CQVXMPITool::CQVXMPITool() = default;
CQVXMPITool::~CQVXMPITool() = default;

int CQVXMPITool::ConvertAcc2RegistryForIntelMPI(const wchar_t* folder, bool /*flag*/) {
  std::ifstream accounts(std::filesystem::path(folder) / "acc.ini", std::ios::binary);
  return accounts.peek() == std::ifstream::traits_type::eof() ? kAccountFileNotUsable : 0;
}

const wchar_t* CQVXMPITool::GetIntelMPIConfigurationStringForMpiexec(const wchar_t* /*folder*/) {
  return L"";
}
