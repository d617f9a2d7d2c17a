// Registry, project-wide ini file, known folders, time, environment and console of the simulated
// machine.
#include <algorithm>
#include <cstring>
#include <cwchar>

#include "tests/transcripts/flags.h"
#include "tests/transcripts/simulated_calls.h"
#include "tests/transcripts/simulated_machine.h"
#include "tests/transcripts/transcript.h"

namespace qvx::test::simulated {
namespace {

const auto kKey = reinterpret_cast<HKEY>(0x62000004);

std::string FolderArguments(HWND window, int folder, HANDLE token, DWORD flags) {
  return std::string("window ") + (window == nullptr ? "none" : "given") + ", " +
         Choice(static_cast<DWORD>(folder), {{CSIDL_COMMON_APPDATA, "CSIDL_COMMON_APPDATA"},
                                             {CSIDL_APPDATA, "CSIDL_APPDATA"},
                                             {CSIDL_LOCAL_APPDATA, "CSIDL_LOCAL_APPDATA"}}) +
         ", token " + (token == nullptr ? "none" : "given") + ", " +
         Choice(flags, {{SHGFP_TYPE_CURRENT, "SHGFP_TYPE_CURRENT"},
                        {SHGFP_TYPE_DEFAULT, "SHGFP_TYPE_DEFAULT"}});
}

std::string KeyName(HKEY key) {
  if (key == HKEY_LOCAL_MACHINE) return "HKEY_LOCAL_MACHINE";
  if (key == HKEY_CURRENT_USER) return "HKEY_CURRENT_USER";
  return key == kKey ? "the key" : "another key";
}

}  // namespace

BOOL WINAPI SetConsoleCtrlHandler(PHANDLER_ROUTINE handler, BOOL add) {
  const Observation observation("SetConsoleCtrlHandler");
  const std::string line = std::string("SetConsoleCtrlHandler(") +
                           (handler == nullptr ? "none" : "a handler") + ", add " + Truth(add) +
                           ") = ";
  if (observation.Fails()) return Answered(line, false);
  Machine().consoleHandler = add != 0 ? handler : nullptr;
  return Answered(line, true);
}

HRESULT WINAPI SHGetFolderPathA(HWND window, int folder, HANDLE token, DWORD flags, LPSTR path) {
  const Observation observation("SHGetFolderPathA");
  const std::string line = "SHGetFolderPathA(" + FolderArguments(window, folder, token, flags) +
                           ", into " + (*path == '\0' ? "a cleared" : "a used") + " buffer) = ";
  if (observation.Fails()) {
    Record(line + "E_FAIL");
    return E_FAIL;
  }
  const std::string found = std::string(kSite) + "\\Common";
  std::strcpy(path, found.c_str());
  Record(line + "S_OK, " + Quoted(found));
  return S_OK;
}

HRESULT WINAPI SHGetFolderPathW(HWND window, int folder, HANDLE token, DWORD flags, LPWSTR path) {
  const Observation observation("SHGetFolderPathW");
  constexpr int kWidth = MAX_PATH;
  const bool cleared = std::all_of(path, path + kWidth, [](wchar_t unit) { return unit == 0; });
  const std::string line = "SHGetFolderPathW(" + FolderArguments(window, folder, token, flags) +
                           ", into " + (cleared ? "cleared" : "used") + " 260 units) = ";
  if (observation.Fails()) {
    Record(line + "E_FAIL");
    return E_FAIL;
  }
  std::wcscpy(path, Machine().scenario.applicationData.c_str());
  Record(line + "S_OK, " + Quoted(path) + ", " + std::to_string(std::wcslen(path)) + " units");
  return S_OK;
}

int WINAPI SHCreateDirectory(HWND window, LPCWSTR path) {
  const Observation observation("SHCreateDirectory");
  const DWORD result = observation.Fails() ? Machine().lastError : ERROR_ALREADY_EXISTS;
  Record(std::string("SHCreateDirectory(window ") + (window == nullptr ? "none" : "given") + ", " +
         Quoted(path) + ", " + std::to_string(std::wcslen(path)) +
         " units) = " + ErrorName(result));
  return static_cast<int>(result);
}

DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR text,
                                      DWORD size, LPCSTR file) {
  const Observation observation("GetPrivateProfileStringA");
  const std::string value = observation.Fails() ? fallback : Machine().scenario.parallelFolderName;
  const std::string copied = value.substr(0, size - 1);
  std::strcpy(text, copied.c_str());
  Record("GetPrivateProfileStringA(" + QuotedOr(section, "none") + ", " + QuotedOr(key, "none") +
         ", default " + QuotedOr(fallback, "none") + ", " + std::to_string(size) + " characters, " +
         QuotedOr(file, "none") + ") = " + std::to_string(copied.size()) + ", " + Quoted(copied));
  return static_cast<DWORD>(copied.size());
}

LSTATUS WINAPI RegOpenKeyA(HKEY parent, LPCSTR path, PHKEY key) {
  const Observation observation("RegOpenKeyA");
  const std::string line = "RegOpenKeyA(" + KeyName(parent) + ", " + Quoted(path) + ") = ";
  const DWORD result = observation.Fails() ? Machine().lastError : ERROR_SUCCESS;
  Record(line + ErrorName(result) + (result == ERROR_SUCCESS ? ", the key" : ""));
  if (result == ERROR_SUCCESS) *key = kKey;
  return static_cast<LSTATUS>(result);
}

LSTATUS WINAPI RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE text,
                                LPDWORD size) {
  const Observation observation("RegQueryValueExA");
  const bool cleared = std::all_of(text, text + *size, [](BYTE byte) { return byte == 0; });
  const std::string line = "RegQueryValueExA(" + KeyName(key) + ", " + Quoted(name) +
                           ", reserved " + (reserved == nullptr ? "none" : "given") + ", type " +
                           (type == nullptr ? "not asked" : "asked") + ", " +
                           std::to_string(*size) + " bytes, " + (cleared ? "cleared" : "used") +
                           ") = ";
  const auto& value = Machine().scenario.installPath;
  DWORD result = observation.Fails() ? Machine().lastError : ERROR_SUCCESS;
  if (!observation.Fails() && !value) result = ERROR_FILE_NOT_FOUND;
  if (result == ERROR_SUCCESS && value->size() > *size) result = ERROR_MORE_DATA;
  if (result != ERROR_SUCCESS) {
    Record(line + ErrorName(result));
    return static_cast<LSTATUS>(result);
  }
  value->copy(reinterpret_cast<char*>(text), value->size());
  *size = static_cast<DWORD>(value->size());
  if (type != nullptr) *type = REG_SZ;
  Record(line + "ERROR_SUCCESS, " + std::to_string(*size) + " bytes " + Quoted(*value));
  return ERROR_SUCCESS;
}

LSTATUS WINAPI RegCloseKey(HKEY key) {
  const Observation observation("RegCloseKey");
  const DWORD result = observation.Fails() ? Machine().lastError : ERROR_SUCCESS;
  Record("RegCloseKey(" + KeyName(key) + ") = " + ErrorName(result));
  return static_cast<LSTATUS>(result);
}

BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value) {
  const Observation observation("SetEnvironmentVariableA");
  const std::string line =
      "SetEnvironmentVariableA(" + Quoted(name) + ", " + QuotedOr(value, "none") + ") = ";
  if (observation.Fails()) return Answered(line, false);
  if (value != nullptr) Machine().environment[name] = value;
  if (value == nullptr) Machine().environment.erase(name);
  return Answered(line, true);
}

void WINAPI GetLocalTime(LPSYSTEMTIME time) {
  const Observation observation("GetLocalTime");
  const bool first = Machine().CallsOf("GetLocalTime") == 1;
  *time = first ? SYSTEMTIME{2024, 3, 2, 5, Machine().scenario.hour, 7, 2, 45}
                : SYSTEMTIME{2024, 11, 4, 14, 21, 38, 56, 789};
  Record("GetLocalTime() = year 2024, month " +
         (first ? "3, Tuesday, day 5, " + std::to_string(time->wHour) + ":7:2.045"
                : "11, Thursday, day 14, 21:38:56.789"));
}

void WINAPI Sleep(DWORD milliseconds) {
  const Observation observation("Sleep");
  Record("Sleep(" + std::to_string(milliseconds) + ")");
}

DWORD WINAPI GetLastError() {
  const Observation observation("GetLastError");
  Record("GetLastError() = " + ErrorName(Machine().lastError));
  return Machine().lastError;
}

}  // namespace qvx::test::simulated
