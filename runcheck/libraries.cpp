#include "runcheck/libraries.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#if defined(__MINGW32__)
// The linker leaves the image's directory of late imports empty; these are its entries.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier): dlltool's names
extern const IMAGE_DELAYLOAD_DESCRIPTOR
    __DELAY_IMPORT_DESCRIPTOR_libQVXSolverArgumentTool_delayed_a;
extern const IMAGE_DELAYLOAD_DESCRIPTOR __DELAY_IMPORT_DESCRIPTOR_libQVXMPITool_delayed_a;
extern const IMAGE_DELAYLOAD_DESCRIPTOR __DELAY_IMPORT_DESCRIPTOR_libQVXUnicodeTool_delayed_a;
// NOLINTEND(bugprone-reserved-identifier)
}
#endif

namespace qvx::runcheck {
namespace {

// Addresses within this program's image.
template <typename Type>
const Type* At(std::uintptr_t offset) {
  return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(GetModuleHandleA(nullptr)) +
                                       offset);
}

#if defined(__MINGW32__)
std::vector<const IMAGE_DELAYLOAD_DESCRIPTOR*> LateLibraries() {
  return {&__DELAY_IMPORT_DESCRIPTOR_libQVXSolverArgumentTool_delayed_a,
          &__DELAY_IMPORT_DESCRIPTOR_libQVXMPITool_delayed_a,
          &__DELAY_IMPORT_DESCRIPTOR_libQVXUnicodeTool_delayed_a};
}
#else
std::vector<const IMAGE_DELAYLOAD_DESCRIPTOR*> LateLibraries() {
  const auto* dos = At<IMAGE_DOS_HEADER>(0);
  const auto* headers = At<IMAGE_NT_HEADERS>(static_cast<std::uintptr_t>(dos->e_lfanew));
  const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT];
  std::vector<const IMAGE_DELAYLOAD_DESCRIPTOR*> libraries;
  for (const auto* library = At<IMAGE_DELAYLOAD_DESCRIPTOR>(directory.VirtualAddress);
       library->DllNameRVA != 0; ++library) {
    libraries.push_back(library);
  }
  return libraries;
}
#endif

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
  for (const IMAGE_DELAYLOAD_DESCRIPTOR* library : LateLibraries()) {
    isComplete = CheckLibrary(*library, found) && isComplete;
  }
  return isComplete;
}

}  // namespace qvx::runcheck
