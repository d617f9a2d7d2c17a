// QVXMPITool.dll, a closed library of the product: what the MPI product needs to know of the
// suite's accounts and options. Only what the launcher calls is declared here.
//
// Folders are zero-terminated UTF-16 texts without a trailing separator.
#pragma once

#if !defined(_WIN32)
#define QVX_MPI_TOOL_API
#elif defined(QVXMPITool_EXPORTS)
#define QVX_MPI_TOOL_API __declspec(dllexport)
#else
#define QVX_MPI_TOOL_API __declspec(dllimport)
#endif

class QVX_MPI_TOOL_API CQVXMPITool {
 public:
  /// `ConvertAcc2RegistryForIntelMPI`: the account file is not usable.
  static constexpr int kAccountFileNotUsable = -6;

  CQVXMPITool();
  ~CQVXMPITool();
  CQVXMPITool(const CQVXMPITool&) = delete;
  CQVXMPITool& operator=(const CQVXMPITool&) = delete;

  /// Reads `acc.ini` of `folder` and writes the MPI registry settings. The launcher passes false
  /// for the second argument, whose meaning is the library's. Returns `kAccountFileNotUsable` or
  /// another number that lets the run go on.
  int ConvertAcc2RegistryForIntelMPI(const wchar_t* folder, bool flag);

  /// Options that the command line of the MPI process launcher must carry, as UTF-16. The text
  /// stays the tool's and holds until the next call.
  const wchar_t* GetIntelMPIConfigurationStringForMpiexec(const wchar_t* folder);
};
