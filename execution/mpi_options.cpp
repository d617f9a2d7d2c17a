#include "execution/mpi_options.h"

#include <shlobj.h>

#include <algorithm>
#include <memory>

namespace qvx {

std::wstring MpiConfigurationFolder() {
  wchar_t applicationData[kPathWidth] = {};
  SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_DEFAULT, applicationData);
  std::wstring folder = std::wstring(applicationData) + L"\\NelvornSystem\\Quorvex R13.0";
  folder.resize(std::min(folder.size(), kPathWidth - 1));
  return folder;
}

std::string MpiConfiguration(LauncherContext& context, const std::wstring& folder) {
  const wchar_t* text = context.mpiTool.GetIntelMPIConfigurationStringForMpiexec(folder.c_str());
  const std::wstring wide = text == nullptr ? L"" : text;
  char* utf8 = nullptr;
  context.mpiUnicodeTool.Utf16ToUtf8(wide.c_str(), utf8);
  const std::unique_ptr<char[]> owner(utf8);
  return utf8 == nullptr ? "" : utf8;
}

}  // namespace qvx
