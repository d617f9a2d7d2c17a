// ws2_32.dll of a network in which nobody answers for a name.
#include <windows.h>

extern "C" {
__declspec(dllexport) int WINAPI WSAStartup(WORD /*version*/, void* /*data*/) { return 0; }

__declspec(dllexport) int WINAPI getaddrinfo(const char* /*name*/, const char* /*service*/,
                                             const void* /*hints*/, void** /*found*/) {
  Sleep(INFINITE);
  return 0;
}

// The check imports these two as well. No name is ever found, so nothing calls them.
__declspec(dllexport) void WINAPI freeaddrinfo(void* /*found*/) {}
__declspec(dllexport) int WINAPI getnameinfo() { return 0; }
}
