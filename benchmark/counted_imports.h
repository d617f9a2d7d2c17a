// Counts the calls that this program makes of the functions that it imports, whichever they are:
// each is reached through a pointer, which leads to a thunk meanwhile.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <list>
#include <map>
#include <string>

#include "tests/support/import_patch.h"

namespace qvx::benchmark {

/// While one lives. The C runtime's functions are left out: it also exports variables, and a thunk
/// stands for none.
class CountedImports {
 public:
  CountedImports() {
    const auto* headers =
        At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress);
    for (; library->Name != 0; ++library) {
      if (std::strcmp(At<char>(library->Name), "msvcrt.dll") == 0) continue;
      auto* slot = At<void*>(library->FirstThunk);
      const auto* name = At<IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
      for (; name->u1.AddressOfData != 0; ++name, ++slot) {
        CountSlot(At<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(name->u1.AddressOfData))->Name, slot);
      }
    }
  }

  int Calls(const std::string& function) const { return thunks_.at(function).calls; }
  int Calls() const {
    int calls = 0;
    for (const auto& [name, thunk] : thunks_) calls += thunk.calls;
    return calls;
  }

 private:
  struct Thunk {
    /// inc dword ptr [calls]; jmp qword ptr [function]
    std::array<std::uint8_t, 12> code = {0xFF, 0x05, 6, 0, 0, 0, 0xFF, 0x25, 4, 0, 0, 0};
    std::int32_t calls = 0;
    void* function = nullptr;
  };
  static_assert(offsetof(Thunk, calls) == 12 && offsetof(Thunk, function) == 16);

  template <typename Part>
  static Part* At(DWORD offset) {
    return reinterpret_cast<Part*>(reinterpret_cast<char*>(GetModuleHandleA(nullptr)) + offset);
  }

  void CountSlot(const char* name, void** slot) {
    Thunk& thunk = thunks_[name];
    thunk.function = *slot;
    DWORD protection = 0;
    VirtualProtect(&thunk, sizeof thunk, PAGE_EXECUTE_READWRITE, &protection);
    patches_.emplace_back(slot, &thunk);
  }

  std::map<std::string, Thunk> thunks_;
  std::list<test::ImportPatch> patches_;
};

}  // namespace qvx::benchmark
