#include <windows.h>

#include "support/trailing_backslash.h"

namespace qvx {

bool IsLeadByte(char byte) { return IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0; }

}  // namespace qvx
