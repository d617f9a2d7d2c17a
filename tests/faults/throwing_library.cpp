// Stands in for the operations of a closed library, which has a C++ runtime of its own.
#include <new>
#include <stdexcept>

extern "C" {
__declspec(dllexport) void ThrowRuntimeError() { throw std::runtime_error("a closed library's"); }
__declspec(dllexport) void ThrowBadAlloc() { throw std::bad_alloc(); }
}
