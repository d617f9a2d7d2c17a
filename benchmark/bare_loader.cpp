// The least that loads what the check of a run loads: bare_loader LIBRARY...
#include <windows.h>

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    if (LoadLibraryA(arguments[i]) == nullptr) return 1;
  }
  return 0;
}
