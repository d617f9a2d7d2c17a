#include "support/trailing_backslash.h"

namespace qvx {

void RemoveTrailingBackslash(char* text) {
  // Only from the start on can the halves of letters be told from whole ones.
  char* last = nullptr;
  for (char* at = text; *at != '\0'; ++at) {
    last = at;
    if (IsLeadByte(*at) && at[1] != '\0') ++at;
  }
  if (last != nullptr && *last == '\\') *last = '\0';
}

}  // namespace qvx
