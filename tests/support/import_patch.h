// Replaces a function that this program imports: every call goes through a pointer `__imp_NAME`,
// which the loader fills and a test may fill anew. No seam in the product's code is needed.
#pragma once

#include <windows.h>

namespace qvx::test {

/// While one lives, calls through `slot` reach `function`. It runs on every thread and for every
/// caller in the program, the C runtime's static parts included.
class ImportPatch {
 public:
  ImportPatch(void** slot, void* function) : slot_(slot), original_(*slot) { Write(function); }
  ~ImportPatch() { Write(original_); }
  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;

 private:
  void Write(void* function) const {
    DWORD protection = 0;
    VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
    *slot_ = function;
    VirtualProtect(slot_, sizeof *slot_, protection, &protection);
  }

  void** slot_;
  void* original_;
};

}  // namespace qvx::test
