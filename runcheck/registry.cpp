#include "runcheck/registry.h"

#include <windows.h>

namespace qvx::runcheck {
namespace {

MpiPathValue LookUp(HKEY root, REGSAM view) {
  MpiPathValue value;
  HKEY key = nullptr;
  if (RegOpenKeyExA(root, "SOFTWARE\\NelvornSystem", 0, KEY_READ | view, &key) != ERROR_SUCCESS) {
    return value;
  }
  value.hasKey = true;
  DWORD kind = REG_NONE;
  value.hasValue = RegQueryValueExA(key, "IntelMPI_InstallPath", nullptr, &kind, nullptr,
                                    &value.size) == ERROR_SUCCESS;
  value.isExpandable = kind == REG_EXPAND_SZ;
  value.isText = kind == REG_SZ || value.isExpandable;
  RegCloseKey(key);
  return value;
}

}  // namespace

MpiPathValue LookUpMpiPathValue() {
  MpiPathValue value = LookUp(HKEY_LOCAL_MACHINE, 0);
  if (value.hasValue) return value;
  value.isIn32BitView = LookUp(HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY).hasValue;
  value.isInUserKey = LookUp(HKEY_CURRENT_USER, 0).hasValue;
  return value;
}

}  // namespace qvx::runcheck
