#include "runcheck/libraries.h"

#include <windows.h>

#include <cstdint>
#include <string>

namespace qvx::runcheck {
namespace {

// Addresses within this program's image.
template <typename Type>
const Type* At(std::uintptr_t offset) {
  return reinterpret_cast<const Type*>(reinterpret_cast<std::uintptr_t>(GetModuleHandleA(nullptr)) +
                                       offset);
}

const IMAGE_DATA_DIRECTORY& DelayDirectory() {
  const auto* dos = At<IMAGE_DOS_HEADER>(0);
  const auto* headers = At<IMAGE_NT_HEADERS>(static_cast<std::uintptr_t>(dos->e_lfanew));
  return headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT];
}

std::string Missing(const std::string& library, DWORD error) {
  switch (error) {
    case ERROR_MOD_NOT_FOUND:
      return library + ", or a library that it needs, is missing";
    case ERROR_BAD_EXE_FORMAT:
      return library + " is no library for this machine";
    case ERROR_DLL_INIT_FAILED:
      return library + " does not start";
    default:
      return library + " cannot be loaded (system error " + std::to_string(error) + ")";
  }
}

bool CheckLibrary(const IMAGE_DELAYLOAD_DESCRIPTOR& descriptor, Diagnostics& found) {
  const std::string library = At<char>(descriptor.DllNameRVA);
  const HMODULE module = LoadLibraryA(library.c_str());
  if (module == nullptr) {
    found.push_back(Diagnostic("library-missing", Missing(library, GetLastError())));
    return false;
  }
  for (const auto* name = At<IMAGE_THUNK_DATA>(descriptor.ImportNameTableRVA);
       name->u1.AddressOfData != 0; ++name) {
    if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
    const char* function = At<IMAGE_IMPORT_BY_NAME>(name->u1.AddressOfData)->Name;
    if (GetProcAddress(module, function) != nullptr) continue;
    found.push_back(Diagnostic("library-missing", library + " has no function " + function)
                        .Help("it is the library of this version of the launcher"));
    return false;
  }
  return true;
}

}  // namespace

bool CheckLibraries(Diagnostics& found) {
  bool isComplete = true;
  for (const auto* library = At<IMAGE_DELAYLOAD_DESCRIPTOR>(DelayDirectory().VirtualAddress);
       library->DllNameRVA != 0; ++library) {
    isComplete = CheckLibrary(*library, found) && isComplete;
  }
  return isComplete;
}

}  // namespace qvx::runcheck
