#include <cstdlib>
#include <exception>

#include "launcher/entry_sequence.h"

// Tokens on the command line are separated by "*": mingw-w64's C runtime must not expand wildcards.
// (Visual C++'s does so only when setargv.obj is linked in.)
#if defined(__MINGW32__)
extern "C" {
int _dowildcard = 0;  // NOLINT(bugprone-reserved-identifier): the runtime's name
}

// In place of libstdc++'s own, whose demangler would be a fifth of this program. Only an exception
// that no catch can reach gets here.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }
#endif

int main(int argumentCount, char** arguments) {
  return qvx::RunEntrySequence(argumentCount, arguments);
}
