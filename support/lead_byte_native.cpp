// Where the portable rooms are tested natively, every byte is a character.
#include "support/trailing_backslash.h"

namespace qvx {

bool IsLeadByte(char /*byte*/) { return false; }

}  // namespace qvx
