#include "tests/faults/imported_member.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace qvx::test {
namespace {

template <typename T>
T* At(DWORD offset) {
  return reinterpret_cast<T*>(reinterpret_cast<char*>(GetModuleHandleA(nullptr)) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* Imports() {
  const auto* headers =
      At<const IMAGE_NT_HEADERS>(static_cast<DWORD>(At<const IMAGE_DOS_HEADER>(0)->e_lfanew));
  return At<const IMAGE_IMPORT_DESCRIPTOR>(
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

}  // namespace

void** ImportedMember(std::string_view className, const std::vector<std::string_view>& marks) {
  std::vector<void**> found;
  for (const auto* library = Imports(); library->Name != 0; ++library) {
    void** slot = At<void*>(library->FirstThunk);
    for (const auto* entry = At<const IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
         entry->u1.AddressOfData != 0; ++entry, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL(entry->u1.Ordinal)) continue;
      const auto offset = static_cast<DWORD>(entry->u1.AddressOfData);
      const std::string_view name = At<const IMAGE_IMPORT_BY_NAME>(offset)->Name;
      const auto isIn = [name](std::string_view part) { return name.find(part) != name.npos; };
      if (isIn(className) && std::any_of(marks.begin(), marks.end(), isIn)) found.push_back(slot);
    }
  }
  if (found.size() == 1) return found.front();
  std::fprintf(stderr, "%zu imports for %.*s\n", found.size(), static_cast<int>(className.size()),
               className.data());
  std::abort();
}

}  // namespace qvx::test
